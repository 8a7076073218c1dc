#include "sql/characters.h"

#include "runtime/failure.h"
#include "runtime/text.h"

namespace kovrel {
namespace {

constexpr char32_t surrogates = 0xD800;
constexpr char32_t low_surrogates = 0xDC00;
constexpr char32_t past_surrogates = 0xE000;
constexpr char32_t supplementary = 0x10000;
constexpr unsigned surrogate_bits = 10;
constexpr char32_t surrogate_mask = 0x3FF;

bool is_low_surrogate(wchar_t unit) {
    const auto code = static_cast<char32_t>(unit);
    return code >= low_surrogates && code < past_surrogates;
}

}  // namespace

void refuse_literal(std::wstring_view reason) {
    constexpr auto number = static_cast<std::int32_t>(FailureNumber::invalid_argument);
    throw Failure(number, concat({failure_description(number), L": ", reason}));
}

char32_t take_code_point(std::wstring_view& text) {
    const auto code = static_cast<char32_t>(text.front());
    text.remove_prefix(1);
    if (code < surrogates || code >= past_surrogates) return code;
    if (code >= low_surrogates || text.empty() || !is_low_surrogate(text.front())) {
        refuse_literal(L"el texto contiene medio par suplente de UTF-16");
    }
    const auto next = static_cast<char32_t>(text.front());
    text.remove_prefix(1);
    return supplementary + ((code & surrogate_mask) << surrogate_bits) + (next & surrogate_mask);
}

void append_code_point(std::wstring& text, char32_t code) {
    if (code < supplementary) {
        text.push_back(static_cast<wchar_t>(code));
    } else {
        code -= supplementary;
        text.push_back(static_cast<wchar_t>(surrogates + (code >> surrogate_bits)));
        text.push_back(static_cast<wchar_t>(low_surrogates + (code & surrogate_mask)));
    }
}

std::vector<std::uint8_t> utf8_of(std::wstring_view text) {
    std::vector<std::uint8_t> bytes;
    while (!text.empty()) {
        const char32_t code = take_code_point(text);
        const auto put = [&bytes](char32_t byte) {
            bytes.push_back(static_cast<std::uint8_t>(byte));
        };
        const auto put_rest = [&](unsigned shift) { put(0x80U | (code >> shift & 0x3FU)); };
        if (code < 0x80) {
            put(code);
        } else if (code < 0x800) {
            put(0xC0U | code >> 6U);
            put_rest(0);
        } else if (code < supplementary) {
            put(0xE0U | code >> 12U);
            put_rest(6);
            put_rest(0);
        } else {
            put(0xF0U | code >> 18U);
            put_rest(12);
            put_rest(6);
            put_rest(0);
        }
    }
    return bytes;
}

void append_hexadecimal(std::wstring& text, std::uint32_t number, int digits) {
    constexpr int digit_bits = 4;
    for (int place = digits - 1; place >= 0; --place) {
        text.push_back(L"0123456789ABCDEF"[number >> (place * digit_bits) & 0xFU]);
    }
}

std::wstring hexadecimal(const std::uint8_t* bytes, std::size_t count) {
    std::wstring text;
    text.reserve(2 * count);
    for (std::size_t i = 0; i < count; ++i) append_hexadecimal(text, bytes[i], 2);
    return text;
}

}  // namespace kovrel
