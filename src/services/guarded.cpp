#include "services/guarded.h"

#include "runtime/text.h"
#include "services/message_box.h"

namespace kovrel {

void show_failure(const Failure& failure, const Handler& handler) noexcept {
    try {
        Notice notice;
        notice.style = NoticeStyle::critical;
        notice.failure = failure.number();
        notice.text = L"Error " + decimal_text(failure.number()) + L"\r (";
        notice.text += failure.description();
        notice.text += handler.trailing;
        if (handler.title != nullptr) notice.title = *handler.title;
        show(notice);
    } catch (const std::exception&) {
        // Not enough memory for the box: the procedure ends without it.
        return;
    }
}

void run_guarded(const Handler& handler, void (*body)(void*), void* context) noexcept {
    try {
        body(context);
    } catch (...) {
        show_failure(current_failure(), handler);
    }
}

}  // namespace kovrel
