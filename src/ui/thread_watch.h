// What is about to happen to the windows of a thread, whoever made them.
#pragma once

#include <windows.h>

namespace kovrel {

/// Is told of it from its construction to its end, both on the thread that it watches. The system
/// tells in the middle of its own work: all that may be done then is to note it, to post a message
/// or to change an owner.
class ThreadWatch {
 public:
    ThreadWatch(const ThreadWatch&) = delete;
    ThreadWatch& operator=(const ThreadWatch&) = delete;

 protected:
    ThreadWatch() noexcept;
    ~ThreadWatch();

 private:
    virtual void window_made(HWND /*window*/) noexcept {}
    virtual void window_activated(HWND /*window*/) noexcept {}
    /// The windows that it owns are still there.
    virtual void window_destroyed(HWND /*window*/) noexcept {}

    static LRESULT CALLBACK hook(int code, WPARAM wparam, LPARAM lparam);

    ThreadWatch* next_;
    ThreadWatch* previous_ = nullptr;
    HHOOK hook_ = nullptr;  ///< one watch of the thread holds it for all
};

}  // namespace kovrel
