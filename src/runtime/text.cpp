#include "runtime/text.h"

#include <algorithm>
#include <cstdint>

namespace kovrel {

std::wstring concat(std::initializer_list<std::wstring_view> pieces) {
    std::wstring text;
    for (const auto piece : pieces) text += piece;
    return text;
}

std::wstring decimal_text(std::int64_t number) {
    const std::string digits = std::to_string(number);
    return {digits.begin(), digits.end()};
}

std::wstring with_leading_zeros(std::wstring digits, std::size_t width) {
    if (digits.size() < width) digits.insert(0, width - digits.size(), L'0');
    return digits;
}

std::wstring_view trim_left(std::wstring_view text) noexcept {
    const auto first = text.find_first_not_of(L' ');
    return first == std::wstring_view::npos ? std::wstring_view{} : text.substr(first);
}

std::wstring_view trim(std::wstring_view text) noexcept {
    const auto rest = trim_left(text);
    return rest.substr(0, rest.find_last_not_of(L' ') + 1);
}

void make_upper(std::wstring& text) noexcept {
    for (wchar_t& character : text) character = to_upper(character);
}

std::wstring to_upper(std::wstring_view text) {
    std::wstring result(text);
    make_upper(result);
    return result;
}

bool equal_without_case(std::wstring_view left, std::wstring_view right) noexcept {
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [](wchar_t a, wchar_t b) { return to_upper(a) == to_upper(b); });
}

bool contains_without_case(std::wstring_view text, std::wstring_view searched) noexcept {
    while (text.size() > searched.size() &&
           !equal_without_case(text.substr(0, searched.size()), searched)) {
        text.remove_prefix(1);
    }
    return equal_without_case(text.substr(0, searched.size()), searched);
}

std::vector<std::wstring_view> split(std::wstring_view text, wchar_t separator) {
    std::vector<std::wstring_view> pieces;
    if (text.empty()) return pieces;
    for (;;) {
        const auto end = text.find(separator);
        pieces.push_back(text.substr(0, end));
        if (end == std::wstring_view::npos) return pieces;
        text.remove_prefix(end + 1);
    }
}

std::wstring_view middle(std::wstring_view text, std::size_t position, std::size_t count) noexcept {
    return position > text.size() ? std::wstring_view{} : text.substr(position - 1, count);
}

}  // namespace kovrel
