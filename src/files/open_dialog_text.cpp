#include "files/open_dialog_text.h"

#include <algorithm>

#include "files/path_text.h"
#include "runtime/failure.h"
#include "runtime/text.h"

namespace kovrel {
namespace {

constexpr wchar_t separator = L'|';
constexpr std::wstring_view nul{L"\0", 1};

}  // namespace

std::wstring system_filter(std::wstring_view text) {
    if (text.find(separator) == std::wstring_view::npos) {
        return std::wstring(text.find(nul) == std::wstring_view::npos ? std::wstring_view() : text);
    }
    std::wstring list(trim(text));
    if (list.back() != separator) list.push_back(separator);
    std::replace(list.begin(), list.end(), separator, L'\0');
    list.push_back(L'\0');
    return list;
}

std::wstring open_dialog_buffer(std::wstring_view text) {
    std::wstring buffer(text.substr(0, open_dialog_buffer_size));
    buffer.resize(open_dialog_buffer_size);
    return buffer;
}

std::wstring single_choice(std::wstring_view buffer) {
    const auto end = buffer.find(nul);
    if (end == std::wstring_view::npos) throw Failure(FailureNumber::invalid_argument);
    return std::wstring(buffer.substr(0, end));
}

std::wstring multiple_choice(std::wstring_view buffer) {
    const std::wstring items = replace_text(buffer, nul, L"\" \"");
    return L"\"" + std::wstring(trim(items)) + L"\"";
}

}  // namespace kovrel
