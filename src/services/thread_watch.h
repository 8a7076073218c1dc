// Notifications before any window of a thread is created, activated or destroyed.
#pragma once

#include <windows.h>

namespace kovrel {

/// Construct and destroy it on the watched thread. It is notified from inside the system's own
/// processing, where it may only record something, post a message or change an owner.
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
    /// The windows that it owns still exist.
    virtual void window_destroyed(HWND /*window*/) noexcept {}

    static LRESULT CALLBACK hook(int code, WPARAM wparam, LPARAM lparam);

    ThreadWatch* next_;
    ThreadWatch* previous_ = nullptr;
    HHOOK hook_ = nullptr;  ///< held by one of the thread's watches
};

}  // namespace kovrel
