// What the standard library throws reaches a host as one of the published failures.
#include <functional>
#include <gtest/gtest.h>
#include <new>
#include <string>
#include <vector>

#include "runtime/failure.h"

namespace kovrel {
namespace {

template <class Action>
std::int32_t failure_or_lack_of_memory(const Action& action) {
    try {
        action();
    } catch (const Failure& failure) {
        return failure.number();
    } catch (const std::bad_alloc&) {
        return static_cast<std::int32_t>(FailureNumber::out_of_memory);
    }
    return 0;
}

TEST(LanguageSupport, OutOfRangeIsAnInvalidArgument) {
    const std::wstring text(L"dos");
    const std::vector<int> numbers(2);
    const std::function<void()> nothing;
    EXPECT_EQ(failure_or_lack_of_memory([&] { (void)text.substr(4); }), 5);
    EXPECT_EQ(failure_or_lack_of_memory([&] { (void)text.at(4); }), 5);
    EXPECT_EQ(failure_or_lack_of_memory([&] { (void)numbers.at(4); }), 5);
    EXPECT_EQ(failure_or_lack_of_memory([&] { nothing(); }), 5);
}

TEST(LanguageSupport, LengthErrorIsOutOfMemory) {
    std::wstring text(L"dos");
    std::vector<int> numbers;
    EXPECT_EQ(failure_or_lack_of_memory([&] { numbers.reserve(numbers.max_size() + 1); }), 7);
    EXPECT_EQ(failure_or_lack_of_memory([&] { text.resize(text.max_size() + 1); }), 7);
}

}  // namespace
}  // namespace kovrel
