// clsFGen's keystroke filters and the province of a postal code, as hosts call them.
#include <gtest/gtest.h>

#include "tests/support/every_way.h"

namespace kovrel::test {
namespace {

class KeystrokesAnySettings : public testing::TestWithParam<Way> {
 protected:
    /// "key result" after the filter; a key passed by value stays as it was.
    std::string filtered(const wchar_t* member, int key, std::vector<Variant> options = {},
                         const std::vector<ExpectedBox>& boxes = {}) {
        options.insert(options.begin(), Variant(static_cast<std::int16_t>(key)));
        const Answer answer =
            call_in(GetParam(), general_.get(), member, std::move(options), boxes);
        EXPECT_EQ(answer.result, S_OK);
        EXPECT_EQ(answer.value.vt, VT_I2);
        key_ = answer.arguments.front().iVal;
        return std::to_string(key_) + ' ' + std::to_string(answer.value.iVal);
    }

    /// What `filtered` gives where the filter leaves `key` in the caller's variable.
    [[nodiscard]] std::string left(int given, int key, int result) const {
        return std::to_string(GetParam() == Way::values ? given : key) + ' ' +
               std::to_string(result);
    }

    std::string province(const wchar_t* code, const std::vector<ExpectedBox>& boxes = {}) {
        const Answer answer =
            call_in(GetParam(), general_.get(), L"ProvinciaDeCP", {Variant(code)}, boxes);
        EXPECT_EQ(answer.result, S_OK);
        return shown(answer.value);
    }

    ComPtr<IDispatch> general_ = create(L"Kovrel.clsFGen");
    int key_ = 0;
};

TEST_P(KeystrokesAnySettings, Numbers) {
    const BoxWatcher no_box;
    for (int key = 0; key <= 255; ++key) {
        const bool passes = (key >= '0' && key <= '9') || key == 8 || key == 9 || key == 27 ||
                            key == ',' || key == '.' || key == '-';
        EXPECT_EQ(filtered(L"Solo_Numero", key), left(key, passes ? key : 0, passes ? key : 0));
    }
}

TEST_P(KeystrokesAnySettings, NumbersWithOptions) {
    const Variant yes(true);
    const Variant no(false);
    EXPECT_EQ(filtered(L"Solo_Numero", '-', {yes}), left('-', 0, 0));
    EXPECT_EQ(filtered(L"Solo_Numero", '-', {no}), left('-', '-', '-'));
    EXPECT_EQ(filtered(L"Solo_Numero", '-', {no, yes}), left('-', '-', '-'));
    // The key is converted in the caller's variable only, not in the result.
    EXPECT_EQ(filtered(L"Solo_Numero", '.', {no, yes}), left('.', ',', '.'));
    EXPECT_EQ(filtered(L"Solo_Numero", '.', {yes, yes}), left('.', ',', '.'));
    EXPECT_EQ(filtered(L"Solo_Numero", ',', {no, yes}), left(',', ',', ','));
    EXPECT_EQ(filtered(L"Solo_Numero", '5', {yes, yes}), left('5', '5', '5'));
    EXPECT_EQ(filtered(L"Solo_Numero", 13, {yes, yes}), left(13, 0, 0));
}

TEST_P(KeystrokesAnySettings, Dates) {
    const BoxWatcher no_box;
    for (int key = 0; key <= 255; ++key) {
        const bool passes = (key >= '0' && key <= '9') || key == 8 || key == '/' || key == '-';
        EXPECT_EQ(filtered(L"Solo_Fecha", key), left(key, passes ? key : 0, passes ? key : 0));
    }
}

TEST_P(KeystrokesAnySettings, Capitals) {
    const BoxWatcher no_box;
    const auto capital = [&](int typed, int capital) {
        EXPECT_EQ(filtered(L"Convierte_May", typed), left(typed, capital, capital)) << typed;
    };
    capital('a', 'A');
    capital('Z', 'Z');
    capital('7', '7');
    capital(0xF1, 0xD1);  // ñ
    capital(0xE1, 0xC1);  // á
    capital(0xFC, 0xDC);  // ü
    capital(0xE7, 0xC7);  // ç
    capital(0x9A, 0x8A);  // š
    capital(0xFF, 0x9F);  // ÿ
    capital(0xDF, 0xDF);  // ß
    capital(0x80, 0x80);  // €
    capital(0x83, 0x83);  // ƒ: the code page lacks its capital
    for (int control = 0; control < 32; ++control) capital(control, control);
    capital(127, 127);
    // No letter becomes an ASCII character.
    for (int key = 128; key <= 255; ++key) {
        filtered(L"Convierte_May", key);
        const int once = GetParam() == Way::values ? key : key_;
        EXPECT_GE(once, 128) << key;
    }
}

TEST_P(KeystrokesAnySettings, CodesOutsideTheCodePageFail) {
    const auto box = [](const wchar_t* text) {
        return std::vector<ExpectedBox>{{text, 16, L"kovrel"}};
    };
    for (const int key : {-1, 256, 32767}) {
        // The result is assigned before the failure.
        EXPECT_EQ(filtered(L"Solo_Numero", key, {},
                           box(L"Error 5\r (Llamada a procedimiento o argumento no válidos) en "
                               L"procedimiento Solo_Numero del Módulo FGen.")),
                  left(key, key, key));
        EXPECT_EQ(filtered(L"Solo_Fecha", key, {},
                           box(L"Error 5\r (Llamada a procedimiento o argumento no válidos) en "
                               L"procedimiento Solo_Fecha del Módulo FGen.")),
                  left(key, key, key));
        EXPECT_EQ(filtered(L"Convierte_May", key, {},
                           box(L"Error 5\r (Llamada a procedimiento o argumento no válidos) en "
                               L"procedimiento Convierte_May del Módulo de clase clsFGen.")),
                  left(key, key, 0));
    }
}

TEST_P(KeystrokesAnySettings, Provinces) {
    EXPECT_EQ(province(L"28080"), "byte 28");
    EXPECT_EQ(province(L"08001"), "byte 8");
    EXPECT_EQ(province(L"8001"), "byte 8");
    EXPECT_EQ(province(L"1"), "byte 0");
    EXPECT_EQ(province(L"00000"), "byte 0");
    EXPECT_EQ(province(L"99999"), "byte 99");
    // Only the first two characters are read.
    EXPECT_EQ(province(L"46xyz"), "byte 46");
}

TEST_P(KeystrokesAnySettings, AnOverlongPostalCodeShowsTwoBoxes) {
    put(general_.get(), L"AppOrigen", Variant(L"Facturas"));
    EXPECT_EQ(province(L"280801",
                       {{L"Error en el Código Postal", 16, L"kovrel"},
                        {L"Error 6\r (Desbordamiento) en procedimiento ProvinciaDeCP del Módulo de "
                         L"clase clsFGen.",
                         16, L"kovrel"}}),
              "byte 0");
}

TEST_P(KeystrokesAnySettings, InvalidPostalCodesShowTheErrorBox) {
    const ExpectedBox mismatch{
        L"Error 13\r (No coinciden los tipos) en procedimiento ProvinciaDeCP "
        L"del Módulo de clase clsFGen.",
        16, L"kovrel"};
    const ExpectedBox overflow{
        L"Error 6\r (Desbordamiento) en procedimiento ProvinciaDeCP del "
        L"Módulo de clase clsFGen.",
        16, L"kovrel"};
    EXPECT_EQ(province(L"", {mismatch}), "byte 0");
    EXPECT_EQ(province(L"abc", {mismatch}), "byte 0");
    EXPECT_EQ(province(L"AB123", {mismatch}), "byte 0");
    EXPECT_EQ(province(L"9E9", {overflow}), "byte 0");
    EXPECT_EQ(province(L"-1234", {overflow}), "byte 0");
}

INSTANTIATE_TEST_SUITE_P(All, KeystrokesAnySettings, testing::ValuesIn(every_way));

TEST(KeystrokesOfScripts, AVariableOfAnotherTypeIsWrittenBackToo) {
    const auto general = create(L"Kovrel.clsFGen");
    Variant key(46);
    EXPECT_EQ(
        call(general.get(), L"Solo_Numero", {LateArgument::variable(key), false, true}).value.iVal,
        46);
    EXPECT_EQ(key.to_int32(), 44);
    std::int32_t typed = 0xF1;
    call(general.get(), L"Convierte_May", {LateArgument::variable(typed)});
    EXPECT_EQ(typed, 0xD1);
}

}  // namespace
}  // namespace kovrel::test
