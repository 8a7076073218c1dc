// Nobody sits at the screen: the boxes and dialogs that the library asks the system for are
// answered at once, its own windows are worked and closed from its own message loops, and its clock
// runs fast. All of it by replacing what the library imports, in this process alone.
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

    /// What a thread's boxes and windows are answered by.
    static void set_seed(std::uint64_t seed);
    /// From now on this thread's windows are closed before anything else happens to them.
    static void close_at_once();
    /// Boxes that would have been shown up to now, by all threads.
    static long boxes();
    /// The text of the last of them, or its beginning.
    static std::wstring last_box();
    /// Messages that the library's own modal windows have got from here, on all threads.
    static long window_steps();

    /// Runs within the library's next message loop on this thread, box or dialog, before anything
    /// is answered; once.
    static void on_next_event(std::function<void()> event);
    /// The folder that this thread's last folder browser was to begin at.
    static std::string browsed_from();

    /// Runs whenever the library looks for a message on this thread, and before a folder browser is
    /// told where to begin.
    static void on_every_look(std::function<void()> action);

 private:
    struct Patches;
    std::unique_ptr<Patches> patches_;
};

/// The library's windows that a thread has on the screen.
std::vector<HWND> own_windows();

}  // namespace kovrel::test
