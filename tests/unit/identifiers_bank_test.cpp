// Bank accounts: CCC, IBAN, BIC and creditor identifier.
#include <gtest/gtest.h>
#include <map>

#include "identifiers/iban_registry.h"
#include "identifiers/identifier.h"
#include "tests/unit/identifiers_support.h"

namespace kovrel {
namespace {

using testing_support::corrected;
using testing_support::fault;
using testing_support::shown;

// The example that the registry gives for each of its countries, in the registry's order.
constexpr std::wstring_view registry_examples[] = {
    L"AD1200012030200359100100",
    L"AE070331234567890123456",
    L"AL47212110090000000235698741",
    L"AT611904300234573201",
    L"AZ21NABZ00000000137010001944",
    L"BA391290079401028494",
    L"BE68539007547034",
    L"BG80BNBG96611020345678",
    L"BH67BMAG00001299123456",
    L"BI4210000100010000332045181",
    L"BR1800360305000010009795493C1",
    L"BY13NBRB3600900000002Z00AB00",
    L"CH9300762011623852957",
    L"CR05015202001026284066",
    L"CY17002001280000001200527600",
    L"CZ6508000000192000145399",
    L"DE89370400440532013000",
    L"DJ2100010000000154000100186",
    L"DK5000400440116243",
    L"DO28BAGR00000001212453611324",
    L"EE382200221020145685",
    L"EG380019000500000000263180002",
    L"ES9121000418450200051332",
    L"FI2112345600000785",
    L"FK88SC123456789012",
    L"FO6264600001631634",
    L"FR1420041010050500013M02606",
    L"GB29NWBK60161331926819",
    L"GE29NB0000000101904917",
    L"GI75NWBK000000007099453",
    L"GL8964710001000206",
    L"GR1601101250000000012300695",
    L"GT82TRAJ01020000001210029690",
    L"HN88CABF00000000000250005469",
    L"HR1210010051863000160",
    L"HU42117730161111101800000000",
    L"IE29AIBK93115212345678",
    L"IL620108000000099999999",
    L"IQ98NBIQ850123456789012",
    L"IS140159260076545510730339",
    L"IT60X0542811101000000123456",
    L"JO94CBJO0010000000000131000302",
    L"KW81CBKU0000000000001234560101",
    L"KZ86125KZT5004100100",
    L"LB62099900000001001901229114",
    L"LC55HEMM000100010012001200023015",
    L"LI21088100002324013AA",
    L"LT121000011101001000",
    L"LU280019400644750000",
    L"LV80BANK0000435195001",
    L"LY83002048000020100120361",
    L"MC5811222000010123456789030",
    L"MD24AG000225100013104168",
    L"ME25505000012345678951",
    L"MK07250120000058984",
    L"MN121234123456789123",
    L"MR1300020001010000123456753",
    L"MT84MALT011000012345MTLCAST001S",
    L"MU17BOMM0101101030300200000MUR",
    L"NI45BAPR00000013000003558124",
    L"NL91ABNA0417164300",
    L"NO9386011117947",
    L"OM810180000001299123456",
    L"PK36SCBL0000001123456702",
    L"PL61109010140000071219812874",
    L"PS92PALS000000000400123456702",
    L"PT50000201231234567890154",
    L"QA58DOHB00001234567890ABCDEFG",
    L"RO49AAAA1B31007593840000",
    L"RS35260005601001611379",
    L"RU0304452522540817810538091310419",
    L"SA0380000000608010167519",
    L"SC18SSCB11010000000000001497USD",
    L"SD2129010501234001",
    L"SE4550000000058398257466",
    L"SI56263300012039086",
    L"SK3112000000198742637541",
    L"SM86U0322509800000000270100",
    L"SO211000001001000100141",
    L"ST23000100010051845310146",
    L"SV62CENR00000000000000700025",
    L"TL380080012345678910157",
    L"TN5910006035183598478831",
    L"TR330006100519786457841326",
    L"UA213223130000026007233566001",
    L"VA59001123000012345678",
    L"VG96VPVG0000012345678901",
    L"XK051212012345678906",
    L"YE15CBYE0001018861234567891234",
};

TEST(IbanRegistry, ItsExampleOfEachCountryIsRight) {
    ASSERT_EQ(iban_registry().size(), std::size(registry_examples));
    auto country = iban_registry().begin();
    for (const auto example : registry_examples) {
        EXPECT_EQ(country->country, example.substr(0, 2));
        EXPECT_EQ(country->length, example.size()) << shown(example);
        EXPECT_EQ(fault(Identifier::iban, example), IdentifierFault::none) << shown(example);
        EXPECT_EQ(identifier_kind(example), Identifier::iban) << shown(example);
        EXPECT_EQ(fault(Identifier::iban, std::wstring(example) + L"0"), IdentifierFault::length);
        EXPECT_EQ(fault(Identifier::iban, example.substr(0, example.size() - 1)),
                  IdentifierFault::length);
        ++country;
    }
}

// At each place a digit where the structure wants a letter, and the reverse, is a wrong character.
TEST(IbanRegistry, EveryPlaceOfAStructureIsChecked) {
    auto country = iban_registry().begin();
    for (const auto example : registry_examples) {
        std::wstring classes = L"aann";
        std::size_t count = 0;
        for (const char sign : country->structure) {
            if (sign >= '0' && sign <= '9') {
                count = count * 10 + static_cast<std::size_t>(sign - '0');
            } else if (sign != '!') {
                classes.append(count, static_cast<wchar_t>(sign));
                count = 0;
            }
        }
        ASSERT_EQ(classes.size(), example.size()) << shown(example);
        for (std::size_t place = 2; place < example.size(); ++place) {
            std::wstring text(example);
            text[place] = classes[place] == L'n' ? L'A' : L'1';
            const auto found = fault(Identifier::iban, text);
            if (classes[place] == L'c') {
                EXPECT_TRUE(found == IdentifierFault::none || found == IdentifierFault::control);
                text[place] = L'Q';
                EXPECT_NE(fault(Identifier::iban, text), IdentifierFault::characters)
                    << shown(text);
            } else {
                EXPECT_EQ(found, IdentifierFault::characters) << shown(text);
            }
        }
        ++country;
    }
}

TEST(Iban, Faults) {
    EXPECT_EQ(fault(Identifier::iban, L"ES9221000418450200051332"), IdentifierFault::control);
    EXPECT_EQ(fault(Identifier::iban, L"ES9121000418450200051323"), IdentifierFault::control);
    EXPECT_EQ(fault(Identifier::iban, L"GB29NWBK60161331926818"), IdentifierFault::control);
    EXPECT_EQ(fault(Identifier::iban, L"E"), IdentifierFault::length);
    EXPECT_EQ(fault(Identifier::iban, L"ES"), IdentifierFault::length);
    for (const auto* text : {L"US9121000418450200051332", L"21000418450200051332", L"1S91", L"E191",
                             L"AA9121000418450200051332", L"ZZ91", L"FR", L"EZ"}) {
        const bool is_known = std::wstring_view(text) == L"FR";
        EXPECT_EQ(fault(Identifier::iban, text),
                  is_known ? IdentifierFault::length : IdentifierFault::country)
            << shown(text);
    }
    EXPECT_EQ(fault(Identifier::iban, L"ESA121000418450200051332"), IdentifierFault::characters);
    EXPECT_EQ(fault(Identifier::iban, L"ES9A21000418450200051332"), IdentifierFault::characters);
}

// 97, 98 and 02 leave the remainder that 00, 01 and 99 leave, but only they are issued.
TEST(Iban, ControlsThatNothingIssuesAreWrong) {
    std::map<std::wstring, std::wstring> twins{{L"97", L"00"}, {L"98", L"01"}, {L"02", L"99"}};
    for (int number = 0; !twins.empty() && number < 10000; ++number) {
        const std::wstring account = std::to_wstring(100000000000000000 + number);
        const auto iban = corrected(Identifier::iban, L"DE00" + account);
        ASSERT_TRUE(iban) << account;
        const auto twin = twins.find(iban->substr(2, 2));
        if (twin == twins.end()) continue;
        EXPECT_EQ(fault(Identifier::iban, L"DE" + twin->second + account),
                  IdentifierFault::control);
        twins.erase(twin);
    }
    EXPECT_TRUE(twins.empty());
}

TEST(Iban, TheAccountInASpanishOneIsCheckedToo) {
    // Right by its own two controls around an account with a wrong digit.
    EXPECT_EQ(fault(Identifier::iban, L"ES6421000418450200051333"), IdentifierFault::inner_account);
    EXPECT_EQ(fault(Identifier::bank_account, L"21000418450200051333"), IdentifierFault::control);
    EXPECT_EQ(fault(Identifier::iban, L"ES8200000000000000000000"), IdentifierFault::inner_account);
}

TEST(Iban, TheWordInFrontDoesNotCount) {
    for (const auto* text :
         {L"IBAN ES91 2100 0418 4502 0005 1332", L"ibanES9121000418450200051332",
          L"I.B.A.N. es91-2100-0418-4502-0005-1332", L"IBAN IBAN ES9121000418450200051332"}) {
        EXPECT_EQ(fault(Identifier::iban, text), IdentifierFault::none) << shown(text);
        EXPECT_EQ(normalized_identifier(Identifier::iban, text), L"ES9121000418450200051332");
        EXPECT_EQ(formatted_identifier(Identifier::iban, text), L"ES91 2100 0418 4502 0005 1332");
        EXPECT_EQ(identifier_kind(text), Identifier::iban);
        EXPECT_EQ(account_of_iban(text), L"21000418450200051332");
    }
    EXPECT_EQ(fault(Identifier::iban, L"IBAN"), IdentifierFault::empty);
    std::wstring words;
    for (int i = 0; i < 16; ++i) words += L"IBAN";
    EXPECT_EQ(fault(Identifier::iban, words), IdentifierFault::empty);
    EXPECT_EQ(normalized_identifier(Identifier::iban, words), L"");
    EXPECT_EQ(fault(Identifier::iban, L"IBA"), IdentifierFault::country);
    EXPECT_EQ(fault(Identifier::iban, L"IBAN: ES91"), IdentifierFault::characters);
    EXPECT_EQ(normalized_identifier(Identifier::bic, L"IBAN 1"), L"IBAN1");
}

TEST(Iban, SpanishControlsAreCompletedOrMendedAroundARightAccount) {
    for (const auto* text : {L"ES0021000418450200051332", L"ES4721000418450200051332",
                             L"ES** 2100 0418 4502 0005 1332", L"ES21000418450200051332",
                             L"IBAN ES21000418450200051332"}) {
        EXPECT_EQ(corrected(Identifier::iban, text), L"ES9121000418450200051332") << shown(text);
    }
    for (const auto* text : {L"ES0021000418450200051333", L"ES2100041845020005133", L"ES",
                             L"21000418450200051332", L"ES*121000418450200051332", L"E", L"**"}) {
        EXPECT_EQ(corrected(Identifier::iban, text), std::nullopt) << shown(text);
    }
}

TEST(Iban, OthersAreCompletedOnlyWhereTheControlsAreLeftOpen) {
    EXPECT_EQ(corrected(Identifier::iban, L"GB00 NWBK 6016 1331 9268 19"),
              L"GB29NWBK60161331926819");
    EXPECT_EQ(corrected(Identifier::iban, L"GB**NWBK60161331926819"), L"GB29NWBK60161331926819");
    EXPECT_EQ(corrected(Identifier::iban, L"GB30NWBK60161331926819"), std::nullopt);
    EXPECT_EQ(corrected(Identifier::iban, L"GBNWBK60161331926819"), std::nullopt);
    EXPECT_EQ(corrected(Identifier::iban, L"GB00NWBK6016133192681"), std::nullopt);
    EXPECT_EQ(corrected(Identifier::iban, L"GB00NW1K60161331926819"), std::nullopt);
    EXPECT_EQ(corrected(Identifier::iban, L"US00NWBK60161331926819"), std::nullopt);
}

TEST(Iban, AndAccountGiveOneAnother) {
    EXPECT_EQ(iban_of_account(L"2100-0418-45-0200051332"), L"ES9121000418450200051332");
    EXPECT_EQ(iban_of_account(L"21000418460200051332"), std::nullopt);
    EXPECT_EQ(iban_of_account(L""), std::nullopt);
    EXPECT_EQ(iban_of_account(L"ES9121000418450200051332"), std::nullopt);
    EXPECT_EQ(account_of_iban(L"es91 2100 0418 4502 0005 1332"), L"21000418450200051332");
    EXPECT_EQ(account_of_iban(L"ES9221000418450200051332"), std::nullopt);
    EXPECT_EQ(account_of_iban(L"ES6421000418450200051333"), std::nullopt);
    EXPECT_EQ(account_of_iban(L"GB29NWBK60161331926819"), std::nullopt);
    EXPECT_EQ(account_of_iban(L""), std::nullopt);
}

TEST(BankAccountCode, FaultsAndMending) {
    EXPECT_EQ(fault(Identifier::bank_account, L"2100041845020005133"), IdentifierFault::length);
    EXPECT_EQ(fault(Identifier::bank_account, L"210004184502000513322"), IdentifierFault::length);
    EXPECT_EQ(fault(Identifier::bank_account, L"2100041845020005133A"),
              IdentifierFault::characters);
    EXPECT_EQ(fault(Identifier::bank_account, L"21000418550200051332"), IdentifierFault::control);
    EXPECT_EQ(fault(Identifier::bank_account, L"21000418440200051332"), IdentifierFault::control);
    EXPECT_EQ(fault(Identifier::bank_account, L"00000000000000000000"), IdentifierFault::value);
    EXPECT_EQ(fault(Identifier::bank_account, L"20770024003102575766"), IdentifierFault::none);
    // Only in the first four figures are zeros no bank.
    EXPECT_EQ(corrected(Identifier::bank_account, L"00010000000000000000"),
              L"00010000100000000000");
    for (const auto* text : {L"2100 0418 ** 0200051332", L"2100 0418 -- 0200051332",
                             L"210004180200051332", L"21000418000200051332"}) {
        EXPECT_EQ(corrected(Identifier::bank_account, text), L"21000418450200051332")
            << shown(text);
    }
    for (const auto* text : {L"21000418*50200051332", L"2100041845020005133", L"ABCD04180200051332",
                             L"**000418450200051332", L"000004180200051332", L"21000418**",
                             L"2100041845**0200051332"}) {
        EXPECT_EQ(corrected(Identifier::bank_account, text), std::nullopt) << shown(text);
    }
}

TEST(Bic, Faults) {
    EXPECT_EQ(fault(Identifier::bic, L"CAIXESB"), IdentifierFault::length);
    EXPECT_EQ(fault(Identifier::bic, L"CAIXESBBX"), IdentifierFault::length);
    EXPECT_EQ(fault(Identifier::bic, L"CAIXESBBXX"), IdentifierFault::length);
    EXPECT_EQ(fault(Identifier::bic, L"CAIXESBBXXXX"), IdentifierFault::length);
    EXPECT_EQ(fault(Identifier::bic, L"CAIX1SBB"), IdentifierFault::characters);
    EXPECT_EQ(fault(Identifier::bic, L"CAIXE1BB"), IdentifierFault::characters);
    EXPECT_EQ(fault(Identifier::bic, L"CAIXEXBB"), IdentifierFault::country);
    EXPECT_EQ(fault(Identifier::bic, L"CAIXAABB"), IdentifierFault::country);
    EXPECT_EQ(fault(Identifier::bic, L"CAIXZZBB"), IdentifierFault::country);
    EXPECT_EQ(fault(Identifier::bic, L"1A2BZW12345"), IdentifierFault::none);
    EXPECT_EQ(fault(Identifier::bic, L"NCBVXKPR"), IdentifierFault::none);
    EXPECT_EQ(corrected(Identifier::bic, L"caixes bb"), L"CAIXESBB");
    EXPECT_EQ(corrected(Identifier::bic, L"CAIXEXBB"), std::nullopt);
}

// ISO 3166-1 has 249 codes; XK is the banks' own.
TEST(Bic, KnowsAllCountries) {
    int count = 0;
    for (wchar_t first = L'A'; first <= L'Z'; ++first) {
        for (wchar_t second = L'A'; second <= L'Z'; ++second) {
            const std::wstring text = std::wstring(L"AAAA") + first + second + L"AA";
            if (fault(Identifier::bic, text) == IdentifierFault::none) ++count;
        }
    }
    EXPECT_EQ(count, 250);
    for (const auto& country : iban_registry()) {
        const std::wstring text = L"AAAA" + std::wstring(country.country) + L"AA";
        EXPECT_EQ(fault(Identifier::bic, text), IdentifierFault::none) << shown(country.country);
    }
}

TEST(Creditor, Faults) {
    EXPECT_EQ(fault(Identifier::creditor, L"DE98ZZZ"), IdentifierFault::length);
    EXPECT_EQ(fault(Identifier::creditor, L"DE98ZZZ" + std::wstring(29, L'1')),
              IdentifierFault::length);
    EXPECT_EQ(fault(Identifier::creditor, L"DE98ZZZ" + std::wstring(28, L'1')),
              IdentifierFault::control);
    EXPECT_EQ(fault(Identifier::creditor, L"DE98ZZZ09999999998"), IdentifierFault::control);
    EXPECT_EQ(fault(Identifier::creditor, L"DE9AZZZ09999999999"), IdentifierFault::characters);
    EXPECT_EQ(fault(Identifier::creditor, L"DEA8ZZZ09999999999"), IdentifierFault::characters);
    EXPECT_EQ(fault(Identifier::creditor, L"US98ZZZ09999999999"), IdentifierFault::country);
    EXPECT_EQ(fault(Identifier::creditor, L"DX98ZZZ09999999999"), IdentifierFault::country);
    EXPECT_EQ(fault(Identifier::creditor, L"12345678901234567890"), IdentifierFault::country);
    // The business code does not count.
    EXPECT_EQ(fault(Identifier::creditor, L"DE98A1209999999999"), IdentifierFault::none);
    // Spanish ones are checked to the end.
    EXPECT_EQ(fault(Identifier::creditor, L"ES11000B1234567"), IdentifierFault::length);
    EXPECT_EQ(fault(Identifier::creditor, L"ES97000B12345674"), IdentifierFault::control);
    const auto around = [](std::wstring_view nif) {
        for (int controls = 2; controls < 99; ++controls) {
            const std::wstring two = std::to_wstring(controls + 100).substr(1);
            const auto text = L"ES" + two + L"000" + std::wstring(nif);
            const auto found = fault(Identifier::creditor, text);
            if (found != IdentifierFault::control) return found;
        }
        return IdentifierFault::control;
    };
    EXPECT_EQ(around(L"B12345674"), IdentifierFault::none);
    EXPECT_EQ(around(L"B12345675"), IdentifierFault::control);
    EXPECT_EQ(around(L"I12345674"), IdentifierFault::first_letter);
    EXPECT_EQ(around(L"B1234A674"), IdentifierFault::characters);
}

TEST(Creditor, ControlsAreMendedAroundARightNifAndCompletedElsewhere) {
    EXPECT_EQ(corrected(Identifier::creditor, L"es97 000 b12345674"), L"ES11000B12345674");
    EXPECT_EQ(corrected(Identifier::creditor, L"ES00000B12345674"), L"ES11000B12345674");
    EXPECT_EQ(corrected(Identifier::creditor, L"ES00000B12345675"), std::nullopt);
    EXPECT_EQ(corrected(Identifier::creditor, L"DE00ZZZ09999999999"), L"DE98ZZZ09999999999");
    EXPECT_EQ(corrected(Identifier::creditor, L"DE97ZZZ09999999999"), std::nullopt);
    EXPECT_EQ(corrected(Identifier::creditor, L"ES"), std::nullopt);
    EXPECT_EQ(corrected(Identifier::creditor, L"DE00ZZZ"), std::nullopt);
}

}  // namespace
}  // namespace kovrel
