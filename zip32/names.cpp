#include "names.h"

#include <array>
#include <zlib.h>

#include "bytes.h"
#include "extra_fields.h"

namespace kovrel::zip {
namespace {

constexpr std::uint16_t utf8_flag = 1U << 11;
constexpr int made_on_unix = 3;

// The upper half of code page 850, as the Unicode consortium publishes it.
constexpr std::array<std::uint16_t, 128> code_page_850 = {
    0x00C7, 0x00FC, 0x00E9, 0x00E2, 0x00E4, 0x00E0, 0x00E5, 0x00E7, 0x00EA, 0x00EB, 0x00E8, 0x00EF,
    0x00EE, 0x00EC, 0x00C4, 0x00C5, 0x00C9, 0x00E6, 0x00C6, 0x00F4, 0x00F6, 0x00F2, 0x00FB, 0x00F9,
    0x00FF, 0x00D6, 0x00DC, 0x00F8, 0x00A3, 0x00D8, 0x00D7, 0x0192, 0x00E1, 0x00ED, 0x00F3, 0x00FA,
    0x00F1, 0x00D1, 0x00AA, 0x00BA, 0x00BF, 0x00AE, 0x00AC, 0x00BD, 0x00BC, 0x00A1, 0x00AB, 0x00BB,
    0x2591, 0x2592, 0x2593, 0x2502, 0x2524, 0x00C1, 0x00C2, 0x00C0, 0x00A9, 0x2563, 0x2551, 0x2557,
    0x255D, 0x00A2, 0x00A5, 0x2510, 0x2514, 0x2534, 0x252C, 0x251C, 0x2500, 0x253C, 0x00E3, 0x00C3,
    0x255A, 0x2554, 0x2569, 0x2566, 0x2560, 0x2550, 0x256C, 0x00A4, 0x00F0, 0x00D0, 0x00CA, 0x00CB,
    0x00C8, 0x0131, 0x00CD, 0x00CE, 0x00CF, 0x2518, 0x250C, 0x2588, 0x2584, 0x00A6, 0x00CC, 0x2580,
    0x00D3, 0x00DF, 0x00D4, 0x00D2, 0x00F5, 0x00D5, 0x00B5, 0x00FE, 0x00DE, 0x00DA, 0x00DB, 0x00D9,
    0x00FD, 0x00DD, 0x00AF, 0x00B4, 0x00AD, 0x00B1, 0x2017, 0x00BE, 0x00B6, 0x00A7, 0x00F7, 0x00B8,
    0x00B0, 0x00A8, 0x00B7, 0x00B9, 0x00B3, 0x00B2, 0x25A0, 0x00A0,
};

bool is_separator(char c, PathStyle style) {
    return c == '/' || (style == PathStyle::windows && c == '\\');
}

bool has_drive(std::string_view path, PathStyle style) {
    return style == PathStyle::windows && path.size() >= 2 && path[1] == ':';
}

bool is_dots(std::string_view component) {
    return component == "." || component == "..";
}

// Calls visit(component) for each component that is not empty.
template <typename Visit>
void each_component(std::string_view path, PathStyle style, Visit visit) {
    std::size_t start = 0;
    for (std::size_t i = 0; i <= path.size(); ++i) {
        if (i == path.size() || is_separator(path[i], style)) {
            if (i > start) {
                visit(path.substr(start, i - start));
            }
            start = i + 1;
        }
    }
}

// How many bytes of continuation follow a first byte; -1 for a byte that starts nothing.
int continuation_count(unsigned char first) {
    if (first < 0x80) return 0;
    if (first >= 0xC2 && first <= 0xDF) return 1;
    if (first >= 0xE0 && first <= 0xEF) return 2;
    if (first >= 0xF0 && first <= 0xF4) return 3;
    return -1;
}

// The second byte's range is narrower after some first bytes (overlong forms, surrogates, the end).
bool is_second_byte(unsigned char first, unsigned char second) {
    switch (first) {
        case 0xE0:
            return second >= 0xA0 && second <= 0xBF;
        case 0xED:
            return second >= 0x80 && second <= 0x9F;
        case 0xF0:
            return second >= 0x90 && second <= 0xBF;
        case 0xF4:
            return second >= 0x80 && second <= 0x8F;
        default:
            return second >= 0x80 && second <= 0xBF;
    }
}

// The Unicode path field: version 1, CRC-32 of the raw name, then the name in UTF-8.
std::string unicode_path(std::string_view raw, std::string_view extra) {
    const std::string_view field = find_extra_field(extra, 0x7075);
    if (field.size() < 5 || field[0] != 1) {
        return {};
    }
    const ByteView bytes(reinterpret_cast<const std::uint8_t*>(field.data()), field.size());
    const auto checksum =
        crc32(0, reinterpret_cast<const Bytef*>(raw.data()), static_cast<uInt>(raw.size()));
    const std::string_view name = field.substr(5);
    if (load32(bytes, 1) != checksum || !is_utf8(name)) {
        return {};
    }
    return std::string(name);
}

}  // namespace

std::string last_component(std::string_view path, PathStyle style) {
    std::size_t start = path.size();
    while (start > 0 && !is_separator(path[start - 1], style)) {
        --start;
    }
    std::string_view last = path.substr(start);
    if (start == 0 && has_drive(last, style)) {
        last.remove_prefix(2);
    }
    return is_dots(last) ? std::string() : std::string(last);
}

std::string folder_of(std::string_view path, PathStyle style) {
    return std::string(path.substr(0, path.size() - last_component(path, style).size()));
}

std::string relative_name(std::string_view path, PathStyle style) {
    int skipped = 0;
    if (has_drive(path, style)) {
        path.remove_prefix(2);
    } else if (style == PathStyle::windows && path.size() > 2 && is_separator(path[0], style) &&
               is_separator(path[1], style)) {
        skipped = 2;  // \\server\share
    }
    std::string name;
    each_component(path, style, [&](std::string_view component) {
        if (skipped > 0) {
            --skipped;
        } else if (!is_dots(component)) {
            name.append(name.empty() ? "" : "/").append(component);
        }
    });
    return name;
}

bool is_absolute(std::string_view path, PathStyle style) {
    return has_drive(path, style) || (!path.empty() && is_separator(path[0], style));
}

bool is_ascii(std::string_view text) noexcept {
    for (const char c : text) {
        if (static_cast<unsigned char>(c) >= 0x80) {
            return false;
        }
    }
    return true;
}

bool is_utf8(std::string_view text) noexcept {
    for (std::size_t i = 0; i < text.size();) {
        const auto first = static_cast<unsigned char>(text[i]);
        const int following = continuation_count(first);
        if (following < 0 || text.size() - i <= static_cast<std::size_t>(following)) {
            return false;
        }
        for (int k = 1; k <= following; ++k) {
            const auto byte = static_cast<unsigned char>(text[i + static_cast<std::size_t>(k)]);
            if (k == 1 ? !is_second_byte(first, byte) : (byte & 0xC0) != 0x80) {
                return false;
            }
        }
        i += static_cast<std::size_t>(following) + 1;
    }
    return true;
}

std::string utf8_from_code_page_850(std::string_view text) {
    std::string result;
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        const unsigned code = byte < 0x80 ? byte : code_page_850[byte - 0x80U];
        if (code < 0x80) {
            result.push_back(static_cast<char>(code));
        } else if (code < 0x800) {
            result.push_back(static_cast<char>(0xC0 | code >> 6));
            result.push_back(static_cast<char>(0x80 | (code & 0x3F)));
        } else {
            result.push_back(static_cast<char>(0xE0 | code >> 12));
            result.push_back(static_cast<char>(0x80 | (code >> 6 & 0x3F)));
            result.push_back(static_cast<char>(0x80 | (code & 0x3F)));
        }
    }
    return result;
}

std::string entry_name_utf8(std::string_view raw, std::uint16_t flags, std::uint16_t made_by,
                            std::string_view extra) {
    if ((flags & utf8_flag) != 0 || is_ascii(raw)) {
        return std::string(raw);
    }
    if (std::string name = unicode_path(raw, extra); !name.empty()) {
        return name;
    }
    if (made_by >> 8 == made_on_unix && is_utf8(raw)) {
        return std::string(raw);
    }
    return utf8_from_code_page_850(raw);
}

}  // namespace kovrel::zip
