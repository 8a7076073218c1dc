// A value for each thread, since hosts of two apartments may be at the same work at once. It is
// never destroyed: a host may still call when the library has been told of the end of the process.
#pragma once

#include <windows.h>

#include <utility>

namespace kovrel {

template <class Value>
class PerThread {
 public:
    /// A copy of the calling thread's value; a default one where it has none.
    [[nodiscard]] Value get() {
        const Lock lock(guard_);
        const Entry* const own = *find();
        return own == nullptr ? Value() : own->value;
    }
    void set(Value value) {
        const Lock lock(guard_);
        Entry*& own = *find();
        if (own == nullptr) own = new Entry{GetCurrentThreadId(), Value(), nullptr};
        own->value = std::move(value);
    }
    void clear() noexcept {
        const Lock lock(guard_);
        Entry*& own = *find();
        if (own != nullptr) delete std::exchange(own, own->next);
    }

 private:
    /// The system's lock: the standard library's brings code with it that the library does without.
    class Lock {
     public:
        explicit Lock(SRWLOCK& lock) noexcept : lock_(lock) { AcquireSRWLockExclusive(&lock_); }
        Lock(const Lock&) = delete;
        Lock& operator=(const Lock&) = delete;
        ~Lock() { ReleaseSRWLockExclusive(&lock_); }

     private:
        SRWLOCK& lock_;
    };

    struct Entry {
        DWORD thread;
        Value value;
        Entry* next;
    };

    /// Where the calling thread's entry hangs, or would.
    [[nodiscard]] Entry** find() noexcept {
        Entry** place = &first_;
        while (*place != nullptr && (*place)->thread != GetCurrentThreadId()) {
            place = &(*place)->next;
        }
        return place;
    }

    SRWLOCK guard_ = SRWLOCK_INIT;
    Entry* first_ = nullptr;
};

}  // namespace kovrel
