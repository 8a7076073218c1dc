// What makes a window, box or dialog modal to its whole thread: the thread's other windows are
// disabled, and it stays in front of them.
#pragma once

#include <windows.h>

#include <vector>

#include "ui/thread_watch.h"

namespace kovrel {

/// The owner of the thread's next modal window or box: its active window. Null where it has none or
/// where that one is marked as modeless.
[[nodiscard]] HWND modal_owner() noexcept;

/// Marks a window that its host may close at any time, so that nothing modal is owned by it. The
/// mark is to be taken off before the window is gone.
void mark_modeless(HWND window, bool modeless) noexcept;

/// Disables every other visible window of the thread from its construction on. The window comes
/// forward whenever one of them does, and a window that owns it and is destroyed does not take it
/// along. At the end, or as soon as the window is hidden, they are given back, and at the end the
/// keyboard too. Scopes within others end before them.
class ModalScope final : private ThreadWatch {
 public:
    /// For a window that there is. bad_alloc when the others cannot be noted.
    explicit ModalScope(HWND window);
    /// For the next dialog that the system makes. It disables its owner, and gives it back, itself.
    struct NextDialog {
        HWND owner;
    };
    explicit ModalScope(NextDialog dialog) noexcept;
    ModalScope(const ModalScope&) = delete;
    ModalScope& operator=(const ModalScope&) = delete;
    ~ModalScope();

    /// Gives the windows back, unless another scope within this one still needs them disabled: then
    /// that one does.
    void release() noexcept;
    /// The window has been on the screen.
    [[nodiscard]] bool was_shown() const noexcept { return was_shown_; }

 private:
    struct Above;

    void window_made(HWND window) noexcept override;
    void window_activated(HWND window) noexcept override;
    void window_destroyed(HWND window) noexcept override;

    static LRESULT CALLBACK sent_hook(int code, WPARAM wparam, LPARAM lparam);
    static BOOL CALLBACK look_at(HWND window, LPARAM above) noexcept;
    static void CALLBACK on_timer(HWND window, UINT message, UINT_PTR id, DWORD time);

    [[nodiscard]] bool note_others(HWND spared) noexcept;
    void begin() noexcept;
    void sent(const CWPSTRUCT& call) noexcept;
    [[nodiscard]] bool keeps_waiting(HWND window) const noexcept;
    void call_forward() const noexcept;
    void raise() const noexcept;
    void give_back() noexcept;
    void restore_focus() const noexcept;

    ModalScope* const outer_;
    HWND const active_;
    HWND const focus_;
    HWND window_ = nullptr;
    std::vector<HWND> disabled_;
    HHOOK hook_ = nullptr;
    bool released_ = false;
    bool was_shown_ = false;
    bool hidden_with_owner_ = false;
};

}  // namespace kovrel
