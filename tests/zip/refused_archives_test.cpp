// Updates that are refused or have nothing to do: what was there stays as it is.
#include "file_access.h"
#include "tests/zip/made_archive.h"
#include "tests/zip/update_fixture.h"

namespace kovrel::zip {
namespace {

using test::compressible;
using test::from_utf8;
using testing::ElementsAre;
using testing::HasSubstr;

TEST_F(ZipUpdate, WhatIsNotAnArchiveIsLeftAlone) {
    const std::string file = folder.write("f", "1");
    for (const std::string& text :
         {std::string("x"), std::string("no es un zip"), std::string(70'000, 'P'),
          std::string("PK\5\6") + std::string(18, '\xFF')}) {
        folder.write("a.zip", text);
        EXPECT_EQ(pack({file}), ZipCode::bad_archive);
        EXPECT_TRUE(folder.read("a.zip") == text);
    }
    EXPECT_EQ(folder.count(), 2U);
}

TEST_F(ZipUpdate, ACutArchiveIsRefusedAtEveryLength) {
    ASSERT_EQ(pack({folder.write("a", "1"), folder.write("b", compressible(500, 2))}), ZipCode::ok);
    const std::string whole = folder.read("a.zip");
    for (std::size_t length = 1; length < whole.size(); ++length) {
        folder.write("a.zip", whole.substr(0, length));
        const ZipCode code = pack({folder / "a"});
        EXPECT_TRUE(code == ZipCode::bad_archive || code == ZipCode::unexpected_end) << length;
    }
}

// Programs that search from the file's end find the record in the comment, others the real one.
TEST_F(ZipUpdate, ACommentThatHoldsAnEndRecordIsRefused) {
    ASSERT_EQ(pack({folder.write("a", "1"), folder.write("b", "2"), folder.write("c", "3")}),
              ZipCode::ok);
    const std::string archive = folder.read("a.zip");
    const std::string real_end = archive.substr(archive.size() - 22);
    const std::string empty_end = std::string("PK\5\6") + std::string(18, '\0');
    const std::string longer_end = empty_end.substr(0, 20) + std::string("\4\0hola", 6);
    for (const std::string& comment :
         {empty_end, "hola" + empty_end, empty_end + "hola", "hola" + longer_end, real_end,
          empty_end + empty_end, std::string(30'000, 'x') + empty_end}) {
        const std::string before = test::with_comment(archive, comment);
        folder.write("a.zip", before);
        EXPECT_EQ(pack({folder.write("d", "4")}), ZipCode::bad_archive);
        EXPECT_TRUE(folder.read("a.zip") == before);
    }
    // Parts of a signature are an ordinary comment.
    folder.write("a.zip", test::with_comment(archive, "PK\5\7 y PK\6\5, PK\5"));
    EXPECT_EQ(pack({folder / "d"}), ZipCode::ok);
    EXPECT_THAT(names(), ElementsAre("a", "b", "c", "d"));
    EXPECT_TRUE(folder.read("a.zip").ends_with("PK\5\7 y PK\6\5, PK\5"));
}

TEST_F(ZipUpdate, EntriesThatOverlapAreRefused) {
    Bytes bytes;
    Bytes directory;
    CentralEntry entry;
    entry.name = "a";
    append_local_header(bytes, entry, false);
    append_central_entry(directory, entry);
    entry.name = "b";
    append_central_entry(directory, entry);
    folder.write("a.zip", test::archive_of(std::move(bytes), directory, 2));
    EXPECT_EQ(pack({folder.write("f", "1")}), ZipCode::bad_archive);
    EXPECT_THAT(messages, ElementsAre(HasSubstr("overlap")));
}

TEST_F(ZipUpdate, TwoFilesOfOneNameAreRefusedBeforeAnythingIsWritten) {
    ASSERT_EQ(pack({folder.write("old", "viejo")}), ZipCode::ok);
    const std::string before = folder.read("a.zip");
    EXPECT_EQ(pack({folder.write("x/f", "1"), folder.write("y/f", "2")}), ZipCode::bad_parameters);
    EXPECT_THAT(messages, ElementsAre(HasSubstr("name in the archive repeated: f (")));
    EXPECT_TRUE(folder.read("a.zip") == before);
    EXPECT_THAT(done, ElementsAre("old 5"));
}

TEST_F(ZipUpdate, BadParameters) {
    const std::string file = folder.write("f", "1");
    EXPECT_EQ(update_archive("", {file}, {}, {}), ZipCode::bad_parameters);
    options.level = 10;
    EXPECT_EQ(pack({file}), ZipCode::bad_parameters);
    options.level = -1;
    EXPECT_EQ(pack({file}), ZipCode::bad_parameters);
}

TEST_F(ZipUpdate, WhereNothingCanBeWrittenTheAnswerIsCannotCreate) {
    const std::string file = folder.write("f", "1");
    EXPECT_EQ(update_archive(folder / "no/a.zip", {file}, {}, {}), ZipCode::cannot_create);
    std::filesystem::create_directory(from_utf8(folder / "sub"));
    UpdateEvents events;
    events.message = [this](std::string_view line) { messages.emplace_back(line); };
    EXPECT_EQ(update_archive(folder / "sub", {file}, {}, events), ZipCode::cannot_create);
    EXPECT_THAT(messages, ElementsAre("error: cannot be replaced: " + (folder / "sub")));
}

TEST_F(ZipUpdate, NoFileAtAllIsNothingToDo) {
    EXPECT_EQ(pack({}), ZipCode::nothing_to_do);
    EXPECT_EQ(pack({folder / "no"}), ZipCode::nothing_to_do);
    std::filesystem::create_directory(from_utf8(folder / "sub"));
    EXPECT_EQ(pack({folder / "sub"}), ZipCode::nothing_to_do);
    EXPECT_FALSE(folder.exists("a.zip"));
}

TEST_F(ZipUpdate, ReadOnlyFilesArePackedAndAReadOnlyArchiveIsNotReplaced) {
    namespace fs = std::filesystem;
    const fs::perms writes =
        fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;
    const std::string file = folder.write("f", "1");
    fs::permissions(from_utf8(file), writes, fs::perm_options::remove);
    ASSERT_EQ(pack({file}), ZipCode::ok);
    EXPECT_EQ(entries()[0].attributes & 1U, 1U);
    const std::string archive = folder / "a.zip";
    fs::permissions(from_utf8(archive), writes, fs::perm_options::remove);
    const std::string before = folder.read("a.zip");
    const ZipCode code = pack({file});
    // An administrator may replace it all the same.
    EXPECT_EQ(code, is_replaceable(archive) ? ZipCode::ok : ZipCode::cannot_create);
    EXPECT_TRUE(folder.read("a.zip") == before);
    for (const std::string& path : {file, archive}) {
        fs::permissions(from_utf8(path), writes, fs::perm_options::add);
    }
}

}  // namespace
}  // namespace kovrel::zip
