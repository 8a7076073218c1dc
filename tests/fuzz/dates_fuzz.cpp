// Calendar functions with any month, year and date, and dates by any short date pattern.
#include <bit>
#include <cmath>
#include <initializer_list>

#include "dates/calendar_rules.h"
#include "runtime/failure.h"
#include "tests/fuzz/fuzz_text.h"
#include "tests/support/spanish_regional.h"

namespace kovrel {
namespace {

constexpr TwoDigitYearMax until_2029 = [] { return 2029; };

// Runs a rule that may fail with one of these numbers only.
template <class Rule>
void allow(std::initializer_list<std::int32_t> failures, Rule rule) {
    try {
        rule();
    } catch (const Failure& failure) {
        bool allowed = false;
        for (const std::int32_t number : failures) allowed = allowed || number == failure.number();
        fuzz::require(allowed);
    }
}

void check_months(std::int16_t month, std::int16_t year) {
    allow({5, 6}, [&] {
        const auto days = days_in_month(month, year, until_2029);
        fuzz::require(days >= 28 && days <= 31);
        allow({13}, [&] {
            const auto last = last_of_month({month, year}, days, until_2029);
            // An invalid month may be read in another order, or fail.
            if (month < 1 || month > 12) return;
            fuzz::require(civil_date(last).day == days);
            const auto weeks = week_of_month(last);
            fuzz::require(weeks >= 4 && weeks <= 6);
        });
    });
    allow({13, 6}, [&] {
        const auto before = month_before(static_cast<std::uint8_t>(month), year);
        static_cast<void>(first_of_month(before, until_2029));
    });
    allow({13}, [&] { fuzz::require(year_to_two_digits(year, until_2029).size() == 2); });
    if (two_digit_year_notice(year)) return;
    auto changed = year;
    allow({13}, [&] { fuzz::require(year_to_four_digits(changed, until_2029).size() == 4); });
    fuzz::require(changed == year + 2000);
}

void check_date(double date) {
    const testing_support::SpanishRegional regional;
    allow({5}, [&] {
        const auto week = week_of_month(date);
        fuzz::require(week >= 1 && week <= 6);
        fuzz::require(regional.short_date(day_of(date)).size() == 10);
    });
    // Compared to the second: a time just before midnight may be rounded into the next day.
    const double second = std::round(date * 86'400) / 86'400;
    allow({5, 6}, [&] {
        fuzz::require(weekday(day_of(monday_of(second))) == 1);
        fuzz::require(day_of(sunday_of(second)) == day_of(monday_of(second)) + 6);
        fuzz::require(week_caption(date, regional).starts_with(L"Semana del "));
    });
}

}  // namespace
}  // namespace kovrel

// Two bytes of month, two of year, eight of a date.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace kovrel;
    fuzz::Texts input(data, size);
    const auto number = [&input](int bytes) {
        std::uint64_t value = 0;
        for (int index = 0; index < bytes; ++index) value = value << 8U | input.byte();
        return value;
    };
    const auto month = static_cast<std::int16_t>(number(2));
    const auto year = static_cast<std::int16_t>(number(2));
    const auto date = std::bit_cast<double>(number(8));
    check_months(month, year);
    check_date(date);
    // The same bits scaled to the range of dates.
    if (std::isfinite(date)) check_date(std::fmod(date, 3'000'000));
    return 0;
}
