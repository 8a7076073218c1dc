#include "services/thread_watch.h"

#include "automation/thread_slot.h"

namespace kovrel {
namespace {

/// The thread's watches, newest first.
constinit ThreadSlot<ThreadWatch> watches;

}  // namespace

ThreadWatch::ThreadWatch() noexcept : next_(watches.get()) {
    watches.set(this);
    if (next_ != nullptr) {
        next_->previous_ = this;
    } else {
        hook_ = SetWindowsHookExW(WH_CBT, &ThreadWatch::hook, nullptr, GetCurrentThreadId());
    }
}

ThreadWatch::~ThreadWatch() {
    if (next_ != nullptr) next_->previous_ = previous_;
    if (previous_ != nullptr) {
        previous_->next_ = next_;
    } else {
        watches.set(next_);
    }
    if (hook_ == nullptr) return;
    if (ThreadWatch* const heir = watches.get()) {
        heir->hook_ = hook_;
    } else {
        UnhookWindowsHookEx(hook_);
    }
}

LRESULT CALLBACK ThreadWatch::hook(int code, WPARAM wparam, LPARAM lparam) {
    // Non-zero: another hook prevents the operation.
    const LRESULT forbidden = CallNextHookEx(nullptr, code, wparam, lparam);
    if (forbidden != 0) return forbidden;
    auto* const window = reinterpret_cast<HWND>(wparam);
    for (ThreadWatch* watch = watches.get(); watch != nullptr; watch = watch->next_) {
        switch (code) {
            case HCBT_CREATEWND:
                watch->window_made(window);
                break;
            case HCBT_ACTIVATE:
                watch->window_activated(window);
                break;
            case HCBT_DESTROYWND:
                watch->window_destroyed(window);
                break;
            default:
                break;
        }
    }
    return 0;
}

}  // namespace kovrel
