#include "ui/text_box_lines.h"

namespace kovrel {

std::wstring text_box_lines(std::wstring_view text) {
    std::wstring lines;
    lines.reserve(text.size() + text.size() / 16);
    wchar_t previous = 0;
    for (const wchar_t character : text) {
        const bool ends_line = character == L'\r' || character == L'\n';
        const bool second_half = character == L'\n' && previous == L'\r';
        if (ends_line && !second_half) lines += L"\r\n";
        if (!ends_line) lines += character == L'\0' ? L' ' : character;
        previous = character;
    }
    return lines;
}

}  // namespace kovrel
