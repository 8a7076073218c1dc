#include "automation/current_call.h"

#include "automation/thread_slot.h"

namespace kovrel {
namespace {

constinit ThreadSlot<CurrentCall> innermost_call;

}  // namespace

constinit std::atomic<long> CurrentCall::watches_{0};

CallWatch::CallWatch() noexcept {
    ++CurrentCall::watches_;
}

CallWatch::~CallWatch() {
    --CurrentCall::watches_;
}

void CurrentCall::begin(const ClassInfo& called, const MemberInfo& member) noexcept {
    class_ = &called;
    member_ = &member;
    outer_ = innermost_call.get();
    innermost_call.set(this);
}

void CurrentCall::end() noexcept {
    innermost_call.set(outer_);
}

std::wstring CurrentCall::name() {
    const CurrentCall* const call = innermost_call.get();
    if (call == nullptr) return {};
    return std::wstring(call->class_->name) + L"." + call->member_->name;
}

}  // namespace kovrel
