// The message dialog for tests: its controls, and how it is shown and closed.
#pragma once

#include <windows.h>

#include <functional>
#include <gtest/gtest.h>
#include <string>

#include "messages/frmDialogo.h"
#include "tests/support/box_watcher.h"
#include "tests/support/late.h"

namespace kovrel::test {

inline constexpr const wchar_t* dialog_class = L"Kovrel.frmDialogo";

// Shows the dialog and runs `work`, which must close it, on the watcher's thread.
inline void show_dialog(const std::wstring& caption, const std::wstring& text,
                        const std::function<void(HWND)>& work, bool proportional = false) {
    const auto catalogue = create(L"Kovrel.clsMensajes");
    ASSERT_TRUE(catalogue);
    BoxWatcher windows({on_window({dialog_class, {}, 0}, work)});
    const Outcome outcome = call(catalogue.get(), L"MsgFormA", {caption, text, proportional});
    EXPECT_EQ(outcome.result, S_OK);
}

inline HWND text_box(HWND dialog) {
    return find_control(dialog, L"Edit");
}
inline HWND ok_button(HWND dialog) {
    return find_control(dialog, L"Button");
}
inline HWND strip(HWND dialog) {
    return find_control(dialog, L"Kovrel.PictureBox");
}

inline void close_by_button(HWND dialog) {
    PostMessageW(ok_button(dialog), BM_CLICK, 0, 0);
}

}  // namespace kovrel::test
