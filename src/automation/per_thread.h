// A value for each thread, since hosts of two apartments may be at the same work at once.
#pragma once

#include <windows.h>

#include <map>
#include <utility>

namespace kovrel {

template <class Value>
class PerThread {
 public:
    /// A copy of the calling thread's value; a default one where it has none.
    [[nodiscard]] Value get() {
        const Lock lock(guard_);
        const auto own = values_.find(GetCurrentThreadId());
        return own == values_.end() ? Value() : own->second;
    }
    void set(Value value) {
        const Lock lock(guard_);
        values_[GetCurrentThreadId()] = std::move(value);
    }
    void clear() noexcept {
        const Lock lock(guard_);
        values_.erase(GetCurrentThreadId());
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

    SRWLOCK guard_ = SRWLOCK_INIT;
    std::map<DWORD, Value> values_;
};

}  // namespace kovrel
