// What an archive holds, as its readers see it.
#include "listing.h"

#include <gtest/gtest.h>

#include "tests/zip/made_archive.h"
#include "tests/zip/test_folder.h"

namespace kovrel::zip {
namespace {

// 2024-02-29 12:00:00 UTC.
constexpr Moment leap_noon = 133'536'816'000'000'000;
constexpr std::uint32_t leap_noon_unix = 1'709'208'000;
constexpr DosTime leap_noon_dos{(2024 - 1980) << 9 | 2 << 5 | 29, 12 << 11};

OldEntry entry_with_extra(const Bytes& extra, DosTime modified = leap_noon_dos) {
    OldEntry entry;
    entry.central = test::stored("n", "").central;
    entry.central.extra.assign(extra.begin(), extra.end());
    entry.central.modified = modified;
    return entry;
}

Bytes unix_time_field(std::uint32_t seconds, std::uint8_t flags = 1) {
    Bytes field;
    append(field, std::uint16_t{0x5455}, std::uint16_t{5}, flags, seconds);
    return field;
}

Bytes ntfs_field(std::uint64_t moment, std::uint16_t tag = 1) {
    Bytes field;
    append(field, std::uint16_t{0x000A}, std::uint16_t{32}, std::uint32_t{0}, tag,
           std::uint16_t{24}, moment, std::uint64_t{1}, std::uint64_t{2});
    return field;
}

TEST(ZipListing, TellsWhatTheDirectorySays) {
    const test::TestFolder folder;
    test::MadeEntry file = test::deflated("carpeta/señal.txt", std::string(1000, 'a'));
    file.central.comment = "año";
    folder.write("a.zip", test::archive_with({test::folder_entry("carpeta/"), file,
                                              test::link_entry("enlace", "carpeta")}));
    const std::vector<Entry> entries = list_entries(ArchiveReader(folder / "a.zip"));
    ASSERT_EQ(entries.size(), 3U);
    EXPECT_EQ(entries[0].name, "carpeta/");
    EXPECT_TRUE(entries[0].folder);
    EXPECT_EQ(entries[0].permissions, 0755);
    EXPECT_EQ(entries[1].name, "carpeta/señal.txt");
    EXPECT_FALSE(entries[1].folder);
    EXPECT_FALSE(entries[1].link);
    EXPECT_FALSE(entries[1].encrypted);
    EXPECT_EQ(entries[1].size, 1000U);
    EXPECT_EQ(entries[1].packed_size, file.data.size());
    EXPECT_EQ(entries[1].method, method_deflate);
    EXPECT_EQ(entries[1].crc, test::crc32_of(std::string(1000, 'a')));
    EXPECT_EQ(entries[1].comment, "año");
    EXPECT_EQ(entries[1].permissions, 0644);
    EXPECT_EQ(entries[1].local_modified, file.central.modified);
    EXPECT_FALSE(entries[1].modified);
    EXPECT_TRUE(entries[2].link);
    EXPECT_FALSE(entries[2].folder);
}

TEST(ZipListing, NamesAndCommentsInCodePage850) {
    OldEntry entry;
    entry.central.name = "a\xA4o";
    entry.central.comment =
        "se\xA4"
        "al";
    EXPECT_EQ(entry_of(entry).name, "año");
    EXPECT_EQ(entry_of(entry).comment, "señal");
    // With the Unicode fields.
    Bytes extra;
    for (const auto& [id, raw, text] :
         {std::tuple{0x7075, entry.central.name, std::string("日本")},
          std::tuple{0x6375, entry.central.comment, std::string("€")}}) {
        append(extra, static_cast<std::uint16_t>(id), static_cast<std::uint16_t>(5 + text.size()),
               std::uint8_t{1}, test::crc32_of(raw));
        append_all(extra, text);
    }
    entry.central.extra.assign(extra.begin(), extra.end());
    EXPECT_EQ(entry_of(entry).name, "日本");
    EXPECT_EQ(entry_of(entry).comment, "€");
}

TEST(ZipListing, TheTimeInUtc) {
    EXPECT_EQ(entry_of(entry_with_extra({})).modified, std::nullopt);
    EXPECT_EQ(entry_of(entry_with_extra(unix_time_field(leap_noon_unix))).modified, leap_noon);
    EXPECT_EQ(entry_of(entry_with_extra(ntfs_field(leap_noon + 7))).modified, leap_noon + 7);
    Bytes both = unix_time_field(leap_noon_unix);
    append_all(both, ntfs_field(leap_noon + 7));
    EXPECT_EQ(entry_of(entry_with_extra(both)).modified, leap_noon + 7);
    // Fields that hold no time of modification.
    EXPECT_EQ(entry_of(entry_with_extra(unix_time_field(leap_noon_unix, 2))).modified,
              std::nullopt);
    EXPECT_EQ(entry_of(entry_with_extra(ntfs_field(leap_noon, 2))).modified, std::nullopt);
    EXPECT_EQ(entry_of(entry_with_extra(ntfs_field(0))).modified, std::nullopt);
    EXPECT_EQ(entry_of(entry_with_extra(ntfs_field(~Moment{0}))).modified, std::nullopt);
}

TEST(ZipListing, UnixTimesPast2038) {
    constexpr DosTime in_2107{127 << 9 | 12 << 5 | 31, 23 << 11};
    constexpr DosTime in_2040{60 << 9 | 1 << 5 | 1, 0};
    // 2107-12-31 23:00:00 UTC is 4'354'815'600, 32 bits of which are left.
    constexpr std::uint32_t low_bits = 4'354'815'600 - (std::uint64_t{1} << 32);
    EXPECT_EQ(entry_of(entry_with_extra(unix_time_field(low_bits), in_2107)).modified,
              moment_of_unix_time(4'354'815'600));
    // 2040-01-01 is above the signed range.
    EXPECT_EQ(entry_of(entry_with_extra(unix_time_field(2'208'988'800), in_2040)).modified,
              moment_of_unix_time(2'208'988'800));
    // What agrees with the local time in neither way is not believed.
    EXPECT_EQ(entry_of(entry_with_extra(unix_time_field(~0U), in_2107)).modified, std::nullopt);
    // The last seconds of the signed range.
    constexpr DosTime at_the_turn{58 << 9 | 1 << 5 | 19, 3 << 11 | 14 << 5 | 3};
    EXPECT_EQ(entry_of(entry_with_extra(unix_time_field(0x7FFFFFFF), at_the_turn)).modified,
              moment_of_unix_time(0x7FFFFFFF));
    // 1960-01-01, which DOS times cannot hold.
    constexpr DosTime first_day{1 << 5 | 1, 0};
    EXPECT_EQ(entry_of(entry_with_extra(unix_time_field(static_cast<std::uint32_t>(-315'619'200)),
                                        first_day))
                  .modified,
              moment_of_unix_time(-315'619'200));
    // No date at all.
    EXPECT_EQ(entry_of(entry_with_extra(unix_time_field(leap_noon_unix), {})).modified, leap_noon);
}

TEST(ZipListing, BrokenFieldsOfTimeAreNone) {
    const std::vector<Bytes> whole = {unix_time_field(leap_noon_unix), ntfs_field(leap_noon)};
    for (const Bytes& field : whole) {
        for (std::size_t length = 0; length < field.size(); ++length) {
            Bytes cut(field.begin(), field.begin() + static_cast<std::ptrdiff_t>(length));
            EXPECT_EQ(entry_of(entry_with_extra(cut)).modified, std::nullopt) << length;
            if (length < 4) continue;
            // The field as long as it says.
            cut[2] = static_cast<std::uint8_t>(length - 4);
            EXPECT_EQ(entry_of(entry_with_extra(cut)).modified, std::nullopt) << length;
        }
    }
}

TEST(ZipListing, FoldersLinksAndPermissions) {
    const auto listed = [](const std::string& name, std::uint32_t attributes,
                           std::uint64_t size = 0) {
        OldEntry entry;
        entry.central.name = name;
        entry.central.external_attributes = attributes;
        entry.central.size = size;
        return entry_of(entry);
    };
    EXPECT_TRUE(listed("a/", 0).folder);
    EXPECT_EQ(listed("a/", 0).permissions, 0777);
    EXPECT_TRUE(listed("a", 0x10).folder);
    EXPECT_FALSE(listed("a", 0x10, 1).folder);
    EXPECT_TRUE(listed("a", 040700U << 16).folder);
    EXPECT_FALSE(listed("a", 0100700U << 16 | 0x10).folder);
    EXPECT_EQ(listed("a", 0).permissions, 0666);
    EXPECT_EQ(listed("a", 1).permissions, 0444);
    EXPECT_EQ(listed("a", 0106751U << 16).permissions, 0751);
    EXPECT_EQ(listed("a", 0600U << 16 | 1).permissions, 0600);
    EXPECT_TRUE(listed("a", 0120777U << 16).link);
    EXPECT_TRUE(listed("a", 0x400).link);
    EXPECT_FALSE(listed("a", 0100644U << 16 | 0x400).link);
}

TEST(ZipTimes, DosTimesAreReadBack) {
    for (const LocalTime& local :
         {LocalTime{1980, 1, 1, 0, 0, 0}, LocalTime{2107, 12, 31, 23, 59, 58},
          LocalTime{2024, 2, 29, 12, 34, 56}, LocalTime{2000, 2, 29, 0, 0, 2}}) {
        const std::optional<LocalTime> read = from_dos_time(to_dos_time(local));
        ASSERT_TRUE(read);
        EXPECT_EQ(
            std::tie(read->year, read->month, read->day, read->hour, read->minute, read->second),
            std::tie(local.year, local.month, local.day, local.hour, local.minute, local.second));
    }
    const auto date = [](int year, int month, int day) {
        return DosTime{static_cast<std::uint16_t>((year - 1980) << 9 | month << 5 | day), 0};
    };
    for (const DosTime& wrong :
         {DosTime{}, date(2000, 0, 1), date(2000, 13, 1), date(2000, 1, 0), date(2001, 2, 29),
          date(2100, 2, 29), date(2000, 4, 31), DosTime{1 << 5 | 1, 24 << 11},
          DosTime{1 << 5 | 1, 60 << 5}, DosTime{1 << 5 | 1, 30}}) {
        EXPECT_FALSE(from_dos_time(wrong)) << wrong.date << " " << wrong.time;
    }
}

}  // namespace
}  // namespace kovrel::zip
