// Every file operation of the engine refused once, the n-th for every n until all succeed: what has
// a final name is old or new, whole, and the answer says what happened.
#include "tests/zip/refusing_calls.h"

#include <cerrno>
#include <gtest/gtest.h>
#include <map>
#include <set>

#include "extraction.h"
#include "tests/zip/made_archive.h"
#include "tests/zip/plain_reader.h"
#include "tests/zip/test_folder.h"
#include "update.h"

namespace kovrel::zip {
namespace {

using Files = std::map<std::string, std::string>;

constexpr std::size_t most_calls = 2000;
// Of a call that fails with EACCES the next ones would too, which is not tried here.
constexpr int errors[] = {EIO, ENOMEM};

bool is_temporary(const std::string& name) {
    const std::string last = name.substr(name.find_last_of('/') + 1);
    return last.starts_with("zi") && last.ends_with(".tmp");
}

Files files_in(const test::TestFolder& folder, const std::string& top) {
    Files files;
    const std::filesystem::path path = test::from_utf8(folder / top);
    if (!std::filesystem::exists(path)) return files;
    for (const auto& found : std::filesystem::recursive_directory_iterator(path)) {
        if (!found.is_regular_file()) continue;
        const std::string name = test::utf8(std::filesystem::relative(found.path(), path));
        files[name] = folder.read(top + "/" + name);
    }
    return files;
}

class RefusedExtraction : public testing::Test {
 protected:
    const Files old_files{{"a", "viejo"}, {"c/b", "viejo"}, {"c/otro", "no está en el archivo"}};
    const Files new_files{{"a", test::compressible(600'000, 1)},
                          {"b", ""},
                          {"c/b", test::incompressible(300'000, 2)},
                          {"d/e/f", "nuevo"},
                          {"d/g", "nuevo"}};

    void SetUp() override {
        std::vector<test::MadeEntry> entries = {test::folder_entry("d/")};
        for (const auto& [name, data] : new_files) entries.push_back(test::deflated(name, data));
        folder.write("a.zip", test::archive_with(entries));
    }

    void check_files(const std::string& call) const {
        for (const auto& [name, data] : files_in(folder, "fuera")) {
            if (is_temporary(name)) {
                EXPECT_EQ(call, "unlink") << name;
                continue;
            }
            const auto old = old_files.find(name);
            const auto fresh = new_files.find(name);
            EXPECT_TRUE((old != old_files.end() && data == old->second) ||
                        (fresh != new_files.end() && data == fresh->second))
                << call << ": half of " << name;
        }
        for (const auto& [name, data] : old_files) {
            EXPECT_TRUE(folder.exists("fuera/" + name)) << call << ": lost " << name;
        }
    }

    test::TestFolder folder;
};

TEST_F(RefusedExtraction, LeavesWholeFilesAndSaysSo) {
    std::set<std::string> calls;
    for (const int error : errors) {
        bool refused_all = false;
        for (std::size_t n = 1; !refused_all && n < most_calls; ++n) {
            std::filesystem::remove_all(test::from_utf8(folder / "fuera"));
            for (const auto& [name, data] : old_files) folder.write("fuera/" + name, data);
            ExtractOptions options;
            options.folder = folder / "fuera";
            options.existing = Existing::replace;
            options.threads = 1;
            bool all_done = true;
            ExtractEvents events;
            events.entry_done = [&](const Entry&, EntryState state, const std::string&) {
                all_done = all_done && state == EntryState::done;
                return false;
            };
            std::string why;
            test::refuse_call(n, error);
            const ZipCode code = extract_archive(folder / "a.zip", options, events, why);
            const std::string call = test::stop_refusing();
            calls.insert(call);
            refused_all = call.empty();
            check_files(call);
            EXPECT_TRUE(code != ZipCode::ok || all_done) << call << " " << n;
            if (code == ZipCode::ok) {
                for (const auto& [name, data] : new_files) {
                    EXPECT_TRUE(folder.read("fuera/" + name) == data) << call << " " << n << name;
                }
            } else {
                EXPECT_FALSE(refused_all) << why;
            }
        }
        EXPECT_TRUE(refused_all);
    }
    for (const char* call : {"flock", "fstat", "futimens", "lstat", "mkdir", "open", "opendir",
                             "pread", "pwrite", "rename", "stat", "utimensat"}) {
        EXPECT_TRUE(calls.contains(call)) << call << " was not refused";
    }
}

TEST_F(RefusedExtraction, AFullDiskStopsTheWhole) {
    bool seen = false;
    for (std::size_t n = 1; n < most_calls; ++n) {
        ExtractOptions options;
        options.folder = folder / ("fuera" + std::to_string(n));
        options.threads = 1;
        std::vector<EntryState> states;
        ExtractEvents events;
        events.entry_done = [&](const Entry&, EntryState state, const std::string&) {
            states.push_back(state);
            return false;
        };
        std::string why;
        test::refuse_call(n, ENOSPC);
        const ZipCode code = extract_archive(folder / "a.zip", options, events, why);
        const std::string call = test::stop_refusing();
        if (call.empty()) break;
        if (call != "pwrite") continue;
        seen = true;
        EXPECT_EQ(code, ZipCode::write_failed);
        ASSERT_FALSE(states.empty());
        EXPECT_EQ(states.back(), EntryState::write_failed);
    }
    EXPECT_TRUE(seen);
}

class RefusedPacking : public testing::TestWithParam<bool> {
 protected:
    void SetUp() override {
        names = {folder.write("a", test::compressible(600'000, 1)), folder.write("b", "nuevo"),
                 folder.write("c", test::incompressible(300'000, 2))};
        if (GetParam()) {
            ASSERT_EQ(pack(folder / "viejo.zip",
                           {folder.write("viejos/b", "viejo"), folder.write("viejos/d", "viejo")}),
                      ZipCode::ok);
            old_archive = folder.read("viejo.zip");
            restore();
        }
        ASSERT_EQ(pack(folder / "x.zip", names), ZipCode::ok);
        new_archive = folder.read("x.zip");
        std::filesystem::remove(test::from_utf8(folder / "viejo.zip"));
    }

    void restore() const {
        std::filesystem::remove(test::from_utf8(folder / "x.zip"));
        if (GetParam()) folder.write("x.zip", old_archive);
    }

    ZipCode pack(const std::string& archive, const std::vector<std::string>& files) {
        UpdateOptions options;
        options.threads = 1;
        UpdateEvents events;
        told = false;
        events.message = [this](std::string_view) { told = true; };
        return update_archive(archive, files, options, events);
    }

    test::TestFolder folder;
    std::vector<std::string> names;
    std::string old_archive;
    std::string new_archive;
    bool told = false;
};

// A file that cannot be examined or opened is left out, and the rest is whole: the code or a
// message says so.
TEST_P(RefusedPacking, LeavesAWholeArchiveAndSaysSo) {
    for (const int error : errors) {
        bool refused_all = false;
        for (std::size_t n = 1; !refused_all && n < most_calls; ++n) {
            restore();
            test::refuse_call(n, error);
            const ZipCode code = pack(folder / "x.zip", names);
            const std::string call = test::stop_refusing();
            refused_all = call.empty();
            const std::string now = folder.read("x.zip");
            const std::string at = call + " " + std::to_string(n);
            if (call == "fsync") {
                EXPECT_EQ(code, ZipCode::write_failed);
                EXPECT_EQ(now, old_archive);
            }
            if (now == new_archive) continue;
            EXPECT_TRUE(code != ZipCode::ok || told) << at;
            if (now == old_archive) {
                EXPECT_NE(code, ZipCode::ok) << at;
                continue;
            }
            std::set<std::string> found;
            for (const test::PlainEntry& entry : test::read_plain(now)) {
                EXPECT_TRUE(entry.readable) << at;
                found.insert(entry.name);
            }
            EXPECT_GE(found.size(), GetParam() ? 3U : 2U) << at;
            EXPECT_TRUE(!GetParam() || (found.contains("b") && found.contains("d"))) << at;
        }
        EXPECT_TRUE(refused_all);
    }
}

INSTANTIATE_TEST_SUITE_P(ANewArchive, RefusedPacking, testing::Values(false));
INSTANTIATE_TEST_SUITE_P(AnOldArchive, RefusedPacking, testing::Values(true));

}  // namespace
}  // namespace kovrel::zip
