// The date prompt for tests: its controls, and the fixture that asks for a date.
#pragma once

#include <windows.h>
#include <commctrl.h>

#include <functional>
#include <gtest/gtest.h>
#include <vector>

#include "runtime/calendar.h"
#include "tests/support/box_watcher.h"
#include "tests/support/late.h"

namespace kovrel::test {

inline constexpr const wchar_t* prompt_class = L"Kovrel.frmFECHA1";

inline const WindowQuery prompt{prompt_class, {}, 0};

inline HWND date_field(HWND window) {
    return find_control(window, DATETIMEPICK_CLASSW);
}
// The date field may contain buttons.
inline HWND accept_button(HWND window) {
    return find_control(window, 104);
}
inline void press_ok(HWND window) {
    PostMessageW(accept_button(window), BM_CLICK, 0, 0);
}

inline void set_field(HWND window, const SYSTEMTIME& value, WPARAM state = GDT_VALID) {
    EXPECT_NE(ask(date_field(window), DTM_SETSYSTEMTIME, state, reinterpret_cast<LPARAM>(&value)),
              0);
}

inline double day(int year, int month, int day_of_month) {
    return day_count({year, month, day_of_month});
}

inline double now_day() {
    SYSTEMTIME now{};
    GetLocalTime(&now);
    return day(now.wYear, now.wMonth, now.wDay);
}

class DatePrompt : public testing::Test {
 protected:
    double result_of(const Outcome& outcome) {
        EXPECT_EQ(outcome.result, S_OK);
        EXPECT_EQ(outcome.value.vt, VT_DATE);
        return outcome.value.date;
    }
    double ask_date(const std::function<void(HWND)>& work,
                    const std::vector<LateArgument>& arguments) {
        BoxWatcher windows({on_window(prompt, work)});
        return result_of(call(dates_.get(), L"PideFecha", arguments));
    }

    ComPtr<IDispatch> dates_ = create(L"Kovrel.clsFFechas");
};

// Activates the window and waits until its date field has the focus.
inline void come_to_front(HWND window) {
    EXPECT_TRUE(bring_to_front(window));
    EXPECT_TRUE(wait_until([&] { return focus_of(window) == date_field(window); }));
}

}  // namespace kovrel::test
