// A window of a host, with a field that can have the keyboard.
#pragma once

#include <windows.h>

namespace kovrel::test {

class HostWindow {
 public:
    explicit HostWindow(const wchar_t* title)
        : window_(CreateWindowExW(0, L"#32770", title, WS_OVERLAPPEDWINDOW | WS_VISIBLE, 20, 20,
                                  300, 200, nullptr, nullptr, nullptr, nullptr)),
          field_(CreateWindowExW(0, L"EDIT", L"", WS_CHILD | WS_VISIBLE | WS_BORDER, 10, 10, 200,
                                 24, window_, nullptr, nullptr, nullptr)) {}
    HostWindow(const HostWindow&) = delete;
    HostWindow& operator=(const HostWindow&) = delete;
    ~HostWindow() { DestroyWindow(window_); }
    [[nodiscard]] HWND window() const { return window_; }
    [[nodiscard]] HWND field() const { return field_; }

 private:
    HWND window_;
    HWND field_;
};

}  // namespace kovrel::test
