// Files packed into archives: contents, names, levels, folders, what is reported.
#include <new>

#include "archive_reader.h"
#include "tests/zip/made_archive.h"
#include "tests/zip/update_fixture.h"

namespace kovrel::zip {
namespace {

using test::compressible;
using test::from_utf8;
using test::incompressible;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

TEST_F(ZipUpdate, FilesAreDeflatedOrStoredWhicheverIsSmaller) {
    const std::string text = compressible(700'000, 1);
    const std::string noise = incompressible(600'000, 2);
    ASSERT_EQ(pack({folder.write("x/texto.txt", text), folder.write("y/foto.jpg", noise),
                    folder.write("vacio", ""), folder.write("corto", "a")}),
              ZipCode::ok);
    const auto found = entries();
    ASSERT_EQ(found.size(), 4U);
    EXPECT_EQ(found[0].name, "texto.txt");
    EXPECT_EQ(found[0].method, 8);
    EXPECT_TRUE(found[0].data == text);
    EXPECT_EQ(found[1].name, "foto.jpg");
    EXPECT_EQ(found[1].method, 0);
    EXPECT_TRUE(found[1].data == noise);
    EXPECT_EQ(found[2].method, 0);
    EXPECT_EQ(found[2].data, "");
    EXPECT_EQ(found[3].method, 0);
    EXPECT_EQ(found[3].data, "a");
    for (const auto& entry : found) {
        EXPECT_TRUE(entry.readable) << entry.name;
        EXPECT_EQ(entry.flags, 0);
    }
    EXPECT_THAT(messages, IsEmpty());
    EXPECT_THAT(done, ElementsAre("texto.txt 700000", "foto.jpg 600000", "vacio 0", "corto 1"));
    EXPECT_EQ(folder.count(), 5U);
}

TEST_F(ZipUpdate, EntriesNeedTheVersionOfTheirMethod) {
    options.recurse = options.folder_entries = true;
    options.drop_folder_names = false;
    options.root = test::utf8(folder.path());
    folder.write("d/corto", "a");
    folder.write("d/ruido", incompressible(600'000, 2));
    folder.write("d/texto", compressible(5000, 1));
    ASSERT_EQ(pack({"d"}), ZipCode::ok);
    const ArchiveReader reader(folder / "a.zip");
    ASSERT_EQ(reader.entries().size(), 4U);
    EXPECT_EQ(reader.entries()[0].central.version_needed, 20);  // a folder
    EXPECT_EQ(reader.entries()[0].length, local_header_size + 2);
    EXPECT_EQ(reader.entries()[1].central.version_needed, 10);  // stored
    EXPECT_EQ(reader.entries()[2].central.version_needed, 10);  // stored after all
    EXPECT_EQ(reader.entries()[3].central.version_needed, 20);  // deflated
    const std::string archive = folder.read("a.zip");
    for (const OldEntry& entry : reader.entries()) {
        EXPECT_EQ(entry.central.made_by, made_by_this_system());
        // Both headers say the same.
        Bytes header;
        append_local_header(header, entry.central, false);
        EXPECT_EQ(archive.substr(static_cast<std::size_t>(entry.start), header.size()),
                  std::string(header.begin(), header.end()));
    }
}

TEST_F(ZipUpdate, SizesAroundThePiecesOfAFile) {
    for (const long difference : {-1L, 0L, 1L}) {
        for (const std::size_t pieces : {1U, 2U, 3U}) {
            const std::size_t size = pieces * 262'144U + static_cast<std::size_t>(difference);
            for (const bool text : {true, false}) {
                const std::string data = text ? compressible(size, 3) : incompressible(size, 4);
                ASSERT_EQ(pack({folder.write("f", data)}), ZipCode::ok);
                EXPECT_TRUE(data_of("f") == data) << size;
                EXPECT_EQ(entries()[0].method, text ? 8 : 0);
            }
        }
    }
}

TEST_F(ZipUpdate, Level0Stores) {
    options.level = 0;
    const std::string text = compressible(600'000, 5);
    ASSERT_EQ(pack({folder.write("t", text)}), ZipCode::ok);
    EXPECT_EQ(entries()[0].method, 0);
    EXPECT_TRUE(data_of("t") == text);
}

TEST_F(ZipUpdate, Level1Deflates) {
    options.level = 1;
    ASSERT_EQ(pack({folder.write("t", compressible(5000, 5))}), ZipCode::ok);
    EXPECT_EQ(entries()[0].method, 8);
}

TEST_F(ZipUpdate, HigherLevelsAreNotLarger) {
    const std::string file = folder.write("t", compressible(600'000, 6));
    std::size_t before = 0;
    for (options.level = 9; options.level >= 0; options.level -= 3) {
        ASSERT_EQ(pack({file}), ZipCode::ok);
        EXPECT_GE(folder.read("a.zip").size(), before);
        before = folder.read("a.zip").size();
    }
}

TEST_F(ZipUpdate, NamesOutsideAsciiAreMarkedAsUtf8) {
    ASSERT_EQ(pack({folder.write("Añoñería €.txt", "1"), folder.write("plain.txt", "2")}),
              ZipCode::ok);
    EXPECT_EQ(entries()[0].name, "Añoñería €.txt");
    EXPECT_EQ(entries()[0].flags, 1 << 11);
    EXPECT_EQ(entries()[1].flags, 0);
}

TEST_F(ZipUpdate, TheSameBytesWithAnyNumberOfThreads) {
    std::vector<std::string> files;
    for (unsigned i = 0; i < 20; ++i) {
        files.push_back(folder.write("f" + std::to_string(i),
                                     i % 3 == 0 ? incompressible(std::size_t{i} * 40'000, i)
                                                : compressible(std::size_t{i} * 70'000, i)));
    }
    std::string first;
    for (options.threads = 1; options.threads <= 5; ++options.threads) {
        std::filesystem::remove(from_utf8(folder / "a.zip"));
        ASSERT_EQ(pack(files), ZipCode::ok);
        const std::string archive = folder.read("a.zip");
        if (first.empty()) {
            first = archive;
        }
        EXPECT_TRUE(archive == first) << options.threads;
    }
}

TEST_F(ZipUpdate, OneFileNamedTwiceIsPackedOnce) {
    const std::string file = folder.write("f", "1");
    EXPECT_EQ(pack({file, file, folder / "./f"}), ZipCode::ok);
    EXPECT_THAT(names(), ElementsAre("f"));
}

TEST_F(ZipUpdate, AMissingFileIsAWarning) {
    EXPECT_EQ(pack({folder / "no", folder.write("f", "1")}), ZipCode::ok);
    EXPECT_THAT(messages, ElementsAre("warning: name not matched: " + (folder / "no")));
    EXPECT_THAT(names(), ElementsAre("f"));
}

TEST_F(ZipUpdate, TheArchiveIsNotPackedIntoItself) {
    ASSERT_EQ(pack({folder.write("f", "1")}), ZipCode::ok);
    EXPECT_EQ(pack({folder / "a.zip", folder / "f"}), ZipCode::ok);
    EXPECT_THAT(names(), ElementsAre("f"));
    EXPECT_THAT(messages, ElementsAre(HasSubstr("not packed into itself")));
}

TEST_F(ZipUpdate, NothingIsLeftWhenTheCallerStopsIt) {
    stop_after = 2;
    EXPECT_EQ(pack({folder.write("a", "1"), folder.write("b", "2"), folder.write("c", "3")}),
              ZipCode::aborted);
    EXPECT_FALSE(folder.exists("a.zip"));
    EXPECT_EQ(folder.count(), 3U);
}

TEST_F(ZipUpdate, FilesAreMovedOnlyOnceTheArchiveIsComplete) {
    options.move = true;
    stop_after = 1;
    EXPECT_EQ(pack({folder.write("f", "1")}), ZipCode::aborted);
    EXPECT_TRUE(folder.exists("f"));
    stop_after = 0;
    EXPECT_EQ(pack({folder / "f"}), ZipCode::ok);
    EXPECT_FALSE(folder.exists("f"));
    EXPECT_THAT(names(), ElementsAre("f"));
}

TEST_F(ZipUpdate, AFileThatCannotBeMovedIsAWarning) {
    options.move = true;
    const std::string a = folder.write("a", "1");
    const std::string b = folder.write("b", "2");
    UpdateEvents events;
    events.message = [this](std::string_view line) { messages.emplace_back(line); };
    events.entry_done = [&](const CentralEntry& entry, const std::string&) {
        if (entry.name == "b") remove_file(a);
        return false;
    };
    EXPECT_EQ(update_archive(folder / "a.zip", {a, b}, options, events), ZipCode::ok);
    EXPECT_THAT(messages, ElementsAre("warning: could not delete: " + a));
    EXPECT_FALSE(folder.exists("b"));
    EXPECT_THAT(names(), ElementsAre("a", "b"));
}

TEST_F(ZipUpdate, WhatTheCallerThrowsIsAnError) {
    const std::string file = folder.write("f", "1");
    UpdateEvents events;
    events.message = [this](std::string_view line) { messages.emplace_back(line); };
    events.entry_done = [](const CentralEntry&, const std::string&) -> bool {
        throw std::bad_alloc();
    };
    EXPECT_EQ(update_archive(folder / "a.zip", {file}, options, events), ZipCode::out_of_memory);
    events.entry_done = [](const CentralEntry&, const std::string&) -> bool { throw 1; };
    EXPECT_EQ(update_archive(folder / "a.zip", {file}, options, events), ZipCode::internal_error);
    EXPECT_THAT(messages, ElementsAre("error: out of memory", "error: internal error"));
    events.message = [](std::string_view) { throw 1; };
    EXPECT_EQ(update_archive(folder / "a.zip", {}, options, events), ZipCode::internal_error);
    EXPECT_EQ(folder.count(), 1U);
}

TEST_F(ZipUpdate, FoldersAreSearchedAndKeepTheirNames) {
    folder.write("d/z", "1");
    folder.write("d/e/y", "2");
    options.recurse = true;
    options.drop_folder_names = false;
    options.folder_entries = true;
    options.root = test::utf8(folder.path());
    EXPECT_EQ(pack({"d"}), ZipCode::ok);
    EXPECT_THAT(names(), ElementsAre("d/", "d/e/", "d/e/y", "d/z"));
    EXPECT_EQ(data_of("d/e/y"), "2");
    std::filesystem::remove(from_utf8(folder / "a.zip"));
    options.folder_entries = false;
    options.drop_folder_names = true;
    EXPECT_EQ(pack({"d"}), ZipCode::ok);
    EXPECT_THAT(names(), ElementsAre("y", "z"));
}

TEST_F(ZipUpdate, AFileThatCannotBeOpenedIsLeftOutAndItsEntryStays) {
    ASSERT_EQ(pack({folder.write("c", "viejo")}), ZipCode::ok);
    folder.write("a", "1");
    folder.write("b", "2");
    UpdateEvents events;
    events.message = [this](std::string_view line) { messages.emplace_back(line); };
    // With one thread only the next file is open already.
    options.threads = 1;
    events.entry_done = [this](const CentralEntry& entry, const std::string&) {
        done.emplace_back(entry.name);
        std::filesystem::remove(from_utf8(folder / "d"));
        return false;
    };
    done.clear();
    folder.write("c", "nuevo");
    folder.write("d", "4");
    EXPECT_EQ(
        update_archive(folder / "a.zip", {folder / "a", folder / "b", folder / "c", folder / "d"},
                       options, events),
        ZipCode::cannot_open_file);
    EXPECT_THAT(messages, ElementsAre("warning: could not open for reading: " + (folder / "d")));
    EXPECT_THAT(done, ElementsAre("c", "a", "b"));
    EXPECT_THAT(names(), ElementsAre("c", "a", "b"));
    EXPECT_EQ(data_of("c"), "nuevo");
    // Now the file that cannot be opened has an entry, and a duplicate of it.
    folder.write("a.zip", test::made_on_unix({{"a", "0"}, {"b", "0"}, {"d", "5"}, {"d", "6"}}));
    folder.write("d", "4");
    EXPECT_EQ(update_archive(folder / "a.zip", {folder / "a", folder / "b", folder / "d"}, options,
                             events),
              ZipCode::cannot_open_file);
    EXPECT_THAT(names(), ElementsAre("a", "b", "d", "d"));
    EXPECT_EQ(entries()[2].data, "5");
    EXPECT_EQ(entries()[3].data, "6");
}

TEST_F(ZipUpdate, AFolderAloneIsAWarningOrAnEntry) {
    folder.write("d/z", "1");
    options.root = test::utf8(folder.path());
    EXPECT_EQ(pack({"d"}), ZipCode::nothing_to_do);
    EXPECT_THAT(messages, ElementsAre("warning: a folder is not packed: " + options.root + "/d",
                                      "error: nothing to do: " + (folder / "a.zip")));
    options.folder_entries = true;  // which needs folder names
    EXPECT_EQ(pack({"d"}), ZipCode::nothing_to_do);
    EXPECT_EQ(messages.size(), 2U);
    options.drop_folder_names = false;
    EXPECT_EQ(pack({"d"}), ZipCode::ok);
    EXPECT_THAT(messages, IsEmpty());
    EXPECT_THAT(names(), ElementsAre("d/"));
    // The folder that names start from has no name of its own.
    EXPECT_EQ(pack({"."}), ZipCode::nothing_to_do);
}

TEST_F(ZipUpdate, RelativeNamesStartFromTheRoot) {
    const std::string file = folder.write("x/f", "1");
    options.drop_folder_names = false;
    EXPECT_EQ(pack({"x/f"}), ZipCode::nothing_to_do);
    options.root = folder / "x";
    EXPECT_EQ(pack({"f"}), ZipCode::ok);
    EXPECT_THAT(names(), ElementsAre("f"));
    std::filesystem::remove(from_utf8(folder / "a.zip"));
    // An absolute name is its own place, with or without a root.
    EXPECT_EQ(pack({file}), ZipCode::ok);
    EXPECT_TRUE(names().at(0).ends_with("/x/f")) << names()[0];
    EXPECT_THAT(messages, IsEmpty());
}

#ifndef _WIN32

TEST_F(ZipUpdate, HiddenFilesAndBrokenLinksInFoldersAreLeftOut) {
    folder.write("d/.oculto", "1");
    folder.write("d/.carpeta/y", "2");
    folder.write("d/z", "3");
    std::filesystem::create_symlink("nada", from_utf8(folder / "d/enlace"));
    options.recurse = true;
    options.drop_folder_names = false;
    options.root = test::utf8(folder.path());
    EXPECT_EQ(pack({"d"}), ZipCode::ok);
    EXPECT_THAT(names(), ElementsAre("d/z"));
    options.include_hidden = true;
    EXPECT_EQ(pack({"d"}), ZipCode::ok);
    EXPECT_THAT(names(), ElementsAre("d/z", "d/.carpeta/y", "d/.oculto"));
}

TEST_F(ZipUpdate, FoldersAreSearchedAHundredDeep) {
    std::string path = "d";
    for (int depth = 0; depth <= 101; ++depth, path += "/d") {
        folder.write(path + "/" + std::to_string(depth), "1");
    }
    options.recurse = true;
    options.root = test::utf8(folder.path());
    EXPECT_EQ(pack({"d"}), ZipCode::ok);
    EXPECT_EQ(names().size(), 101U);
    EXPECT_EQ(data_of("100"), "1");
    EXPECT_EQ(data_of("101"), "(none)");
}

#endif

TEST_F(ZipUpdate, EachEntryIsReportedUnlessQuiet) {
    quiet = false;
    ASSERT_EQ(pack({folder.write("a", "1"), folder.write("b", compressible(900, 1))}), ZipCode::ok);
    EXPECT_THAT(messages, ElementsAre("adding: a (stored)", "adding: b (deflated)"));
    ASSERT_EQ(pack({folder / "a"}), ZipCode::ok);
    EXPECT_THAT(messages, ElementsAre("updating: a (stored)"));
}

}  // namespace
}  // namespace kovrel::zip
