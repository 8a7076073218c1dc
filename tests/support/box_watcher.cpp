// Watches for the boxes and windows that a blocking call shows.
#include "tests/support/box_watcher.h"

#include <gtest/gtest.h>
#include <utility>

#include "services/text_encoding.h"

namespace kovrel::test {

Expectation answer(int button) {
    Expectation expectation;
    expectation.box_answer.button = button;
    return expectation;
}

Expectation answer_key(WORD virtual_key) {
    Expectation expectation;
    expectation.box_answer.key = virtual_key;
    return expectation;
}

Expectation on_window(WindowQuery window, std::function<void(HWND)> action) {
    Expectation expectation;
    expectation.window = std::move(window);
    expectation.action = std::move(action);
    return expectation;
}

std::string narrow(const std::wstring& text) {
    return to_utf8(text);
}

BoxWatcher::BoxWatcher(std::vector<Expectation> expected, Milliseconds limit, DWORD process)
    : expected_(std::move(expected)),
      limit_(limit),
      process_(process != 0 ? process : GetCurrentProcessId()),
      deadline_(std::chrono::steady_clock::now() + limit) {
    for (HWND window : top_level_windows({{}, {}, process_})) present_before_.insert(window);
    thread_ = std::thread([this] { watch(); });
}

BoxWatcher::~BoxWatcher() {
    {
        const std::lock_guard lock(mutex_);
        stop_ = true;
    }
    stopped_.notify_one();
    thread_.join();
    for (const std::wstring& problem : problems_) ADD_FAILURE() << narrow(problem);
    if (done_ < expected_.size()) {
        ADD_FAILURE() << expected_.size() << " boxes or windows were announced, " << done_
                      << " appeared";
    }
}

std::vector<SeenBox> BoxWatcher::seen() const {
    const std::lock_guard lock(mutex_);
    return seen_;
}

bool BoxWatcher::wait() {
    return pump_until(
        [this] {
            const std::lock_guard lock(mutex_);
            return done_ == expected_.size();
        },
        limit_);
}

void BoxWatcher::watch() {
    constexpr Milliseconds between_looks{5};
    for (bool met = false, stop = false; !stop;) {
        std::unique_lock lock(mutex_);
        stop = stopped_.wait_for(lock, met ? Milliseconds{0} : between_looks,
                                 [this] { return stop_; });
        lock.unlock();
        met = !stop && look_once();
        if (met) deadline_ = std::chrono::steady_clock::now() + limit_;
    }
}

bool BoxWatcher::look_once() {
    const bool overdue = std::chrono::steady_clock::now() >= deadline_;
    for (HWND window : top_level_windows({{}, {}, process_})) {
        if (present_before_.contains(window)) continue;
        if (handled_.contains(window)) continue;
        if (handle_box(window) || handle_window(window)) {
            // Handles of closed windows may be reused.
            std::erase_if(handled_, [](HWND old) { return !IsWindow(old); });
            return true;
        }
        if (overdue) {
            close_overdue(window);
            return true;
        }
    }
    return false;
}

bool BoxWatcher::handle_box(HWND window) {
    auto box = read_box(window);
    if (!box) return false;
    const bool announced = done_ < expected_.size() && !expected_[done_].action;
    const BoxAnswer how = announced ? expected_[done_].box_answer : BoxAnswer{};
    if (how.button != 0 && GetDlgItem(window, how.button) == nullptr) {
        report(L"the box has no button " + std::to_wstring(how.button) + L": " + as_line(*box));
        answer_box(window, *box, {});
    }
    std::size_t place = 0;
    {
        // Recorded before it closes, since the call may return before this thread goes on.
        const std::lock_guard lock(mutex_);
        box->pressed = how.button != 0 ? how.button : how.key != 0 ? 0 : box->default_button;
        seen_.push_back(*box);
        place = seen_.size();
        if (announced) ++done_;
    }
    if (!announced) {
        report(L"box " + std::to_wstring(place) + L" was not announced: " + as_line(*box));
    }
    if (IsWindow(window) && !answer_box(window, *box, how, limit_)) {
        report(L"the box does not close: " + as_line(*box));
        EndDialog(window, IDCANCEL);
    }
    if (IsWindow(window)) handled_.insert(window);
    return true;
}

bool BoxWatcher::handle_window(HWND window) {
    if (done_ >= expected_.size() || !expected_[done_].action) return false;
    const Expectation& expectation = expected_[done_];
    WindowQuery query = expectation.window;
    query.process = process_;
    const auto fitting = top_level_windows(query);
    if (std::find(fitting.begin(), fitting.end(), window) == fitting.end()) return false;
    handled_.insert(window);
    expectation.action(window);
    const std::lock_guard lock(mutex_);
    ++done_;
    return true;
}

void BoxWatcher::close_overdue(HWND window) {
    report(L"a window that nobody announced stayed open: " + class_of(window) + L" \"" +
           text_of(window) + L"\"");
    handled_.insert(window);
    PostMessageW(window, WM_CLOSE, 0, 0);
}

void BoxWatcher::report(const std::wstring& problem) {
    const std::lock_guard lock(mutex_);
    problems_.push_back(problem);
}

}  // namespace kovrel::test
