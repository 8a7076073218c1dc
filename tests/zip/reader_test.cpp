// Existing archives read byte by byte: where entries lie, and why an archive is refused.
#include <gtest/gtest.h>

#include "archive_reader.h"
#include "tests/zip/made_archive.h"
#include "tests/zip/plain_reader.h"
#include "tests/zip/test_folder.h"
#include "zip_error.h"

namespace kovrel::zip {
namespace {

// Of two_files(): the entries at 0 and 32, the directory's two at 65 and 112, and the end.
constexpr std::size_t second = 32;
constexpr std::size_t directory = 65;
constexpr std::size_t second_central = 112;
constexpr std::size_t end = 159;

std::string two_files() {
    return test::made_on_unix({{"a", "1"}, {"b", "22"}});
}

/// The archive with a number of `width` bytes at a place.
std::string with(std::string archive, std::size_t place, std::uint64_t value,
                 std::size_t width = 2) {
    for (std::size_t i = 0; i < width; ++i) {
        archive[place + i] = static_cast<char>(value >> (8 * i));
    }
    return archive;
}

std::string end_of(std::uint16_t count, std::uint32_t size, std::uint32_t offset) {
    Bytes bytes;
    append(bytes, end_signature, std::uint32_t{0}, count, count, size, offset, std::uint16_t{0});
    return {bytes.begin(), bytes.end()};
}

/// The ZIP64 records; the first one begins at `position`.
std::string end64_of(std::uint64_t count, std::uint64_t size, std::uint64_t offset,
                     std::uint64_t position, const std::string& between = "") {
    Bytes bytes;
    append(bytes, end64_signature, std::uint64_t{44}, std::uint16_t{45}, std::uint16_t{45},
           std::uint64_t{0}, count, count, size, offset);
    append_all(bytes, between);
    append(bytes, locator64_signature, std::uint32_t{0}, position, std::uint32_t{1});
    return {bytes.begin(), bytes.end()};
}

class ZipReader : public testing::Test {
 protected:
    ArchiveReader open(const std::string& archive) {
        folder.write("a.zip", archive);
        return ArchiveReader(folder / "a.zip");
    }

    /// "start+length" of each entry.
    std::string extents(const std::string& archive) {
        std::string text;
        const ArchiveReader reader = open(archive);
        for (const OldEntry& entry : reader.entries()) {
            text += std::to_string(entry.start) + "+" + std::to_string(entry.length) + " ";
        }
        return text + "after " + std::to_string(reader.prefix_size());
    }

    std::string refusal(const std::string& archive, ZipCode code = ZipCode::bad_archive) {
        try {
            return "accepted: " + extents(archive);
        } catch (const ZipError& error) {
            EXPECT_EQ(error.code(), code);
            std::string text = error.what();
            const std::string opening = "the existing archive is not valid: ";
            return text.starts_with(opening) ? text.substr(opening.size()) : "whole: " + text;
        }
    }

    test::TestFolder folder;
};

TEST_F(ZipReader, FindsTheBytesOfEachEntry) {
    EXPECT_EQ(extents(two_files()), "0+32 32+33 after 0");
    EXPECT_EQ(extents("PROGRAMA" + two_files()), "8+32 40+33 after 8");
    EXPECT_EQ(open(test::with_comment(two_files(), "hola")).comment(), "hola");
    // The largest comment.
    EXPECT_EQ(extents(test::with_comment(two_files(), std::string(0xFFFF, 'c'))),
              "0+32 32+33 after 0");
    // The directory's order is another than that of the bytes.
    const std::string archive = two_files();
    EXPECT_EQ(extents(archive.substr(0, directory) + archive.substr(second_central, 47) +
                      archive.substr(directory, 47) + archive.substr(end)),
              "32+33 0+32 after 0");
}

TEST_F(ZipReader, AnArchiveWithoutEntries) {
    EXPECT_EQ(extents(end_of(0, 0, 0)), "after 0");
    EXPECT_EQ(extents("PROGRAMA" + end_of(0, 0, 8)), "after 8");
    EXPECT_EQ(extents("12345" + end_of(0, 5, 0)), "after 0");
    EXPECT_EQ(refusal("1234" + end_of(0, 5, 0)), "its end is broken");
    EXPECT_EQ(extents(end64_of(0, 0, 0, 0) + end_of(0xFFFF, 0xFFFFFFFF, 0xFFFFFFFF)), "after 0");
}

TEST_F(ZipReader, TheOffsetOfTheDirectoryCountsIfBytesFollowIt) {
    const std::string archive = two_files();
    EXPECT_EQ(extents(archive.substr(0, end) + "12345" + archive.substr(end)),
              "0+32 32+33 after 0");
    EXPECT_EQ(refusal("X" + archive.substr(0, end) + "12345" + archive.substr(end)),
              "its end is broken");
}

TEST_F(ZipReader, AnArchiveInFrontOfTheArchiveIsKept) {
    EXPECT_EQ(extents(end_of(0, 0, 0) + two_files()), "22+32 54+33 after 22");
    EXPECT_EQ(refusal(test::with_comment(end_of(0, 0, 0), end_of(0, 0, 0))),
              "its comment holds an end of its own");
}

TEST_F(ZipReader, WithoutAnEndThereIsNoDirectory) {
    for (const std::string& archive :
         {std::string("x"), std::string("PK\5\6"), std::string("PK\5"),
          end_of(0, 0, 0).substr(0, 21), "x" + std::string(70'000, 'P')}) {
        EXPECT_EQ(refusal(archive), "no central directory found");
    }
    // Past the longest comment nothing is looked for.
    EXPECT_EQ(refusal(end_of(0, 0, 0) + std::string(0x10000, 'c')), "no central directory found");
}

TEST_F(ZipReader, AnEndThatDoesNotFitIsBroken) {
    const std::string archive = two_files();
    for (const std::string& broken :
         {with(archive, end + 4, 1), with(archive, end + 6, 1), with(archive, end + 8, 3),
          with(archive, end + 10, 3), with(with(archive, end + 8, 3), end + 10, 3),
          with(archive, end + 12, 95), with(archive, end + 12, 0xFFFF), with(archive, end + 16, 66),
          with(archive, end + 20, 1), with(archive, directory, 0)}) {
        EXPECT_EQ(refusal(broken), "its end is broken");
    }
}

TEST_F(ZipReader, ADirectoryThatDoesNotFitIsRefused) {
    const std::string archive = two_files();
    EXPECT_EQ(refusal(with(archive, second_central, 0)), "its central directory is broken");
    const std::string one = with(with(archive, end + 8, 1), end + 10, 1);
    EXPECT_EQ(refusal(one), "its central directory holds more entries than it says");
    // What follows the entries is no entry, unless it begins like one.
    const std::string before = archive.substr(0, second_central);
    EXPECT_EQ(refusal(before + "PK\1\2" + end_of(1, 51, directory)),
              "its central directory holds more entries than it says");
    EXPECT_EQ(extents(before + "PK\5\5" + end_of(1, 51, directory)), "0+32 after 0");
    EXPECT_EQ(extents(before + "PK\1" + end_of(1, 50, directory)), "0+32 after 0");
}

TEST_F(ZipReader, AnEntryThatDoesNotFitIsRefused) {
    const std::string archive = two_files();
    EXPECT_EQ(refusal(with(archive, second_central + 42, directory + 1)),
              "an entry lies outside it");
    EXPECT_EQ(refusal("PROGRAMA" + with(archive, second_central + 42, directory + 1)),
              "an entry lies outside it");
    EXPECT_EQ(refusal(with(archive, second_central + 42, directory)), "an entry has no header");
    EXPECT_EQ(refusal(with(archive, second, 0)), "an entry has no header");
    EXPECT_EQ(refusal(with(archive, end + 16, directory - 1)), "an entry has no header");
    EXPECT_EQ(refusal(with(archive, second_central + 42, 0)), "its entries overlap");
    const std::string past = "whole: an entry runs past the existing archive's end";
    EXPECT_EQ(refusal(with(archive, second_central + 20, 3), ZipCode::unexpected_end), past);
    EXPECT_EQ(refusal(with(archive, second + 26, 4), ZipCode::unexpected_end), past);
    EXPECT_EQ(refusal(with(archive, second + 28, 1), ZipCode::unexpected_end), past);
    EXPECT_EQ(extents(with(with(archive, second + 26, 3), second_central + 20, 0)),
              "0+32 32+33 after 0");
}

TEST_F(ZipReader, Zip64) {
    const std::string entries = two_files().substr(0, end);
    const std::string refers = end_of(0xFFFF, 0xFFFFFFFF, 0xFFFFFFFF);
    const std::string records = end64_of(2, 94, directory, end);
    EXPECT_EQ(extents(entries + records + refers), "0+32 32+33 after 0");
    EXPECT_EQ(extents(entries + records + end_of(2, 94, directory)), "0+32 32+33 after 0");
    EXPECT_EQ(extents("PROGRAMA" + entries + records + refers), "8+32 40+33 after 8");
    // The record is where the locator says, or else right before the locator.
    EXPECT_EQ(extents(entries + end64_of(2, 94, directory, end, "12345") + refers),
              "0+32 32+33 after 0");
    for (const std::uint64_t elsewhere :
         {std::uint64_t{0}, std::uint64_t{end + 1}, ~std::uint64_t{0}}) {
        EXPECT_EQ(extents(entries + end64_of(2, 94, directory, elsewhere) + refers),
                  "0+32 32+33 after 0");
    }
}

TEST_F(ZipReader, Zip64RecordsThatDoNotFitAreRefused) {
    const std::string entries = two_files().substr(0, end);
    const std::string refers = end_of(0xFFFF, 0xFFFFFFFF, 0xFFFFFFFF);
    const std::string archive = entries + end64_of(2, 94, directory, end) + refers;
    constexpr std::size_t locator = end + end64_record_size;
    for (const std::string& broken :
         {with(archive, end, 0), with(archive, end + 16, 1), with(archive, end + 20, 1),
          with(archive, end + 24, 1), with(archive, end + 32, 1), with(archive, locator, 0),
          with(with(archive, end + 24, 3), end + 32, 3)}) {
        EXPECT_EQ(refusal(broken), "its end is broken");
    }
    for (const std::string& narrow :
         {end_of(1, 0xFFFFFFFF, 0xFFFFFFFF), end_of(0xFFFF, 95, 0xFFFFFFFF),
          end_of(0xFFFF, 0xFFFFFFFF, directory - 1)}) {
        EXPECT_EQ(refusal(entries + end64_of(2, 94, directory, end) + narrow),
                  "its two end records contradict each other");
    }
}

TEST_F(ZipReader, CopiesItsBytes) {
    const std::string front = test::incompressible(600'000, 1);
    const ArchiveReader reader = open(front + two_files());
    const std::string path = folder / "copia";
    {
        NewFile file(path);
        OutputBuffer output(file);
        reader.copy(1, front.size() + 31, output, [] {});
        reader.copy(0, 1, output, [] {});
        EXPECT_THROW(reader.copy(front.size() + 181, 1, output, [] {}), ZipError);
        output.flush();
        file.replace_target();
    }
    EXPECT_TRUE(folder.read("copia") == front.substr(1) + two_files().substr(0, second) + front[0]);
    NewFile file(path);
    OutputBuffer output(file);
    try {
        reader.copy(front.size() + 180, 2, output, [] {});
        ADD_FAILURE() << "copied past the end";
    } catch (const ZipError& error) {
        EXPECT_EQ(error.code(), ZipCode::unexpected_end);
        EXPECT_STREQ(error.what(), "the existing archive ends too early");
    }
}

// One deflated entry with its sizes after the data, as programs write it that cannot go back.
std::string with_descriptor(const std::string& descriptor) {
    CentralEntry entry;
    entry.flags = flag_descriptor;
    entry.method = method_deflate;
    entry.name = "n";
    Bytes bytes;
    append_local_header(bytes, entry, false);
    append_all(bytes, std::string("datos"));
    append_all(bytes, descriptor);
    entry.crc = 0x11223344;
    entry.packed_size = 5;
    entry.size = 700;
    Bytes central;
    append_central_entry(central, entry);
    return test::archive_of(std::move(bytes), central, 1);
}

template <typename Size>
std::string descriptor(bool signature, std::uint32_t crc, Size packed_size, Size size) {
    Bytes bytes;
    if (signature) append(bytes, descriptor_signature);
    append(bytes, crc, packed_size, size);
    return {bytes.begin(), bytes.end()};
}

TEST_F(ZipReader, TheDescriptorBehindTheDataBelongsToTheEntry) {
    constexpr std::uint32_t crc = 0x11223344;
    for (const std::string after : {"", "0123456789012345"}) {
        for (const bool signature : {true, false}) {
            const int length = 36 + (signature ? 8 : 4);
            EXPECT_EQ(
                extents(with_descriptor(descriptor<std::uint32_t>(signature, crc, 5, 700) + after)),
                "0+" + std::to_string(length + 8) + " after 0");
            EXPECT_EQ(
                extents(with_descriptor(descriptor<std::uint64_t>(signature, crc, 5, 700) + after)),
                "0+" + std::to_string(length + 16) + " after 0");
            // Other values are not the entry's descriptor.
            for (const std::string& other : {descriptor<std::uint32_t>(signature, crc + 1, 5, 700),
                                             descriptor<std::uint32_t>(signature, crc, 6, 700),
                                             descriptor<std::uint32_t>(signature, crc, 5, 701),
                                             descriptor<std::uint64_t>(signature, crc + 1, 5, 700),
                                             descriptor<std::uint64_t>(signature, crc, 6, 700),
                                             descriptor<std::uint64_t>(signature, crc, 5, 701)}) {
                EXPECT_EQ(extents(with_descriptor(other + after)), "0+36 after 0");
            }
        }
    }
    EXPECT_EQ(extents(with_descriptor("")), "0+36 after 0");
    EXPECT_EQ(extents(with_descriptor(descriptor<std::uint32_t>(false, crc, 5, 700).substr(0, 11))),
              "0+36 after 0");
    // Four other bytes are no signature.
    EXPECT_EQ(extents(with_descriptor("PK\7\7" + descriptor<std::uint32_t>(false, crc, 5, 700))),
              "0+36 after 0");
    // Without the flag there is none.
    EXPECT_EQ(extents(with(with_descriptor(descriptor<std::uint32_t>(true, crc, 5, 700)), 6, 0)),
              "0+36 after 0");
}

}  // namespace
}  // namespace kovrel::zip
