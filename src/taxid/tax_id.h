// Spanish tax identifiers: NIF (persons), NIE (foreign residents) and CIF (legal entities).
// Control letters of NIF and NIE by Real Decreto 1553/2005 and Orden INT/2058/2008 (number modulo
// 23), of CIF by Orden EHA/451/2008.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "runtime/notice.h"
#include "runtime/regional.h"

namespace kovrel {

/// What is wrong with an identifier, of which the message for the user is made when it is shown.
struct TaxIdFault {
    std::wstring_view text;  ///< of the message; a wrong letter and the right one go into it
    std::wstring_view title;
    NoticeStyle style;
    wchar_t typed = 0;
    wchar_t right = 0;  ///< 0 where the message is not about a letter

    bool operator==(const TaxIdFault&) const = default;
    [[nodiscard]] Notice notice() const;
};

/// The result of a verification: the corrected identifier (empty when rejected) and what was wrong,
/// if anything.
struct TaxIdVerdict {
    std::wstring result;
    std::optional<TaxIdFault> fault;

    bool operator==(const TaxIdVerdict&) const = default;
};

/// The text without "-", "/", blanks and ".". Failure 6 (overflow) from 32767 characters on: the
/// position is a 16-bit number.
[[nodiscard]] std::wstring strip_separators(std::wstring text);

/// The control letter of a number; a negative one counts modulo 23 as well.
[[nodiscard]] wchar_t nif_letter(std::int32_t number) noexcept;

/// The control of a CIF as a digit. Positions 2 to 8 of the text count; what is missing there or is
/// no digit counts as 0.
[[nodiscard]] unsigned cif_control_digit(std::wstring_view cif) noexcept;

/// The letter that stands for that digit, 0 to 9.
[[nodiscard]] wchar_t cif_control_letter(unsigned digit) noexcept;

/// The same control in its two forms: letter, " ó ", digit.
[[nodiscard]] std::wstring cif_control(std::wstring_view cif);

/// Verifies an identifier that is already in capitals and without separators. `typed_length` is the
/// number of characters that the user typed, separators included: a NIE with a wrong letter is cut
/// to one less than that, so one typed with separators keeps its wrong letter before the right one.
/// Only NIFs of nine characters are checked: those of any other length get the letter T.
/// Failure 13 (type mismatch) or 6 (overflow) when the digits of a NIF or NIE are no 32-bit number.
[[nodiscard]] TaxIdVerdict verify_normalized_tax_id(std::wstring working, std::size_t typed_length,
                                                    const Regional& regional);

/// Verifies an identifier as typed: in capitals, stripped, then as above.
[[nodiscard]] TaxIdVerdict verify_tax_id(std::wstring_view typed, const Regional& regional);

}  // namespace kovrel
