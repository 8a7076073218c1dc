// A pointer for each thread, null in a new one: a table by thread numbers would not be, since they
// are used again.
#pragma once

#include <windows.h>

namespace kovrel {

template <class Value>
class ThreadSlot {
 public:
    [[nodiscard]] Value* get() noexcept { return static_cast<Value*>(TlsGetValue(slot())); }
    /// It stays null where the system has no slot left.
    void set(Value* value) noexcept { TlsSetValue(slot(), value); }

 private:
    /// Taken at the first use, by when the library stays loaded.
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

    volatile LONG next_ = 0;  // the slot's number and 1; 0: none yet
};

}  // namespace kovrel
