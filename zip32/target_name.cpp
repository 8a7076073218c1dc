#include "target_name.h"

#include <algorithm>
#include <array>

#include "bytes.h"

namespace kovrel::zip {
namespace {

constexpr std::size_t longest_component = 255;

bool is_control(char character) {
    const auto code = static_cast<std::uint8_t>(character);
    return code < 0x20 || code == 0x7F;
}

// UTF-16 units of well-formed UTF-8: one for each character, two past U+FFFF.
std::size_t utf16_length(std::string_view text) {
    std::size_t length = 0;
    for (const std::uint8_t byte : as_bytes(text)) {
        if ((byte & 0xC0) != 0x80) length += byte >= 0xF0 ? 2 : 1;
    }
    return length;
}

// The devices that Windows finds in every folder, whatever extension follows: what counts is the
// text before the first ".", without blanks at its end.
bool is_device(std::string_view component) {
    std::string stem(component.substr(0, component.find('.')));
    stem.erase(stem.find_last_not_of(' ') + 1);
    std::transform(stem.begin(), stem.end(), stem.begin(), [](char c) {
        return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
    });
    constexpr std::array<std::string_view, 6> plain = {"CON", "PRN",    "AUX",
                                                       "NUL", "CONIN$", "CONOUT$"};
    if (std::find(plain.begin(), plain.end(), stem) != plain.end()) return true;
    if (!stem.starts_with("COM") && !stem.starts_with("LPT")) return false;
    const std::string_view number = std::string_view(stem).substr(3);
    if (number.size() == 1) return number[0] >= '0' && number[0] <= '9';
    return number == "¹" || number == "²" || number == "³";
}

NameFault fault_on_windows(std::string_view component) {
    if (component.find_first_of(R"(:<>"|?*)") != std::string_view::npos) {
        return NameFault::bad_character;
    }
    if (is_device(component)) return NameFault::reserved;
    if (component.ends_with('.') || component.ends_with(' ')) return NameFault::bad_end;
    return utf16_length(component) > longest_component ? NameFault::too_long : NameFault::none;
}

NameFault fault_of_component(std::string_view component, PathStyle style) {
    if (component == "..") return NameFault::climbs;
    if (std::any_of(component.begin(), component.end(), is_control)) {
        return NameFault::bad_character;
    }
    if (style == PathStyle::windows) return fault_on_windows(component);
    return component.size() > longest_component ? NameFault::too_long : NameFault::none;
}

NameFault fault_of_beginning(std::string_view name, std::string_view separators, PathStyle style) {
    if (style == PathStyle::windows) {
        if (name.size() >= 2 && name[1] == ':') return NameFault::drive;
        if (name.find_first_not_of(separators) >= 2 && name.size() >= 2) return NameFault::server;
    }
    return name.find_first_of(separators) == 0 ? NameFault::absolute : NameFault::none;
}

}  // namespace

TargetName target_name(std::string_view name, PathStyle style) {
    const std::string_view separators = style == PathStyle::windows ? "/\\" : "/";
    if (!is_utf8(name)) return {{}, NameFault::not_utf8};
    if (const NameFault fault = fault_of_beginning(name, separators, style);
        fault != NameFault::none) {
        return {{}, fault};
    }
    TargetName result;
    std::size_t depth = 0;
    while (!name.empty()) {
        const std::size_t length = std::min(name.find_first_of(separators), name.size());
        const std::string_view component = name.substr(0, length);
        name.remove_prefix(std::min(length + 1, name.size()));
        if (component.empty() || component == ".") continue;
        const NameFault fault =
            ++depth > deepest_name ? NameFault::too_deep : fault_of_component(component, style);
        if (fault != NameFault::none) return {{}, fault};
        result.path.append(result.path.empty() ? "" : "/").append(component);
    }
    if (result.path.empty()) result.fault = NameFault::empty;
    return result;
}

}  // namespace kovrel::zip
