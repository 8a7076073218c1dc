#include "services/announcer.h"

#include <algorithm>
#include <atomic>
#include <deque>
#include <new>

#include "automation/current_call.h"
#include "services/clock.h"

namespace kovrel {
namespace {

constexpr std::size_t most_unheard = 1000;

struct Attached {
    DWORD thread;
    std::shared_ptr<Listener> listener;
};

struct Unheard {
    DWORD thread;
    std::shared_ptr<NotedAnnouncement> note;
};

/// Guards the two lists, which are never destroyed: a host may release an object of the library
/// while the process ends.
constinit SRWLOCK lock = SRWLOCK_INIT;
constinit std::vector<Attached>* attached = nullptr;
constinit std::deque<Unheard>* unheard = nullptr;
/// The number of all attached listeners: hardly any process has one.
constinit std::atomic<std::size_t> listeners{0};

class Locked {
 public:
    Locked() noexcept { AcquireSRWLockExclusive(&lock); }
    Locked(const Locked&) = delete;
    Locked& operator=(const Locked&) = delete;
    ~Locked() { ReleaseSRWLockExclusive(&lock); }
};

template <class List>
List& made(List*& list) {
    if (list == nullptr) list = new List;
    return *list;
}

/// The calling thread's youngest listener; null: none.
std::shared_ptr<Listener> youngest() noexcept {
    if (listeners == 0) return nullptr;
    const Locked locked;
    const auto found = std::find_if(
        attached->rbegin(), attached->rend(),
        [thread = GetCurrentThreadId()](const Attached& each) { return each.thread == thread; });
    return found != attached->rend() ? found->listener : nullptr;
}

bool read_desktop() noexcept {
    USEROBJECTFLAGS flags{};
    DWORD size = 0;
    // Where the system does not tell, there is one as in nearly every process.
    return GetUserObjectInformationW(GetProcessWindowStation(), UOI_FLAGS, &flags, sizeof flags,
                                     &size) == FALSE ||
           (flags.dwFlags & WSF_VISIBLE) != 0;
}

/// Keeps an announcement that is neither heard nor shown.
void keep(const Announcement& announcement, Answer answer) noexcept {
    try {
        Unheard entry{GetCurrentThreadId(), noted(announcement)};
        entry.note->answer = answer;
        const Locked locked;
        auto& list = made(unheard);
        list.push_back(std::move(entry));
        if (list.size() > most_unheard) list.pop_front();
    } catch (const std::bad_alloc&) {
        return;  // without a note
    }
}

}  // namespace

bool has_interactive_desktop() noexcept {
    static const bool has_one = read_desktop();
    return has_one;
}

void attach(const std::shared_ptr<Listener>& listener) {
    const Locked locked;
    made(attached).push_back({GetCurrentThreadId(), listener});
    ++listeners;
}

void detach(const Listener& listener) noexcept {
    std::shared_ptr<Listener> detached;  // released outside the lock
    const Locked locked;
    const auto found = std::find_if(attached->begin(), attached->end(), [&](const Attached& each) {
        return each.listener.get() == &listener;
    });
    if (found == attached->end()) return;
    detached = std::move(found->listener);
    attached->erase(found);
    --listeners;
}

std::shared_ptr<NotedAnnouncement> noted(const Announcement& announcement) {
    auto note = std::make_shared<NotedAnnouncement>();
    static_cast<Announcement&>(*note) = announcement;
    note->member = CurrentCall::name();
    note->time = now();
    return note;
}

std::vector<std::shared_ptr<NotedAnnouncement>> take_unheard() {
    const Locked locked;
    std::vector<std::shared_ptr<NotedAnnouncement>> taken;
    if (unheard == nullptr) return taken;
    const DWORD thread = GetCurrentThreadId();
    for (const Unheard& each : *unheard) {
        if (each.thread == thread) taken.push_back(each.note);
    }
    std::erase_if(*unheard, [thread](const Unheard& each) { return each.thread == thread; });
    return taken;
}

void prepare_for_nobody() noexcept {
    [[maybe_unused]] static const bool is_prepared = [] {
        if (!has_interactive_desktop()) CurrentCall::watch_for_ever();
        return true;
    }();
}

Announced announce(const Announcement& announcement, Answer (*show)(void*), void* context) {
    const auto listener = youngest();
    if (listener == nullptr) {
        if (has_interactive_desktop()) return {true, show(context)};
        const Answer answer = default_answer(announcement);
        keep(announcement, answer);
        return {false, answer};
    }
    const Listener::Reply reply = listener->hear(announcement);
    if (!reply.is_shown || !has_interactive_desktop()) return {false, reply.answer};
    const Answer answer = show(context);
    if (reply.note != nullptr) reply.note->answer = answer;
    return {true, answer};
}

bool announce_progress(const Announcement& announcement) {
    if (const auto listener = youngest()) return listener->hear_progress(announcement);
    if (!has_interactive_desktop()) keep(announcement, Answer::ok);
    return false;
}

}  // namespace kovrel
