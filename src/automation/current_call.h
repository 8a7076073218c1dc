// Which member the host has called: noted only while somebody wants to know, since it takes time.
#pragma once

#include <atomic>
#include <string>

#include "automation/class_info.h"

namespace kovrel {

/// While there is one, calls in all threads are noted. A call that had begun before is not known.
class CallWatch {
 public:
    CallWatch() noexcept;
    CallWatch(const CallWatch&) = delete;
    CallWatch& operator=(const CallWatch&) = delete;
    ~CallWatch();
};

/// A call from its beginning to its end.
class CurrentCall {
 public:
    CurrentCall(const ClassInfo& called, const MemberInfo& member) noexcept {
        if (watches_.load(std::memory_order_relaxed) != 0) [[unlikely]]
            begin(called, member);
    }
    CurrentCall(const CurrentCall&) = delete;
    CurrentCall& operator=(const CurrentCall&) = delete;
    ~CurrentCall() {
        if (member_ != nullptr) [[unlikely]]
            end();
    }

    /// "class.member" of the thread's innermost call; empty when it is not known.
    [[nodiscard]] static std::wstring name();
    /// Notes calls from now on, as a CallWatch does that never ends.
    static void watch_for_ever() noexcept { ++watches_; }

 private:
    friend class CallWatch;

    void begin(const ClassInfo& called, const MemberInfo& member) noexcept;
    void end() noexcept;

    static std::atomic<long> watches_;

    // Only the first is set in a call that is not noted.
    const MemberInfo* member_ = nullptr;
    const ClassInfo* class_;
    CurrentCall* outer_;
};

}  // namespace kovrel
