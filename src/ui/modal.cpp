#include "ui/modal.h"

#include <new>
#include <optional>

#include "automation/floating_point.h"

namespace kovrel {
namespace {

void dispatch(MSG& message) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
}

struct Search {
    HWND except;
    std::vector<HWND>* found;
    bool complete = true;
};

/// No exception may pass through the system's own code.
BOOL CALLBACK collect_enabled(HWND window, LPARAM parameter) noexcept {
    auto* search = reinterpret_cast<Search*>(parameter);
    if (window == search->except || !IsWindowVisible(window) || !IsWindowEnabled(window)) {
        return TRUE;
    }
    try {
        search->found->push_back(window);
    } catch (const std::bad_alloc&) {
        search->complete = false;
    }
    return search->complete ? TRUE : FALSE;
}

void pump(HWND window, void (*after_each)()) {
    const HostFloatingPoint host;
    MSG message;
    while (PeekMessageW(&message, window, 0, 0, PM_REMOVE)) {
        if (message.message == WM_QUIT) {
            // It is for the host's own loop.
            PostQuitMessage(static_cast<int>(message.wParam));
            return;
        }
        if (window == nullptr || !IsDialogMessageW(window, &message)) dispatch(message);
        if (after_each != nullptr) after_each();
        if (window != nullptr && !IsWindow(window)) return;
    }
}

}  // namespace

void pump_events(void (*after_each)()) {
    pump(nullptr, after_each);
}

void pump_events_of(HWND window) {
    pump(window, nullptr);
}

ModalScope::ModalScope(HWND window) : active_(GetActiveWindow()), focus_(GetFocus()) {
    Search search{window, &disabled_};
    EnumThreadWindows(GetCurrentThreadId(), collect_enabled, reinterpret_cast<LPARAM>(&search));
    if (!search.complete) throw std::bad_alloc();
    const HostFloatingPoint host;
    for (HWND other : disabled_) EnableWindow(other, FALSE);
}

void ModalScope::release() noexcept {
    const HostFloatingPoint host;
    for (HWND other : disabled_) {
        if (IsWindow(other)) EnableWindow(other, TRUE);
    }
    disabled_.clear();
}

void ModalScope::restore_focus() const noexcept {
    const HostFloatingPoint host;
    if (active_ != nullptr && IsWindow(active_)) SetActiveWindow(active_);
    if (focus_ != nullptr && IsWindow(focus_)) SetFocus(focus_);
}

void run_modal_loop(HWND window) {
    const HostFloatingPoint host;
    std::optional<int> quit_code;
    MSG message;
    const auto is_open = [window] { return IsWindow(window) && IsWindowVisible(window); };
    while (is_open()) {
        // The window may be closed without a message for this loop: by what another thread sends,
        // which is dispatched while this looks for one, or by a loop within that. So it never waits
        // for a message before it has looked again.
        if (!PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
            if (is_open()) {
                MsgWaitForMultipleObjectsEx(0, nullptr, INFINITE, QS_ALLINPUT, MWMO_INPUTAVAILABLE);
            }
            continue;
        }
        if (message.message == WM_QUIT) {
            quit_code = static_cast<int>(message.wParam);
        } else if (!IsDialogMessageW(window, &message)) {
            dispatch(message);
        }
    }
    if (quit_code) PostQuitMessage(*quit_code);
}

}  // namespace kovrel
