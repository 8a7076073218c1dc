// Runs without a user: the library's boxes and system dialogs are answered at once, its windows are
// worked and closed from its own message loops, and its clock runs fast. Done by patching the
// library's imports in this process.
#pragma once

#include <windows.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace kovrel::test {

class Unattended {
 public:
    Unattended();
    Unattended(const Unattended&) = delete;
    Unattended& operator=(const Unattended&) = delete;
    ~Unattended();

    /// The seed of this thread's answers to boxes and windows.
    static void set_seed(std::uint64_t seed);
    /// From now on this thread's windows are closed at their first step.
    static void close_at_once();
    /// The number of boxes so far, of all threads.
    static long boxes();
    /// The (beginning of the) text of the last box.
    static std::wstring last_box();
    /// The number of actions on the library's modal windows, on all threads.
    static long window_steps();

    /// Runs once in the library's next message loop, box or dialog on this thread, before the
    /// answer.
    static void on_next_event(std::function<void()> event);
    /// The initial folder of this thread's last folder browser.
    static std::string browsed_from();

    /// Runs whenever the library peeks for a message on this thread, and before a folder browser
    /// gets its initial folder.
    static void on_every_look(std::function<void()> action);

 private:
    struct Patches;
    std::unique_ptr<Patches> patches_;
};

/// The library's visible windows of this thread.
std::vector<HWND> own_windows();

}  // namespace kovrel::test
