// The one place that decides whether what the library says is shown, for message boxes, progress,
// windows and dialogs alike.
#pragma once

#include <windows.h>

#include <cstdint>
#include <memory>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "runtime/announcement.h"

namespace kovrel {

/// False for a process that nobody sees, such as a service: it must not show anything, since it
/// would wait for an answer for ever.
[[nodiscard]] bool has_interactive_desktop() noexcept;

/// Hears what is announced in its thread, and decides whether it is shown.
class Listener {
 public:
    struct Reply {
        bool is_shown;
        Answer answer;                            ///< when it is not shown
        std::shared_ptr<NotedAnnouncement> note;  ///< gets the user's answer; may be null
    };

    Listener() = default;
    Listener(const Listener&) = delete;
    Listener& operator=(const Listener&) = delete;
    virtual ~Listener() = default;

    [[nodiscard]] virtual Reply hear(const Announcement& announcement) noexcept = 0;
    /// True to cancel the operation.
    [[nodiscard]] virtual bool hear_progress(const Announcement& announcement) noexcept = 0;
};

/// For the calling thread, whose youngest listener alone is asked. Failure 7.
void attach(const std::shared_ptr<Listener>& listener);
/// In any thread.
void detach(const Listener& listener) noexcept;

/// The announcement with what is known about the present: the member that speaks, and the time.
[[nodiscard]] std::shared_ptr<NotedAnnouncement> noted(const Announcement& announcement);

/// What was announced in the calling thread, by a process without a desktop, while it had no
/// listener: the last thousand announcements of all threads are kept.
[[nodiscard]] std::vector<std::shared_ptr<NotedAnnouncement>> take_unheard();

/// Called once a process uses the library: without a desktop, calls are noted from then on.
void prepare_for_nobody() noexcept;

struct Announced {
    bool was_shown;
    Answer answer;
};

/// Shows by `show`, a function that returns the user's answer, unless the thread's listener or the
/// lack of a desktop prevents it.
Announced announce(const Announcement& announcement, Answer (*show)(void*), void* context);

template <class Show>
Announced announce(const Announcement& announcement, Show&& show) {
    return announce(
        announcement,
        [](void* context) { return (*static_cast<std::remove_reference_t<Show>*>(context))(); },
        &show);
}

/// Reports progress, which is shown elsewhere. True when a listener cancels the operation.
bool announce_progress(const Announcement& announcement);

}  // namespace kovrel
