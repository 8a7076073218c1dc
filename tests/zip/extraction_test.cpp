// Entries taken out of archives, and archives tested, as callers see it.
#include "extraction.h"

#include <gmock/gmock.h>

#include "folder_access.h"
#include "tests/zip/made_archive.h"
#include "tests/zip/test_folder.h"

#ifndef _WIN32
#include <sys/stat.h>
#endif

namespace kovrel::zip {
namespace {

using test::deflated;
using test::folder_entry;
using test::link_entry;
using test::MadeEntry;
using test::stored;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

class ZipExtraction : public testing::Test {
 protected:
    ZipExtraction() {
        options.folder = folder / "fuera";
        options.threads = 2;
        events.entry_done = [this](const Entry& entry, EntryState state, const std::string& path) {
            states.push_back(entry.name + " " + std::to_string(static_cast<int>(state)));
            paths.push_back(path);
            return states.size() == stop_after;
        };
    }

    ZipCode take(const std::vector<MadeEntry>& entries) {
        return take_bytes(test::archive_with(entries));
    }

    ZipCode take_bytes(const std::string& archive) {
        folder.write("a.zip", archive);
        states.clear();
        paths.clear();
        why.clear();
        return extract_archive(folder / "a.zip", options, events, why);
    }

    ZipCode run_test(const std::vector<MadeEntry>& entries,
                     const std::vector<std::string>& patterns = {},
                     const std::vector<std::string>& exclusions = {}) {
        folder.write("a.zip", test::archive_with(entries));
        states.clear();
        why.clear();
        return test_archive(folder / "a.zip", patterns, exclusions, events, why);
    }

    static std::string is(const std::string& name, EntryState state) {
        return name + " " + std::to_string(static_cast<int>(state));
    }

    [[nodiscard]] std::string taken(const std::string& name) const {
        return folder.exists("fuera/" + name) ? folder.read("fuera/" + name) : "(none)";
    }

    /// The names in the folder of what is taken out, those of folders with "/".
    [[nodiscard]] std::vector<std::string> tree() const {
        std::vector<std::string> names;
        const std::filesystem::path top = test::from_utf8(folder / "fuera");
        if (!std::filesystem::exists(top)) return {"(nothing)"};
        for (const auto& found : std::filesystem::recursive_directory_iterator(top)) {
            std::string name = test::utf8(std::filesystem::relative(found.path(), top));
            std::replace(name.begin(), name.end(), '\\', '/');
            if (found.is_directory() && !found.is_symlink()) name += '/';
            names.push_back(name);
        }
        std::sort(names.begin(), names.end());
        return names;
    }

    test::TestFolder folder;
    ExtractOptions options;
    ExtractEvents events;
    std::size_t stop_after = 0;
    std::vector<std::string> states;
    std::vector<std::string> paths;
    std::string why;
};

TEST_F(ZipExtraction, TakesOutFilesAndFolders) {
    const std::string large = test::compressible(700'000, 1);
    for (const unsigned threads : {0U, 1U, 2U, 5U}) {
        options.folder = folder / ("hilos" + std::to_string(threads) + "/dentro/fuera");
        options.threads = threads;
        EXPECT_EQ(take({folder_entry("vacía/"), stored("a.txt", "uno"), stored("vacío", ""),
                        deflated("c/d/e.txt", large), deflated("ñ/日本 \U0001F600", "dos")}),
                  ZipCode::ok);
        EXPECT_EQ(why, "");
        EXPECT_THAT(states,
                    ElementsAre(is("vacía/", EntryState::done), is("a.txt", EntryState::done),
                                is("vacío", EntryState::done), is("c/d/e.txt", EntryState::done),
                                is("ñ/日本 \U0001F600", EntryState::done)));
        EXPECT_EQ(paths.at(3), options.folder + "/c/d/e.txt");
        const std::string at = "hilos" + std::to_string(threads) + "/dentro/fuera/";
        EXPECT_TRUE(folder.exists(at + "vacía"));
        EXPECT_EQ(folder.read(at + "a.txt"), "uno");
        EXPECT_TRUE(folder.exists(at + "vacío"));
        EXPECT_TRUE(folder.read(at + "c/d/e.txt") == large);
        EXPECT_EQ(folder.read(at + "ñ/日本 \U0001F600"), "dos");
    }
}

TEST_F(ZipExtraction, AnEmptyArchiveLeavesTheEmptyFolder) {
    EXPECT_EQ(take({}), ZipCode::ok);
    EXPECT_THAT(tree(), IsEmpty());
    EXPECT_TRUE(folder.exists("fuera"));
}

TEST_F(ZipExtraction, PatternsChoose) {
    const std::vector<MadeEntry> entries = {stored("a.txt", "1"), stored("c/b.txt", "2"),
                                            stored("c/b.bin", "3"), stored("d/x.txt", "4")};
    options.patterns = {"*.txt"};
    options.exclusions = {"d"};
    EXPECT_EQ(take(entries), ZipCode::ok);
    EXPECT_THAT(tree(), ElementsAre("a.txt", "c/", "c/b.txt"));
    EXPECT_THAT(states, ElementsAre(is("a.txt", EntryState::done), is("c/b.txt", EntryState::done),
                                    is("c/b.bin", EntryState::left_out),
                                    is("d/x.txt", EntryState::left_out)));
    options.patterns = {"*.doc"};
    EXPECT_EQ(take(entries), ZipCode::nothing_to_do);
    EXPECT_EQ(why, "no entry of such a name");
}

TEST_F(ZipExtraction, PatternsAreComparedWithWhereEntriesLead) {
    options.exclusions = {"datos/*.txt"};
    EXPECT_EQ(take({stored("datos//a.txt", "1"), stored("./datos/./b.txt", "2"),
                    stored("datos/c.bin", "3")}),
              ZipCode::ok);
    EXPECT_THAT(tree(), UnorderedElementsAre("datos/", "datos/c.bin"));
}

TEST_F(ZipExtraction, TheFolderMayEndInDots) {
    options.folder = folder / "fuera/dentro/..";
    std::filesystem::create_directories(test::from_utf8(folder / "fuera/dentro"));
    EXPECT_EQ(take({stored("a.txt", "1")}), ZipCode::ok);
    EXPECT_EQ(taken("a.txt"), "1");
}

TEST_F(ZipExtraction, ExistingFilesAreKeptReplacedOrAskedAbout) {
    const std::vector<MadeEntry> entries = {stored("a", "nuevo"), stored("b", "nuevo")};
    folder.write("fuera/a", "viejo");
    EXPECT_EQ(take(entries), ZipCode::ok);
    EXPECT_THAT(states, ElementsAre(is("a", EntryState::kept_existing), is("b", EntryState::done)));
    EXPECT_EQ(taken("a"), "viejo");
    EXPECT_EQ(taken("b"), "nuevo");

    options.existing = Existing::ask;
    EXPECT_EQ(take({stored("a", "otro")}), ZipCode::ok);
    EXPECT_THAT(states, ElementsAre(is("a", EntryState::declined)));
    std::vector<std::string> asked;
    events.replace = [&](const Entry& entry, const std::string& path) {
        asked.push_back(entry.name + " " + path);
        return entry.name == "b";
    };
    EXPECT_EQ(take({stored("a", "otro"), stored("b", "otro"), stored("c", "otro")}), ZipCode::ok);
    EXPECT_THAT(asked,
                ElementsAre("a " + (folder / "fuera") + "/a", "b " + (folder / "fuera") + "/b"));
    EXPECT_THAT(states, ElementsAre(is("a", EntryState::declined), is("b", EntryState::done),
                                    is("c", EntryState::done)));
    EXPECT_EQ(taken("a"), "viejo");
    EXPECT_EQ(taken("b"), "otro");

    options.existing = Existing::replace;
    EXPECT_EQ(take(entries), ZipCode::ok);
    EXPECT_EQ(taken("a"), "nuevo");
    EXPECT_EQ(taken("b"), "nuevo");
    EXPECT_EQ(tree().size(), 3U);
}

TEST_F(ZipExtraction, OnlyOlderFilesAreReplaced) {
    const auto dated = [](const char* data, int year) {
        return stored("a", data).with([&](CentralEntry& entry) {
            entry.modified = to_dos_time({year, 6, 1, 12, 0, 0});
        });
    };
    options.existing = Existing::replace_older;
    EXPECT_EQ(take({dated("2020", 2020)}), ZipCode::ok);
    for (const auto& [data, year, left] :
         {std::tuple{"2019", 2019, "2020"}, std::tuple{"igual", 2020, "2020"},
          std::tuple{"2021", 2021, "2021"}}) {
        EXPECT_EQ(take({dated(data, year)}), ZipCode::ok);
        EXPECT_EQ(taken("a"), left);
        EXPECT_THAT(states,
                    ElementsAre(is("a", std::string_view(data) == left ? EntryState::done
                                                                       : EntryState::not_newer)));
    }
}

TEST_F(ZipExtraction, WithoutFolderNames) {
    options.drop_folder_names = true;
    EXPECT_EQ(take({folder_entry("c/"), stored("c/a", "1"), stored("d/b", "2"), stored("e/a", "3"),
                    stored("../x", "4")}),
              ZipCode::incomplete);
    EXPECT_THAT(states, ElementsAre(is("c/", EntryState::left_out), is("c/a", EntryState::done),
                                    is("d/b", EntryState::done), is("e/a", EntryState::name_twice),
                                    is("../x", EntryState::bad_name)));
    EXPECT_THAT(tree(), ElementsAre("a", "b"));
    EXPECT_EQ(taken("a"), "1");
}

TEST_F(ZipExtraction, NothingLeavesTheFolder) {
    EXPECT_EQ(
        take({stored("../x", "1"), stored("/x", "1"), stored("c/../../x", "1"), stored("c/..", "1"),
              stored("", "1"), folder_entry("../y/"), folder_entry("./"), stored("dentro", "2")}),
        ZipCode::incomplete);
    EXPECT_EQ(states.back(), is("dentro", EntryState::done));
    EXPECT_EQ(states.at(6), is("./", EntryState::done));
    for (std::size_t i = 0; i < 6; ++i) {
        EXPECT_TRUE(states[i].ends_with(is("", EntryState::bad_name))) << states[i];
        EXPECT_EQ(paths[i], "");
    }
    EXPECT_THAT(tree(), ElementsAre("dentro"));
    EXPECT_EQ(folder.count(), 2U);
}

TEST_F(ZipExtraction, WhatCannotBeReadIsToldByEntry) {
    const auto changed = [](const char* name, const auto& change) {
        return deflated(name, "datos, datos, datos").with(change);
    };
    MadeEntry other_name = stored("contradictoria", "x");
    other_name.local.name = "Contradictoria";
    EXPECT_EQ(take({changed("cifrada", [](CentralEntry& entry) { entry.flags |= flag_encrypted; }),
                    changed("lzma", [](CentralEntry& entry) { entry.method = 14; }),
                    changed("suma", [](CentralEntry& entry) { ++entry.crc; }),
                    changed("corta", [](CentralEntry& entry) { --entry.size; }), other_name,
                    link_entry("enlace", "/etc"), stored("enlace/x", "1"), stored("bien", "sí")}),
              ZipCode::incomplete);
    EXPECT_EQ(why, "");
    EXPECT_THAT(
        states,
        ElementsAre(is("cifrada", EntryState::encrypted), is("lzma", EntryState::unknown_method),
                    is("suma", EntryState::wrong_checksum), is("corta", EntryState::damaged),
                    is("contradictoria", EntryState::contradicting), is("enlace", EntryState::link),
                    is("enlace/x", EntryState::done), is("bien", EntryState::done)));
    EXPECT_THAT(tree(), ElementsAre("bien", "enlace/", "enlace/x"));
}

TEST_F(ZipExtraction, ADamagedEntryLeavesTheFileThatWasThere) {
    folder.write("fuera/a", "viejo");
    options.existing = Existing::replace;
    MadeEntry made = deflated("a", test::compressible(600'000, 2));
    made.data[made.data.size() - 100] ^= '\xFF';
    EXPECT_EQ(take({made}), ZipCode::incomplete);
    EXPECT_EQ(taken("a"), "viejo");
    EXPECT_EQ(tree().size(), 1U);
}

TEST_F(ZipExtraction, OneNameTwiceIsTakenOnce) {
    EXPECT_EQ(take({stored("a", "primero"), stored("./a", "segundo"), stored("A", "tercero"),
                    folder_entry("c/"), folder_entry("c/")}),
              ZipCode::incomplete);
    EXPECT_EQ(states.at(1), is("./a", EntryState::name_twice));
    EXPECT_EQ(states.at(4), is("c/", EntryState::done));
    EXPECT_EQ(taken("a"), "primero");
    const bool capitals_count = native_path_style == PathStyle::posix;
    EXPECT_EQ(states.at(2), is("A", capitals_count ? EntryState::done : EntryState::name_twice));
}

TEST_F(ZipExtraction, AFileAndAFolderOfOneName) {
    for (const unsigned threads : {1U, 3U}) {
        options.folder = folder / ("fuera" + std::to_string(threads));
        options.threads = threads;
        EXPECT_EQ(
            take({stored("a", "1"), stored("a/b", "2"), stored("c/d", "3"), stored("c", "4"),
                  folder_entry("e/"), stored("e", "5"), stored("f", "6"), folder_entry("f/")}),
            ZipCode::incomplete);
        EXPECT_THAT(states,
                    ElementsAre(is("a", EntryState::done), is("a/b", EntryState::cannot_create),
                                is("c/d", EntryState::done), is("c", EntryState::cannot_create),
                                is("e/", EntryState::done), is("e", EntryState::cannot_create),
                                is("f", EntryState::done), is("f/", EntryState::cannot_create)));
    }
    folder.write("fuera/carpeta/x", "x");
    folder.write("fuera/fichero", "x");
    options.folder = folder / "fuera";
    options.existing = Existing::replace;
    EXPECT_EQ(take({stored("carpeta", "1"), stored("fichero/b", "2"), folder_entry("fichero/"),
                    stored("bien", "3")}),
              ZipCode::incomplete);
    EXPECT_THAT(states, ElementsAre(is("carpeta", EntryState::cannot_create),
                                    is("fichero/b", EntryState::cannot_create),
                                    is("fichero/", EntryState::cannot_create),
                                    is("bien", EntryState::done)));
    EXPECT_EQ(taken("fichero"), "x");
}

TEST_F(ZipExtraction, LimitsHoldBeforeAnythingIsWritten) {
    const std::vector<MadeEntry> entries = {stored("a", std::string(600, 'a')),
                                            stored("b", std::string(401, 'b'))};
    options.most_bytes = 1000;
    EXPECT_EQ(take(entries), ZipCode::over_limit);
    EXPECT_EQ(why, "the archive unpacks to more bytes than the limit: b");
    EXPECT_THAT(states, ElementsAre(is("b", EntryState::over_limit)));
    EXPECT_THAT(tree(), ElementsAre("(nothing)"));
    options.most_bytes = 1001;
    EXPECT_EQ(take(entries), ZipCode::ok);
    options.most_bytes = 1000;
    options.exclusions = {"b"};
    EXPECT_EQ(take(entries), ZipCode::ok);
    // A sum that overflows.
    options.exclusions.clear();
    options.most_bytes = ~std::uint64_t{0};
    MadeEntry huge = deflated("c", "x");
    huge.with([](CentralEntry& entry) { entry.size = ~std::uint64_t{0} - 1; });
    huge.wide = true;
    EXPECT_EQ(take({entries[0], huge}), ZipCode::over_limit);
    EXPECT_EQ(why, "the archive unpacks to more bytes than the limit: c");
}

TEST_F(ZipExtraction, TheRatioCountsFromOneMebibyte) {
    options.most_ratio = 100;
    EXPECT_EQ(take({deflated("a", std::string(1 << 20, 'a'))}), ZipCode::ok);
    EXPECT_EQ(take({deflated("b", std::string((1 << 20) + 1, 'a'))}), ZipCode::over_limit);
    EXPECT_EQ(why, "an entry unpacks to more times its bytes than the limit: b");
    options.most_ratio = 1100;
    EXPECT_EQ(take({deflated("b", std::string((1 << 20) + 1, 'a'))}), ZipCode::ok);
    options.most_ratio = 0;
    EXPECT_EQ(take({deflated("c", std::string((1 << 20) + 1, 'a'))}), ZipCode::over_limit);
}

TEST_F(ZipExtraction, EventsStop) {
    std::vector<MadeEntry> entries;
    entries.reserve(200);
    for (int i = 0; i < 200; ++i) entries.push_back(stored("f" + std::to_string(i), "1"));
    for (const unsigned threads : {1U, 2U}) {
        options.threads = threads;
        options.folder = folder / ("fuera" + std::to_string(threads));
        stop_after = 10;
        EXPECT_EQ(take(entries), ZipCode::aborted);
        EXPECT_EQ(why, "stopped by the caller");
        EXPECT_EQ(states.size(), 10U);
        for (const auto& found :
             std::filesystem::directory_iterator(test::from_utf8(options.folder))) {
            EXPECT_EQ(std::filesystem::file_size(found), 1U) << found.path();
        }
    }
    stop_after = 0;
    events.progress = [](std::string_view, std::uint64_t done, std::uint64_t) { return done >= 5; };
    for (const unsigned threads : {1U, 2U}) {
        options.threads = threads;
        options.folder = folder / ("fuera" + std::to_string(2 + threads));
        EXPECT_EQ(take(entries), ZipCode::aborted);
        // Other threads may be ahead of what is told.
        EXPECT_LE(states.size(), 5U);
        EXPECT_TRUE(threads > 1 || states.size() == 5) << states.size();
    }
}

TEST_F(ZipExtraction, ProgressCountsTheBytes) {
    std::vector<std::string> told;
    events.progress = [&](std::string_view name, std::uint64_t done, std::uint64_t total) {
        told.push_back(std::string(name) + " " + std::to_string(done) + "/" +
                       std::to_string(total));
        return false;
    };
    folder.write("fuera/b", "viejo");
    options.threads = 1;
    EXPECT_EQ(take({stored("a", "12345"), stored("b", "123"), folder_entry("c/"),
                    stored("../x", "1"), deflated("d", "12")}),
              ZipCode::incomplete);
    EXPECT_THAT(told, ElementsAre("a 5/10", "b 8/10", "c/ 8/10", "../x 8/10", "d 10/10"));
}

TEST_F(ZipExtraction, AnEventThatThrowsIsAnInternalError) {
    events.progress = [](std::string_view, std::uint64_t, std::uint64_t) -> bool { throw 1; };
    EXPECT_EQ(take({stored("a", "1")}), ZipCode::internal_error);
    EXPECT_EQ(why, "internal error");
}

TEST_F(ZipExtraction, ArchivesThatCannotBeReadAndFoldersThatCannotBeMade) {
    EXPECT_EQ(extract_archive(folder / "no.zip", options, events, why), ZipCode::cannot_open_file);
    EXPECT_EQ(take_bytes("esto no es un archivo"), ZipCode::bad_archive);
    EXPECT_THAT(tree(), ElementsAre("(nothing)"));
    folder.write("fichero", "x");
    options.folder = folder / "fichero";
    EXPECT_EQ(take({stored("a", "1")}), ZipCode::cannot_create);
    options.folder = folder / "fichero/dentro";
    EXPECT_EQ(take({stored("a", "1")}), ZipCode::cannot_create);
    EXPECT_EQ(why, "could not create: " + options.folder);
    options.folder = "";
    EXPECT_EQ(take({stored("a", "1")}), ZipCode::bad_parameters);
}

TEST_F(ZipExtraction, FilesAndFoldersGetTheirTimes) {
    // 2021-03-28 01:30:00 UTC, in the UTC field, and another local time.
    constexpr std::int64_t moment = 1'616'895'000;
    const auto with_utc = [](MadeEntry made) {
        Bytes field;
        append(field, std::uint16_t{0x5455}, std::uint16_t{5}, std::uint8_t{1},
               static_cast<std::uint32_t>(moment));
        made.central.extra.assign(field.begin(), field.end());
        return made;
    };
    EXPECT_EQ(take({with_utc(folder_entry("c/")), with_utc(stored("c/a", "1")), stored("b", "2"),
                    stored("c/d", "3"), folder_entry("c/e/")}),
              ZipCode::ok);
    const auto modified = [&](const std::string& name) {
        return path_state(options.folder + "/" + name).modified;
    };
    const Moment local = *moment_of_dos_time(stored("b", "").central.modified);
    EXPECT_EQ(modified("c/a"), moment_of_unix_time(moment));
    EXPECT_EQ(modified("b"), local);
    EXPECT_EQ(modified("c"), moment_of_unix_time(moment));
    EXPECT_EQ(modified("c/e"), local);
}

TEST_F(ZipExtraction, AReadOnlyFileIsRestoredAndReplaced) {
    const auto read_only = [](const char* data) {
        return stored("a", data).with([](CentralEntry& entry) { entry.external_attributes = 1; });
    };
    options.existing = Existing::replace;
    EXPECT_EQ(take({read_only("1")}), ZipCode::ok);
    const auto permissions =
        std::filesystem::status(test::from_utf8(folder / "fuera/a")).permissions();
    EXPECT_EQ(permissions & std::filesystem::perms::owner_write, std::filesystem::perms::none);
    EXPECT_EQ(take({read_only("2")}), ZipCode::ok);
    EXPECT_EQ(taken("a"), "2");
    // Windows removes no read-only file.
    std::filesystem::permissions(test::from_utf8(folder / "fuera/a"),
                                 std::filesystem::perms::owner_all);
}

TEST_F(ZipExtraction, WhatAKilledProcessLeftIsRemovedFromTheFoldersInUse) {
    folder.write("fuera/zi0123abcd.tmp", "x");
    folder.write("fuera/c/zi0123abcd.tmp", "x");
    folder.write("fuera/d/zi0123abcd.tmp", "x");
    EXPECT_EQ(take({stored("a", "1"), stored("c/b", "1"), folder_entry("d/")}), ZipCode::ok);
    EXPECT_THAT(tree(), ElementsAre("a", "c/", "c/b", "d/", "d/zi0123abcd.tmp"));
}

TEST_F(ZipExtraction, TestsTheEntries) {
    MadeEntry bad = deflated("mal", "datos");
    bad.with([](CentralEntry& entry) { ++entry.crc; });
    const std::vector<MadeEntry> entries = {stored("a", "1"), bad, stored("../x", "2"),
                                            folder_entry("c/"),
                                            deflated("bomba", std::string(3 << 20, 'a'))};
    EXPECT_EQ(run_test(entries), ZipCode::incomplete);
    EXPECT_THAT(states,
                ElementsAre(is("a", EntryState::done), is("mal", EntryState::wrong_checksum),
                            is("../x", EntryState::done), is("c/", EntryState::done),
                            is("bomba", EntryState::done)));
    EXPECT_EQ(run_test(entries, {}, {"mal"}), ZipCode::ok);
    EXPECT_EQ(states.at(1), is("mal", EntryState::left_out));
    EXPECT_EQ(run_test(entries, {"no"}), ZipCode::nothing_to_do);
    stop_after = 2;
    EXPECT_EQ(run_test(entries), ZipCode::aborted);
    EXPECT_EQ(folder.count(), 1U);
}

#ifndef _WIN32

TEST_F(ZipExtraction, NothingGoesThroughALink) {
    const std::string other = folder / "otra";
    std::filesystem::create_directories(other);
    std::filesystem::create_directories(folder / "fuera/c");
    std::filesystem::create_directory_symlink(other, folder / "fuera/enlace");
    std::filesystem::create_directory_symlink("..", folder / "fuera/c/arriba");
    folder.write("fichero", "viejo");
    std::filesystem::create_symlink(folder / "fichero", folder / "fuera/f");
    std::filesystem::create_symlink(folder / "no hay", folder / "fuera/g");
    options.existing = Existing::replace;
    EXPECT_EQ(take({stored("enlace/x", "1"), stored("c/arriba/x/y", "2"), folder_entry("enlace/z/"),
                    stored("f", "3"), stored("g", "4")}),
              ZipCode::incomplete);
    EXPECT_THAT(states, ElementsAre(is("enlace/x", EntryState::through_link),
                                    is("c/arriba/x/y", EntryState::through_link),
                                    is("enlace/z/", EntryState::through_link),
                                    is("f", EntryState::done), is("g", EntryState::done)));
    EXPECT_TRUE(std::filesystem::is_empty(other));
    EXPECT_EQ(folder.read("fichero"), "viejo");
    EXPECT_FALSE(folder.exists("no hay"));
    EXPECT_EQ(taken("f"), "3");
    EXPECT_FALSE(std::filesystem::is_symlink(folder / "fuera/f"));
    // The chosen folder itself may be a link.
    options.folder = folder / "fuera/enlace";
    EXPECT_EQ(take({stored("x", "5")}), ZipCode::ok);
    EXPECT_EQ(folder.read("otra/x"), "5");
}

TEST_F(ZipExtraction, PermissionsAreThoseOfTheEntry) {
    const auto with_mode = [](MadeEntry made, std::uint32_t mode) {
        return made.with([&](CentralEntry& entry) { entry.external_attributes = mode << 16; });
    };
    const mode_t mask = umask(022);
    EXPECT_EQ(take({with_mode(folder_entry("c/"), 040500), with_mode(stored("c/a", "1"), 0106755),
                    with_mode(stored("b", "1"), 0100666), with_mode(stored("d", "1"), 0100400),
                    with_mode(stored("e", "1"), 0)}),
              ZipCode::ok);
    umask(mask);
    const auto mode = [&](const std::string& name) {
        struct stat status {};
        EXPECT_EQ(lstat((options.folder + "/" + name).c_str(), &status), 0);
        return status.st_mode & 07777U;
    };
    EXPECT_EQ(mode("c"), 0700U);
    EXPECT_EQ(mode("c/a"), 0755U);
    EXPECT_EQ(mode("b"), 0644U);
    EXPECT_EQ(mode("d"), 0400U);
    EXPECT_EQ(mode("e"), 0644U);
}

#endif

}  // namespace
}  // namespace kovrel::zip
