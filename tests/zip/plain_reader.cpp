#include "plain_reader.h"

#include <zlib.h>

namespace kovrel::zip::test {
namespace {

std::size_t number(const std::string& bytes, std::size_t at, std::size_t width) {
    std::size_t value = 0;
    for (std::size_t i = 0; i < width; ++i) {
        value |= std::size_t{static_cast<unsigned char>(bytes.at(at + i))} << (8 * i);
    }
    return value;
}

void unpack(const std::string& archive, std::size_t local, std::size_t packed_size,
            std::size_t size, std::uint32_t crc, PlainEntry& entry) {
    if (local > archive.size() || archive.size() - local < 30 ||
        number(archive, local, 4) != 0x04034B50) {
        return;
    }
    const std::size_t data =
        local + 30 + number(archive, local + 26, 2) + number(archive, local + 28, 2);
    if (data > archive.size() || packed_size > archive.size() - data || size > (1U << 26)) {
        return;
    }
    const std::string packed = archive.substr(data, packed_size);
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
    const std::size_t end = archive.rfind("PK\5\6");
    if (end == std::string::npos || end + 22 > archive.size()) {
        return entries;
    }
    const std::size_t count = number(archive, end + 10, 2);
    const std::size_t size = number(archive, end + 12, 4);
    const std::size_t offset = number(archive, end + 16, 4);
    if (size > end || offset > end - size ||
        (end >= 20 && archive.compare(end - 20, 4, "PK\6\7") == 0)) {
        return entries;
    }
    const std::size_t base = end - size - offset;  // bytes before the archive
    std::size_t at = end - size;
    for (std::size_t i = 0; i < count; ++i) {
        if (at > archive.size() || archive.size() - at < 46 ||
            number(archive, at, 4) != 0x02014B50) {
            break;
        }
        const std::size_t name = number(archive, at + 28, 2);
        const std::size_t extra = number(archive, at + 30, 2);
        const std::size_t comment = number(archive, at + 32, 2);
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
        unpack(archive, base + number(archive, at + 42, 4), number(archive, at + 20, 4),
               number(archive, at + 24, 4), static_cast<std::uint32_t>(number(archive, at + 16, 4)),
               entry);
        entries.push_back(std::move(entry));
        at += 46 + name + extra + comment;
    }
    return entries;
}

}  // namespace kovrel::zip::test
