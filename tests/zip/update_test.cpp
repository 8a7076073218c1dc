// Existing archives updated: which entries are replaced, kept and added.
#include "archive_reader.h"
#include "tests/zip/made_archive.h"
#include "tests/zip/update_fixture.h"

namespace kovrel::zip {
namespace {

using test::compressible;
using test::from_utf8;
using testing::ElementsAre;

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

TEST_F(ZipUpdate, AnEmptyFileIsWrittenOver) {
    folder.write("a.zip", "");
    EXPECT_EQ(pack({folder.write("f", "1")}), ZipCode::ok);
    EXPECT_THAT(names(), ElementsAre("f"));
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

TEST_F(ZipUpdate, BytesBeforeTheArchiveAndItsCommentStay) {
    ASSERT_EQ(pack({folder.write("a", "1")}), ZipCode::ok);
    folder.write("a.zip", "PROGRAMA" + test::with_comment(folder.read("a.zip"), "hola"));
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

// 0x4B50 entries and a directory of a size such that the two numbers spell "PK\5\6": followed by a
// comment, they would be another end record to programs that search from the file's end.
TEST_F(ZipUpdate, TheCommentIsDroppedWhenTheEndRecordSpellsAnother) {
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
    const std::string comment(10, 'c');  // just long enough for that record
    folder.write("a.zip", test::archive_of(std::move(bytes), directory, count - 1, comment));
    ASSERT_EQ(pack({folder.write("ultimo", "1")}), ZipCode::ok);
    const std::string end = folder.read("a.zip").substr(folder.read("a.zip").size() - 22);
    EXPECT_EQ(end.substr(0, 4), "PK\5\6");
    EXPECT_EQ(end.substr(10, 4), "PK\5\6");
    EXPECT_EQ(names().size(), count);
    // The next update still finds the real one.
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
    entry.crc = test::crc32_of(data);
    entry.size = entry.packed_size = data.size();
    if (signature) {
        append(bytes, descriptor_signature);
    }
    append(bytes, entry.crc);
    append(bytes, static_cast<std::uint32_t>(data.size()));
    append(bytes, static_cast<std::uint32_t>(data.size()));
    entry.extra = std::string("\x34\x12\x02\x00zz", 6);
    Bytes directory;
    append_central_entry(directory, entry);
    return test::archive_of(std::move(bytes), directory, 1);
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

TEST_F(ZipUpdate, TheLongestExtraFieldsStay) {
    CentralEntry entry;
    entry.name = "viejo";
    Bytes bytes;
    append_local_header(bytes, entry, false);
    entry.extra = std::string("\x34\x12\xF0\xFF", 4) + std::string(0xFFF0, 'z');
    Bytes directory;
    append_central_entry(directory, entry);
    folder.write("a.zip", test::archive_of(std::move(bytes), directory, 1));
    ASSERT_EQ(pack({folder.write("b", "2")}), ZipCode::ok);
    EXPECT_TRUE(entries()[0].extra == entry.extra);
}

TEST_F(ZipUpdate, OldNamesInTheirCodePageAreFound) {
    folder.write("a.zip", streamed("a\xA4o", "datos", true));
    ASSERT_EQ(pack({folder.write("año", "nuevo")}), ZipCode::ok);
    EXPECT_THAT(names(), ElementsAre("año"));
}

TEST_F(ZipUpdate, OneOfSeveralEntriesOfAReplacedNameRemains) {
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

// On Windows too, an entry of exactly the file's name comes before one that differs in capitals.
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
    folder.write("a.zip", test::archive_of(std::move(bytes), directory, count));
    ASSERT_EQ(pack({folder.write("f", "1")}), ZipCode::ok);
    EXPECT_EQ(names().size(), count + 1);
    const ArchiveReader reader(folder / "a.zip");
    ASSERT_EQ(reader.entries().size(), count + 1);
    EXPECT_EQ(reader.entries().front().central.name, "e0");
    EXPECT_EQ(reader.entries().back().central.name, "f");
}

}  // namespace
}  // namespace kovrel::zip
