#include "taxid/tax_id.h"

#include <limits>
#include <utility>

#include "runtime/conversion.h"
#include "runtime/failure.h"
#include "runtime/text.h"

namespace kovrel {
namespace {

constexpr std::size_t full_length = 9;   // of a NIF or NIE with its letter
constexpr std::size_t shortest_cif = 8;  // without the control character
constexpr std::size_t nie_digits_and_letter = 8;
constexpr std::wstring_view cif_first_letters = L"ABCDEFGHJKLMNPQRSUVW";

constexpr bool is_separator(wchar_t character) noexcept {
    return character == L'-' || character == L'/' || character == L' ' || character == L'.';
}

// The value of the digit at a 1-based position.
int digit_at(std::wstring_view text, std::size_t position) noexcept {
    if (position > text.size() || !is_digit(text[position - 1])) return 0;
    return text[position - 1] - L'0';
}

// The sum of the decimal digits of twice a digit.
int doubled(int digit) noexcept {
    constexpr std::wstring_view sums = L"0246813579";
    return sums[static_cast<std::size_t>(digit)] - L'0';
}

Notice letter_notice(std::wstring_view kind, wchar_t typed, wchar_t right) {
    std::wstring text;
    text.reserve(96);
    text.append(L"La letra del ").append(kind).append(L" '");
    text.append(1, typed).append(L"' es incorrecta y será sustituida por la correcta: '");
    text.append(1, right).append(L"'");
    std::wstring title;
    title.reserve(32);
    title.append(L"Error en la letra del ").append(kind);
    return Notice{std::move(text), NoticeStyle::exclamation, std::move(title)};
}

TaxIdVerdict rejected(std::wstring_view reason) {
    return {L"", Notice{std::wstring(reason), NoticeStyle::critical, L"ATENCIÓN"}};
}

TaxIdVerdict verify_nif(std::wstring working, const Regional& regional) {
    const wchar_t typed = working.back();
    std::int32_t number = 0;
    if (working.size() == full_length) {
        number = to_int32(std::wstring_view(working).substr(0, full_length - 1), regional);
    } else if (working.size() < full_length) {
        if (is_digit(typed)) working += L'-';
        working = with_leading_zeros(std::move(working), full_length);
    }
    const wchar_t right = nif_letter(number);
    if (typed == right) return {std::move(working), std::nullopt};
    working.back() = right;
    return {std::move(working), letter_notice(L"N.I.F.", typed, right)};
}

TaxIdVerdict verify_nie(std::wstring working, std::size_t typed_length, const Regional& regional) {
    const wchar_t typed = working.back();
    const auto length = working.size();
    const auto tail = length > nie_digits_and_letter ? length - nie_digits_and_letter : 0;
    std::wstring digits(1, static_cast<wchar_t>(L'0' + (working.front() - L'X')));
    digits.append(working, tail, length - tail - 1);

    const wchar_t right = nif_letter(to_int32(digits, regional));
    if (typed == right) return {std::move(working), std::nullopt};
    if (typed_length <= length) working.pop_back();
    working += right;
    return {std::move(working), letter_notice(L"N.I.E.", typed, right)};
}

TaxIdVerdict verify_cif(std::wstring working) {
    if (working.size() < shortest_cif) return rejected(L"CIF incompleto, mínimo 8 carácteres.");
    if (cif_first_letters.find(working.front()) == std::wstring_view::npos) {
        return rejected(L"La Primera letra no corresponde a un CIF.");
    }
    const std::wstring control = cif_control(working);
    const wchar_t typed = working.back();
    if (typed == control.front() || typed == control.back()) {
        return {std::move(working), std::nullopt};
    }
    return rejected(is_digit(typed) ? L"El último número no corresponde a un CIF correcto."
                                    : L"La última letra no corresponde a un CIF correcto.");
}

}  // namespace

std::wstring strip_separators(std::wstring_view text) {
    // The position is incremented once more behind the last character.
    constexpr auto last_position = std::numeric_limits<std::int16_t>::max();
    if (text.size() >= last_position) throw Failure(FailureNumber::overflow);
    std::wstring stripped;
    stripped.reserve(text.size());
    for (const wchar_t character : text) {
        if (!is_separator(character)) stripped += character;
    }
    return stripped;
}

wchar_t nif_letter(std::int32_t number) noexcept {
    constexpr std::wstring_view letters = L"TRWAGMYFPDXBNJZSQVHLCKE";
    constexpr std::int32_t modulus = 23;
    static_assert(letters.size() == modulus);
    const std::int32_t remainder = number % modulus;
    return letters[static_cast<std::size_t>(remainder < 0 ? remainder + modulus : remainder)];
}

unsigned cif_control_digit(std::wstring_view cif) noexcept {
    int sum = doubled(digit_at(cif, 8));
    for (const std::size_t position : {2U, 4U, 6U}) {
        sum += doubled(digit_at(cif, position)) + digit_at(cif, position + 1);
    }
    return static_cast<unsigned>((10 - sum % 10) % 10);
}

wchar_t cif_control_letter(unsigned digit) noexcept {
    return std::wstring_view(L"JABCDEFGHI")[digit];
}

std::wstring cif_control(std::wstring_view cif) {
    const unsigned digit = cif_control_digit(cif);
    std::wstring text = L"J ó 0";
    text.front() = cif_control_letter(digit);
    text.back() = static_cast<wchar_t>(L'0' + digit);
    return text;
}

TaxIdVerdict verify_normalized_tax_id(std::wstring working, std::size_t typed_length,
                                      const Regional& regional) {
    const wchar_t first = working.empty() ? L'\0' : working.front();
    if (is_digit(first)) return verify_nif(std::move(working), regional);
    if (first >= L'X' && first <= L'Z') {
        return verify_nie(std::move(working), typed_length, regional);
    }
    return verify_cif(std::move(working));
}

TaxIdVerdict verify_tax_id(std::wstring_view typed, const Regional& regional) {
    return verify_normalized_tax_id(regional.capitals(strip_separators(typed)), typed.size(),
                                    regional);
}

}  // namespace kovrel
