// Makes a window, box or dialog modal to its whole thread: the thread's other windows are disabled
// and stay behind it.
#pragma once

#include <windows.h>

#include <vector>

#include "services/thread_watch.h"

namespace kovrel {

/// The owner for the thread's next modal window or box: its active window, or null where there is
/// none or it is marked as modeless.
[[nodiscard]] HWND modal_owner() noexcept;

/// Marks a window that its host may close at any time and that therefore must own no modal window.
/// Remove the mark before the window is destroyed.
void mark_modeless(HWND window, bool modeless) noexcept;

/// Disables every other visible window of the thread. The modal window is raised whenever one of
/// them is, and is detached from an owner that is destroyed. The others are enabled again once the
/// modal window is hidden, at the latest in the destructor, which also restores the focus. Nested
/// scopes end in reverse order.
class ModalScope final : private ThreadWatch {
 public:
    /// For an existing window, whose procedure calls `tell`. bad_alloc when the others cannot be
    /// recorded.
    explicit ModalScope(HWND window);
    /// For the next dialog that the system creates. It disables and enables its owner itself.
    struct NextDialog {
        HWND owner;
    };
    explicit ModalScope(NextDialog dialog) noexcept;
    ModalScope(const ModalScope&) = delete;
    ModalScope& operator=(const ModalScope&) = delete;
    ~ModalScope();

    /// Takes each message of the window before the window handles it.
    void tell(UINT message, WPARAM wparam, LPARAM lparam) noexcept;
    /// Enables the windows again, or leaves that to an inner scope that has not been released yet.
    void release() noexcept;
    [[nodiscard]] bool was_shown() const noexcept { return was_shown_; }

 private:
    void window_made(HWND window) noexcept override;
    void window_activated(HWND window) noexcept override;
    void window_destroyed(HWND window) noexcept override;

    static LRESULT CALLBACK sent_hook(int code, WPARAM wparam, LPARAM lparam);
    static void CALLBACK on_timer(HWND window, UINT message, UINT_PTR id, DWORD time);

    [[nodiscard]] bool note_others(HWND spared) noexcept;
    void begin() noexcept;
    /// With a hook, which makes each message that is sent in the thread slower: not while a window
    /// of the library opens. What was raised meanwhile is noticed once the window is painted.
    void watch_sent_messages() noexcept;
    void sent(UINT message, WPARAM wparam, LPARAM lparam) noexcept;
    void sent_to_other(HWND window, UINT message, LPARAM lparam) noexcept;
    [[nodiscard]] bool keeps_waiting(HWND window) const noexcept;
    void call_forward() const noexcept;
    void raise() const noexcept;
    void give_back() noexcept;
    void restore_focus() const noexcept;

    ModalScope* const outer_;
    HWND const active_;
    HWND const focus_;
    const bool is_told_;
    HWND window_ = nullptr;
    std::vector<HWND> disabled_;
    HHOOK hook_ = nullptr;  ///< held by one of the nested scopes
    bool released_ = false;
    bool was_shown_ = false;
    bool hidden_with_owner_ = false;
};

}  // namespace kovrel
