// The fixture of the tests of clsFFechas' calendar.
#pragma once

#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "runtime/calendar.h"
#include "tests/support/every_way.h"

namespace kovrel::test {

inline Variant whole(int number) {
    return Variant(static_cast<std::int16_t>(number));
}
inline Variant month_number(int number) {
    return Variant(static_cast<std::uint8_t>(number));
}
inline Variant date(int year, int month, int day) {
    return Variant(Date{static_cast<double>(day_count({year, month, day}))});
}
inline std::string shown_date(int year, int month, int day) {
    return shown(date(year, month, day));
}

class CalendarAnySettings : public testing::TestWithParam<Way> {
 protected:
    Answer call_for(const wchar_t* member, std::vector<Variant> arguments,
                    const std::vector<ExpectedBox>& boxes = {}) {
        return call_in(GetParam(), calendar_.get(), member, std::move(arguments), boxes);
    }

    std::string shown_for(const wchar_t* member, std::vector<Variant> arguments,
                          const std::vector<ExpectedBox>& boxes = {}) {
        const Answer answer = call_for(member, std::move(arguments), boxes);
        EXPECT_EQ(answer.result, S_OK);
        return shown(answer.value);
    }

    void expect_failure(const wchar_t* member, std::vector<Variant> arguments, int number,
                        const wchar_t* description, const std::vector<ExpectedBox>& boxes = {}) {
        const Answer answer = call_for(member, std::move(arguments), boxes);
        EXPECT_EQ(answer.result, failure(number)) << narrow(member);
        EXPECT_EQ(narrow(answer.description), narrow(description)) << narrow(member);
        EXPECT_EQ(narrow(answer.source), "Kovrel.clsFFechas") << narrow(member);
    }

    [[nodiscard]] bool writes_back() const { return GetParam() != Way::values; }

    ComPtr<IDispatch> calendar_ = create(L"Kovrel.clsFFechas");
    const std::string yes_ = shown(Variant(true));
    const std::string no_ = shown(Variant(false));
};

inline constexpr const wchar_t* mismatch = L"No coinciden los tipos";

}  // namespace kovrel::test
