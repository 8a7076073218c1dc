// What the library is about to show or ask: a message box, the progress of an operation, a window.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "runtime/notice.h"

namespace kovrel {

enum class AnnouncementKind : std::int32_t {
    message = 1,
    failure = 2,   ///< a message that tells a failure
    question = 3,  ///< a message box with more than one button
    progress = 4,
    window = 5,  ///< a window or dialog of the system that asks for something
};

/// The published codes of a message box's buttons.
enum class Answer : std::int32_t { none = 0, ok = 1, cancel = 2, yes = 6, no = 7 };

struct Announcement {
    AnnouncementKind kind = AnnouncementKind::message;
    std::wstring text;
    std::wstring title;
    NoticeStyle style = NoticeStyle::plain;
    std::int32_t failure = 0;     ///< the number of the failure that it tells; 0: none
    std::int32_t percentage = 0;  ///< of a report of progress
};

/// The box of a notice, `title` being that of notices without one.
[[nodiscard]] Announcement announcement_of(const Notice& notice, std::wstring_view title);

/// A window or dialog that asks for something.
[[nodiscard]] Announcement announcement_of_window(std::wstring_view title, std::wstring_view text);

/// Whether its buttons allow the answer. A window that nobody sees is cancelled.
[[nodiscard]] bool allows(const Announcement& announcement, Answer answer) noexcept;

/// The answer of a user who does nothing but press Enter in a box, or Esc in a window.
[[nodiscard]] Answer default_answer(const Announcement& announcement) noexcept;

/// An announcement that was made.
struct NotedAnnouncement : Announcement {
    std::wstring member;  ///< "class.member" that the host had called; empty: not known
    double time = 0;      ///< local: days since 30 December 1899
    Answer answer = Answer::none;
};

}  // namespace kovrel
