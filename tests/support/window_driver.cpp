// Reads and works real windows as a user does.
#include "tests/support/window_driver.h"

#include <cstdint>
#include <thread>

namespace kovrel::test {
namespace {

constexpr Milliseconds polling_interval{5};
constexpr int polls_at_rest = 10;

bool same_class(const std::wstring& left, std::wstring_view right) {
    return CompareStringOrdinal(left.c_str(), static_cast<int>(left.size()), right.data(),
                                static_cast<int>(right.size()), TRUE) == CSTR_EQUAL;
}

void dispatch_pending() {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

WORD modifier_key(Modifier modifier) {
    switch (modifier) {
        case Modifier::shift:
            return VK_SHIFT;
        case Modifier::control:
            return VK_CONTROL;
        case Modifier::alt:
            return VK_MENU;
        case Modifier::none:
            break;
    }
    return 0;
}

INPUT key_input(WORD virtual_key, WORD character, DWORD flags) {
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = virtual_key;
    input.ki.wScan = character != 0
                         ? character
                         : static_cast<WORD>(MapVirtualKeyW(virtual_key, MAPVK_VK_TO_VSC));
    input.ki.dwFlags = flags;
    return input;
}

void send(std::vector<INPUT> inputs) {
    SendInput(static_cast<UINT>(inputs.size()), inputs.data(), sizeof(INPUT));
}

/// A button's event at a place of the screen. The place is part of the event: the display server
/// may still report an earlier one, which would move the mouse back before a separate event.
INPUT mouse_input(DWORD flags, POINT place) {
    const auto absolute = [](LONG at, LONG size) {
        return static_cast<LONG>((std::int64_t{at} * 0x10000 + size - 1) / size);
    };
    INPUT input{};
    input.type = INPUT_MOUSE;
    input.mi.dx = absolute(place.x, GetSystemMetrics(SM_CXSCREEN));
    input.mi.dy = absolute(place.y, GetSystemMetrics(SM_CYSCREEN));
    input.mi.dwFlags = flags | MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE;
    return input;
}

BOOL CALLBACK collect(HWND window, LPARAM list) {
    reinterpret_cast<std::vector<HWND>*>(list)->push_back(window);
    return TRUE;
}

/// What the window's thread has as its active window and its focus.
GUITHREADINFO input_state_of(HWND window) {
    GUITHREADINFO state{};
    state.cbSize = sizeof state;
    GetGUIThreadInfo(GetWindowThreadProcessId(window, nullptr), &state);
    return state;
}

POINT middle_of(const RECT& bounds) {
    return {(bounds.left + bounds.right) / 2, (bounds.top + bounds.bottom) / 2};
}

/// The place of a control that the user can reach with the mouse.
RECT reachable(HWND control) {
    // The window manager may still be moving a new window, or another may be in front.
    RECT bounds{};
    int still = 0;
    wait_until([&] {
        const RECT before = bounds;
        GetWindowRect(control, &bounds);
        const bool on_top = WindowFromPoint(middle_of(bounds)) == control;
        still = on_top && EqualRect(&before, &bounds) ? still + 1 : 0;
        return still >= polls_at_rest;
    });
    return bounds;
}

}  // namespace

bool wait_until(const std::function<bool()>& predicate, Milliseconds limit) {
    const auto end = std::chrono::steady_clock::now() + limit;
    while (!predicate()) {
        if (std::chrono::steady_clock::now() >= end) return false;
        std::this_thread::sleep_for(polling_interval);
    }
    return true;
}

bool pump_until(const std::function<bool()>& predicate, Milliseconds limit) {
    return wait_until(
        [&] {
            dispatch_pending();
            return predicate();
        },
        limit);
}

bool wait_for(HWND window, const std::function<bool()>& predicate, Milliseconds limit) {
    const bool own = GetWindowThreadProcessId(window, nullptr) == GetCurrentThreadId();
    return own ? pump_until(predicate, limit) : wait_until(predicate, limit);
}

LRESULT ask(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    DWORD_PTR answer = 0;
    // A busy machine lets a thread wait for longer than SMTO_ABORTIFHUNG allows.
    if (SendMessageTimeoutW(window, message, wparam, lparam, SMTO_NORMAL,
                            static_cast<UINT>(default_limit.count()), &answer) == 0) {
        return 0;
    }
    return static_cast<LRESULT>(answer);
}

std::wstring class_of(HWND window) {
    wchar_t name[256];
    const int length = GetClassNameW(window, name, 256);
    return {name, static_cast<std::size_t>(length)};
}

std::wstring text_of(HWND window) {
    const auto length = static_cast<std::size_t>(ask(window, WM_GETTEXTLENGTH));
    std::wstring text(length + 1, L'\0');
    const LRESULT copied =
        ask(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()));
    text.resize(static_cast<std::size_t>(copied));
    return text;
}

std::vector<HWND> top_level_windows(const WindowQuery& query) {
    std::vector<HWND> all;
    EnumWindows(collect, reinterpret_cast<LPARAM>(&all));
    std::vector<HWND> fitting;
    for (HWND window : all) {
        DWORD process = 0;
        GetWindowThreadProcessId(window, &process);
        if (!IsWindowVisible(window)) continue;
        if (query.process != 0 && process != query.process) continue;
        if (!query.window_class.empty() && !same_class(class_of(window), query.window_class)) {
            continue;
        }
        if (!query.title.empty() && text_of(window) != query.title) continue;
        fitting.push_back(window);
    }
    return fitting;
}

HWND wait_for_window(const WindowQuery& query, Milliseconds limit) {
    HWND found = nullptr;
    wait_until(
        [&] {
            const auto windows = top_level_windows(query);
            if (!windows.empty()) found = windows.front();
            return found != nullptr;
        },
        limit);
    return found;
}

bool wait_until_closed(HWND window, Milliseconds limit) {
    return wait_until([&] { return !IsWindow(window) || !IsWindowVisible(window); }, limit);
}

std::vector<Control> controls_of(HWND window) {
    std::vector<HWND> handles;
    EnumChildWindows(window, collect, reinterpret_cast<LPARAM>(&handles));
    std::vector<Control> controls;
    for (HWND handle : handles) {
        Control control;
        control.window = handle;
        control.window_class = class_of(handle);
        control.text = text_of(handle);
        control.id = GetDlgCtrlID(handle);
        GetWindowRect(handle, &control.bounds);
        MapWindowPoints(nullptr, window, reinterpret_cast<POINT*>(&control.bounds), 2);
        control.visible = IsWindowVisible(handle) != FALSE;
        control.enabled = IsWindowEnabled(handle) != FALSE;
        controls.push_back(std::move(control));
    }
    return controls;
}

HWND find_control(HWND window, std::wstring_view window_class, std::wstring_view text) {
    for (const Control& control : controls_of(window)) {
        if (same_class(control.window_class, window_class) &&
            (text.empty() || control.text == text)) {
            return control.window;
        }
    }
    return nullptr;
}

HWND find_control(HWND window, int id) {
    for (const Control& control : controls_of(window)) {
        if (control.id == id) return control.window;
    }
    return nullptr;
}

std::vector<HWND> tab_order(HWND window) {
    std::vector<HWND> order;
    HWND const first = GetNextDlgTabItem(window, nullptr, FALSE);
    for (HWND next = first; next != nullptr;) {
        order.push_back(next);
        next = GetNextDlgTabItem(window, next, FALSE);
        if (next == first || order.size() > 1000) break;
    }
    return order;
}

HWND focus_of(HWND window) {
    return input_state_of(window).hwndFocus;
}

bool bring_to_front(HWND window, Milliseconds limit) {
    // The window manager may still change the active window after others have opened or closed, and
    // the window's thread may still have to follow.
    int still = 0;
    const auto stays_in_front = [&] {
        if (GetForegroundWindow() == window && input_state_of(window).hwndActive == window) {
            return ++still >= polls_at_rest;
        }
        still = 0;
        SetForegroundWindow(window);
        return false;
    };
    return wait_for(window, stays_in_front, limit);
}

void press_key(WORD virtual_key, Modifier modifier) {
    const WORD held = modifier_key(modifier);
    std::vector<INPUT> inputs;
    if (held != 0) inputs.push_back(key_input(held, 0, 0));
    inputs.push_back(key_input(virtual_key, 0, 0));
    inputs.push_back(key_input(virtual_key, 0, KEYEVENTF_KEYUP));
    if (held != 0) inputs.push_back(key_input(held, 0, KEYEVENTF_KEYUP));
    send(std::move(inputs));
}

void type_text(std::wstring_view text) {
    for (const wchar_t character : text) {
        const SHORT key = VkKeyScanW(character);
        const int modifiers = key == -1 ? -1 : HIBYTE(key);
        if (modifiers == 0 || modifiers == 1) {
            press_key(LOBYTE(key), modifiers == 1 ? Modifier::shift : Modifier::none);
        } else {
            const WORD code = character;
            send({key_input(0, code, KEYEVENTF_UNICODE),
                  key_input(0, code, KEYEVENTF_UNICODE | KEYEVENTF_KEYUP)});
        }
    }
}

void click(HWND control) {
    const POINT middle = middle_of(reachable(control));
    send({mouse_input(MOUSEEVENTF_LEFTDOWN, middle), mouse_input(MOUSEEVENTF_LEFTUP, middle)});
}

void press_and_leave(HWND control) {
    const RECT bounds = reachable(control);
    send({mouse_input(MOUSEEVENTF_LEFTDOWN, middle_of(bounds))});
    wait_until([&] { return focus_of(control) == control; });
    send({mouse_input(MOUSEEVENTF_LEFTUP, {bounds.right + 4, bounds.bottom + 4})});
}

void resize(HWND window, int width, int height) {
    SetWindowPos(window, nullptr, 0, 0, width, height, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

}  // namespace kovrel::test
