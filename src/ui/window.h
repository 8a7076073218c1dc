// What the library's windows have in common: loading and unloading, modal and modeless life,
// controls placed in twips, and the keyboard.
#pragma once

#include <windows.h>

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "runtime/announcement.h"
#include "ui/gdi.h"
#include "ui/scale.h"

namespace kovrel {

struct WindowDesign {
    const wchar_t* window_class;
    const wchar_t* caption;
    DWORD style;
    double inner_width;      ///< twips
    double inner_height;     ///< twips
    int default_button = 0;  ///< the control that the Enter key presses; 0: none
    bool has_owner = true;   ///< while modal: the thread's active window
};

/// A control that contains others, reports its size to the window and is painted by it.
inline constexpr wchar_t picture_box_class[] = L"Kovrel.PictureBox";

class ModalScope;

/// The object outlives its window: its holder may read its data after it was unloaded, and load it
/// again. While loaded it keeps itself alive. Failures inside an event never leave the window
/// procedure; events with the standard handler show their own error box.
class Window : public std::enable_shared_from_this<Window> {
 public:
    Window(const Window&) = delete;
    Window& operator=(const Window&) = delete;
    virtual ~Window() = default;

    [[nodiscard]] HWND handle() const noexcept { return handle_; }
    [[nodiscard]] bool loaded() const noexcept { return handle_ != nullptr; }
    [[nodiscard]] bool visible() const noexcept;

    /// Creates the window and its controls, hidden; nothing when it is loaded already.
    void load();
    /// The window or, where the library does not show what it says, nothing: `withheld` is true
    /// then.
    void show_modeless();
    /// Returns once the window is unloaded or hidden. Until then no other window of the thread can
    /// be used. Failure 400 when the window is visible already. Where the library does not show
    /// what it says, it returns at once, as after a window that was closed.
    void show_modal();
    [[nodiscard]] bool withheld() const noexcept { return withheld_; }
    void unload() noexcept;
    void set_caption(const std::wstring& caption);
    [[nodiscard]] std::wstring caption() const { return caption_.value_or(design_.caption); }

 protected:
    explicit Window(const WindowDesign& design) noexcept : design_(design) {}

    [[nodiscard]] const Scale& scale() const noexcept { return scale_; }
    [[nodiscard]] HFONT font() const noexcept { return font_.get(); }

    struct ControlDesign {
        const wchar_t* window_class;
        const wchar_t* text;
        DWORD style;
        int id;
        Place place;
        DWORD extended_style = 0;
        bool is_visible = true;
        const wchar_t* tooltip = nullptr;
    };
    /// A control in the window or in one of its picture boxes.
    HWND add(const ControlDesign& design, HWND parent = nullptr);
    [[nodiscard]] HWND control(int id) const noexcept;
    /// The button that the mouse holds down; null: none.
    [[nodiscard]] HWND pressed_button() const noexcept { return pressed_button_; }
    void focus_on(int id) const noexcept;
    void move(int id, const Place& place);
    [[nodiscard]] Place place(int id) const noexcept;
    /// The place of a field of one line in the middle of its row, as high as its line and edges:
    /// such controls draw their text at the top.
    [[nodiscard]] Place field_place(const Place& row) const noexcept;
    /// Sizes in twips, from whole pixels.
    [[nodiscard]] Place size_of(HWND window) const noexcept;
    [[nodiscard]] Place inner_size_of(HWND window) const noexcept;
    /// The outer bounds on the screen, in pixels.
    [[nodiscard]] RECT bounds() const noexcept;
    void resize_outer(int width, int height) const noexcept;
    void move_to(int left, int top) const noexcept;
    /// Inner size in twips, limited to the work area.
    void resize_inner(double width, double height);
    /// The inner height of a window as tall as the work area, in twips.
    [[nodiscard]] double tallest_inner() const noexcept;
    void center_on_screen();
    /// Moves the window into the work area, its top left corner first.
    void keep_on_screen();
    /// Another tooltip than the designed one; an empty text removes it.
    void set_tooltip(int id, const std::wstring& text);

    // The events, in the order of a window's life. Each control is best created where it stays:
    // moving it costs as much as creating it.
    /// The inner height in twips, once the font is there.
    [[nodiscard]] virtual double wanted_height() { return design_.inner_height; }
    virtual void create_controls() = 0;
    /// Fonts and pictures; called again when the display's resolution changes.
    virtual void apply_scale() {}
    /// Places that depend on the resolution by more than their scale, when it has changed.
    virtual void lay_out() {}
    virtual void form_load() = 0;
    virtual void form_resize() {}
    virtual void picture_box_resized(int /*id*/) {}
    virtual void paint_picture_box(int /*id*/, HDC /*context*/, const RECT& /*bounds*/) {}
    virtual void clicked(int /*id*/) {}
    virtual void notified(int /*id*/, UINT /*code*/) {}
    /// True for a control in the colours of a text box (COLOR_WINDOW) instead of a dialog's.
    [[nodiscard]] virtual bool has_page_colors(int /*id*/) const { return false; }
    virtual void focus_moved(HWND /*from*/, HWND /*to*/) {}
    /// The mouse no longer holds down a button. Its click, if any, follows at once.
    virtual void press_ended() {}
    virtual void posted(UINT /*message*/, int /*value*/) {}
    /// The close box, Alt+F4 or Esc.
    virtual void closing() { unload(); }
    virtual void form_unload() {}

    /// What is announced before the window is shown: by default its caption.
    [[nodiscard]] virtual Announcement announcement() const;
    /// Instead of the window's life when it is not shown.
    virtual void not_shown() { form_unload(); }

    /// The first of the messages that a window may post to itself.
    static constexpr UINT first_posted = WM_APP + 0x100;

 private:
    struct Placed {
        HWND window;
        int id;
        Place place;
        const wchar_t* window_class;
        bool is_push_button;
        RECT pixels;
        const wchar_t* tooltip;  ///< null: none
    };

    [[nodiscard]] static RECT centered(const SIZE& size, const RECT& work) noexcept;
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam);
    static LRESULT CALLBACK picture_box(HWND window, UINT message, WPARAM wparam, LPARAM lparam);
    static LRESULT watch_control(HWND window, UINT message, WPARAM wparam, LPARAM lparam,
                                 void* owner);
    void create();
    void run_modal();
    LRESULT handle(UINT message, WPARAM wparam, LPARAM lparam);
    void command(int id, UINT code, bool from_control);
    bool pressed(WPARAM key);
    void watched(HWND control, UINT message, WPARAM wparam);
    void focus_inside();
    [[nodiscard]] int default_button(HWND focus) const noexcept;
    void frame_default_button(HWND focus) const noexcept;
    void rescale(int dots_per_inch, const RECT& bounds);
    [[nodiscard]] RECT in_pixels(const Place& place) const noexcept;
    void put_in_place(Placed& placed) const noexcept;
    void mouse_over(HWND window);
    void create_tooltips();
    void put_tooltip(int id, const wchar_t* text) const noexcept;
    void set_scale(int dots_per_inch);
    void put(const RECT& bounds) const noexcept;
    void take_host_icons();
    [[nodiscard]] SIZE outer_size(double width, double height) const noexcept;
    [[nodiscard]] SIZE fitted_size(double width, double height, const RECT& work) const noexcept;
    [[nodiscard]] RECT work_area() const noexcept;
    [[nodiscard]] const Placed* find(int id) const noexcept;
    [[nodiscard]] const Placed* push_button(HWND window) const noexcept;

    const WindowDesign design_;
    HWND handle_ = nullptr;
    HWND tooltips_ = nullptr;
    HWND last_focus_ = nullptr;
    HWND pressed_button_ = nullptr;
    bool ready_ = false;  // events are handled once the controls exist
    Scale scale_;
    Font font_;
    Icon large_icon_;
    Icon small_icon_;
    std::vector<Placed> controls_;
    std::optional<std::wstring> caption_;
    ModalScope* modal_ = nullptr;
    bool withheld_ = false;
    std::shared_ptr<Window> self_;  // while loaded
};

}  // namespace kovrel
