// The style of a message box told by its icon. Icon handles mean something only in the process that
// owns the box: for the boxes of others, icon_probe.dll asks from within.
#pragma once

#include <windows.h>

#include <array>
#include <utility>

namespace kovrel::test {

inline constexpr wchar_t probe_message[] = L"KovrelIconProbe";
inline constexpr wchar_t probe_answer[] = L"KovrelIconStyle";  // window property: style + 1
inline constexpr char probe_procedure[] = "icon_probe";
inline constexpr wchar_t probe_library[] = L"icon_probe.dll";

// 16, 32, 48 or 64 for the shared system icon that a static control of this process shows, 0 when
// it has none.
inline int own_icon_style(HWND control) {
    const auto icon = reinterpret_cast<HICON>(SendMessageW(control, STM_GETICON, 0, 0));
    const std::array<std::pair<LPCWSTR, int>, 4> icons{{{IDI_HAND, MB_ICONHAND},
                                                        {IDI_QUESTION, MB_ICONQUESTION},
                                                        {IDI_EXCLAMATION, MB_ICONEXCLAMATION},
                                                        {IDI_ASTERISK, MB_ICONASTERISK}}};
    for (const auto& [name, style] : icons) {
        if (icon != nullptr && LoadIconW(nullptr, name) == icon) return style;
    }
    return 0;
}

}  // namespace kovrel::test
