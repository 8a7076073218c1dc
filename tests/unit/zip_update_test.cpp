// The engine as its callers see it: archives made, updated, and left alone when something fails.
#include <gmock/gmock.h>
#include <zlib.h>

#include "archive_reader.h"
#include "tests/zip/made_archive.h"
#include "tests/zip/plain_reader.h"
#include "tests/zip/test_folder.h"
#include "update.h"
#include "zip_error.h"

namespace kovrel::zip {
namespace {

using test::compressible;
using test::from_utf8;
using test::incompressible;
using test::PlainEntry;
using test::TestFolder;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class ZipUpdate : public testing::Test {
 protected:
    ZipCode pack(const std::vector<std::string>& names) {
        messages.clear();
        UpdateEvents events;
        events.message = [this](std::string_view line) { messages.emplace_back(line); };
        events.quiet = quiet;
        events.entry_done = [this](std::string_view name, std::uint64_t size) {
            done.emplace_back(std::string(name) + " " + std::to_string(size));
            return done.size() == stop_after;
        };
        return update_archive(folder / "a.zip", names, options, events);
    }

    std::vector<PlainEntry> entries() { return test::read_plain(folder.read("a.zip")); }

    std::vector<std::string> names() {
        std::vector<std::string> result;
        for (const PlainEntry& entry : entries()) {
            EXPECT_TRUE(entry.readable) << entry.name;
            result.push_back(entry.name);
        }
        return result;
    }

    std::string data_of(const std::string& name) {
        for (const PlainEntry& entry : entries()) {
            if (entry.name == name) {
                return entry.data;
            }
        }
        return "(none)";
    }

    TestFolder folder;
    UpdateOptions options;
    bool quiet = true;
    std::size_t stop_after = 0;
    std::vector<std::string> messages;
    std::vector<std::string> done;
};

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

TEST_F(ZipUpdate, EntriesAreReplacedInPlaceAndOthersKept) {
    ASSERT_EQ(pack({folder.write("a", "1"), folder.write("b", compressible(5000, 1)),
                    folder.write("c", "3")}),
              ZipCode::ok);
    folder.write("b", "nuevo");
    ASSERT_EQ(pack({folder / "b", folder.write("d", "4")}), ZipCode::ok);
    EXPECT_THAT(names(), ElementsAre("a", "b", "c", "d"));
    EXPECT_EQ(data_of("a"), "1");
    EXPECT_EQ(data_of("b"), "nuevo");
    EXPECT_EQ(data_of("d"), "4");
}

TEST_F(ZipUpdate, TheSameBytesWhateverTheThreads) {
    std::vector<std::string> files;
    for (unsigned i = 0; i < 20; ++i) {
        files.push_back(folder.write("f" + std::to_string(i), i % 3 == 0
                                                                  ? incompressible(i * 40'000, i)
                                                                  : compressible(i * 70'000, i)));
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

TEST_F(ZipUpdate, TwoFilesOfOneNameAreRefusedBeforeAnythingIsWritten) {
    ASSERT_EQ(pack({folder.write("old", "viejo")}), ZipCode::ok);
    const std::string before = folder.read("a.zip");
    EXPECT_EQ(pack({folder.write("x/f", "1"), folder.write("y/f", "2")}), ZipCode::bad_parameters);
    EXPECT_THAT(messages, ElementsAre(HasSubstr("name in the archive repeated: f (")));
    EXPECT_TRUE(folder.read("a.zip") == before);
    EXPECT_THAT(done, ElementsAre("old 5"));
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

TEST_F(ZipUpdate, NoFileAtAllIsNothingToDo) {
    EXPECT_EQ(pack({}), ZipCode::nothing_to_do);
    EXPECT_EQ(pack({folder / "no"}), ZipCode::nothing_to_do);
    std::filesystem::create_directory(from_utf8(folder / "sub"));
    EXPECT_EQ(pack({folder / "sub"}), ZipCode::nothing_to_do);
    EXPECT_FALSE(folder.exists("a.zip"));
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
    EXPECT_EQ(update_archive(folder / "sub", {file}, {}, {}), ZipCode::cannot_create);
}

TEST_F(ZipUpdate, TheArchiveIsNotPackedIntoItself) {
    ASSERT_EQ(pack({folder.write("f", "1")}), ZipCode::ok);
    EXPECT_EQ(pack({folder / "a.zip", folder / "f"}), ZipCode::ok);
    EXPECT_THAT(names(), ElementsAre("f"));
    EXPECT_THAT(messages, ElementsAre(HasSubstr("not packed into itself")));
}

TEST_F(ZipUpdate, AnEmptyFileIsWrittenOver) {
    folder.write("a.zip", "");
    EXPECT_EQ(pack({folder.write("f", "1")}), ZipCode::ok);
    EXPECT_THAT(names(), ElementsAre("f"));
}

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

TEST_F(ZipUpdate, StoppedByTheCallerNothingIsLeft) {
    stop_after = 2;
    EXPECT_EQ(pack({folder.write("a", "1"), folder.write("b", "2"), folder.write("c", "3")}),
              ZipCode::aborted);
    EXPECT_FALSE(folder.exists("a.zip"));
    EXPECT_EQ(folder.count(), 3U);
}

TEST_F(ZipUpdate, UpdateTakesNewAndNewerFiles) {
    ASSERT_EQ(pack({folder.write("a", "1"), folder.write("b", "2")}), ZipCode::ok);
    options.selection = Selection::newer_or_new;
    EXPECT_EQ(pack({folder / "a", folder / "b"}), ZipCode::nothing_to_do);
    folder.write("a", "11");
    const auto now = std::filesystem::last_write_time(from_utf8(folder / "a"));
    std::filesystem::last_write_time(from_utf8(folder / "a"), now + std::chrono::seconds(10));
    folder.write("b", "22");
    std::filesystem::last_write_time(from_utf8(folder / "b"), now - std::chrono::seconds(10));
    EXPECT_EQ(pack({folder / "a", folder / "b", folder.write("c", "33")}), ZipCode::ok);
    EXPECT_EQ(data_of("a"), "11");
    EXPECT_EQ(data_of("b"), "2");
    EXPECT_EQ(data_of("c"), "33");
}

TEST_F(ZipUpdate, FreshenTakesNewerFilesAlone) {
    ASSERT_EQ(pack({folder.write("a", "1")}), ZipCode::ok);
    options.selection = Selection::newer;
    folder.write("a", "11");
    const auto now = std::filesystem::last_write_time(from_utf8(folder / "a"));
    std::filesystem::last_write_time(from_utf8(folder / "a"), now + std::chrono::seconds(10));
    EXPECT_EQ(pack({folder / "a", folder.write("b", "2")}), ZipCode::ok);
    EXPECT_THAT(names(), ElementsAre("a"));
    EXPECT_EQ(data_of("a"), "11");
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

TEST_F(ZipUpdate, EachEntryIsToldUnlessQuiet) {
    quiet = false;
    ASSERT_EQ(pack({folder.write("a", "1"), folder.write("b", compressible(900, 1))}), ZipCode::ok);
    EXPECT_THAT(messages, ElementsAre("adding: a (stored)", "adding: b (deflated)"));
    ASSERT_EQ(pack({folder / "a"}), ZipCode::ok);
    EXPECT_THAT(messages, ElementsAre("updating: a (stored)"));
}

// The archive with a comment; it must have none yet.
std::string with_comment(std::string archive, const std::string& comment) {
    archive[archive.size() - 2] = static_cast<char>(comment.size());
    archive[archive.size() - 1] = static_cast<char>(comment.size() >> 8);
    return archive + comment;
}

TEST_F(ZipUpdate, BytesBeforeTheArchiveAndItsCommentStay) {
    ASSERT_EQ(pack({folder.write("a", "1")}), ZipCode::ok);
    folder.write("a.zip", "PROGRAMA" + with_comment(folder.read("a.zip"), "hola"));
    ASSERT_EQ(pack({folder.write("b", "2")}), ZipCode::ok);
    const std::string updated = folder.read("a.zip");
    EXPECT_TRUE(updated.starts_with("PROGRAMAPK"));
    EXPECT_TRUE(updated.ends_with("hola"));
    EXPECT_THAT(names(), ElementsAre("a", "b"));
    options.drop_prefix = true;
    ASSERT_EQ(pack({folder.write("b", "3")}), ZipCode::ok);
    EXPECT_TRUE(folder.read("a.zip").starts_with("PK"));
    EXPECT_THAT(names(), ElementsAre("a", "b"));
}

// Programs that search the end of an archive from behind find this one, others the real one.
TEST_F(ZipUpdate, ACommentThatHoldsAnEndOfItsOwnIsRefused) {
    ASSERT_EQ(pack({folder.write("a", "1"), folder.write("b", "2"), folder.write("c", "3")}),
              ZipCode::ok);
    const std::string archive = folder.read("a.zip");
    const std::string real_end = archive.substr(archive.size() - 22);
    const std::string empty_end = std::string("PK\5\6") + std::string(18, '\0');
    const std::string longer_end = empty_end.substr(0, 20) + std::string("\4\0hola", 6);
    for (const std::string& comment :
         {empty_end, "hola" + empty_end, empty_end + "hola", "hola" + longer_end, real_end,
          empty_end + empty_end, std::string(30'000, 'x') + empty_end}) {
        const std::string before = with_comment(archive, comment);
        folder.write("a.zip", before);
        EXPECT_EQ(pack({folder.write("d", "4")}), ZipCode::bad_archive);
        EXPECT_TRUE(folder.read("a.zip") == before);
    }
    // A comment that only looks like one is any comment.
    folder.write("a.zip", with_comment(archive, "PK\5\7 y PK\6\5, PK\5"));
    EXPECT_EQ(pack({folder / "d"}), ZipCode::ok);
    EXPECT_THAT(names(), ElementsAre("a", "b", "c", "d"));
    EXPECT_TRUE(folder.read("a.zip").ends_with("PK\5\7 y PK\6\5, PK\5"));
}

// 0x4B50 entries and a directory of so many bytes that the two numbers spell "PK\5\6": with a
// comment behind them, programs that search from the end would find another one.
TEST_F(ZipUpdate, NumbersThatSpellAnEndDoNotMeetAComment) {
    constexpr std::size_t count = 0x4B50;
    constexpr std::size_t last_digits = 0x0605;
    const std::size_t least = count * (central_header_size + 6);
    const std::size_t size = least + (0x10000 + last_digits - least % 0x10000) % 0x10000;
    std::size_t padding = size - least;
    Bytes bytes;
    Bytes directory;
    for (std::size_t i = 0; i + 1 < count; ++i) {
        CentralEntry entry;
        entry.name = std::to_string(100'000 + i);
        const std::size_t more = std::min<std::size_t>(padding, 60);
        entry.name.append(more, 'x');
        padding -= more;
        entry.local_offset = bytes.size();
        append_local_header(bytes, entry, false);
        append_central_entry(directory, entry);
    }
    ASSERT_EQ(padding, 0U);
    const std::string comment(40, 'c');
    const std::size_t offset = bytes.size();
    append_all(bytes, directory);
    append_directory_end(bytes, {count - 1, directory.size(), offset, comment}, bytes.size());
    folder.write("a.zip", {bytes.begin(), bytes.end()});
    ASSERT_EQ(pack({folder.write("ultimo", "1")}), ZipCode::ok);
    const std::string end = folder.read("a.zip").substr(folder.read("a.zip").size() - 22);
    EXPECT_EQ(end.substr(0, 4), "PK\5\6");
    EXPECT_EQ(end.substr(10, 4), "PK\5\6");
    EXPECT_EQ(names().size(), count);
    // Which does not keep the next update from finding the real one.
    ASSERT_EQ(pack({folder.write("ultimo", "2")}), ZipCode::ok);
    EXPECT_EQ(data_of("ultimo"), "2");
    EXPECT_EQ(names().size(), count);
}

// An archive of one stored entry as a streaming program writes it: sizes after the data.
std::string streamed(const std::string& name, const std::string& data, bool signature) {
    CentralEntry entry;
    entry.flags = flag_descriptor;
    entry.name = name;
    entry.comment = "comentario";
    Bytes bytes;
    append_local_header(bytes, entry, false);
    append_all(bytes, data);
    entry.crc = static_cast<std::uint32_t>(
        crc32(0, reinterpret_cast<const Bytef*>(data.data()), static_cast<uInt>(data.size())));
    entry.size = entry.packed_size = data.size();
    if (signature) {
        append(bytes, descriptor_signature);
    }
    append(bytes, entry.crc);
    append(bytes, static_cast<std::uint32_t>(data.size()));
    append(bytes, static_cast<std::uint32_t>(data.size()));
    const std::size_t offset = bytes.size();
    entry.extra = std::string("\x34\x12\x02\x00zz", 6);
    append_central_entry(bytes, entry);
    append_directory_end(bytes, {1, bytes.size() - offset, offset, ""}, bytes.size());
    return {bytes.begin(), bytes.end()};
}

TEST_F(ZipUpdate, KeptEntriesKeepTheirBytesDescriptorsExtrasAndComments) {
    for (const bool signature : {true, false}) {
        const std::string old = streamed("viejo", "datos", signature);
        folder.write("a.zip", old);
        ASSERT_EQ(pack({folder.write("b", "2")}), ZipCode::ok);
        const std::size_t length = 30 + 5 + 5 + (signature ? 16 : 12);
        EXPECT_TRUE(folder.read("a.zip").starts_with(old.substr(0, length) + "PK\3\4"));
        const auto found = entries();
        ASSERT_EQ(found.size(), 2U);
        EXPECT_EQ(found[0].data, "datos");
        EXPECT_EQ(found[0].comment, "comentario");
        EXPECT_EQ(found[0].extra, std::string("\x34\x12\x02\x00zz", 6));
        EXPECT_EQ(found[0].flags, flag_descriptor);
    }
}

TEST_F(ZipUpdate, OldNamesInTheirCodePageAreFound) {
    folder.write("a.zip", streamed("a\xA4o", "datos", true));
    ASSERT_EQ(pack({folder.write("año", "nuevo")}), ZipCode::ok);
    EXPECT_THAT(names(), ElementsAre("año"));
}

TEST_F(ZipUpdate, OfSeveralEntriesOfTheNameOneRemains) {
    folder.write("a.zip", test::made_on_unix({{"f", "1"}, {"g", "2"}, {"f", "3"}, {"g", "4"}}));
    ASSERT_EQ(pack({folder.write("f", "nuevo")}), ZipCode::ok);
    EXPECT_THAT(names(), ElementsAre("f", "g", "g"));
    EXPECT_EQ(data_of("f"), "nuevo");
    EXPECT_EQ(entries()[1].data, "2");
    EXPECT_EQ(entries()[2].data, "4");
}

TEST_F(ZipUpdate, EntriesThatAreNotReplacedKeepTheirDuplicates) {
    folder.write("a.zip", test::made_on_unix({{"f", "1"}, {"f", "2"}}));
    const auto past = std::filesystem::file_time_type::clock::now() - std::chrono::years(30);
    std::filesystem::last_write_time(from_utf8(folder.write("f", "nuevo")), past);
    options.selection = Selection::newer_or_new;
    ASSERT_EQ(pack({folder / "f", folder.write("h", "3")}), ZipCode::ok);
    EXPECT_THAT(names(), ElementsAre("f", "f", "h"));
}

// Where capitals make no difference, they still tell which entry is meant.
TEST_F(ZipUpdate, NamesThatDifferInCapitalsAlone) {
    folder.write("a.zip", test::made_on_unix({{"README", "1"}, {"readme", "2"}, {"LEEME", "3"}}));
    ASSERT_EQ(pack({folder.write("readme", "nuevo")}), ZipCode::ok);
    EXPECT_THAT(names(), ElementsAre("README", "readme", "LEEME"));
    EXPECT_EQ(data_of("README"), "1");
    EXPECT_EQ(data_of("readme"), "nuevo");
    ASSERT_EQ(pack({folder.write("x/README", "otro")}), ZipCode::ok);
    EXPECT_EQ(data_of("README"), "otro");
    EXPECT_EQ(data_of("readme"), "nuevo");
    EXPECT_EQ(names().size(), 3U);
}

TEST_F(ZipUpdate, EntriesThatOverlapAreRefused) {
    Bytes bytes;
    CentralEntry entry;
    entry.name = "a";
    append_local_header(bytes, entry, false);
    const std::size_t offset = bytes.size();
    append_central_entry(bytes, entry);
    entry.name = "b";
    append_central_entry(bytes, entry);
    append_directory_end(bytes, {2, bytes.size() - offset, offset, ""}, bytes.size());
    folder.write("a.zip", {bytes.begin(), bytes.end()});
    EXPECT_EQ(pack({folder.write("f", "1")}), ZipCode::bad_archive);
    EXPECT_THAT(messages, ElementsAre(HasSubstr("overlap")));
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
    // The system's administrator may write anywhere.
    EXPECT_EQ(code, is_replaceable(archive) ? ZipCode::ok : ZipCode::cannot_create);
    EXPECT_TRUE(folder.read("a.zip") == before);
    for (const std::string& path : {file, archive}) {
        fs::permissions(from_utf8(path), writes, fs::perm_options::add);
    }
}

TEST_F(ZipUpdate, MoreThan65535Entries) {
    Bytes bytes;
    Bytes directory;
    constexpr std::uint64_t count = 70'000;
    for (std::uint64_t i = 0; i < count; ++i) {
        CentralEntry entry;
        entry.name = "e" + std::to_string(i);
        entry.local_offset = bytes.size();
        append_local_header(bytes, entry, false);
        append_central_entry(directory, entry);
    }
    const std::size_t offset = bytes.size();
    append_all(bytes, directory);
    append_directory_end(bytes, {count, directory.size(), offset, ""}, bytes.size());
    folder.write("a.zip", {bytes.begin(), bytes.end()});
    ASSERT_EQ(pack({folder.write("f", "1")}), ZipCode::ok);
    EXPECT_EQ(names().size(), count + 1);
    const ArchiveReader reader(folder / "a.zip");
    ASSERT_EQ(reader.entries().size(), count + 1);
    EXPECT_EQ(reader.entries().front().central.name, "e0");
    EXPECT_EQ(reader.entries().back().central.name, "f");
}

}  // namespace
}  // namespace kovrel::zip
