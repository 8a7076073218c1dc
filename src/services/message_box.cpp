#include "services/message_box.h"

#include <windows.h>

#include <optional>

#include "automation/floating_point.h"
#include "services/announcer.h"
#include "services/modal_scope.h"

namespace kovrel {
namespace {

bool is_question(UINT style) noexcept {
    return (style & MB_TYPEMASK) == MB_YESNO;
}

/// False for a box that was closed without an answer: by WM_QUIT, or because the host destroyed it.
bool is_answer(UINT style, int button) noexcept {
    return is_question(style) ? button == IDYES || button == IDNO : button != 0;
}

/// The answer to a box that cannot be shown.
int refusal(UINT style) noexcept {
    if (is_question(style)) return IDNO;
    return (style & MB_TYPEMASK) == MB_OKCANCEL ? IDCANCEL : IDOK;
}

Answer show_box(const Announcement& box) {
    const auto style = static_cast<UINT>(box.style);
    std::optional<int> quit_code;
    int button = 0;
    const HostFloatingPoint host;
    for (bool is_open = true; is_open && !is_answer(style, button);) {
        HWND const owner = modal_owner();
        const ModalScope scope(ModalScope::NextDialog{owner});
        button = MessageBoxW(owner, box.text.c_str(), box.title.c_str(), style);
        is_open = scope.was_shown();
        MSG message;
        if (!is_answer(style, button) &&
            PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE)) {
            quit_code = static_cast<int>(message.wParam);
        }
    }
    if (quit_code) PostQuitMessage(*quit_code);
    return static_cast<Answer>(is_answer(style, button) ? button : refusal(style));
}

}  // namespace

std::int32_t show(const Notice& notice) {
    const Announcement box = announcement_of(notice, application_title);
    return static_cast<std::int32_t>(announce(box, [&box] { return show_box(box); }).answer);
}

}  // namespace kovrel
