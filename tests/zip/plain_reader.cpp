#include "plain_reader.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <zlib.h>

namespace kovrel::zip::test {
namespace {

std::uint64_t number(const std::string& bytes, std::size_t at, std::size_t width) {
    std::uint64_t value = 0;
    for (std::size_t i = 0; i < width; ++i) {
        value |= std::uint64_t{static_cast<unsigned char>(bytes.at(at + i))} << (8 * i);
    }
    return value;
}

bool has_signature(const std::string& bytes, std::uint64_t at, std::uint32_t signature) {
    return bytes.size() >= 4 && at <= bytes.size() - 4 &&
           number(bytes, static_cast<std::size_t>(at), 4) == signature;
}

// Where the central directory lies.
struct Directory {
    std::uint64_t count;
    std::uint64_t size;
    std::uint64_t offset;  // as the archive itself counts
    std::uint64_t end;     // in the file
};

// The ZIP64 record where the locator says, or right before the locator when bytes stand before the
// archive that its offsets do not count.
std::optional<Directory> wide_directory(const std::string& archive, std::size_t locator) {
    constexpr std::size_t record_size = 56;
    if (locator < record_size) {
        return std::nullopt;
    }
    const std::uint64_t last = locator - record_size;
    for (const std::uint64_t place : {number(archive, locator + 8, 8), last}) {
        if (place > last || !has_signature(archive, place, 0x06064B50)) {
            continue;
        }
        const auto at = static_cast<std::size_t>(place);
        const bool one_volume = number(archive, at + 16, 8) == 0 &&
                                number(archive, at + 24, 8) == number(archive, at + 32, 8);
        if (one_volume) {
            return Directory{number(archive, at + 32, 8), number(archive, at + 40, 8),
                             number(archive, at + 48, 8), place};
        }
    }
    return std::nullopt;
}

std::optional<Directory> find_directory(const std::string& archive) {
    const std::size_t end = archive.rfind("PK\5\6", std::max<std::size_t>(archive.size(), 22) - 22);
    if (end == std::string::npos || end + 22 > archive.size()) {
        return std::nullopt;
    }
    const bool wide = end >= 20 && has_signature(archive, end - 20, 0x07064B50);
    const std::optional<Directory> found =
        wide ? wide_directory(archive, end - 20)
             : Directory{number(archive, end + 10, 2), number(archive, end + 12, 4),
                         number(archive, end + 16, 4), end};
    if (!found || found->size > found->end || found->offset > found->end - found->size ||
        found->count > found->size / 46) {
        return std::nullopt;
    }
    return found;
}

// The values of an entry that do not fit 32 bits stand in its ZIP64 field, in this order.
struct Values {
    std::uint64_t size;
    std::uint64_t packed_size;
    std::uint64_t offset;
};

bool widen(Values& values, const std::string& extra) {
    std::size_t at = 0;
    while (extra.size() >= at + 4 && number(extra, at, 2) != 1) {
        at += 4 + static_cast<std::size_t>(number(extra, at + 2, 2));
    }
    const bool is_there = extra.size() >= at + 4;
    std::size_t room = is_there ? static_cast<std::size_t>(number(extra, at + 2, 2)) : 0;
    at += 4;
    if (is_there && room > extra.size() - at) {
        room = 0;
    }
    for (std::uint64_t* value : {&values.size, &values.packed_size, &values.offset}) {
        if (*value != 0xFFFFFFFF) {
            continue;
        }
        if (room < 8) {
            return false;
        }
        *value = number(extra, at, 8);
        at += 8;
        room -= 8;
    }
    return true;
}

void unpack(const std::string& archive, std::uint64_t base, const Values& values, std::uint32_t crc,
            PlainEntry& entry) {
    const std::uint64_t local = base + values.offset;
    if (values.offset > archive.size() || local > archive.size() || archive.size() - local < 30 ||
        !has_signature(archive, local, 0x04034B50)) {
        return;
    }
    const auto header = static_cast<std::size_t>(local);
    const std::uint64_t data =
        local + 30 + number(archive, header + 26, 2) + number(archive, header + 28, 2);
    if (data > archive.size() || values.packed_size > archive.size() - data ||
        values.size > (1U << 26)) {
        return;
    }
    const auto size = static_cast<std::size_t>(values.size);
    const std::string packed = archive.substr(static_cast<std::size_t>(data),
                                              static_cast<std::size_t>(values.packed_size));
    if (entry.method == 8) {
        entry.data = inflate_raw(packed, size);
    } else if (entry.method == 0) {
        entry.data = packed;
    }
    const auto length = static_cast<uInt>(entry.data.size());
    entry.readable = (entry.method == 0 || entry.method == 8) && entry.data.size() == size &&
                     crc32(0, reinterpret_cast<const Bytef*>(entry.data.data()), length) == crc;
}

}  // namespace

std::string inflate_raw(const std::string& packed, std::size_t limit) {
    std::string data(limit + 1, '\0');
    z_stream stream{};
    inflateInit2(&stream, -15);
    stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(packed.data()));
    stream.avail_in = static_cast<uInt>(packed.size());
    stream.next_out = reinterpret_cast<Bytef*>(data.data());
    stream.avail_out = static_cast<uInt>(data.size());
    const int result = inflate(&stream, Z_FINISH);
    data.resize(data.size() - stream.avail_out);
    const bool whole = result == Z_STREAM_END && stream.avail_in == 0;
    inflateEnd(&stream);
    return whole ? data : std::string();
}

std::vector<PlainEntry> read_plain(const std::string& archive) {
    std::vector<PlainEntry> entries;
    const std::optional<Directory> directory = find_directory(archive);
    if (!directory) {
        return entries;
    }
    const auto start = static_cast<std::size_t>(directory->end - directory->size);
    const std::uint64_t base = start - directory->offset;  // bytes before the archive
    std::size_t at = start;
    for (std::uint64_t i = 0; i < directory->count; ++i) {
        if (archive.size() - at < 46 || !has_signature(archive, at, 0x02014B50)) {
            break;
        }
        const auto name = static_cast<std::size_t>(number(archive, at + 28, 2));
        const auto extra = static_cast<std::size_t>(number(archive, at + 30, 2));
        const auto comment = static_cast<std::size_t>(number(archive, at + 32, 2));
        if (archive.size() - at < 46 + name + extra + comment) {
            break;
        }
        PlainEntry entry;
        entry.made_by = static_cast<std::uint16_t>(number(archive, at + 4, 2));
        entry.flags = static_cast<std::uint16_t>(number(archive, at + 8, 2));
        entry.method = static_cast<std::uint16_t>(number(archive, at + 10, 2));
        entry.time = static_cast<std::uint16_t>(number(archive, at + 12, 2));
        entry.date = static_cast<std::uint16_t>(number(archive, at + 14, 2));
        entry.attributes = static_cast<std::uint32_t>(number(archive, at + 38, 4));
        entry.name = archive.substr(at + 46, name);
        entry.extra = archive.substr(at + 46 + name, extra);
        entry.comment = archive.substr(at + 46 + name + extra, comment);
        Values values{number(archive, at + 24, 4), number(archive, at + 20, 4),
                      number(archive, at + 42, 4)};
        if (widen(values, entry.extra)) {
            unpack(archive, base, values, static_cast<std::uint32_t>(number(archive, at + 16, 4)),
                   entry);
        }
        entries.push_back(std::move(entry));
        at += 46 + name + extra + comment;
    }
    return entries;
}

}  // namespace kovrel::zip::test
