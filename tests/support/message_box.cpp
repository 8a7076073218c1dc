// Reads and answers a message box that is on the screen.
#include "tests/support/message_box.h"

#include <algorithm>
#include <array>

#include "tests/support/icon_style.h"

namespace kovrel::test {
namespace {

// -1 while the process that owns the box does not answer.
int foreign_icon_style(HWND control, DWORD thread) {
    static const HMODULE library = LoadLibraryW(probe_library);
    static const UINT probe = RegisterWindowMessageW(probe_message);
    if (library == nullptr) return -1;
    const auto procedure = reinterpret_cast<HOOKPROC>(
        reinterpret_cast<void*>(GetProcAddress(library, probe_procedure)));
    HHOOK const hook = SetWindowsHookExW(WH_CALLWNDPROC, procedure, library, thread);
    ask(control, probe);
    UnhookWindowsHookEx(hook);
    return static_cast<int>(reinterpret_cast<INT_PTR>(GetPropW(control, probe_answer))) - 1;
}

int icon_style(HWND control) {
    DWORD process = 0;
    const DWORD thread = GetWindowThreadProcessId(control, &process);
    return process == GetCurrentProcessId() ? own_icon_style(control)
                                            : foreign_icon_style(control, thread);
}

int button_set_style(const std::vector<BoxButton>& buttons) {
    const std::array<std::vector<int>, 7> sets{{{IDOK},
                                                {IDOK, IDCANCEL},
                                                {IDABORT, IDRETRY, IDIGNORE},
                                                {IDYES, IDNO, IDCANCEL},
                                                {IDYES, IDNO},
                                                {IDRETRY, IDCANCEL},
                                                {IDCANCEL, IDTRYAGAIN, IDCONTINUE}}};
    std::vector<int> ids;
    ids.reserve(buttons.size());
    for (const BoxButton& button : buttons) ids.push_back(button.id);
    const auto found = std::find(sets.begin(), sets.end(), ids);
    return found == sets.end() ? -1 : static_cast<int>(found - sets.begin());
}

std::wstring without_access_key(const std::wstring& caption) {
    std::wstring plain;
    for (std::size_t i = 0; i < caption.size(); ++i) {
        if (caption[i] == L'&' && i + 1 < caption.size()) ++i;
        plain += caption[i];
    }
    return plain;
}

bool is_default_button(HWND button) {
    return (GetWindowLongW(button, GWL_STYLE) & BS_TYPEMASK) == BS_DEFPUSHBUTTON;
}

}  // namespace

std::optional<SeenBox> read_box(HWND window) {
    if (!IsWindowVisible(window) || !IsWindowEnabled(window) || class_of(window) != L"#32770") {
        return std::nullopt;
    }
    SeenBox box;
    int icon = 0;
    std::vector<Control> buttons;
    for (const Control& control : controls_of(window)) {
        if (!control.visible) continue;
        if (control.window_class == L"Button") {
            buttons.push_back(control);
        } else if (control.window_class == L"Static") {
            const LONG kind = GetWindowLongW(control.window, GWL_STYLE) & SS_TYPEMASK;
            if (kind == SS_ICON) {
                icon = icon_style(control.window);
            } else {
                box.text = control.text;
            }
        } else {
            return std::nullopt;  // a dialog of another kind
        }
    }
    // The text is empty while the box is being created or its process is busy.
    if (box.text.empty() || buttons.empty()) return std::nullopt;
    // The title is set before the text, and may be empty.
    box.title = text_of(window);
    std::sort(buttons.begin(), buttons.end(), [](const Control& left, const Control& right) {
        return left.bounds.left < right.bounds.left;
    });
    int default_place = 0;
    for (const Control& button : buttons) {
        if (is_default_button(button.window)) {
            box.default_button = button.id;
            default_place = static_cast<int>(box.buttons.size());
        }
        box.buttons.push_back({button.id, without_access_key(button.text)});
    }
    // A dialog that is being created can look like a box, but lacks the default button.
    if (box.default_button == 0) return std::nullopt;
    const int set = button_set_style(box.buttons);
    if (icon < 0 || set < 0) return std::nullopt;
    box.style = icon + set + default_place * MB_DEFBUTTON2;
    return box;
}

bool answer_box(HWND window, SeenBox& box, BoxAnswer how, Milliseconds limit) {
    const auto closed = [&] { return !IsWindow(window) || !IsWindowVisible(window); };
    const auto end = std::chrono::steady_clock::now() + limit;
    const int wanted = how.button != 0 ? how.button : box.default_button;
    HWND const button = GetDlgItem(window, wanted);
    box.pressed = wanted;
    // Repeated, since a press is lost while the box is being activated.
    while (!closed() && std::chrono::steady_clock::now() < end) {
        if (how.key != 0) {
            if (bring_to_front(window)) press_key(how.key);
        } else {
            PostMessageW(button, BM_CLICK, 0, 0);
        }
        wait_until(closed, Milliseconds{1000});
    }
    return closed();
}

std::wstring as_line(const SeenBox& box) {
    std::wstring line;
    const auto add = [&line](const std::wstring& text) {
        for (const wchar_t character : text) {
            if (character == L'\r') {
                line += L"\\r";
            } else if (character == L'\n') {
                line += L"\\n";
            } else if (character == L'\\') {
                line += L"\\\\";
            } else {
                line += character;
            }
        }
    };
    add(std::to_wstring(box.style));
    line += L'|';
    add(box.title);
    line += L'|';
    add(box.text);
    line += L'|';
    line += std::to_wstring(box.pressed);
    return line;
}

}  // namespace kovrel::test
