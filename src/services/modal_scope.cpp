#include "services/modal_scope.h"

#include <algorithm>
#include <cwchar>
#include <iterator>
#include <new>
#include <utility>

#include "automation/floating_point.h"
#include "automation/thread_slot.h"

namespace kovrel {
namespace {

/// The thread's innermost scope.
constinit ThreadSlot<ModalScope> innermost;

constexpr wchar_t modeless_mark[] = L"Kovrel.Modeless";
constexpr UINT_PTR forward_timer = 0x4B01;
constexpr UINT keep_place = SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE;

bool is_dialog(HWND window) noexcept {
    wchar_t name[8] = {};
    GetClassNameW(window, name, static_cast<int>(std::size(name)));
    return std::wcscmp(name, L"#32770") == 0 &&
           (GetWindowLongPtrW(window, GWL_STYLE) & WS_CHILD) == 0;
}

template <class Body>
BOOL CALLBACK call_body(HWND window, LPARAM body) noexcept {
    return (*reinterpret_cast<Body*>(body))(window) ? TRUE : FALSE;
}

/// Calls the body for the thread's top-level windows from the topmost down, until it returns false.
/// noexcept, since no exception may cross the system's code.
template <class Body>
void for_each_window(Body body) noexcept {
    EnumThreadWindows(GetCurrentThreadId(), &call_body<Body>, reinterpret_cast<LPARAM>(&body));
}

}  // namespace

HWND modal_owner() noexcept {
    // Threads with attached input share their active window.
    HWND const active = GetAncestor(GetActiveWindow(), GA_ROOT);
    const bool is_own = GetWindowThreadProcessId(active, nullptr) == GetCurrentThreadId();
    return is_own && GetPropW(active, modeless_mark) == nullptr ? active : nullptr;
}

void mark_modeless(HWND window, bool modeless) noexcept {
    if (modeless) {
        SetPropW(window, modeless_mark, window);
    } else {
        RemovePropW(window, modeless_mark);
    }
}

ModalScope::ModalScope(HWND window)
    : outer_(innermost.get()),
      active_(GetActiveWindow()),
      focus_(GetFocus()),
      is_told_(true),
      window_(window) {
    if (!note_others(window)) throw std::bad_alloc();
    begin();
}

ModalScope::ModalScope(NextDialog dialog) noexcept
    : outer_(innermost.get()), active_(GetActiveWindow()), focus_(GetFocus()), is_told_(false) {
    // Out of memory the dialog is shown all the same.
    (void)note_others(GetAncestor(dialog.owner, GA_ROOT));
    watch_sent_messages();
    begin();
}

ModalScope::~ModalScope() {
    release();
    give_back();
    innermost.set(outer_);
    if (hook_ != nullptr) {
        if (outer_ != nullptr) {
            outer_->hook_ = hook_;
        } else {
            UnhookWindowsHookEx(hook_);
        }
    }
    restore_focus();
}

bool ModalScope::note_others(HWND spared) noexcept {
    bool complete = true;
    for_each_window([&](HWND window) noexcept {
        if (window == spared || !IsWindowVisible(window) || !IsWindowEnabled(window)) return true;
        try {
            disabled_.push_back(window);
        } catch (const std::bad_alloc&) {
            complete = false;
        }
        return complete;
    });
    return complete;
}

void ModalScope::begin() noexcept {
    innermost.set(this);
    const HostFloatingPoint host;
    for (HWND const other : disabled_) EnableWindow(other, FALSE);
}

void ModalScope::watch_sent_messages() noexcept {
    for (const ModalScope* scope = this; scope != nullptr; scope = scope->outer_) {
        if (scope->hook_ != nullptr) return;
    }
    hook_ =
        SetWindowsHookExW(WH_CALLWNDPROC, &ModalScope::sent_hook, nullptr, GetCurrentThreadId());
}

void ModalScope::release() noexcept {
    released_ = true;
    for (ModalScope* scope = innermost.get(); scope != nullptr && scope->released_;
         scope = scope->outer_) {
        scope->give_back();
    }
}

void ModalScope::give_back() noexcept {
    const std::vector<HWND> windows = std::exchange(disabled_, {});
    const HostFloatingPoint host;
    for (HWND const other : windows) {
        if (IsWindow(other)) EnableWindow(other, TRUE);
    }
}

void ModalScope::restore_focus() const noexcept {
    if (!IsWindow(active_)) return;
    const HostFloatingPoint host;
    if (GetActiveWindow() != active_) SetActiveWindow(active_);
    // A window that has moved the focus inside itself keeps it there.
    HWND const now = GetFocus();
    if (IsWindow(focus_) && (now == nullptr || now == active_)) SetFocus(focus_);
}

bool ModalScope::keeps_waiting(HWND window) const noexcept {
    if (window == nullptr || released_) return false;
    if (window == GetWindow(window_, GW_OWNER)) return true;
    const auto found = std::find(disabled_.begin(), disabled_.end(), window);
    return found != disabled_.end() || (outer_ != nullptr && outer_->keeps_waiting(window));
}

void ModalScope::window_made(HWND window) noexcept {
    if (window_ == nullptr && innermost.get() == this && is_dialog(window)) window_ = window;
}

void ModalScope::window_activated(HWND window) noexcept {
    if (innermost.get() == this && keeps_waiting(window)) call_forward();
}

void ModalScope::window_destroyed(HWND window) noexcept {
    for (HWND owner = GetWindow(window_, GW_OWNER); owner != nullptr;
         owner = GetWindow(owner, GW_OWNER)) {
        if (owner != window) continue;
        SetWindowLongPtrW(window_, GWLP_HWNDPARENT, 0);
        return;
    }
}

LRESULT CALLBACK ModalScope::sent_hook(int code, WPARAM wparam, LPARAM lparam) {
    ModalScope* const scope = innermost.get();
    if (code == HC_ACTION && scope != nullptr) {
        const auto& call = *reinterpret_cast<const CWPSTRUCT*>(lparam);
        if (call.hwnd != scope->window_) {
            scope->sent_to_other(call.hwnd, call.message, call.lParam);
        } else if (!scope->is_told_) {
            scope->sent(call.message, call.wParam, call.lParam);
        }
    }
    return CallNextHookEx(nullptr, code, wparam, lparam);
}

void ModalScope::tell(UINT message, WPARAM wparam, LPARAM lparam) noexcept {
    if (innermost.get() == this) sent(message, wparam, lparam);
}

void ModalScope::sent_to_other(HWND window, UINT message, LPARAM lparam) noexcept {
    if (message != WM_WINDOWPOSCHANGED) return;
    const UINT change = reinterpret_cast<const WINDOWPOS*>(lparam)->flags;
    if ((change & SWP_NOZORDER) == 0 && keeps_waiting(window)) call_forward();
}

void ModalScope::sent(UINT message, WPARAM wparam, LPARAM lparam) noexcept {
    if (message == WM_SHOWWINDOW) {
        // A box is hidden and shown again with its owner.
        if (lparam == SW_PARENTCLOSING || wparam != FALSE) hidden_with_owner_ = wparam == FALSE;
        return;
    }
    if (message != WM_WINDOWPOSCHANGING && message != WM_WINDOWPOSCHANGED) return;
    const UINT change = reinterpret_cast<const WINDOWPOS*>(lparam)->flags;
    const bool is_done = message == WM_WINDOWPOSCHANGED;
    if (is_done && (change & SWP_SHOWWINDOW) != 0) {
        was_shown_ = true;
        call_forward();
    } else if (!is_done && (change & SWP_HIDEWINDOW) != 0 && !hidden_with_owner_) {
        // Before the system chooses the next active window.
        release();
    }
}

/// Deferred by a timer, since the other windows are still handling their messages.
void ModalScope::call_forward() const noexcept {
    SetTimer(window_, forward_timer, USER_TIMER_MINIMUM, &ModalScope::on_timer);
}

void CALLBACK ModalScope::on_timer(HWND window, UINT /*message*/, UINT_PTR id, DWORD /*time*/) {
    KillTimer(window, id);
    ModalScope* const scope = innermost.get();
    if (scope == nullptr || scope->released_) return;
    scope->watch_sent_messages();
    scope->raise();
    if (scope->keeps_waiting(GetActiveWindow())) SetActiveWindow(scope->window_);
}

void ModalScope::raise() const noexcept {
    if (outer_ != nullptr) outer_->raise();
    bool is_covered = false;
    bool by_topmost = false;
    for_each_window([&](HWND window) noexcept {
        if (window == window_) return false;
        if (IsWindowVisible(window) && keeps_waiting(window)) {
            is_covered = true;
            by_topmost |= (GetWindowLongPtrW(window, GWL_EXSTYLE) & WS_EX_TOPMOST) != 0;
        }
        return true;
    });
    if (!is_covered) return;
    SetWindowPos(window_, by_topmost ? HWND_TOPMOST : HWND_TOP, 0, 0, 0, 0, keep_place);
}

}  // namespace kovrel
