// Tax ids, their kinds, bank account codes and postal codes out of any text.
#include "runtime/failure.h"
#include "runtime/text.h"
#include "taxid/bank_account.h"
#include "taxid/tax_id.h"
#include "taxid/tax_id_kind.h"
#include "tests/fuzz/fuzz_text.h"
#include "tests/support/spanish_regional.h"
#include "validation/province.h"

namespace kovrel {
namespace {

bool is_conversion_failure(const Failure& failure) {
    return failure.number() == 13 || failure.number() == 6;
}

void check_tax_id(const std::wstring& text, const Regional& regional) {
    try {
        const auto verdict = verify_tax_id(text, regional);
        fuzz::require(!verdict.result.empty() || verdict.fault);
        fuzz::require(verdict.result.size() <= text.size() + 9);
        // What was accepted unchanged is accepted again.
        const bool kept = verdict.result == strip_separators(to_upper(text));
        if (kept && !verdict.fault) {
            fuzz::require(verify_tax_id(verdict.result, regional) == verdict);
        }
    } catch (const Failure& failure) {
        fuzz::require(is_conversion_failure(failure));
    }
}

void check_bank_account(const std::wstring& code) {
    const auto right = control_digits(bank_of(code), branch_of(code), account_of(code));
    fuzz::require(right.size() == 2);
    const bool differs = control_digits_of(code) != right;
    fuzz::require(bank_account_notice(code, right, false).has_value() == differs);
    fuzz::require(bank_account_notice(code, right, true).has_value() == differs);
}

void check_postal_code(const std::wstring& code, const Regional& regional) {
    const bool overlong = postal_code_notice(code).has_value();
    try {
        static_cast<void>(province_of(code, regional));
        fuzz::require(!overlong);
    } catch (const Failure& failure) {
        fuzz::require(overlong ? failure.number() == 6 : is_conversion_failure(failure));
    }
}

}  // namespace
}  // namespace kovrel

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace kovrel;
    const testing_support::SpanishRegional regional;
    const auto text = fuzz::Texts(data, size).until('\n');
    check_tax_id(text, regional);
    check_bank_account(text);
    check_postal_code(text, regional);
    fuzz::require(!tax_id_kind(text, regional).empty());
    return 0;
}
