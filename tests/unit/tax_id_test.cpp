#include "taxid/tax_id.h"

#include <gtest/gtest.h>
#include <limits>

#include "runtime/failure.h"
#include "tests/support/spanish_regional.h"

namespace kovrel {
namespace {

/// What the host gets and what the user is told.
struct Verified {
    std::wstring result;
    std::optional<Notice> notice;

    bool operator==(const Verified&) const = default;
};

Verified told(const TaxIdVerdict& verdict) {
    Verified verified{verdict.result, std::nullopt};
    if (verdict.fault) verified.notice = verdict.fault->notice();
    return verified;
}

Verified verify(std::wstring_view typed) {
    return told(verify_tax_id(typed, testing_support::SpanishRegional()));
}

Verified accepted(std::wstring_view result) {
    return {std::wstring(result), std::nullopt};
}

Verified corrected(std::wstring_view result, std::wstring_view kind, wchar_t typed) {
    const std::wstring right(1, result.back());
    return {std::wstring(result),
            Notice{L"La letra del " + std::wstring(kind) + L" '" + typed +
                       L"' es incorrecta y será sustituida por la correcta: '" + right + L"'",
                   NoticeStyle::exclamation, L"Error en la letra del " + std::wstring(kind)}};
}

Verified rejected(std::wstring_view reason) {
    return {L"", Notice{std::wstring(reason), NoticeStyle::critical, L"ATENCIÓN"}};
}

void expect_failure(std::wstring_view typed, FailureNumber number) {
    try {
        static_cast<void>(verify(typed));
        ADD_FAILURE() << "accepted";
    } catch (const Failure& failure) {
        EXPECT_EQ(failure.number(), static_cast<std::int32_t>(number));
    }
}

TEST(StripSeparators, RemovesTheFourSeparatorsOnly) {
    EXPECT_EQ(strip_separators(L"12.345.678-Z"), L"12345678Z");
    EXPECT_EQ(strip_separators(L" 12/34 56 .-/"), L"123456");
    EXPECT_EQ(strip_separators(L"a_b,c\td\x00A0"
                               L"e;f"),
              L"a_b,c\td\x00A0"
              L"e;f");
    EXPECT_EQ(strip_separators(L""), L"");
    EXPECT_EQ(strip_separators(L"-/ ."), L"");
}

TEST(StripSeparators, TextsOfMoreThan32766CharactersOverflow) {
    EXPECT_EQ(strip_separators(std::wstring(32766, L'-')), L"");
    for (const std::size_t length : {32767U, 32768U, 70000U}) {
        EXPECT_THROW(static_cast<void>(strip_separators(std::wstring(length, L'1'))), Failure);
    }
    expect_failure(std::wstring(40000, L'1'), FailureNumber::overflow);
}

TEST(NifLetter, FollowsTheTable) {
    constexpr std::wstring_view letters = L"TRWAGMYFPDXBNJZSQVHLCKE";
    for (std::int32_t number = 0; number < 46; ++number) {
        EXPECT_EQ(nif_letter(number), letters[static_cast<std::size_t>(number % 23)]) << number;
    }
    EXPECT_EQ(nif_letter(12345678), L'Z');
    EXPECT_EQ(nif_letter(2147483647), L'M');
}

TEST(NifLetter, ANegativeNumberHasARemainderFromZeroToTwentyTwo) {
    EXPECT_EQ(nif_letter(-1), L'E');
    EXPECT_EQ(nif_letter(-22), L'R');
    EXPECT_EQ(nif_letter(-23), L'T');
    EXPECT_EQ(nif_letter(-24), L'E');
    EXPECT_EQ(nif_letter(std::numeric_limits<std::int32_t>::min()), L'V');
}

TEST(CifControl, GivesLetterAndDigit) {
    EXPECT_EQ(cif_control(L"B1234567"), L"D ó 4");
    EXPECT_EQ(cif_control(L"B12345674"), L"D ó 4");
    EXPECT_EQ(cif_control(L"A28015865"), L"E ó 5");
    EXPECT_EQ(cif_control(L"A39000013"), L"C ó 3");
    EXPECT_EQ(cif_control(L"A48265169"), L"I ó 9");
    EXPECT_EQ(cif_control(L"A15075062"), L"B ó 2");
    EXPECT_EQ(cif_control(L"A0000000"), L"J ó 0");
}

TEST(CifControl, MissingDigitsAndOtherCharactersCountAsZero) {
    EXPECT_EQ(cif_control(L""), L"J ó 0");
    EXPECT_EQ(cif_control(L"B"), L"J ó 0");
    EXPECT_EQ(cif_control(L"B1"), L"H ó 8");
    EXPECT_EQ(cif_control(L"B1X345Ñ7Z"), cif_control(L"B10345070"));
}

TEST(VerifyNif, AcceptsTheRightLetterHoweverItIsTyped) {
    for (const auto* typed : {L"12345678Z", L"12345678z", L"12.345.678-Z", L"12 345 678 Z",
                              L"12.345.678/z", L" 12345678Z "}) {
        EXPECT_EQ(verify(typed), accepted(L"12345678Z")) << typed;
    }
    EXPECT_EQ(verify(L"00000000T"), accepted(L"00000000T"));
}

TEST(VerifyNif, ReplacesAWrongLetterAndSaysSo) {
    const auto verdict = verify(L"12345678A");
    EXPECT_EQ(verdict.result, L"12345678Z");
    ASSERT_TRUE(verdict.notice);
    EXPECT_EQ(verdict.notice->text,
              L"La letra del N.I.F. 'A' es incorrecta y será sustituida por la correcta: 'Z'");
    EXPECT_EQ(verdict.notice->style, NoticeStyle::exclamation);
    EXPECT_EQ(verdict.notice->title, L"Error en la letra del N.I.F.");
    EXPECT_EQ(verify(L"12345678ñ"), corrected(L"12345678Z", L"N.I.F.", L'Ñ'));
    EXPECT_EQ(verify(L"123456789"), corrected(L"12345678Z", L"N.I.F.", L'9'));
}

TEST(VerifyNif, AnyOtherLengthGetsTheLetterT) {
    EXPECT_EQ(verify(L"12345678"), corrected(L"12345678T", L"N.I.F.", L'8'));
    EXPECT_EQ(verify(L"1234567L"), corrected(L"01234567T", L"N.I.F.", L'L'));
    EXPECT_EQ(verify(L"1234567t"), accepted(L"01234567T"));
    EXPECT_EQ(verify(L"0"), corrected(L"00000000T", L"N.I.F.", L'0'));
    EXPECT_EQ(verify(L"1T"), accepted(L"00000001T"));
    EXPECT_EQ(verify(L"1,"), corrected(L"00000001T", L"N.I.F.", L','));
    EXPECT_EQ(verify(L"1234567890"), corrected(L"123456789T", L"N.I.F.", L'0'));
    EXPECT_EQ(verify(L"123456789T"), accepted(L"123456789T"));
    EXPECT_EQ(verify(L"1 no es un NIF"), corrected(L"1NOESUNNIT", L"N.I.F.", L'F'));
}

TEST(VerifyNif, FailsWhenItsDigitsAreNotANumber) {
    expect_failure(L"1234X678Z", FailureNumber::type_mismatch);
    expect_failure(L"1,2,3456Z", FailureNumber::type_mismatch);
    expect_failure(L"1ÑÑÑÑÑÑÑÑ", FailureNumber::type_mismatch);
}

TEST(VerifyNif, ReadsItsDigitsByTheSettings) {
    // Halves are rounded to even.
    EXPECT_EQ(verify(std::wstring(L"123456,5") + nif_letter(123456)),
              accepted(std::wstring(L"123456,5") + nif_letter(123456)));
    EXPECT_EQ(verify(std::wstring(L"123457,5") + nif_letter(123458)),
              accepted(std::wstring(L"123457,5") + nif_letter(123458)));
}

TEST(VerifyNie, CountsTheFirstLetterAsADigit) {
    EXPECT_EQ(nif_letter(1234567), L'L');
    EXPECT_EQ(nif_letter(11234567), L'X');
    EXPECT_EQ(nif_letter(21234567), L'R');
    EXPECT_EQ(verify(L"X1234567L"), accepted(L"X1234567L"));
    EXPECT_EQ(verify(L"y1234567x"), accepted(L"Y1234567X"));
    EXPECT_EQ(verify(L"Z-1234567-R"), accepted(L"Z1234567R"));
    EXPECT_EQ(verify(L"Y1234567L"), corrected(L"Y1234567X", L"N.I.E.", L'L'));
}

TEST(VerifyNie, UsesTheLengthAsTyped) {
    EXPECT_EQ(verify(L"X1234567A"), corrected(L"X1234567L", L"N.I.E.", L'A'));
    EXPECT_EQ(verify(L"X-1234567-A"), corrected(L"X1234567AL", L"N.I.E.", L'A'));
    EXPECT_EQ(verify(L"X1234567-A"), corrected(L"X1234567AL", L"N.I.E.", L'A'));
}

TEST(VerifyNie, UsesTheLastEightCharactersOfALongerOne) {
    EXPECT_EQ(verify(std::wstring(L"X12345678") + nif_letter(2345678)),
              accepted(std::wstring(L"X12345678") + nif_letter(2345678)));
    EXPECT_EQ(verify(L"ZZZ1234567R"), accepted(L"ZZZ1234567R"));
}

TEST(VerifyNie, AShorterOneFailsToConvert) {
    expect_failure(L"X123456L", FailureNumber::type_mismatch);
    expect_failure(L"X1", FailureNumber::type_mismatch);
    expect_failure(L"XABCDEFGH", FailureNumber::type_mismatch);
    // Only the first letter, which is read as its digit.
    EXPECT_EQ(verify(L"X"), corrected(L"T", L"N.I.E.", L'X'));
    EXPECT_EQ(verify(L"y"), corrected(L"R", L"N.I.E.", L'Y'));
    EXPECT_EQ(verify(L"Z-"), corrected(L"ZW", L"N.I.E.", L'Z'));
}

TEST(VerifyCif, AcceptsTheDigitOrTheLetter) {
    for (const auto* cif : {L"B12345674", L"B1234567D", L"A28015865", L"A39000013", L"A48265169",
                            L"A15075062", L"A00000000", L"A0000000J"}) {
        EXPECT_EQ(verify(cif), accepted(cif)) << cif;
    }
    EXPECT_EQ(verify(L"b-12.345.674"), accepted(L"B12345674"));
}

TEST(VerifyCif, NeverCorrects) {
    EXPECT_EQ(verify(L"B12345675"),
              rejected(L"El último número no corresponde a un CIF correcto."));
    EXPECT_EQ(verify(L"B1234567E"), rejected(L"La última letra no corresponde a un CIF correcto."));
    EXPECT_EQ(verify(L"B1234567ó"), rejected(L"La última letra no corresponde a un CIF correcto."));
}

TEST(VerifyCif, NeedsEightCharacters) {
    const auto incomplete = rejected(L"CIF incompleto, mínimo 8 carácteres.");
    EXPECT_EQ(verify(L""), incomplete);
    EXPECT_EQ(verify(L" -./ "), incomplete);
    EXPECT_EQ(verify(L"B123456"), incomplete);
    EXPECT_EQ(verify(L"I123456"), incomplete);
}

TEST(VerifyCif, OfEightCharactersEndsInTheEighth) {
    EXPECT_EQ(verify(L"A0000000"), accepted(L"A0000000"));
    EXPECT_EQ(verify(L"B1234567"), rejected(L"El último número no corresponde a un CIF correcto."));
}

TEST(VerifyCif, ALongerOneIsVerifiedByItsLastCharacter) {
    EXPECT_EQ(verify(L"B1234567XXXD"), accepted(L"B1234567XXXD"));
}

TEST(VerifyCif, NeedsAKnownFirstLetter) {
    for (const wchar_t first : std::wstring_view(L"IOTÑÁ_&,(+*[\u4E00")) {
        EXPECT_EQ(verify(std::wstring(1, first) + L"12345674"),
                  rejected(L"La Primera letra no corresponde a un CIF."));
    }
    for (const wchar_t first : std::wstring_view(L"ABCDEFGHJKLMNPQRSUVW")) {
        const std::wstring cif = std::wstring(1, first) + L"12345674";
        EXPECT_EQ(verify(cif), accepted(cif));
    }
}

TEST(VerifyNormalized, DoesNotNormalizeTheText) {
    EXPECT_EQ(told(verify_normalized_tax_id(L"12345678z", 9, testing_support::SpanishRegional())),
              corrected(L"12345678Z", L"N.I.F.", L'z'));
}

TEST(VerifyTaxId, EveryNumberTakesExactlyOneLetter) {
    for (std::int32_t number = 0; number < 100'000'000; number += 12'347) {
        std::wstring digits = std::to_wstring(number);
        digits.insert(0, 8 - digits.size(), L'0');
        int count = 0;
        for (wchar_t letter = L'A'; letter <= L'Z'; ++letter) {
            const auto verdict = verify(digits + letter);
            count += verdict.notice ? 0 : 1;
            ASSERT_TRUE(verify(verdict.result) == accepted(verdict.result));
        }
        ASSERT_EQ(count, 1) << number;
    }
}

}  // namespace
}  // namespace kovrel
