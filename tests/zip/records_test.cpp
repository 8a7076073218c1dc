// The records of an archive, written and read back, classic and ZIP64.
#include "records.h"

#include <gtest/gtest.h>

namespace kovrel::zip {
namespace {

CentralEntry sample() {
    CentralEntry entry;
    entry.made_by = 0x0314;
    entry.version_needed = 20;
    entry.flags = flag_utf8;
    entry.method = method_deflate;
    entry.modified = {0x5A21, 0x1234};
    entry.crc = 0xDEADBEEF;
    entry.packed_size = 123;
    entry.size = 456;
    entry.internal_attributes = 1;
    entry.external_attributes = 0x81A40020;
    entry.local_offset = 789;
    entry.name = "año.txt";
    entry.extra = std::string("\x55\x54\x01\x00\x03", 5);
    entry.comment = "nota";
    return entry;
}

void expect_equal(const CentralEntry& a, const CentralEntry& b) {
    EXPECT_EQ(a.made_by, b.made_by);
    EXPECT_EQ(a.flags, b.flags);
    EXPECT_EQ(a.method, b.method);
    EXPECT_EQ(a.modified, b.modified);
    EXPECT_EQ(a.crc, b.crc);
    EXPECT_EQ(a.packed_size, b.packed_size);
    EXPECT_EQ(a.size, b.size);
    EXPECT_EQ(a.internal_attributes, b.internal_attributes);
    EXPECT_EQ(a.external_attributes, b.external_attributes);
    EXPECT_EQ(a.local_offset, b.local_offset);
    EXPECT_EQ(a.name, b.name);
    EXPECT_EQ(a.extra, b.extra);
    EXPECT_EQ(a.comment, b.comment);
}

TEST(ZipRecords, DirectoryEntryWrittenAndRead) {
    Bytes bytes;
    append_central_entry(bytes, sample());
    EXPECT_EQ(bytes.size(), central_header_size + 8 + 5 + 4);
    ByteView rest(bytes);
    const auto read = take_central_entry(rest);
    ASSERT_TRUE(read);
    EXPECT_TRUE(rest.empty());
    expect_equal(*read, sample());
    EXPECT_EQ(read->version_needed, 20);
}

// The layouts are those of the published file format, byte by byte.
Bytes bytes_in_hex(const std::string& hexadecimal, const std::string& text = "") {
    Bytes bytes;
    for (std::size_t i = 0; i + 1 < hexadecimal.size(); i += 3) {
        bytes.push_back(
            static_cast<std::uint8_t>(std::stoi(hexadecimal.substr(i, 2), nullptr, 16)));
    }
    append_all(bytes, text);
    return bytes;
}

TEST(ZipRecords, TheLayoutOfADirectoryEntry) {
    Bytes bytes;
    append_central_entry(bytes, sample());
    EXPECT_EQ(bytes,
              bytes_in_hex("50 4B 01 02 14 03 14 00 00 08 08 00 34 12 21 5A EF BE AD DE "
                           "7B 00 00 00 C8 01 00 00 08 00 05 00 04 00 00 00 01 00 20 00 A4 81 "
                           "15 03 00 00 ",
                           sample().name + sample().extra + sample().comment));
    CentralEntry entry = sample();
    entry.size = 0xFFFFFFFE;
    entry.packed_size = 0xFFFFFFFF;
    entry.local_offset = 0x123456789A;
    bytes.clear();
    append_central_entry(bytes, entry);
    Bytes expected = bytes_in_hex(
        "50 4B 01 02 14 03 2D 00 00 08 08 00 34 12 21 5A EF BE AD DE "
        "FF FF FF FF FE FF FF FF 08 00 19 00 04 00 00 00 01 00 20 00 A4 81 "
        "FF FF FF FF ",
        entry.name);
    append_all(expected,
               bytes_in_hex("01 00 10 00 FF FF FF FF 00 00 00 00 9A 78 56 34 12 00 00 00 ",
                            entry.extra + entry.comment));
    EXPECT_EQ(bytes, expected);
}

TEST(ZipRecords, TheLayoutOfALocalHeader) {
    Bytes bytes;
    append_local_header(bytes, sample(), false);
    EXPECT_EQ(bytes,
              bytes_in_hex("50 4B 03 04 14 00 00 08 08 00 34 12 21 5A EF BE AD DE 7B 00 00 00 "
                           "C8 01 00 00 08 00 05 00 ",
                           sample().name + sample().extra));
    bytes.clear();
    append_local_header(bytes, sample(), true);
    Bytes expected = bytes_in_hex(
        "50 4B 03 04 2D 00 00 08 08 00 34 12 21 5A EF BE AD DE FF FF FF FF "
        "FF FF FF FF 08 00 19 00 ",
        sample().name);
    append_all(expected,
               bytes_in_hex("01 00 10 00 C8 01 00 00 00 00 00 00 7B 00 00 00 00 00 00 00 ",
                            sample().extra));
    EXPECT_EQ(bytes, expected);
}

TEST(ZipRecords, TheMomentIsInSecondsWhereTheirFieldHoldsIt) {
    const auto field = [](std::int64_t seconds) {
        const std::string bytes = moment_field(moment_of_unix_time(seconds) + 5);
        return Bytes(bytes.begin(), bytes.end());
    };
    EXPECT_EQ(field(0x12345678), bytes_in_hex("55 54 05 00 01 78 56 34 12 "));
    EXPECT_EQ(field(-1), bytes_in_hex("55 54 05 00 01 FF FF FF FF "));
    EXPECT_EQ(field(0x7FFFFFFF), bytes_in_hex("55 54 05 00 01 FF FF FF 7F "));
    const std::string moment = "05 80 3E D5 1E FD E9 01 ";
    EXPECT_EQ(field(0x80000000),
              bytes_in_hex("0A 00 20 00 00 00 00 00 01 00 18 00 " + moment + moment + moment));
}

TEST(ZipRecords, TheLayoutOfTheEnd) {
    const std::string plain = "50 4B 05 06 00 00 00 00 03 00 03 00 96 00 00 00 E8 03 00 00 04 00 ";
    Bytes bytes;
    append_directory_end(bytes, {3, 150, 1000, "hola"}, 1150);
    EXPECT_EQ(bytes, bytes_in_hex(plain, "hola"));
    bytes.clear();
    append_directory_end(bytes, {3, 0xFFFFFFFF, 1000, ""}, 0x1000003E7);
    EXPECT_EQ(bytes,
              bytes_in_hex("50 4B 06 06 2C 00 00 00 00 00 00 00 2D 00 2D 00 00 00 00 00 "
                           "00 00 00 00 03 00 00 00 00 00 00 00 03 00 00 00 00 00 00 00 "
                           "FF FF FF FF 00 00 00 00 E8 03 00 00 00 00 00 00 "
                           "50 4B 06 07 00 00 00 00 E7 03 00 00 01 00 00 00 01 00 00 00 "
                           "50 4B 05 06 00 00 00 00 03 00 03 00 FF FF FF FF E8 03 00 00 00 00 "));
    // The largest directory and offset without the ZIP64 records.
    bytes.clear();
    append_directory_end(bytes, {3, 0xFFFFFFFE, 0xFFFFFFFE, ""}, 0x1FFFFFFFC);
    EXPECT_EQ(bytes.size(), end_record_size);
    bytes.clear();
    append_directory_end(bytes, {3, 150, 0xFFFFFFFF, ""}, 0x100000095);
    EXPECT_EQ(bytes.size(), end64_record_size + locator64_size + end_record_size);
}

TEST(ZipRecords, AnEntryMayHaveNoNameExtraAndComment) {
    Bytes bytes;
    append_central_entry(bytes, CentralEntry());
    ASSERT_EQ(bytes.size(), central_header_size);
    ByteView rest(bytes);
    const auto read = take_central_entry(rest);
    ASSERT_TRUE(read);
    EXPECT_EQ(read->name, "");
    EXPECT_TRUE(rest.empty());
}

TEST(ZipRecords, TheZip64FieldHoldsWhatDoesNotFit32Bits) {
    for (int which = 1; which < 8; ++which) {
        CentralEntry entry = sample();
        if (which & 1) entry.size = 0xFFFFFFFF;
        if (which & 2) entry.packed_size = 0x123456789A;
        if (which & 4) entry.local_offset = 0xFFFFFFFFFF;
        Bytes bytes;
        append_central_entry(bytes, entry);
        ByteView rest(bytes);
        const auto read = take_central_entry(rest);
        ASSERT_TRUE(read);
        expect_equal(*read, entry);
        EXPECT_EQ(read->version_needed, 45);
    }
}

TEST(ZipRecords, BrokenDirectoryEntriesAreRefused) {
    Bytes bytes;
    append_central_entry(bytes, sample());
    for (std::size_t length = 0; length < bytes.size(); ++length) {
        ByteView cut = ByteView(bytes).first(length);
        EXPECT_FALSE(take_central_entry(cut)) << length;
    }
    Bytes other_volume = bytes;
    other_volume[34] = 1;
    ByteView view(other_volume);
    EXPECT_FALSE(take_central_entry(view));
    // A size that refers to a ZIP64 field, without the field.
    Bytes promised = bytes;
    for (int i = 24; i < 28; ++i) promised[static_cast<std::size_t>(i)] = 0xFF;
    view = promised;
    EXPECT_FALSE(take_central_entry(view));
}

TEST(ZipRecords, LocalHeader) {
    CentralEntry entry = sample();
    for (const bool zip64 : {false, true}) {
        Bytes header;
        append_local_header(header, entry, zip64);
        EXPECT_EQ(header.size(), local_header_size + 8 + 5 + (zip64 ? 20 : 0));
        EXPECT_EQ(load32(header, 0), local_signature);
        EXPECT_EQ(load16(header, 4), zip64 ? 45 : 20);
        EXPECT_EQ(load32(header, 18), zip64 ? 0xFFFFFFFFU : 123U);
    }
}

TEST(ZipRecords, EndOfDirectory) {
    Bytes bytes;
    append_directory_end(bytes, {3, 150, 1000, "hola"}, 1150);
    EXPECT_EQ(bytes.size(), end_record_size + 4);
    bytes.clear();
    append_directory_end(bytes, {65534, 150, 1000, ""}, 1150);
    EXPECT_EQ(bytes.size(), end_record_size);
    bytes.clear();
    append_directory_end(bytes, {65535, 150, 1000, ""}, 1150);
    ASSERT_EQ(bytes.size(), end64_record_size + locator64_size + end_record_size);
    EXPECT_EQ(load32(bytes, 0), end64_signature);
    EXPECT_EQ(load64(bytes, 4), 44U);
    EXPECT_EQ(load64(bytes, 24), 65535U);
    EXPECT_EQ(load64(bytes, 48), 1000U);
    EXPECT_EQ(load64(bytes, 56 + 8), 1150U);
    EXPECT_EQ(load16(bytes, 76 + 8), 0xFFFF);
    bytes.clear();
    append_directory_end(bytes, {1, 150, 0x100000000, ""}, 0x100000096);
    EXPECT_EQ(load64(bytes, 48), 0x100000000U);
    EXPECT_EQ(load32(bytes, 76 + 16), 0xFFFFFFFFU);
}

}  // namespace
}  // namespace kovrel::zip
