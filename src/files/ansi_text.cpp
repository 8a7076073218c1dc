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

}  // namespace

std::string to_ansi(std::wstring_view text) {
    const int length = length_of(text.size());
    if (length == 0) return {};
    const int size =
        WideCharToMultiByte(CP_ACP, 0, text.data(), length, nullptr, 0, nullptr, nullptr);
    std::string bytes(static_cast<std::size_t>(size), '\0');
    WideCharToMultiByte(CP_ACP, 0, text.data(), length, bytes.data(), size, nullptr, nullptr);
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
