#include "services/modal.h"

#include <optional>

#include "automation/floating_point.h"

namespace kovrel {
namespace {

void dispatch(MSG& message) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
}

void pump(HWND window, void (*after_each)()) {
    const HostFloatingPoint host;
    MSG message;
    while (PeekMessageW(&message, window, 0, 0, PM_REMOVE)) {
        if (message.message == WM_QUIT) {
            // For the host's own loop.
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

void run_modal_loop(HWND window) {
    const HostFloatingPoint host;
    std::optional<int> quit_code;
    MSG message;
    const auto is_open = [window] { return IsWindow(window) && IsWindowVisible(window); };
    while (is_open()) {
        // The window may be closed by a message that another thread sends, which is dispatched
        // inside PeekMessage and never returned. So the loop checks again before it waits.
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
