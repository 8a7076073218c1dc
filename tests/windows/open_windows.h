// Order, activation and owners of the library's windows or boxes and the host's windows.
#pragma once

#include <windows.h>

#include <gtest/gtest.h>
#include <optional>
#include <string>

#include "tests/support/box_lines.h"
#include "tests/windows/host_window.h"

namespace kovrel::test {

inline HWND owner_of(HWND window) {
    return GetWindow(window, GW_OWNER);
}

inline bool is_above(HWND upper, HWND lower) {
    for (HWND next = upper; next != nullptr; next = GetWindow(next, GW_HWNDNEXT)) {
        if (next == lower) return true;
    }
    return false;
}

// Checks that the window is above the host's and in the foreground.
inline void comes_before(HWND window, HWND host) {
    EXPECT_TRUE(wait_until([&] {
        return is_above(window, host) && GetForegroundWindow() == window;
    })) << is_above(window, host)
        << narrow(L" " + text_of(GetForegroundWindow()));
}

// Activates the host's window as another program or the taskbar does.
inline void activate(HWND host) {
    EXPECT_TRUE(wait_until([&] { return SetForegroundWindow(host) != FALSE; }));
}

// As the system menu does; called on the window's thread.
inline void minimise(HWND host, bool minimised) {
    if (minimised) ShowOwnedPopups(host, FALSE);
    ShowWindow(host, minimised ? SW_MINIMIZE : SW_RESTORE);
    if (!minimised) ShowOwnedPopups(host, TRUE);
}

struct OpenBox {
    HWND window = nullptr;
    SeenBox box;

    std::string answer(int button) {
        EXPECT_TRUE(answer_box(window, box, {button, 0}));
        return narrow(as_line(box));
    }
};

inline OpenBox wait_for_box(const std::wstring& title = {}) {
    OpenBox open;
    EXPECT_TRUE(wait_until([&] {
        for (HWND window : top_level_windows({L"#32770", title, GetCurrentProcessId()})) {
            const auto seen = read_box(window);
            if (!seen) continue;
            open = {window, *seen};
            return true;
        }
        return false;
    }));
    return open;
}

}  // namespace kovrel::test
