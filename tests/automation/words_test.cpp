// clsFGen's amounts in Spanish words. To be independent of the user's settings, texts with decimals
// are first formatted with them.
#include <gtest/gtest.h>

#include "tests/support/every_way.h"
#include "tests/support/scripted_object.h"

namespace kovrel::test {
namespace {

/// A number formatted with the user's settings.
std::wstring in_settings(std::wstring text) {
    const bool comma = Variant(0.5).to_text() == L"0,5";
    if (!comma) std::replace(text.begin(), text.end(), L',', L'.');
    return text;
}

class WordsAnySettings : public testing::TestWithParam<Way> {
 protected:
    std::string euros(double amount) {
        return shown(call_for(L"ConvEurosALetra", {Variant(amount)}));
    }

    std::string words(const Variant& number, std::vector<Variant> more = {}) {
        more.insert(more.begin(), number);
        return shown(call_for(L"ConvNumeroALetra", std::move(more)));
    }

    Variant call_for(const wchar_t* member, std::vector<Variant> arguments) {
        const Answer answer = call_in(GetParam(), general_.get(), member, std::move(arguments));
        EXPECT_EQ(answer.result, S_OK);
        return answer.value;
    }

    ComPtr<IDispatch> general_ = create(L"Kovrel.clsFGen");
};

const std::vector<Variant> euro_names{Variant(L"Euro"), Variant(L"Euros"), Variant(L"Céntimo"),
                                      Variant(L"Céntimos")};

TEST_P(WordsAnySettings, Euros) {
    const BoxWatcher no_box;
    EXPECT_EQ(euros(12.5), "texto DOCE EUROS CON CINCUENTA CÉNTIMOS");
    EXPECT_EQ(euros(12), "texto DOCE EUROS");
    EXPECT_EQ(euros(1.01), "texto UN EURO CON UN CÉNTIMO");
    EXPECT_EQ(euros(21), "texto VEINTIUN EUROS");
    EXPECT_EQ(euros(2000), "texto DOS MIL  EUROS");
    EXPECT_EQ(euros(0), "texto CERO EUROS");
    EXPECT_EQ(euros(0.05), "texto CERO EUROS CON CINCO CÉNTIMOS");
    EXPECT_EQ(euros(1e6), "texto UN MILLÓN  EUROS");
    EXPECT_EQ(euros(123456.789),
              "texto CIENTO VEINTITRÉS MIL CUATROCIENTOS CINCUENTA Y SEIS EUROS CON SETENTA Y "
              "NUEVE CÉNTIMOS");
}

TEST_P(WordsAnySettings, NegativeEuros) {
    const BoxWatcher no_box;
    EXPECT_EQ(euros(-12), "texto MENOS DOCE EUROS");
    // The locale-independent reading stops at a decimal comma, but not at a point: it then reads
    // -12.75, which is rounded to -13.
    const bool comma = Variant(0.5).to_text() == L"0,5";
    EXPECT_EQ(euros(-12.75), comma ? "texto MENOS TRECE EUROS"
                                   : "texto MENOS MENOS TRECE EUROS CON SETENTA Y CINCO CÉNTIMOS");
}

TEST_P(WordsAnySettings, NumbersWithoutAUnit) {
    const BoxWatcher no_box;
    EXPECT_EQ(words(Variant(0)), "texto cero");
    EXPECT_EQ(words(Variant(1)), "texto uno");
    EXPECT_EQ(words(Variant(16)), "texto dieciséis");
    EXPECT_EQ(words(Variant(21)), "texto veintiuno");
    EXPECT_EQ(words(Variant(26)), "texto veintiseis");
    EXPECT_EQ(words(Variant(100)), "texto cien");
    EXPECT_EQ(words(Variant(1000)), "texto mil");
    EXPECT_EQ(words(Variant(1001)), "texto mil uno");
    EXPECT_EQ(words(Variant(1000000000)), "texto mil millones");
    EXPECT_EQ(words(Variant(1001000000)), "texto mil millones un millón");
    EXPECT_EQ(words(Variant(1500000000)), "texto mil quinientos millones");
    EXPECT_EQ(words(Variant(L"1005000000000")), "texto un billón cinco mil");
    EXPECT_EQ(words(Variant(-5)), "texto menos cinco");
    EXPECT_EQ(words(Variant(L"1" + std::wstring(24, L'0'))), "texto un cuatrillón");
    EXPECT_EQ(words(Variant(L"2003" + std::wstring(45, L'0'))), "texto dos octillonestres mil");
    EXPECT_EQ(words(Variant(std::wstring(124, L'1'))), "texto ?");
    EXPECT_EQ(words(Variant(std::wstring(123, L'0') + L"7")), "texto siete");
}

TEST_P(WordsAnySettings, TextsWithNumbers) {
    const BoxWatcher no_box;
    EXPECT_EQ(words(Variant(L"el 12 de mayo")), "texto el doce de mayo");
    EXPECT_EQ(words(Variant(L" dos  blancos 2 ")), "texto dos  blancos dos");
    EXPECT_EQ(words(Variant(L"")), "texto ");
    EXPECT_EQ(words(Variant()), "texto ");
    EXPECT_EQ(words(Variant(in_settings(L"3,5"))), "texto tres con cinco");
    EXPECT_EQ(words(Variant(in_settings(L"007,5"))), "texto siete con ocho");
    EXPECT_EQ(words(Variant(in_settings(L"3,50")), euro_names),
              "texto tres Euros con cincuenta Céntimos");
}

TEST_P(WordsAnySettings, UnitNamesAndModes) {
    const BoxWatcher no_box;
    const std::vector<Variant> plural_only{Variant(L""), Variant(L"duros")};
    EXPECT_EQ(words(Variant(1), plural_only), "texto uno");
    EXPECT_EQ(words(Variant(21), plural_only), "texto veintiuno duros");
    EXPECT_EQ(words(Variant(1001), plural_only), "texto mil un duros");
    EXPECT_EQ(words(Variant(1), {Variant(L"peseta"), Variant(L"pesetas")}), "texto un peseta");
    const auto in_mode = [&](const Variant& number, int mode) {
        std::vector<Variant> more = euro_names;
        more.emplace_back(mode);
        return words(number, more);
    };
    EXPECT_EQ(in_mode(Variant(2), 0), "texto dos Euros");
    EXPECT_EQ(in_mode(Variant(2), 1), "texto dos Euros");
    EXPECT_EQ(in_mode(Variant(-1), 1), "texto un Euro");
    EXPECT_EQ(in_mode(Variant(0), 1), "texto cero Euros");
    EXPECT_EQ(in_mode(Variant(2), 2), "texto dos");
    EXPECT_EQ(in_mode(Variant(0), 2), "texto ");
}

TEST_P(WordsAnySettings, MoreGroupsThanTheScaleHas) {
    const BoxWatcher no_box;
    const auto in_mode = [&](std::size_t digits, int mode) {
        std::vector<Variant> more = euro_names;
        more.emplace_back(mode);
        return words(Variant(std::wstring(digits, L'1')), more);
    };
    // Without unit names.
    for (const int mode : {1, 2}) {
        EXPECT_EQ(in_mode(124, mode), "texto ?");
        EXPECT_EQ(in_mode(1000, mode), "texto ?");
        EXPECT_NE(in_mode(123, mode), "texto ?");
    }
    EXPECT_EQ(in_mode(124, 0), "texto ?");
    EXPECT_EQ(words(Variant(L"van " + std::wstring(124, L'1') + L" euros")), "texto van ? euros");
}

TEST_P(WordsAnySettings, ObjectsAreReadByTheirDefaultValue) {
    const BoxWatcher no_box;
    const auto field = ScriptedObject::make();
    field->property(L"Value", Variant(21)).default_member(L"Value");
    const Variant number(ComPtr<IDispatch>(field.get()));
    EXPECT_EQ(words(number), "texto veintiuno");
    EXPECT_EQ(words(number, euro_names), "texto veintiun Euros");
    field->set_value(L"Value", Variant(L"el 12 de mayo"));
    EXPECT_EQ(words(number), "texto el doce de mayo");
    field->set_value(L"Value", Variant());
    EXPECT_EQ(words(number), "texto ");
}

TEST_P(WordsAnySettings, NamedLastArgument) {
    const BoxWatcher no_box;
    const Outcome outcome =
        invoke(general_.get(), L"ConvNumeroALetra", DISPATCH_METHOD,
               {LateArgument(7), LateArgument(L"gatos")}, {L"TipoCambioPlural"});
    EXPECT_EQ(text_of_result(outcome), L"siete gatos");
}

TEST_P(WordsAnySettings, AFailedNumberShowsTheErrorBoxAndLeavesAnEmptyPiece) {
    const ExpectedBox mismatch{
        L"Error 13\r (No coinciden los tipos) en procedimiento "
        L"ConvNumeroALetra del Módulo de clase clsFGen.",
        16, L"kovrel"};
    const Answer answer = call_in(GetParam(), general_.get(), L"ConvNumeroALetra",
                                  {Variant(L"vale (5) hoy")}, {mismatch});
    EXPECT_EQ(answer.result, S_OK);
    EXPECT_EQ(shown(answer.value), "texto vale menos  hoy");
    // One box for each failure; the rest is converted.
    const Answer twice = call_in(GetParam(), general_.get(), L"ConvNumeroALetra",
                                 {Variant(L"(5) y 7 y (8)")}, {mismatch, mismatch});
    EXPECT_EQ(shown(twice.value), "texto menos  y siete y menos");
}

TEST_P(WordsAnySettings, FailuresShowTheErrorBox) {
    const ExpectedBox null{
        L"Error 94\r (Uso no válido de Null) en procedimiento ConvNumeroALetra "
        L"del Módulo de clase clsFGen.",
        16, L"kovrel"};
    const Answer answer =
        call_in(GetParam(), general_.get(), L"ConvNumeroALetra", {Variant::null()}, {null});
    EXPECT_EQ(answer.result, S_OK);
    EXPECT_EQ(shown(answer.value), "texto ");
    const ExpectedBox mismatch{
        L"Error 13\r (No coinciden los tipos) en procedimiento "
        L"ConvNumeroALetra del Módulo de clase clsFGen.",
        16, L"kovrel"};
    // A text without a number in the mode that converts a single number.
    std::vector<Variant> arguments{Variant(L"abc")};
    arguments.insert(arguments.end(), euro_names.begin(), euro_names.end());
    arguments.emplace_back(2);
    EXPECT_EQ(
        shown(
            call_in(GetParam(), general_.get(), L"ConvNumeroALetra", arguments, {mismatch}).value),
        "texto ");
    const ExpectedBox overflow{
        L"Error 6\r (Desbordamiento) en procedimiento ConvEurosALetra del "
        L"Módulo de clase clsFGen.",
        16, L"kovrel"};
    EXPECT_EQ(shown(call_in(GetParam(), general_.get(), L"ConvEurosALetra",
                            {Variant(std::numeric_limits<double>::infinity())}, {overflow})
                        .value),
              "texto ");
}

/// Values whose text depends on the user's settings.
class Words : public WordsAnySettings {};

TEST_P(Words, DatesAndBooleansFollowTheUsersSettings) {
    const BoxWatcher no_box;
    EXPECT_EQ(words(Variant(Date{45366})), "texto 15/03/2024");
    EXPECT_EQ(words(Variant(Date{45366.75})), "texto 15/03/2024 18:00:00");
    EXPECT_EQ(words(Variant(true)), "texto Verdadero");
    EXPECT_EQ(words(Variant(false)), "texto Falso");
    EXPECT_EQ(words(Variant(true), euro_names), "texto Verdadero");
}

INSTANTIATE_TEST_SUITE_P(All, WordsAnySettings, testing::ValuesIn(every_way));
INSTANTIATE_TEST_SUITE_P(All, Words, testing::ValuesIn(every_way));

}  // namespace
}  // namespace kovrel::test
