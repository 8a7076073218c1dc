// A window's events: the messages that reach it, its picture boxes and its controls.
#include <windows.h>

#include "automation/floating_point.h"
#include "services/modal_scope.h"
#include "ui/controls.h"
#include "ui/window.h"

namespace kovrel {
namespace {

/// Answers WM_CTLCOLOR… with the colours of a text box.
LRESULT use_page_colors(HDC context) noexcept {
    SetTextColor(context, GetSysColor(COLOR_WINDOWTEXT));
    SetBkColor(context, GetSysColor(COLOR_WINDOW));
    return reinterpret_cast<LRESULT>(GetSysColorBrush(COLOR_WINDOW));
}

/// Runs an event. Its failure is dropped, since there is nobody to report it to.
template <class Body>
void quietly(Body&& body) noexcept {
    try {
        body();
    } catch (...) {
        return;
    }
}

}  // namespace

void Window::focus_inside() {
    HWND target = last_focus_;
    if (target == nullptr || !IsChild(handle_, target) || !IsWindowEnabled(target) ||
        !IsWindowVisible(target)) {
        target = GetNextDlgTabItem(handle_, nullptr, FALSE);
    }
    const bool stops =
        target != nullptr && (GetWindowLongPtrW(target, GWL_STYLE) & WS_TABSTOP) != 0;
    SetFocus(stops ? target : handle_);
}

void Window::command(int id, UINT code, bool from_control) {
    if (id == IDCANCEL && !from_control) {
        closing();
    } else if (code == BN_CLICKED) {
        clicked(id);
    } else {
        notified(id, code);
    }
}

void Window::focus_on(int id) const noexcept {
    SendMessageW(handle_, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(control(id)), TRUE);
}

/// Null for other windows.
const Window::Placed* Window::push_button(HWND window) const noexcept {
    for (const Placed& placed : controls_) {
        if (placed.window == window && placed.is_push_button) return &placed;
    }
    return nullptr;
}

/// The push button with the focus, else the designed default button.
int Window::default_button(HWND focus) const noexcept {
    const Placed* const button = push_button(focus);
    return button != nullptr ? button->id : design_.default_button;
}

/// Removes the frame from the other buttons.
void Window::frame_default_button(HWND focus) const noexcept {
    const int framed = default_button(focus);
    for (const Placed& placed : controls_) {
        if (!placed.is_push_button) continue;
        const auto style = static_cast<DWORD>(GetWindowLongPtrW(placed.window, GWL_STYLE));
        const DWORD kind = placed.id == framed ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON;
        if ((style & BS_TYPEMASK) == kind) continue;
        SendMessageW(placed.window, BM_SETSTYLE, (LOWORD(style) & ~BS_TYPEMASK) | kind, TRUE);
    }
}

/// Dialog keys in a modeless window: the host's message loop does not call IsDialogMessage for it.
bool Window::pressed(WPARAM key) {
    if (modal_ != nullptr) return false;
    if (key == VK_ESCAPE) {
        closing();
    } else if (key == VK_RETURN && design_.default_button != 0) {
        clicked(design_.default_button);
    } else {
        return false;
    }
    return true;
}

/// Before the control handles the mouse's move.
void Window::mouse_over(HWND window) {
    const Placed* const placed = find(GetDlgCtrlID(window));
    if (placed != nullptr && placed->tooltip != nullptr) create_tooltips();
}

LRESULT Window::handle(UINT message, WPARAM wparam, LPARAM lparam) {
    switch (message) {
        case WM_COMMAND:
            command(LOWORD(wparam), HIWORD(wparam), find(LOWORD(wparam)) != nullptr);
            return 0;
        case WM_SIZE:
            if (wparam != SIZE_MINIMIZED) form_resize();
            return 0;
        case WM_CTLCOLORSTATIC:
        case WM_CTLCOLOREDIT:
            if (has_page_colors(GetDlgCtrlID(reinterpret_cast<HWND>(lparam)))) {
                return use_page_colors(reinterpret_cast<HDC>(wparam));
            }
            break;
        case WM_SETCURSOR:
            mouse_over(reinterpret_cast<HWND>(wparam));
            break;
        case DM_GETDEFID: {
            const int id = default_button(GetFocus());
            return id != 0 ? MAKELRESULT(id, DC_HASDEFID) : 0;
        }
        case WM_NEXTDLGCTL:
            // A given control (as a label's access key does), or the next or the previous one.
            SetFocus(LOWORD(lparam) != FALSE ? reinterpret_cast<HWND>(wparam)
                                             : GetNextDlgTabItem(handle_, GetFocus(), wparam != 0));
            return 0;
        case WM_SHOWWINDOW:
            // A modal window stays visible when its owner is minimised.
            if (lparam == SW_PARENTCLOSING) return 0;
            break;
        case WM_SETFOCUS:
            focus_inside();
            return 0;
        case WM_ACTIVATE:
            if (LOWORD(wparam) != WA_INACTIVE) focus_inside();
            return 0;
        case WM_CLOSE:
            closing();
            return 0;
        case WM_DPICHANGED:
            rescale(HIWORD(wparam), *reinterpret_cast<const RECT*>(lparam));
            return 0;
        case WM_SYSCOLORCHANGE:
            apply_scale();
            break;
        case WM_DESTROY:
            ready_ = false;
            form_unload();
            return 0;
        default:
            if (message >= first_posted && message < first_posted + 0x100) {
                posted(message, static_cast<int>(wparam));
                return 0;
            }
            break;
    }
    return DefWindowProcW(handle_, message, wparam, lparam);
}

LRESULT CALLBACK Window::procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    const DefaultFloatingPoint floating_point;
    if (message == WM_NCCREATE) {
        auto* const created =
            static_cast<Window*>(reinterpret_cast<const CREATESTRUCTW*>(lparam)->lpCreateParams);
        created->handle_ = window;
        SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(created));
    }
    auto* const self = reinterpret_cast<Window*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (self == nullptr) return DefWindowProcW(window, message, wparam, lparam);
    if (message == WM_NCDESTROY) {
        const std::shared_ptr<Window> last = std::move(self->self_);
        mark_modeless(window, false);
        SetWindowLongPtrW(window, GWLP_USERDATA, 0);
        self->handle_ = self->tooltips_ = self->last_focus_ = self->pressed_button_ = nullptr;
        self->controls_.clear();
        return DefWindowProcW(window, message, wparam, lparam);
    }
    if (!self->ready_ && message != WM_DESTROY) {
        return DefWindowProcW(window, message, wparam, lparam);
    }
    const std::shared_ptr<Window> alive = self->weak_from_this().lock();
    if (self->modal_ != nullptr) self->modal_->tell(message, wparam, lparam);
    LRESULT result = 0;
    quietly([&] { result = self->handle(message, wparam, lparam); });
    return result;
}

LRESULT CALLBACK Window::picture_box(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    auto* const self =
        reinterpret_cast<Window*>(GetWindowLongPtrW(GetParent(window), GWLP_USERDATA));
    if (self == nullptr) return DefWindowProcW(window, message, wparam, lparam);
    const DefaultFloatingPoint floating_point;
    const std::shared_ptr<Window> alive = self->weak_from_this().lock();
    const int id = GetDlgCtrlID(window);
    switch (message) {
        case WM_COMMAND:
        case WM_NOTIFY:
        case WM_CTLCOLORSTATIC:
        case WM_CTLCOLOREDIT:
        case WM_CTLCOLORBTN:
            return SendMessageW(self->handle_, message, wparam, lparam);
        case WM_SIZE:
            if (self->ready_) quietly([&] { self->picture_box_resized(id); });
            return 0;
        case WM_PAINT: {
            PAINTSTRUCT paint;
            HDC const context = BeginPaint(window, &paint);
            RECT bounds{};
            GetClientRect(window, &bounds);
            if (self->ready_) quietly([&] { self->paint_picture_box(id, context, bounds); });
            EndPaint(window, &paint);
            return 0;
        }
        default:
            return DefWindowProcW(window, message, wparam, lparam);
    }
}

/// Called after a control has handled a message.
void Window::watched(HWND control, UINT message, WPARAM wparam) {
    if (message == WM_SETFOCUS) {
        frame_default_button(control);
    } else if (message == WM_KILLFOCUS) {
        focus_moved(control, reinterpret_cast<HWND>(wparam));
    }
    const bool ends_press =
        message == WM_CAPTURECHANGED || message == WM_LBUTTONUP || message == WM_KILLFOCUS;
    if (ends_press && control == pressed_button_) {
        pressed_button_ = nullptr;
        press_ended();
    }
}

LRESULT Window::watch_control(HWND window, UINT message, WPARAM wparam, LPARAM lparam,
                              void* owner) {
    const DefaultFloatingPoint floating_point;
    auto* const self = static_cast<Window*>(owner);
    const std::shared_ptr<Window> alive = self->weak_from_this().lock();
    if (message == WM_SETFOCUS) self->last_focus_ = window;
    const bool is_press = message == WM_LBUTTONDOWN || message == WM_LBUTTONDBLCLK;
    if (is_press && self->push_button(window) != nullptr) self->pressed_button_ = window;
    if (message == WM_KEYDOWN && self->ready_) {
        bool taken = true;
        quietly([&] { taken = self->pressed(wparam); });
        if (taken) return 0;
    }
    const LRESULT result = pass_on(&Window::watch_control, window, message, wparam, lparam);
    if (self->ready_) quietly([&] { self->watched(window, message, wparam); });
    return result;
}

}  // namespace kovrel
