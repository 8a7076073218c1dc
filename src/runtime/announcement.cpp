#include "runtime/announcement.h"

namespace kovrel {

Announcement announcement_of(const Notice& notice, std::wstring_view title) {
    Announcement result;
    result.text = notice.text;
    result.title = notice.title ? *notice.title : title;
    result.style = notice.style;
    result.failure = notice.failure;
    if (notice.failure != 0) {
        result.kind = AnnouncementKind::failure;
    } else if (notice.style == NoticeStyle::yes_or_no ||
               notice.style == NoticeStyle::ok_or_cancel) {
        result.kind = AnnouncementKind::question;
    }
    return result;
}

Announcement announcement_of_window(std::wstring_view title, std::wstring_view text) {
    Announcement result;
    result.kind = AnnouncementKind::window;
    result.title = title;
    result.text = text;
    return result;
}

bool allows(const Announcement& announcement, Answer answer) noexcept {
    if (announcement.kind == AnnouncementKind::window) return answer == Answer::cancel;
    switch (announcement.style) {
        case NoticeStyle::yes_or_no:
            return answer == Answer::yes || answer == Answer::no;
        case NoticeStyle::ok_or_cancel:
            return answer == Answer::ok || answer == Answer::cancel;
        default:
            return answer == Answer::ok;
    }
}

Answer default_answer(const Announcement& announcement) noexcept {
    if (announcement.kind == AnnouncementKind::window) return Answer::cancel;
    return announcement.style == NoticeStyle::yes_or_no ? Answer::yes : Answer::ok;
}

}  // namespace kovrel
