#include "tests/windows/verifier_window.h"

#include <commctrl.h>

#include <array>
#include <cstring>
#include <cwchar>

namespace kovrel::test {
namespace {

DWORD last_content = 0;  // the clipboard's sequence number

}  // namespace

std::string answer_next_box() {
    HWND const box = wait_for_window({L"#32770", {}, 0});
    EXPECT_NE(box, nullptr);
    std::optional<SeenBox> seen;
    EXPECT_TRUE(wait_until([&] { return (seen = read_box(box)).has_value(); }));
    if (!seen) return {};
    EXPECT_TRUE(answer_box(box, *seen, {IDOK, 0}));
    return narrow(as_line(*seen));
}

void set_clipboard(const wchar_t* text) {
    ASSERT_TRUE(wait_until([] { return OpenClipboard(nullptr) != FALSE; }));
    EmptyClipboard();
    const std::size_t size = (std::wcslen(text) + 1) * sizeof(wchar_t);
    HGLOBAL const memory = GlobalAlloc(GMEM_MOVEABLE, size);
    std::memcpy(GlobalLock(memory), text, size);
    GlobalUnlock(memory);
    SetClipboardData(CF_UNICODETEXT, memory);
    CloseClipboard();
    last_content = GetClipboardSequenceNumber();
}

std::wstring clipboard() {
    std::wstring text;
    EXPECT_TRUE(wait_until([] { return OpenClipboard(nullptr) != FALSE; }));
    if (HANDLE const data = GetClipboardData(CF_UNICODETEXT)) {
        text = static_cast<const wchar_t*>(GlobalLock(data));
        GlobalUnlock(data);
    }
    CloseClipboard();
    return text;
}

bool clipboard_becomes(const wchar_t* text) {
    if (!wait_until([] { return GetClipboardSequenceNumber() != last_content; })) return false;
    const bool is_text = clipboard() == text;
    last_content = GetClipboardSequenceNumber();
    return is_text;
}

std::wstring tooltip_of(HWND window, HWND control) {
    HWND tips = nullptr;
    while ((tips = FindWindowExW(nullptr, tips, TOOLTIPS_CLASSW, nullptr)) != nullptr) {
        if (GetWindow(tips, GW_OWNER) != window) continue;
        std::array<wchar_t, 300> text{};
        TTTOOLINFOW tool{};
        tool.cbSize = TTTOOLINFOW_V1_SIZE;
        tool.uFlags = TTF_IDISHWND;
        tool.hwnd = window;
        tool.uId = reinterpret_cast<UINT_PTR>(control);
        tool.lpszText = text.data();
        SendMessageW(tips, TTM_GETTEXTW, text.size(), reinterpret_cast<LPARAM>(&tool));
        if (text[0] != L'\0') return text.data();
    }
    return {};
}

}  // namespace kovrel::test
