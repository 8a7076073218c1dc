// A window that everybody shares while anybody holds it: one for each thread, since a window
// belongs to the thread that made it.
#pragma once

#include <windows.h>

#include <map>
#include <memory>

namespace kovrel {

/// The system's lock for the length of a scope. The standard library's brings code with it that the
/// library does without.
class ScopedLock {
 public:
    explicit ScopedLock(SRWLOCK& lock) noexcept : lock_(lock) { AcquireSRWLockExclusive(&lock_); }
    ScopedLock(const ScopedLock&) = delete;
    ScopedLock& operator=(const ScopedLock&) = delete;
    ~ScopedLock() { ReleaseSRWLockExclusive(&lock_); }

 private:
    SRWLOCK& lock_;
};

template <class Form>
class SharedWindow {
 public:
    /// The thread's own; a new one when nobody holds it.
    [[nodiscard]] static std::shared_ptr<Form> get() {
        if (auto window = held()) return window;
        std::shared_ptr<Form> window(new Form, &forget);
        const ScopedLock lock(guard_);
        windows_[GetCurrentThreadId()] = window;
        return window;
    }

 private:
    static std::shared_ptr<Form> held() {
        const ScopedLock lock(guard_);
        const auto own = windows_.find(GetCurrentThreadId());
        return own == windows_.end() ? nullptr : own->second.lock();
    }

    /// Nothing of a window stays behind it.
    static void forget(Form* window) noexcept {
        {
            const ScopedLock lock(guard_);
            std::erase_if(windows_, [](const auto& entry) { return entry.second.expired(); });
        }
        delete window;
    }

    inline static SRWLOCK guard_ = SRWLOCK_INIT;
    inline static std::map<DWORD, std::weak_ptr<Form>> windows_;
};

}  // namespace kovrel
