#include "ui/window.h"

#include <commctrl.h>

#include <algorithm>
#include <cwchar>

#include "automation/floating_point.h"
#include "automation/module.h"
#include "runtime/failure.h"
#include "services/announcer.h"
#include "services/modal.h"
#include "services/modal_scope.h"
#include "ui/controls.h"

namespace kovrel {
namespace {

/// Activates the library's own manifest, so that windows get version 6 of the common controls in
/// any host. Without that manifest (in tests) nothing changes.
class VisualStyles {
 public:
    VisualStyles() {
        HANDLE const context = own_context();
        active_ = context != INVALID_HANDLE_VALUE && ActivateActCtx(context, &cookie_) != FALSE;
    }
    VisualStyles(const VisualStyles&) = delete;
    VisualStyles& operator=(const VisualStyles&) = delete;
    ~VisualStyles() {
        if (active_) DeactivateActCtx(0, cookie_);
    }

 private:
    /// Never released: the library stays loaded.
    static HANDLE own_context() {
        static HANDLE const context = [] {
            const std::wstring path = own_module_path();
            ACTCTXW description{};
            description.cbSize = sizeof description;
            description.dwFlags = ACTCTX_FLAG_HMODULE_VALID | ACTCTX_FLAG_RESOURCE_NAME_VALID;
            description.hModule = own_module();
            description.lpResourceName = MAKEINTRESOURCEW(2);
            description.lpSource = path.c_str();
            return CreateActCtxW(&description);
        }();
        return context;
    }

    ULONG_PTR cookie_ = 0;
    bool active_ = false;
};

/// Classes belong to this module, so another copy of the library in the process has its own. They
/// are never unregistered: another thread may be about to create a window.
void register_class(const wchar_t* name, WNDPROC procedure) {
    WNDCLASSEXW known{};
    known.cbSize = sizeof known;
    if (GetClassInfoExW(own_module(), name, &known) != FALSE) return;
    WNDCLASSEXW description{};
    description.cbSize = sizeof description;
    description.lpfnWndProc = procedure;
    description.hInstance = own_module();
    description.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    description.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1);
    description.lpszClassName = name;
    if (RegisterClassExW(&description) == 0 && GetLastError() != ERROR_CLASS_ALREADY_EXISTS) {
        throw Failure(FailureNumber::out_of_memory);
    }
}

void set_owner(HWND window, HWND owner) noexcept {
    SetWindowLongPtrW(window, GWLP_HWNDPARENT, reinterpret_cast<LONG_PTR>(owner));
}

}  // namespace

bool Window::visible() const noexcept {
    return handle_ != nullptr && IsWindowVisible(handle_) != FALSE;
}

void Window::load() {
    if (loaded()) return;
    const VisualStyles styles;
    load_common_controls();
    register_class(design_.window_class, &Window::procedure);
    register_class(picture_box_class, &Window::picture_box);
    self_ = shared_from_this();
    try {
        create();
        take_host_icons();
        create_controls();
        apply_scale();
        ready_ = true;
        form_load();
        for (const Placed& placed : std::vector(controls_)) {
            if (placed.window_class == picture_box_class) picture_box_resized(placed.id);
        }
        form_resize();
    } catch (...) {
        unload();
        self_.reset();
        throw;
    }
}

/// In the middle of the screen, in the size that the expected resolution asks for. Which one the
/// window has is known only then.
void Window::create() {
    set_scale(dots_per_inch(GetActiveWindow()));
    const RECT work = work_area();
    const RECT place = centered(fitted_size(design_.inner_width, wanted_height(), work), work);
    if (CreateWindowExW(WS_EX_CONTROLPARENT, design_.window_class, caption().c_str(),
                        design_.style | WS_CLIPCHILDREN, place.left, place.top,
                        place.right - place.left, place.bottom - place.top, nullptr, nullptr,
                        own_module(), this) == nullptr) {
        throw Failure(FailureNumber::out_of_memory);
    }
    const int found = dots_per_inch(handle_);
    if (found == scale_.dots_per_inch()) return;
    set_scale(found);
    resize_inner(design_.inner_width, wanted_height());
    center_on_screen();
}

Announcement Window::announcement() const {
    return announcement_of_window(caption(), {});
}

void Window::show_modeless() {
    withheld_ = !announce(announcement(), [] { return Answer::ok; }).was_shown;
    if (withheld_) {
        not_shown();
        return;
    }
    load();
    mark_modeless(handle_, true);
    const HostFloatingPoint host;
    ShowWindow(handle_, SW_SHOW);
    UpdateWindow(handle_);
}

void Window::show_modal() {
    const auto alive = shared_from_this();
    if (visible()) throw Failure(FailureNumber::form_already_shown);
    withheld_ = false;
    const Announced announced = announce(announcement(), [this] {
        run_modal();
        return Answer::ok;
    });
    withheld_ = !announced.was_shown;
    if (withheld_) not_shown();
}

void Window::run_modal() {
    load();
    HWND const window = handle_;
    if (design_.has_owner) set_owner(window, modal_owner());
    {
        std::optional<ModalScope> scope;
        try {
            scope.emplace(window);
        } catch (...) {
            unload();
            throw;
        }
        modal_ = &*scope;
        const HostFloatingPoint host;
        ShowWindow(window, SW_SHOW);
        SetForegroundWindow(window);
        RedrawWindow(window, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
        run_modal_loop(window);
        modal_ = nullptr;
    }
    // A hidden window would be destroyed with its owner.
    if (IsWindow(window)) set_owner(window, nullptr);
}

void Window::unload() noexcept {
    if (!loaded()) return;
    // Enables the host's windows first: otherwise the system would activate another program.
    if (modal_ != nullptr) modal_->release();
    const HostFloatingPoint host;
    DestroyWindow(handle_);
}

void Window::set_caption(const std::wstring& caption) {
    caption_ = caption;
    if (loaded()) SetWindowTextW(handle_, caption.c_str());
}

HWND Window::add(const ControlDesign& design, HWND parent) {
    DWORD style = design.style | WS_CHILD | WS_CLIPSIBLINGS;
    if (design.is_visible) style |= WS_VISIBLE;
    // It may contain controls, and must not paint over them.
    if (design.window_class == picture_box_class) style |= WS_CLIPCHILDREN;
    auto* const id = reinterpret_cast<HMENU>(static_cast<INT_PTR>(design.id));
    const RECT place = in_pixels(design.place);
    HWND const window =
        CreateWindowExW(design.extended_style, design.window_class, design.text, style, place.left,
                        place.top, place.right - place.left, place.bottom - place.top,
                        parent != nullptr ? parent : handle_, id, own_module(), nullptr);
    if (window == nullptr) throw Failure(FailureNumber::out_of_memory);
    const bool is_push_button = std::wcscmp(design.window_class, L"BUTTON") == 0 &&
                                (design.style & BS_TYPEMASK) <= BS_DEFPUSHBUTTON;
    controls_.push_back({window, design.id, design.place, design.window_class, is_push_button,
                         place, design.tooltip});
    SendMessageW(window, WM_SETFONT, reinterpret_cast<WPARAM>(font()), FALSE);
    // The others get neither the focus nor keys nor clicks.
    if ((design.style & WS_TABSTOP) != 0) {
        subclass(window, &Window::watch_control, this);
    }
    return window;
}

const Window::Placed* Window::find(int id) const noexcept {
    for (const Placed& placed : controls_) {
        if (placed.id == id) return &placed;
    }
    return nullptr;
}

HWND Window::control(int id) const noexcept {
    const Placed* const placed = find(id);
    return placed == nullptr ? nullptr : placed->window;
}

Place Window::place(int id) const noexcept {
    const Placed* const placed = find(id);
    return placed == nullptr ? Place{} : placed->place;
}

void Window::move(int id, const Place& place) {
    for (Placed& placed : controls_) {
        if (placed.id != id) continue;
        placed.place = place;
        put_in_place(placed);
    }
}

RECT Window::in_pixels(const Place& place) const noexcept {
    // Rounds edges, not sizes, so that neighbours that touch in twips touch in pixels.
    const int left = scale_.pixels(place.left);
    const int top = scale_.pixels(place.top);
    return {left, top, std::max(left, scale_.pixels(place.left + place.width)),
            std::max(top, scale_.pixels(place.top + place.height))};
}

void Window::put_in_place(Placed& placed) const noexcept {
    const RECT place = in_pixels(placed.place);
    if (EqualRect(&place, &placed.pixels) != FALSE) return;
    placed.pixels = place;
    SetWindowPos(placed.window, nullptr, place.left, place.top, place.right - place.left,
                 place.bottom - place.top, SWP_NOZORDER | SWP_NOACTIVATE);
}

void Window::set_tooltip(int id, const std::wstring& text) {
    if (tooltips_ == nullptr && text.empty()) return;
    create_tooltips();
    put_tooltip(id, text.c_str());
}

/// Once. They cost as much as several controls: those of the design are created when the mouse
/// first comes to a control that has one.
void Window::create_tooltips() {
    if (tooltips_ != nullptr) return;
    const VisualStyles styles;
    tooltips_ =
        CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr,
                        WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX, CW_USEDEFAULT, CW_USEDEFAULT,
                        CW_USEDEFAULT, CW_USEDEFAULT, handle_, nullptr, own_module(), nullptr);
    SendMessageW(tooltips_, TTM_SETMAXTIPWIDTH, 0, scale_.pixels(6000));
    for (const Placed& placed : controls_) {
        if (placed.tooltip != nullptr) put_tooltip(placed.id, placed.tooltip);
    }
}

void Window::put_tooltip(int id, const wchar_t* text) const noexcept {
    TTTOOLINFOW tool{};
    tool.cbSize = TTTOOLINFOW_V1_SIZE;
    tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
    tool.hwnd = handle_;
    tool.uId = reinterpret_cast<UINT_PTR>(control(id));
    tool.lpszText = const_cast<wchar_t*>(text);
    SendMessageW(tooltips_, TTM_DELTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
    if (*text != L'\0') SendMessageW(tooltips_, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
}

void Window::set_scale(int dots_per_inch) {
    scale_ = Scale(dots_per_inch);
    font_ = make_font(system_font(dots_per_inch));
    for (const Placed& placed : controls_) {
        SendMessageW(placed.window, WM_SETFONT, reinterpret_cast<WPARAM>(font()), TRUE);
    }
}

void Window::rescale(int dots_per_inch, const RECT& bounds) {
    set_scale(dots_per_inch);
    put(bounds);
    apply_scale();
    for (Placed& placed : controls_) put_in_place(placed);
    lay_out();
}

}  // namespace kovrel
