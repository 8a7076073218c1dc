// A thread-local pointer, null in a new thread. mingw emulates thread_local with an allocation at
// first use, which ends the process when memory has run out.
#pragma once

#include <windows.h>

#include <type_traits>

namespace kovrel {

template <class Value>
class ThreadSlot {
 public:
    [[nodiscard]] Value* get() noexcept { return static_cast<Value*>(TlsGetValue(slot())); }
    /// It stays null where the system has no slot left.
    void set(Value* value) noexcept {
        TlsSetValue(slot(), const_cast<std::remove_const_t<Value>*>(value));
    }

 private:
    /// Allocated at first use, when the library is already pinned.
    DWORD slot() noexcept {
        if (next_ == 0) {
            const DWORD taken = TlsAlloc();
            if (taken == TLS_OUT_OF_INDEXES) return taken;
            if (InterlockedCompareExchange(&next_, static_cast<LONG>(taken + 1), 0) != 0) {
                TlsFree(taken);
            }
        }
        return static_cast<DWORD>(next_) - 1;
    }

    volatile LONG next_ = 0;  // the slot's index plus 1; 0: not yet allocated
};

}  // namespace kovrel
