// The host's side: a window with a field that can have the focus, and calls made on its thread.
#pragma once

#include <windows.h>

#include <functional>
#include <memory>
#include <utility>

namespace kovrel::test {

class HostWindow {
 public:
    explicit HostWindow(const wchar_t* title, HWND owner = nullptr)
        : window_(CreateWindowExW(0, L"#32770", title, WS_OVERLAPPEDWINDOW | WS_VISIBLE, 20, 20,
                                  300, 200, owner, nullptr, nullptr, nullptr)),
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

// Runs work on the thread that created it when that thread dispatches messages, as the host's own
// events do while a window of the library is open.
class HostCalls {
 public:
    HostCalls()
        : window_(CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr,
                                  nullptr)) {
        SetWindowLongPtrW(window_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&procedure));
    }
    HostCalls(const HostCalls&) = delete;
    HostCalls& operator=(const HostCalls&) = delete;
    ~HostCalls() { DestroyWindow(window_); }

    // Returns at once.
    void post(std::function<void()> work) const {
        auto* const handed_over = new std::function<void()>(std::move(work));
        if (PostMessageW(window_, WM_APP, 0, reinterpret_cast<LPARAM>(handed_over)) == FALSE) {
            delete handed_over;
        }
    }

 private:
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
        if (message != WM_APP) return DefWindowProcW(window, message, wparam, lparam);
        const std::unique_ptr<std::function<void()>> work(
            reinterpret_cast<std::function<void()>*>(lparam));
        (*work)();
        return 0;
    }

    HWND window_;
};

}  // namespace kovrel::test
