// Watches for the boxes and windows that a blocking call shows, reads and answers them from a
// second thread, and fails the test when they are not the ones announced. In a test:
//
//     BoxWatcher boxes({answer(IDOK)});
//     call();
//     ASSERT_EQ(boxes.seen().size(), 1u);
//     EXPECT_EQ(boxes.seen()[0].text, L"...");
#pragma once

#include <condition_variable>
#include <functional>
#include <mutex>
#include <set>
#include <string>
#include <thread>
#include <vector>

#include "tests/support/message_box.h"

namespace kovrel::test {

// What the test announces, in the order of appearance: a message box and its answer, or a window
// (by class, title or both) and what is done with it. The action runs on the watcher's thread and
// must lead to the window's closing.
struct Expectation {
    BoxAnswer box_answer;
    WindowQuery window;  // of the process watched; used when `action` is set
    std::function<void(HWND)> action;
};

Expectation answer(int button);
Expectation answer_key(WORD virtual_key);
Expectation on_window(WindowQuery window, std::function<void(HWND)> action);

class BoxWatcher {
 public:
    // Without expectations no box may appear. `limit` is how long to wait for an expected window,
    // and how long an unexpected one may stay open, before the test fails. `process` is whose
    // windows are watched, 0 being this process; for another one icon_probe.dll must lie beside the
    // test program.
    explicit BoxWatcher(std::vector<Expectation> expected = {}, Milliseconds limit = default_limit,
                        DWORD process = 0);

    // Fails the test for every announced box that did not appear and every one that was not
    // announced.
    ~BoxWatcher();

    BoxWatcher(const BoxWatcher&) = delete;
    BoxWatcher& operator=(const BoxWatcher&) = delete;

    // The boxes up to now. An unexpected box is here too: it is answered with its default button,
    // so that the call ends.
    std::vector<SeenBox> seen() const;

    // For windows that appear after the call: waits until everything announced has been dealt with.
    bool wait();

 private:
    void watch();
    bool look_once();
    bool handle_box(HWND window);
    bool handle_window(HWND window);
    void close_overdue(HWND window);
    void report(const std::wstring& problem);

    const std::vector<Expectation> expected_;
    const Milliseconds limit_;
    const DWORD process_;
    std::set<HWND> present_before_;
    std::set<HWND> handled_;
    std::chrono::steady_clock::time_point deadline_;
    mutable std::mutex mutex_;
    std::vector<SeenBox> seen_;
    std::vector<std::wstring> problems_;
    std::size_t done_ = 0;
    bool stop_ = false;
    std::condition_variable stopped_;
    std::thread thread_;
};

// UTF-8, for messages of failed tests.
std::string narrow(const std::wstring& text);

}  // namespace kovrel::test
