#include "taxid/tax_id.h"

#include <algorithm>
#include <array>
#include <limits>
#include <utility>

#include "runtime/conversion.h"
#include "runtime/failure.h"
#include "runtime/text.h"

namespace kovrel {
namespace {

using namespace std::string_view_literals;

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

wchar_t digit_character(unsigned digit) noexcept {
    return static_cast<wchar_t>(L'0' + digit);
}

// The sum of the decimal digits of twice a digit.
int doubled(int digit) noexcept {
    constexpr std::wstring_view sums = L"0246813579";
    return sums[static_cast<std::size_t>(digit)] - L'0';
}

// What the user is told about a wrong letter; "?" stands for the typed and for the right one.
constexpr TaxIdFault nif_fault{
    L"La letra del N.I.F. '?' es incorrecta y será sustituida por la correcta: '?'"sv,
    L"Error en la letra del N.I.F."sv, NoticeStyle::exclamation};
constexpr TaxIdFault nie_fault{
    L"La letra del N.I.E. '?' es incorrecta y será sustituida por la correcta: '?'"sv,
    L"Error en la letra del N.I.E."sv, NoticeStyle::exclamation};

constexpr std::size_t typed_place = nif_fault.text.find(L'?');
constexpr std::size_t right_place = nif_fault.text.rfind(L'?');
static_assert(nie_fault.text.find(L'?') == typed_place &&
              nie_fault.text.rfind(L'?') == right_place);

TaxIdVerdict corrected(std::wstring&& result, TaxIdFault fault, wchar_t typed, wchar_t right) {
    fault.typed = typed;
    fault.right = right;
    return {std::move(result), fault};
}

TaxIdVerdict rejected(std::wstring_view reason) {
    return {{}, TaxIdFault{reason, L"ATENCIÓN"sv, NoticeStyle::critical}};
}

TaxIdVerdict verify_nif(std::wstring&& working, const Regional& regional) {
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
    return corrected(std::move(working), nif_fault, typed, right);
}

TaxIdVerdict verify_nie(std::wstring&& working, wchar_t first, std::size_t typed_length,
                        const Regional& regional) {
    const std::wstring_view text = working;
    const wchar_t typed = text.back();
    const auto length = text.size();
    const auto tail = length > nie_digits_and_letter ? length - nie_digits_and_letter : 0;
    const auto behind_letter = text.substr(tail, length - tail - 1);
    std::array<wchar_t, nie_digits_and_letter> digits{};
    digits.front() = static_cast<wchar_t>(L'0' + (first - L'X'));
    std::copy(behind_letter.begin(), behind_letter.end(), digits.begin() + 1);

    const wchar_t right = nif_letter(to_int32({digits.data(), 1 + behind_letter.size()}, regional));
    if (typed == right) return {std::move(working), std::nullopt};
    if (typed_length <= length) working.pop_back();
    working += right;
    return corrected(std::move(working), nie_fault, typed, right);
}

TaxIdVerdict verify_cif(std::wstring&& working) {
    if (working.size() < shortest_cif) return rejected(L"CIF incompleto, mínimo 8 carácteres."sv);
    if (cif_first_letters.find(working.front()) == std::wstring_view::npos) {
        return rejected(L"La Primera letra no corresponde a un CIF."sv);
    }
    const unsigned control = cif_control_digit(working);
    const wchar_t typed = working.back();
    if (typed == cif_control_letter(control) || typed == digit_character(control)) {
        return {std::move(working), std::nullopt};
    }
    return rejected(is_digit(typed) ? L"El último número no corresponde a un CIF correcto."sv
                                    : L"La última letra no corresponde a un CIF correcto."sv);
}

// In capitals and without separators. Short texts in ASCII, which have the same capitals under all
// settings, are read in one go, with room for what a short NIF is filled up with.
std::wstring normalized(std::wstring_view typed, const Regional& regional) {
    constexpr std::size_t longest = 16;
    if (typed.size() > longest) return strip_separators(regional.capitals(typed));
    std::wstring text(longest, L'\0');
    std::size_t length = 0;
    for (const wchar_t character : typed) {
        if (character >= 0x80) return strip_separators(regional.capitals(typed));
        if (!is_separator(character)) text[length++] = to_upper(character);
    }
    text.resize(length);
    return text;
}

}  // namespace

Notice TaxIdFault::notice() const {
    Notice notice{std::wstring(text), style, std::wstring(title)};
    if (right != 0) {
        notice.text[typed_place] = typed;
        notice.text[right_place] = right;
    }
    return notice;
}

std::wstring strip_separators(std::wstring text) {
    // The position is incremented once more behind the last character.
    constexpr auto last_position = std::numeric_limits<std::int16_t>::max();
    if (text.size() >= last_position) throw Failure(FailureNumber::overflow);
    std::erase_if(text, [](wchar_t character) { return is_separator(character); });
    return text;
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
    text.back() = digit_character(digit);
    return text;
}

TaxIdVerdict verify_normalized_tax_id(std::wstring working, std::size_t typed_length,
                                      const Regional& regional) {
    const wchar_t first = working.empty() ? L'\0' : working.front();
    if (is_digit(first)) return verify_nif(std::move(working), regional);
    if (first >= L'X' && first <= L'Z') {
        return verify_nie(std::move(working), first, typed_length, regional);
    }
    return verify_cif(std::move(working));
}

TaxIdVerdict verify_tax_id(std::wstring_view typed, const Regional& regional) {
    return verify_normalized_tax_id(normalized(typed, regional), typed.size(), regional);
}

}  // namespace kovrel
