#include "files/ansi_text.h"

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

/// Never a letter that resembles the one that the code page lacks. UTF-8, which can be the system's
/// code page, has them all and refuses the flag.
DWORD conversion_flags() {
    return GetACP() == CP_UTF8 ? 0 : WC_NO_BEST_FIT_CHARS;
}

}  // namespace

std::string to_ansi(std::wstring_view text) {
    const int length = length_of(text.size());
    if (length == 0) return {};
    const DWORD flags = conversion_flags();
    const int size =
        WideCharToMultiByte(CP_ACP, flags, text.data(), length, nullptr, 0, nullptr, nullptr);
    std::string bytes(static_cast<std::size_t>(size), '\0');
    WideCharToMultiByte(CP_ACP, flags, text.data(), length, bytes.data(), size, nullptr, nullptr);
    return bytes;
}

std::wstring from_ansi(std::string_view bytes) {
    const int length = length_of(bytes.size());
    if (length == 0) return {};
    const int size = MultiByteToWideChar(CP_ACP, 0, bytes.data(), length, nullptr, 0);
    std::wstring text(static_cast<std::size_t>(size), L'\0');
    MultiByteToWideChar(CP_ACP, 0, bytes.data(), length, text.data(), size);
    return text;
}

}  // namespace kovrel
