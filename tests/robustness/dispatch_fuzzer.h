// Calls members of the library at random, late-bound, and checks after every call what must hold
// whatever was asked: the answer is one of the documented ones, arguments that belong to the caller
// are untouched, variables stay variables, and nothing is kept.
#pragma once

#include <string>
#include <vector>

#include "tests/robustness/own_library.h"
#include "tests/robustness/rubbish.h"

namespace kovrel::test {

class DispatchFuzzer {
 public:
    explicit DispatchFuzzer(std::uint64_t seed);
    DispatchFuzzer(const DispatchFuzzer&) = delete;
    DispatchFuzzer& operator=(const DispatchFuzzer&) = delete;
    ~DispatchFuzzer();

    /// One call by the host, with the nested calls that its objects make.
    void call();
    /// Releases all instances and checks that no object or block is left.
    void release_all();

    [[nodiscard]] const std::vector<std::string>& problems() const noexcept { return problems_; }
    /// Nested calls.
    [[nodiscard]] long inner_calls() const noexcept { return inner_calls_; }
    [[nodiscard]] long succeeded() const noexcept { return succeeded_; }
    [[nodiscard]] long failed_inside() const noexcept { return failed_inside_; }

 private:
    struct Frame;
    struct Reply;

    void call_one(int depth);
    void choose_arguments(Frame& frame, const OwnMember& member, bool tame);
    void choose_names(Frame& frame, const OwnMember& member);
    WORD choose_flags(const OwnMember& member);
    void check(const Frame& frame, const Reply& reply, const std::string& what);
    void disturb();
    void problem(const std::string& what, const std::string& where);
    IDispatch* instance_of(std::size_t index);

    Rubbish rubbish_;
    std::vector<ComPtr<IDispatch>> instances_;  // one of each class, or null
    std::vector<Frame*> frames_;                // of the calls in progress
    std::vector<std::string> problems_;
    long inner_calls_ = 0;
    long succeeded_ = 0;
    long failed_inside_ = 0;
};

}  // namespace kovrel::test
