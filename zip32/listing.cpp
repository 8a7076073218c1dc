#include "listing.h"

#include <chrono>

#include "names.h"

namespace kovrel::zip {
namespace {

// The Unix file types, in the mode's highest four bits.
constexpr std::uint32_t type_bits = 0xF000;
constexpr std::uint32_t type_folder = 0x4000;
constexpr std::uint32_t type_link = 0xA000;

constexpr std::uint32_t dos_read_only = 0x01;
constexpr std::uint32_t dos_folder = 0x10;
constexpr std::uint32_t dos_reparse_point = 0x400;

constexpr Moment most_moments = ~Moment{0} >> 1;

// The NTFS field: four reserved bytes, then a sequence of (16-bit tag, 16-bit length, data). Tag 1
// holds the moments of modification, access and creation.
std::optional<Moment> ntfs_time(std::string_view extra) {
    ByteView rest = as_bytes(find_extra_field(extra, ntfs_field_id));
    if (rest.size() < 4) return std::nullopt;
    for (rest = rest.subspan(4); rest.size() >= 4;) {
        const std::size_t length = load16(rest, 2);
        if (rest.size() < 4 + length) return std::nullopt;
        if (load16(rest, 0) == 1 && length >= 8) {
            const Moment modified = load64(rest, 4);
            // Windows counts in signed 64 bits; zero stands for no time.
            return modified > 0 && modified <= most_moments ? std::optional(modified)
                                                            : std::nullopt;
        }
        rest = rest.subspan(4 + length);
    }
    return std::nullopt;
}

std::int64_t seconds_since_1970(const LocalTime& local) {
    using namespace std::chrono;
    const sys_days day = year(local.year) / local.month / local.day;
    return sys_seconds(day + hours(local.hour) + minutes(local.minute) + seconds(local.second))
        .time_since_epoch()
        .count();
}

// The field of Unix times: a byte that says which times follow, then the 32 bits of each, that of
// modification first. From 2038 on some programs write the low bits of the time, others the largest
// number that fits: there the field counts only where it agrees with the entry's local time, which
// is never more than a day off.
std::optional<Moment> unix_time(std::string_view extra, const DosTime& local_modified) {
    constexpr std::int64_t two_days = std::int64_t{2} * 24 * 60 * 60;
    constexpr int first_doubtful_year = 2038;
    const ByteView field = as_bytes(find_extra_field(extra, unix_time_field_id));
    if (field.size() < 5 || (field[0] & 1) == 0) return std::nullopt;
    const std::int64_t seconds = static_cast<std::int32_t>(load32(field, 1));
    const std::optional<LocalTime> local = from_dos_time(local_modified);
    if (!local || local->year < first_doubtful_year) return moment_of_unix_time(seconds);
    const std::int64_t about = seconds_since_1970(*local);
    for (const std::int64_t meant : {seconds, seconds + (std::int64_t{1} << 32)}) {
        if (meant >= about - two_days && meant <= about + two_days) {
            return moment_of_unix_time(meant);
        }
    }
    return std::nullopt;
}

bool is_link(std::uint32_t attributes) {
    const std::uint32_t mode = attributes >> 16;
    // Without a mode the low half holds the attributes of Windows.
    return mode != 0 ? (mode & type_bits) == type_link : (attributes & dos_reparse_point) != 0;
}

bool is_folder(const CentralEntry& entry) {
    if (ends_in_separator(entry.name)) return true;
    const std::uint32_t type = entry.external_attributes >> 16 & type_bits;
    const bool marked =
        type != 0 ? type == type_folder : (entry.external_attributes & dos_folder) != 0;
    return marked && entry.size == 0;
}

std::uint16_t permissions_of(std::uint32_t attributes, bool folder) {
    constexpr std::uint32_t permission_bits = 0777;
    const std::uint32_t mode = attributes >> 16;
    if (mode != 0) return static_cast<std::uint16_t>(mode & permission_bits);
    if (folder) return 0777;
    return (attributes & dos_read_only) != 0 ? 0444 : 0666;
}

}  // namespace

Entry entry_of(const OldEntry& entry) {
    const CentralEntry& central = entry.central;
    Entry result;
    result.name = entry_name_utf8(central.name, central.flags, central.made_by, central.extra);
    result.folder = is_folder(central);
    result.link = is_link(central.external_attributes);
    result.encrypted = (central.flags & flags_of_encryption) != 0;
    result.size = central.size;
    result.packed_size = central.packed_size;
    result.crc = central.crc;
    result.method = central.method;
    result.comment =
        entry_comment_utf8(central.comment, central.flags, central.made_by, central.extra);
    result.local_modified = central.modified;
    result.modified = ntfs_time(central.extra);
    if (!result.modified) result.modified = unix_time(central.extra, central.modified);
    result.permissions = permissions_of(central.external_attributes, result.folder);
    return result;
}

std::vector<Entry> list_entries(const ArchiveReader& archive) {
    std::vector<Entry> entries;
    entries.reserve(archive.entries().size());
    for (const OldEntry& entry : archive.entries()) entries.push_back(entry_of(entry));
    return entries;
}

}  // namespace kovrel::zip
