// Number words of any text: always a result, whatever the text and the unit names.
#include "numbers/words.h"
#include "runtime/number_format.h"
#include "tests/fuzz/fuzz_text.h"
#include "tests/support/spanish_regional.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace kovrel;
    static const testing_support::SpanishRegional regional;
    int failures = 0;
    const WordsContext context{regional, [&failures](const Failure& failure) {
                                   fuzz::require(failure.number() == 6 || failure.number() == 13);
                                   ++failures;
                               }};
    fuzz::Texts texts(data, size);
    const auto text = texts.until('\n');
    const auto one = texts.until('\n');
    const auto other = texts.until('\n');
    const UnitNames unit{one, other};

    const auto words = text_in_words(text, unit, unit, context);
    fuzz::require(words.empty() || (words.front() != L' ' && words.back() != L' '));
    (void)number_in_words(text, unit, context);
    (void)group_in_words(text, unit, context);
    (void)format_number(text, patterns::two_decimals, regional);

    if (const auto value = regional.number(text)) {
        const auto amount = format_number(*value, patterns::two_decimals, L',');
        failures = 0;
        fuzz::require(!euros_in_words(*value, context).empty() && failures == 0);
        fuzz::require(regional.number(amount).has_value() || amount.size() > 300);
    }
    try {
        (void)number_to_text(leading_number(text), L',');
    } catch (const Failure& failure) {
        fuzz::require(failure.number() == 6);
    }
    return 0;
}
