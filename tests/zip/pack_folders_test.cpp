// Packing as people ask for it: names below a base, patterns, exclusions, and what was left out.
#include <filesystem>

#include "listing.h"
#include "update_fixture.h"

namespace kovrel::zip {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

class ZipPackFolders : public ZipUpdate {
 protected:
    ZipPackFolders() {
        options.base = "";
        options.recurse = true;
        options.folder_entries = true;
        options.include_hidden = true;
        options.follow_links = false;
        options.drop_folder_names = false;
    }

    ZipCode pack_below(const std::string& base, const std::vector<std::string>& given) {
        options.base = base;
        left_out.clear();
        UpdateEvents events;
        events.left_out = [this](const std::string& path, EntryState why) {
            left_out.emplace_back(path, why);
        };
        return update_archive(folder / "a.zip", given, options, events);
    }

    using LeftOut = std::pair<std::string, EntryState>;
    std::vector<LeftOut> left_out;
};

TEST_F(ZipPackFolders, NamesBeginWithThatOfTheFolderItself) {
    folder.write("datos/2024/enero.txt", "1");
    folder.write("datos/notas.txt", "2");
    EXPECT_EQ(pack({folder / "datos"}), ZipCode::ok);
    EXPECT_THAT(names(),
                ElementsAre("datos/", "datos/2024/", "datos/2024/enero.txt", "datos/notas.txt"));
    options.afresh = true;
    EXPECT_EQ(pack({folder / "datos/", folder / "datos/notas.txt"}), ZipCode::ok);
    EXPECT_THAT(names(), ElementsAre("datos/", "datos/2024/", "datos/2024/enero.txt",
                                     "datos/notas.txt", "notas.txt"));
}

TEST_F(ZipPackFolders, NamesBeginBelowTheBase) {
    const std::string file = folder.write("datos/2024/enero.txt", "1");
    EXPECT_EQ(pack_below(test::utf8(folder.path()), {file}), ZipCode::ok);
    EXPECT_THAT(names(), ElementsAre("datos/2024/enero.txt"));
    options.afresh = true;
    EXPECT_EQ(pack_below(test::utf8(folder.path()), {folder / "datos/2024/*.txt"}), ZipCode::ok);
    EXPECT_THAT(names(), ElementsAre("datos/2024/enero.txt"));
    EXPECT_EQ(pack_below(folder / "datos/../datos/./", {folder / "datos"}), ZipCode::ok);
    EXPECT_THAT(names(), ElementsAre("2024/", "2024/enero.txt"));
    EXPECT_EQ(pack_below(folder / "dat", {file}), ZipCode::bad_parameters);
    EXPECT_EQ(pack_below(folder / "datos/2024/enero.txt/x", {file}), ZipCode::bad_parameters);
    EXPECT_THAT(names(), ElementsAre("2024/", "2024/enero.txt"));
}

TEST_F(ZipPackFolders, FolderNamesCanBeDropped) {
    folder.write("datos/2024/enero.txt", "1");
    folder.write("datos/notas.txt", "2");
    options.drop_folder_names = true;
    EXPECT_EQ(pack({folder / "datos"}), ZipCode::ok);
    EXPECT_THAT(names(), ElementsAre("enero.txt", "notas.txt"));
}

TEST_F(ZipPackFolders, PatternsAreLookedForInTheirFolderAndBelow) {
    folder.write("datos/a.txt", "1");
    folder.write("datos/a.xls", "1");
    folder.write("datos/2024/b.txt", "2");
    folder.write("datos/2024.txt/c.xls", "3");
    EXPECT_EQ(pack({folder / "datos/*.txt"}), ZipCode::ok);
    EXPECT_THAT(names(), ElementsAre("2024/b.txt", "2024.txt/", "2024.txt/c.xls", "a.txt"));
    options.recurse = false;
    options.folder_entries = false;
    options.afresh = true;
    EXPECT_EQ(pack({folder / "datos/?.txt"}), ZipCode::ok);
    EXPECT_THAT(names(), ElementsAre("a.txt"));
    EXPECT_EQ(pack_below("", {folder / "datos/*.doc"}), ZipCode::nothing_to_do);
    EXPECT_THAT(left_out, ElementsAre(LeftOut(folder / "datos/*.doc", EntryState::cannot_open)));
}

TEST_F(ZipPackFolders, APatternThatAddsNothingNewIsNoFault) {
    folder.write("datos/a.txt", "1");
    EXPECT_EQ(pack_below("", {folder / "datos/*.txt", folder / "datos/a*"}), ZipCode::ok);
    EXPECT_THAT(left_out, IsEmpty());
    EXPECT_THAT(names(), ElementsAre("a.txt"));
}

TEST_F(ZipPackFolders, NoNameIsDeeperThanWhatIsTakenOut) {
    std::string deep = "f";
    for (int i = 0; i < 99; ++i) deep = "d/" + deep;  // 100 components
    folder.write(deep, "1");
    folder.write("d/" + deep, "2");
    options.folder_entries = false;
    EXPECT_EQ(pack_below("", {folder / "d"}), ZipCode::ok);
    EXPECT_THAT(names(), ElementsAre(deep));
    ASSERT_EQ(left_out.size(), 1U);
    EXPECT_EQ(left_out[0].second, EntryState::bad_name);
}

TEST_F(ZipPackFolders, WhatAKilledProcessHasLeftIsNotPacked) {
    folder.write("zi01234567.tmp", "a medias");
    folder.write("a.txt", "1");
    EXPECT_EQ(pack_below(test::utf8(folder.path()), {test::utf8(folder.path())}), ZipCode::ok);
    EXPECT_THAT(left_out, IsEmpty());
    EXPECT_THAT(names(), ElementsAre("a.txt"));
}

TEST_F(ZipPackFolders, NewerIsDecidedByTheMomentWhereItIsKnown) {
    options.zoned_times = true;
    options.selection = Selection::newer_or_new;
    const std::string file = folder.write("a.txt", "1");
    const auto change_at = [&](std::int64_t seconds) {
        NewFile changed(file, 0644);
        changed.set_modified(moment_of_unix_time(seconds));
        changed.replace_target();
    };
    change_at(1'700'000'000);
    ASSERT_EQ(pack({file}), ZipCode::ok);
    EXPECT_EQ(pack({file}), ZipCode::nothing_to_do);
    change_at(1'700'000'001);  // within the two seconds that the local time tells
    EXPECT_EQ(pack({file}), ZipCode::ok);
}

TEST_F(ZipPackFolders, ExclusionsAreOfNamesInTheArchive) {
    folder.write("datos/a.txt", "1");
    folder.write("datos/a.tmp", "1");
    folder.write("datos/copia/b.txt", "2");
    folder.write("datos/mas/c.txt", "3");
    options.exclusions = {"*.tmp", "copia", "datos/m*/c*"};
    EXPECT_EQ(pack_below("", {folder / "datos"}), ZipCode::ok);
    EXPECT_THAT(names(), ElementsAre("datos/", "datos/a.txt", "datos/mas/"));
    EXPECT_THAT(left_out, IsEmpty());
}

TEST_F(ZipPackFolders, WhatCannotBePackedIsTold) {
    folder.write("datos/a.txt", "1");
    const std::string archive = folder / "a.zip";
    ASSERT_EQ(pack({folder / "datos"}), ZipCode::ok);
    EXPECT_EQ(pack_below("", {folder / "datos", archive, folder / "nada"}), ZipCode::ok);
    EXPECT_THAT(left_out, UnorderedElementsAre(LeftOut(archive, EntryState::left_out),
                                               LeftOut(folder / "nada", EntryState::cannot_open)));
    EXPECT_THAT(names(), ElementsAre("datos/", "datos/a.txt"));
}

#ifndef _WIN32
TEST_F(ZipPackFolders, WhatCannotBeReadIsTold) {
    folder.write("datos/a.txt", "1");
    std::filesystem::create_symlink("nada", folder / "datos/roto");
    options.follow_links = true;
    EXPECT_EQ(pack_below("", {folder / "datos"}), ZipCode::ok);
    EXPECT_THAT(left_out, ElementsAre(LeftOut(folder / "datos/roto", EntryState::cannot_open)));
    options.follow_links = false;
    EXPECT_EQ(pack_below("", {folder / "datos"}), ZipCode::ok);
    EXPECT_THAT(left_out, ElementsAre(LeftOut(folder / "datos/roto", EntryState::link)));
    EXPECT_FALSE(folder_names(folder / "nada"));
}

TEST_F(ZipPackFolders, LinksFoundInFoldersAreNotFollowed) {
    folder.write("datos/a.txt", "1");
    folder.write("fuera/b.txt", "1");
    std::filesystem::create_directory_symlink("../fuera", folder / "datos/enlace");
    std::filesystem::create_symlink("a.txt", folder / "datos/otro.txt");
    EXPECT_EQ(pack_below("", {folder / "datos"}), ZipCode::ok);
    EXPECT_THAT(names(), ElementsAre("datos/", "datos/a.txt"));
    EXPECT_THAT(left_out, ElementsAre(LeftOut(folder / "datos/enlace", EntryState::link),
                                      LeftOut(folder / "datos/otro.txt", EntryState::link)));
}
#endif

TEST_F(ZipPackFolders, AFileThatIsNotNewerIsTold) {
    const std::string file = folder.write("a.txt", "1");
    ASSERT_EQ(pack({file}), ZipCode::ok);
    options.selection = Selection::newer_or_new;
    EXPECT_EQ(pack_below("", {file, folder.write("b.txt", "2")}), ZipCode::ok);
    EXPECT_THAT(left_out, ElementsAre(LeftOut(file, EntryState::not_newer)));
    EXPECT_THAT(names(), ElementsAre("a.txt", "b.txt"));
    EXPECT_EQ(pack_below("", {file}), ZipCode::nothing_to_do);
    EXPECT_THAT(left_out, ElementsAre(LeftOut(file, EntryState::not_newer)));
    options.selection = Selection::newer;
    const std::string other = folder.write("c.txt", "3");
    EXPECT_EQ(pack_below("", {file, other}), ZipCode::nothing_to_do);
    EXPECT_THAT(left_out, ElementsAre(LeftOut(file, EntryState::not_newer),
                                      LeftOut(other, EntryState::left_out)));
}

TEST_F(ZipPackFolders, AfreshNothingOfTheOldArchiveStays) {
    folder.write("a.zip", "no es un archivo");
    EXPECT_EQ(pack({folder.write("a.txt", "1")}), ZipCode::bad_archive);
    options.afresh = true;
    EXPECT_EQ(pack({folder / "a.txt"}), ZipCode::ok);
    EXPECT_EQ(pack({folder.write("b.txt", "1")}), ZipCode::ok);
    EXPECT_THAT(names(), ElementsAre("b.txt"));
}

TEST_F(ZipPackFolders, TheCommentIsWrittenOrStays) {
    const std::string file = folder.write("a.txt", "1");
    options.comment = "Año 2024 €";
    ASSERT_EQ(pack({file}), ZipCode::ok);
    EXPECT_EQ(ArchiveReader(folder / "a.zip").comment(), "Año 2024 €");
    options.comment.reset();
    ASSERT_EQ(pack({file}), ZipCode::ok);
    EXPECT_EQ(ArchiveReader(folder / "a.zip").comment(), "Año 2024 €");
    options.comment = "";
    ASSERT_EQ(pack({file}), ZipCode::ok);
    EXPECT_EQ(ArchiveReader(folder / "a.zip").comment(), "");
    options.comment = std::string(0xFFFF, 'x');
    EXPECT_EQ(pack({file}), ZipCode::ok);
    options.comment = std::string(0x10000, 'x');
    EXPECT_EQ(pack({file}), ZipCode::bad_parameters);
}

TEST_F(ZipPackFolders, TimesAreKeptInUtcToo) {
    const std::string file = folder.write("datos/a.txt", "1");
    const auto time = file_status(file)->moment;
    options.zoned_times = true;
    ASSERT_EQ(pack({folder / "datos"}), ZipCode::ok);
    const ArchiveReader reader(folder / "a.zip");
    for (const Entry& entry : list_entries(reader)) {
        ASSERT_TRUE(entry.modified) << entry.name;
        if (entry.folder) continue;
        EXPECT_EQ(*entry.modified, time / moments_per_second * moments_per_second);
    }
    // The field stands in the local header too, before the data.
    EXPECT_EQ(data_of("datos/a.txt"), "1");
}

TEST_F(ZipPackFolders, ProgressCountsTheBytesOfAllFiles) {
    const std::string large = folder.write("a", std::string(600'000, 'x'));
    const std::string small = folder.write("b", "1234");
    std::vector<std::string> told;
    UpdateEvents events;
    events.progress = [&](std::string_view name, std::uint64_t done, std::uint64_t total) {
        told.push_back(std::string(name) + " " + std::to_string(done) + " of " +
                       std::to_string(total));
        return false;
    };
    ASSERT_EQ(update_archive(folder / "a.zip", {large, small}, options, events), ZipCode::ok);
    EXPECT_THAT(told, ElementsAre("a 262144 of 600004", "a 524288 of 600004", "a 600000 of 600004",
                                  "b 600004 of 600004"));
    // Copying what stays is no progress, but it can be stopped.
    told.clear();
    ASSERT_EQ(update_archive(folder / "a.zip", {folder.write("c", "1")}, options, events),
              ZipCode::ok);
    EXPECT_THAT(told, ElementsAre("a 0 of 1", "b 0 of 1", "c 1 of 1"));
}

TEST_F(ZipPackFolders, StoppedWithinAFileTheOldArchiveStays) {
    ASSERT_EQ(pack({folder.write("b", "viejo")}), ZipCode::ok);
    const std::string old = folder.read("a.zip");
    const std::string large = folder.write("a", std::string(600'000, 'x'));
    UpdateEvents events;
    events.progress = [](std::string_view, std::uint64_t done, std::uint64_t total) {
        return done < total;
    };
    EXPECT_EQ(update_archive(folder / "a.zip", {large}, options, events), ZipCode::aborted);
    EXPECT_EQ(folder.read("a.zip"), old);
    EXPECT_EQ(folder.count(), 3U);
}

}  // namespace
}  // namespace kovrel::zip
