#include "wide_text.h"

#include <windows.h>

namespace kovrel::zip {
namespace {

std::wstring utf16_from(UINT code_page, std::string_view text) {
    const int length = static_cast<int>(text.size());
    const int needed = MultiByteToWideChar(code_page, 0, text.data(), length, nullptr, 0);
    std::wstring result(static_cast<std::size_t>(needed), L'\0');
    MultiByteToWideChar(code_page, 0, text.data(), length, result.data(), needed);
    return result;
}

std::string utf16_to(UINT code_page, DWORD flags, std::wstring_view text) {
    const int length = static_cast<int>(text.size());
    const int needed =
        WideCharToMultiByte(code_page, flags, text.data(), length, nullptr, 0, nullptr, nullptr);
    std::string result(static_cast<std::size_t>(needed), '\0');
    WideCharToMultiByte(code_page, flags, text.data(), length, result.data(), needed, nullptr,
                        nullptr);
    return result;
}

}  // namespace

std::wstring utf16_from_utf8(std::string_view text) {
    return utf16_from(CP_UTF8, text);
}

std::string utf8_from_utf16(std::wstring_view text) {
    return utf16_to(CP_UTF8, 0, text);
}

std::string utf8_from_ansi(std::string_view text) {
    return utf8_from_utf16(utf16_from(CP_ACP, text));
}

std::string ansi_from_utf8(std::string_view text) {
    // UTF-8, which can be the user's code page, has every character and refuses the flag.
    const DWORD flags = GetACP() == CP_UTF8 ? 0 : WC_NO_BEST_FIT_CHARS;
    return utf16_to(CP_ACP, flags, utf16_from_utf8(text));
}

}  // namespace kovrel::zip
