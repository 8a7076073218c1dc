#include "names.h"

#include <algorithm>
#include <array>
#include <bit>
#include <zlib.h>

#include "records.h"

namespace kovrel::zip {
namespace {

constexpr int made_on_unix = 3;

// The upper half of code page 850, as the Unicode consortium publishes it.
constexpr std::u16string_view code_page_850 =
    u"ÇüéâäàåçêëèïîìÄÅÉæÆôöòûùÿÖÜø£Ø×ƒ"
    u"áíóúñÑªº¿®¬½¼¡«»░▒▓│┤ÁÂÀ©╣║╗╝¢¥┐"
    u"└┴┬├─┼ãÃ╚╔╩╦╠═╬¤ðÐÊËÈıÍÎÏ┘┌█▄¦Ì▀"
    u"ÓßÔÒõÕµþÞÚÛÙýÝ¯´\u00AD±‗¾¶§÷¸°¨·¹³²■\u00A0";
static_assert(code_page_850.size() == 128);

std::string_view separators(PathStyle style) {
    return style == PathStyle::windows ? "/\\" : "/";
}

bool has_drive(std::string_view path, PathStyle style) {
    return style == PathStyle::windows && path.size() >= 2 && path[1] == ':';
}

bool is_dots(std::string_view component) {
    return component == "." || component == "..";
}

constexpr std::uint16_t unicode_path_id = 0x7075;
constexpr std::uint16_t unicode_comment_id = 0x6375;

// A Unicode field: version 1, CRC-32 of the raw text, then the text in UTF-8.
std::string unicode_text(std::string_view raw, std::string_view extra, std::uint16_t id) {
    const std::string_view field = find_extra_field(extra, id);
    if (field.size() < 5 || field[0] != 1) return {};
    const auto checksum = crc32(0, as_bytes(raw).data(), static_cast<uInt>(raw.size()));
    const std::string_view text = field.substr(5);
    if (load32(as_bytes(field), 1) != checksum || !is_utf8(text)) return {};
    return std::string(text);
}

std::string text_utf8(std::string_view raw, std::uint16_t flags, std::uint16_t made_by,
                      std::string_view extra, std::uint16_t unicode_id) {
    if ((flags & flag_utf8) != 0 || is_ascii(raw)) return std::string(raw);
    if (std::string text = unicode_text(raw, extra, unicode_id); !text.empty()) return text;
    if (made_by >> 8 == made_on_unix && is_utf8(raw)) return std::string(raw);
    return utf8_from_code_page_850(raw);
}

}  // namespace

std::string last_component(std::string_view path, PathStyle style) {
    std::string_view last = path.substr(path.find_last_of(separators(style)) + 1);
    if (last.size() == path.size() && has_drive(last, style)) last.remove_prefix(2);
    return is_dots(last) ? std::string() : std::string(last);
}

std::string folder_of(std::string_view path, PathStyle style) {
    return std::string(path.substr(0, path.size() - last_component(path, style).size()));
}

std::string relative_name(std::string_view path, PathStyle style) {
    int skipped = 0;
    if (has_drive(path, style)) {
        path.remove_prefix(2);
    } else if (style == PathStyle::windows && path.find_first_not_of(separators(style)) >= 2) {
        skipped = 2;  // \\server\share
    }
    std::string name;
    while (!path.empty()) {
        const std::size_t length = std::min(path.find_first_of(separators(style)), path.size());
        const std::string_view component = path.substr(0, length);
        path.remove_prefix(std::min(length + 1, path.size()));
        if (component.empty()) continue;
        if (skipped > 0) {
            --skipped;
        } else if (!is_dots(component)) {
            name.append(name.empty() ? "" : "/").append(component);
        }
    }
    return name;
}

std::vector<std::string> components(std::string_view path, PathStyle style) {
    std::vector<std::string> found;
    while (!path.empty()) {
        const std::size_t length = std::min(path.find_first_of(separators(style)), path.size());
        const std::string_view component = path.substr(0, length);
        path.remove_prefix(std::min(length + 1, path.size()));
        if (component == "..") {
            if (!found.empty() && !is_drive(found.back(), style)) found.pop_back();
        } else if (!component.empty() && component != ".") {
            found.emplace_back(component);
        }
    }
    return found;
}

bool ends_in_separator(std::string_view path, PathStyle style) {
    return !path.empty() && separators(style).find(path.back()) != std::string_view::npos;
}

std::string join_path(std::string_view folder, std::string_view name, PathStyle style) {
    const bool separates = !folder.empty() && !ends_in_separator(folder, style);
    return std::string(folder).append(separates ? "/" : "").append(name);
}

bool is_drive(std::string_view component, PathStyle style) {
    return component.size() == 2 && has_drive(component, style);
}

bool is_absolute(std::string_view path, PathStyle style) {
    return has_drive(path, style) || path.find_first_of(separators(style)) == 0;
}

bool is_ascii(std::string_view text) noexcept {
    return std::all_of(text.begin(), text.end(), [](unsigned char c) { return c < 0x80; });
}

bool is_utf8(std::string_view text) noexcept {
    constexpr std::array<std::uint32_t, 5> least_code = {0, 0, 0x80, 0x800, 0x10000};
    const ByteView bytes = as_bytes(text);
    for (std::size_t i = 0; i < bytes.size();) {
        // The first byte of a sequence begins with as many ones as the sequence has bytes.
        const auto length = static_cast<std::size_t>(std::countl_one(bytes[i]));
        if (length == 0) {
            ++i;
            continue;
        }
        if (length == 1 || length >= least_code.size() || bytes.size() - i < length) return false;
        std::uint32_t code = bytes[i] & (0x7FU >> length);
        for (const std::uint8_t byte : bytes.subspan(i + 1, length - 1)) {
            if ((byte & 0xC0) != 0x80) return false;
            code = code << 6 | (byte & 0x3FU);
        }
        const bool is_surrogate = code >= 0xD800 && code <= 0xDFFF;
        if (code < least_code[length] || code > 0x10FFFF || is_surrogate) return false;
        i += length;
    }
    return true;
}

std::string utf8_from_code_page_850(std::string_view text) {
    std::string result;
    const auto append_bits = [&result](unsigned bits) { result += static_cast<char>(bits); };
    for (const std::uint8_t byte : as_bytes(text)) {
        const unsigned code = byte < 0x80 ? byte : code_page_850[byte - 0x80U];
        if (code < 0x80) {
            append_bits(code);
            continue;
        }
        if (code < 0x800) {
            append_bits(0xC0 | code >> 6);
        } else {
            append_bits(0xE0 | code >> 12);
            append_bits(0x80 | (code >> 6 & 0x3F));
        }
        append_bits(0x80 | (code & 0x3F));
    }
    return result;
}

std::string entry_name_utf8(std::string_view raw, std::uint16_t flags, std::uint16_t made_by,
                            std::string_view extra) {
    return text_utf8(raw, flags, made_by, extra, unicode_path_id);
}

std::string entry_comment_utf8(std::string_view raw, std::uint16_t flags, std::uint16_t made_by,
                               std::string_view extra) {
    return text_utf8(raw, flags, made_by, extra, unicode_comment_id);
}

std::string archive_comment_utf8(std::string_view raw) {
    return is_utf8(raw) ? std::string(raw) : utf8_from_code_page_850(raw);
}

}  // namespace kovrel::zip
