// The contents of entries: unpacked, checked, and refused for what is wrong with them.
#include "entry_reader.h"

#include <gtest/gtest.h>

#include "tests/zip/made_archive.h"
#include "tests/zip/test_folder.h"
#include "zip_error.h"

namespace kovrel::zip {
namespace {

using enum EntryState;
using test::MadeEntry;

class ZipEntryReader : public testing::Test {
 protected:
    /// Reads the only entry of an archive with it; its contents are in `contents`.
    EntryState read(const MadeEntry& made) {
        folder.write("a.zip", test::archive_with({made}));
        const ArchiveReader archive(folder / "a.zip");
        contents.clear();
        largest_piece = 0;
        return reader.read(archive, archive.entries().front(), [this](ByteView piece) {
            contents.append(piece.begin(), piece.end());
            largest_piece = std::max(largest_piece, piece.size());
        });
    }

    test::TestFolder folder;
    EntryReader reader;
    std::string contents;
    std::size_t largest_piece = 0;
};

TEST_F(ZipEntryReader, GivesStoredAndDeflatedContents) {
    for (const std::size_t size : {0U, 1U, 1000U, 262'143U, 262'144U, 262'145U, 1'000'000U}) {
        for (const std::string& data :
             {test::compressible(size, 1), test::incompressible(size, 2), std::string(size, 'a')}) {
            EXPECT_EQ(read(test::stored("n", data)), done) << size;
            EXPECT_TRUE(contents == data) << size;
            EXPECT_EQ(read(test::deflated("n", data)), done) << size;
            EXPECT_TRUE(contents == data) << size;
            EXPECT_LE(largest_piece, 262'144U);
        }
    }
}

TEST_F(ZipEntryReader, ReadsBehindTheLongestName) {
    MadeEntry made = test::deflated(std::string(0xFFFF, 'n'), test::compressible(600'000, 3));
    EXPECT_EQ(read(made), done);
    EXPECT_TRUE(contents == test::compressible(600'000, 3));
}

TEST_F(ZipEntryReader, TheSizesMayFollowTheData) {
    const std::string data = test::compressible(5000, 4);
    for (const auto make : {test::stored, test::deflated}) {
        MadeEntry made = make("n", data);
        made.with([](CentralEntry& entry) { entry.flags |= flag_descriptor; });
        made.local.crc = 0;
        made.local.size = made.local.packed_size = 0;
        for (const std::string& after :
             {test::descriptor_of<std::uint32_t>(made.central),
              test::descriptor_of<std::uint64_t>(made.central),
              test::descriptor_of<std::uint32_t>(made.central, false), std::string()}) {
            made.after = after;
            EXPECT_EQ(read(made), done);
            EXPECT_TRUE(contents == data);
        }
    }
}

TEST_F(ZipEntryReader, SizesOfTheLocalHeaderIn64Bits) {
    MadeEntry made = test::deflated("n", test::compressible(5000, 4));
    made.wide = true;
    EXPECT_EQ(read(made), done);
    made.local.size = 4999;
    EXPECT_EQ(read(made), contradicting);
    made.local.size = 5000;
    ++made.local.packed_size;
    EXPECT_EQ(read(made), contradicting);
}

TEST_F(ZipEntryReader, ASizeOf64BitsThatIsMissingIsAContradiction) {
    MadeEntry made = test::stored("n", "datos");
    made.local.size = in_zip64;
    EXPECT_EQ(read(made), contradicting);
    made.local.size = 5;
    made.local.packed_size = in_zip64;
    EXPECT_EQ(read(made), contradicting);
}

TEST_F(ZipEntryReader, WhatItCannotReadIsToldFromTheDirectory) {
    const MadeEntry made = test::stored("n", "datos");
    for (const std::uint16_t flag : std::initializer_list<std::uint16_t>{1, 1 << 6, 1 << 13}) {
        MadeEntry encrypted_one = made;
        encrypted_one.with([&](CentralEntry& entry) { entry.flags |= flag; });
        EXPECT_EQ(read(encrypted_one), encrypted);
        // Also if only one of the headers says so.
        encrypted_one.central.flags = 0;
        EXPECT_EQ(read(encrypted_one), contradicting);
    }
    for (const std::uint16_t method : std::initializer_list<std::uint16_t>{1, 9, 12, 14, 99}) {
        MadeEntry unknown = made;
        unknown.with([&](CentralEntry& entry) { entry.method = method; });
        EXPECT_EQ(read(unknown), unknown_method) << method;
    }
    EXPECT_EQ(contents, "");
}

TEST_F(ZipEntryReader, HeadersThatDisagreeAreAContradiction) {
    const auto contradicts = [this](const auto& change) {
        MadeEntry made = test::deflated("nombre", "datos que se comprimen, datos");
        change(made.local);
        EXPECT_EQ(read(made), contradicting);
        EXPECT_EQ(contents, "");
    };
    contradicts([](CentralEntry& entry) { entry.name = "nombrf"; });
    contradicts([](CentralEntry& entry) { entry.method = method_store; });
    contradicts([](CentralEntry& entry) { ++entry.crc; });
    contradicts([](CentralEntry& entry) { ++entry.size; });
    contradicts([](CentralEntry& entry) { --entry.packed_size; });
    contradicts([](CentralEntry& entry) { entry.flags |= flag_encrypted; });
}

TEST_F(ZipEntryReader, AStoredEntryHasOneSize) {
    MadeEntry made = test::stored("n", "datos");
    made.with([](CentralEntry& entry) { entry.size = 4; });
    EXPECT_EQ(read(made), contradicting);
    made.with([](CentralEntry& entry) { entry.size = 6; });
    EXPECT_EQ(read(made), contradicting);
}

TEST_F(ZipEntryReader, NeverGivesMoreThanTheDirectorySays) {
    for (const std::size_t size : {10UL, 300'000UL, 2'000'000UL}) {
        MadeEntry made = test::deflated("n", std::string(size, 'a'));
        made.with([&](CentralEntry& entry) { entry.size = size - 1; });
        EXPECT_EQ(read(made), damaged) << size;
        EXPECT_LT(contents.size(), size);
        made.with([&](CentralEntry& entry) { entry.size = 0; });
        EXPECT_EQ(read(made), damaged) << size;
        EXPECT_EQ(contents, "");
        made.with([&](CentralEntry& entry) { entry.size = size + 1; });
        EXPECT_EQ(read(made), damaged) << size;
    }
}

TEST_F(ZipEntryReader, DataThatCannotBeUnpackedIsDamaged) {
    const std::string data = test::compressible(50'000, 5);
    MadeEntry made = test::deflated("n", data);
    const std::string whole = made.data;
    made.data[0] = '\7';  // a block of a kind that does not exist
    EXPECT_EQ(read(made), damaged);
    // Cut off, and with a byte after its end.
    const auto resize = [&](std::size_t size) {
        made.data = (whole + "x").substr(0, size);
        made.with([&](CentralEntry& entry) { entry.packed_size = size; });
    };
    for (const std::size_t size :
         {std::size_t{0}, std::size_t{1}, whole.size() / 2, whole.size() - 1, whole.size() + 1}) {
        resize(size);
        EXPECT_EQ(read(made), damaged) << size;
    }
    resize(whole.size());
    EXPECT_EQ(read(made), done);
}

TEST_F(ZipEntryReader, OtherContentsHaveAWrongChecksum) {
    for (const auto make : {test::stored, test::deflated}) {
        MadeEntry made = make("n", "datos");
        made.with([](CentralEntry& entry) { entry.crc ^= 1; });
        EXPECT_EQ(read(made), wrong_checksum);
        EXPECT_EQ(contents, "datos");
    }
}

TEST_F(ZipEntryReader, AnArchiveThatHasBecomeShorterIsDamaged) {
    for (const auto make : {test::stored, test::deflated}) {
        folder.write("a.zip", test::archive_with({make("n", test::incompressible(900'000, 6))}));
        const ArchiveReader archive(folder / "a.zip");
        std::filesystem::resize_file(test::from_utf8(folder / "a.zip"), 500'000);
        const OldEntry& entry = archive.entries().front();
        EXPECT_EQ(reader.read(archive, entry, [](ByteView) {}), damaged);
        std::filesystem::resize_file(test::from_utf8(folder / "a.zip"), 20);
        EXPECT_EQ(reader.read(archive, entry, [](ByteView) {}), damaged);
    }
}

TEST_F(ZipEntryReader, WhatTheSinkThrowsPassesThrough) {
    folder.write("a.zip", test::archive_with({test::stored("n", "datos")}));
    const ArchiveReader archive(folder / "a.zip");
    const auto stop = [](ByteView) { throw ZipError(ZipCode::aborted, "stop"); };
    EXPECT_THROW(static_cast<void>(reader.read(archive, archive.entries().front(), stop)),
                 ZipError);
    // The next entry is read as if nothing had been before.
    EXPECT_EQ(read(test::deflated("n", "datos")), done);
    EXPECT_EQ(contents, "datos");
}

}  // namespace
}  // namespace kovrel::zip
