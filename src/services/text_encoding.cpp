#include "services/text_encoding.h"

#include <windows.h>

#include <limits>
#include <new>

namespace kovrel {
namespace {

/// The system's conversions count in int.
int length_of(std::size_t size) {
    if (size > static_cast<std::size_t>(std::numeric_limits<int>::max())) throw std::bad_alloc();
    return static_cast<int>(size);
}

std::string encode(UINT code_page, DWORD flags, std::wstring_view text) {
    const int length = length_of(text.size());
    if (length == 0) return {};
    const auto convert = [&](char* bytes, int size) {
        return WideCharToMultiByte(code_page, flags, text.data(), length, bytes, size, nullptr,
                                   nullptr);
    };
    std::string bytes(static_cast<std::size_t>(convert(nullptr, 0)), '\0');
    convert(bytes.data(), length_of(bytes.size()));
    return bytes;
}

std::wstring decode(UINT code_page, std::string_view bytes) {
    const int length = length_of(bytes.size());
    if (length == 0) return {};
    const auto convert = [&](wchar_t* text, int size) {
        return MultiByteToWideChar(code_page, 0, bytes.data(), length, text, size);
    };
    std::wstring text(static_cast<std::size_t>(convert(nullptr, 0)), L'\0');
    convert(text.data(), length_of(text.size()));
    return text;
}

}  // namespace

std::string to_ansi(std::wstring_view text) {
    // UTF-8, which can be the system's code page, has every character and refuses the flag.
    return encode(CP_ACP, GetACP() == CP_UTF8 ? 0 : WC_NO_BEST_FIT_CHARS, text);
}

std::wstring from_ansi(std::string_view bytes) {
    return decode(CP_ACP, bytes);
}

std::string to_utf8(std::wstring_view text) {
    return encode(CP_UTF8, 0, text);
}

std::wstring from_utf8(std::string_view bytes) {
    return decode(CP_UTF8, bytes);
}

}  // namespace kovrel
