// Files read and written by the engine: temporary names, and what a failure is told as.
#include "file_access.h"

#include <gtest/gtest.h>
#include <regex>
#include <set>

#include "tests/zip/test_folder.h"
#include "zip_error.h"

#ifndef _WIN32
#include <csignal>
#include <sys/resource.h>
#endif

namespace kovrel::zip {
namespace {

template <typename Action>
void expect_error(ZipCode code, const std::string& text, const Action& action) {
    try {
        action();
        ADD_FAILURE() << "no error";
    } catch (const ZipError& error) {
        EXPECT_EQ(error.code(), code);
        EXPECT_EQ(error.what(), text);
    }
}

Bytes bytes_in(const std::string& text) {
    return {text.begin(), text.end()};
}

TEST(ZipNewFile, IsWrittenUnderANameOfItsOwn) {
    const test::TestFolder folder;
    std::set<std::string> names;
    for (int turn = 0; turn < 30; ++turn) {
        const NewFile file(folder / "a.zip");
        const auto found = folder_names(test::utf8(folder.path()));
        for (const std::string& name : found.value()) {
            EXPECT_TRUE(std::regex_match(name, std::regex("zi[0-9a-f]{8}\\.tmp"))) << name;
            names.insert(name);
        }
    }
    EXPECT_EQ(folder.count(), 0U);
    EXPECT_EQ(names.size(), 30U);
    // Each of the digits is random.
    for (std::size_t place = 2; place < 10; ++place) {
        std::set<char> digits;
        for (const std::string& name : names) digits.insert(name.at(place));
        EXPECT_GT(digits.size(), 4U) << place;
    }
}

TEST(ZipNewFile, TakesTheTargetsPlaceOnceItIsComplete) {
    const test::TestFolder folder;
    folder.write("a.zip", "viejo");
    NewFile file(folder / "a.zip");
    file.write_at(0, bytes_in("nuevo"));
    file.write_at(5, bytes_in("!?"));
    file.set_size(6);
    EXPECT_EQ(folder.read("a.zip"), "viejo");
    EXPECT_EQ(folder.count(), 2U);
    file.replace_target();
    EXPECT_EQ(folder.read("a.zip"), "nuevo!");
    EXPECT_EQ(folder.count(), 1U);
}

TEST(ZipNewFile, WhatAKilledUpdateLeftIsRemovedAndNothingElse) {
    const test::TestFolder folder;
    const std::vector<std::string> others{"xi0123abcd.tmp", "zx0123abcd.tmp", "zi0123abcd.txt",
                                          "zi0123abcdxtmp", "zi0123abc.tmp",  "zi0123abcde.tmp",
                                          "zi0123abcg.tmp", "0123abcdzi.tmp"};
    for (const std::string& name : others) folder.write(name, "x");
    for (const char* name : {"zi0123abcd.tmp", "zi456789ef.tmp"}) folder.write(name, "x");
    { const NewFile file(folder / "a.zip"); }
    EXPECT_FALSE(folder.exists("zi0123abcd.tmp"));
    EXPECT_FALSE(folder.exists("zi456789ef.tmp"));
    for (const std::string& name : others) EXPECT_TRUE(folder.exists(name)) << name;
}

TEST(ZipNewFile, FailuresAreTold) {
    const test::TestFolder folder;
    const std::string nowhere = folder / "no/a.zip";
    expect_error(ZipCode::cannot_create, "could not create: " + nowhere,
                 [&] { const NewFile file(nowhere); });
    const std::string sub = folder / "sub";
    std::filesystem::create_directory(test::from_utf8(sub));
    folder.write("sub/f", "1");
    expect_error(ZipCode::cannot_create, "could not replace: " + sub,
                 [&] { NewFile(sub).replace_target(); });
    EXPECT_EQ(folder.count(), 1U);
}

TEST(ZipInputFile, ReadsAnyPartUpToTheEnd) {
    const test::TestFolder folder;
    const InputFile file(folder.write("f", "0123456789"));
    EXPECT_EQ(file.size(), 10U);
    Bytes room(4);
    EXPECT_EQ(file.read_at(3, room), 4U);
    EXPECT_EQ(room, bytes_in("3456"));
    EXPECT_EQ(file.read_at(8, room), 2U);
    EXPECT_EQ(room, bytes_in("8956"));
    EXPECT_EQ(file.read_at(10, room), 0U);
}

TEST(ZipInputFile, FailuresAreTold) {
    const test::TestFolder folder;
    const std::string path = folder / "no";
    expect_error(ZipCode::cannot_open_file, "could not open for reading: " + path,
                 [&] { const InputFile file(path); });
}

#ifndef _WIN32

TEST(ZipInputFile, AFolderCannotBeRead) {
    const test::TestFolder folder;
    const std::string path = test::utf8(folder.path());
    const InputFile file(path);
    Bytes room(4);
    expect_error(ZipCode::read_failed, "could not read: " + path,
                 [&] { static_cast<void>(file.read_at(0, room)); });
}

/// Files of this process stay below a size.
class SizeLimit {
 public:
    explicit SizeLimit(rlim_t bytes) : signal_(std::signal(SIGXFSZ, SIG_IGN)) {
        getrlimit(RLIMIT_FSIZE, &before_);
        const rlimit limit{bytes, before_.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    SizeLimit(const SizeLimit&) = delete;
    SizeLimit& operator=(const SizeLimit&) = delete;
    ~SizeLimit() {
        setrlimit(RLIMIT_FSIZE, &before_);
        std::signal(SIGXFSZ, signal_);
    }

 private:
    rlimit before_{};
    void (*signal_)(int);
};

TEST(ZipNewFile, AFullDiskIsAFailedWrite) {
    const test::TestFolder folder;
    const std::string path = folder / "a.zip";
    NewFile file(path);
    {
        const SizeLimit limit(1000);
        const std::string text = test::compressible(2000, 1);
        // The system takes the first half.
        expect_error(ZipCode::write_failed, "could not write: " + path,
                     [&] { file.write_at(0, bytes_in(text)); });
        expect_error(ZipCode::write_failed, "could not write: " + path,
                     [&] { file.set_size(2000); });
    }
    file.write_at(1000, bytes_in("x"));
    file.replace_target();
    EXPECT_EQ(folder.read("a.zip"), test::compressible(2000, 1).substr(0, 1000) + "x");
}

#endif

}  // namespace
}  // namespace kovrel::zip
