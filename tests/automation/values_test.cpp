// clsFGen's value helpers: substitutes, booleans as numbers, waits and rounded amounts.
#include <gtest/gtest.h>
#include <limits>

#include "tests/support/every_way.h"

namespace kovrel::test {
namespace {

class Values : public testing::TestWithParam<Way> {
 protected:
    Answer call_for(const wchar_t* member, std::vector<Variant> arguments,
                    const std::vector<ExpectedBox>& boxes = {}) {
        Answer answer = call_in(GetParam(), general_.get(), member, std::move(arguments), boxes);
        EXPECT_EQ(answer.result, S_OK);
        return answer;
    }

    std::string shown_for(const wchar_t* member, std::vector<Variant> arguments,
                          const std::vector<ExpectedBox>& boxes = {}) {
        return shown(call_for(member, std::move(arguments), boxes).value);
    }

    ComPtr<IDispatch> general_ = create(L"Kovrel.clsFGen");
};

Variant error_value() {
    Variant value;
    value.vt = VT_ERROR;
    value.scode = static_cast<SCODE>(0x800A0005);
    return value;
}

Variant array_of(const wchar_t* text) {
    Variant array;
    array.vt = VT_ARRAY | VT_BSTR;
    array.parray = SafeArrayCreateVector(VT_BSTR, 0, 1);
    LONG index = 0;
    SafeArrayPutElement(array.parray, &index, Bstr(text).get());
    return array;
}

TEST_P(Values, NzReplacesNullEmptyAndMissing) {
    EXPECT_EQ(shown_for(L"Nz", {Variant::null()}), "entero16 0");
    EXPECT_EQ(shown_for(L"Nz", {Variant()}), "entero16 0");
    EXPECT_EQ(shown_for(L"Nz", {error_value()}), "entero16 0");
    EXPECT_EQ(shown_for(L"Nz", {Variant::missing()}), "entero16 0");
    EXPECT_EQ(shown_for(L"Nz", {Variant::null(), Variant(L"nada")}), "texto nada");
    EXPECT_EQ(shown_for(L"Nz", {Variant(), Variant::null()}), "nulo");
    EXPECT_EQ(shown_for(L"Nz", {error_value(), Variant(2.5)}), shown(Variant(2.5)));
}

TEST_P(Values, NzReturnsAnyOtherValueUnchanged) {
    EXPECT_EQ(shown_for(L"Nz", {Variant(L"")}), "texto ");
    EXPECT_EQ(shown_for(L"Nz", {Variant(L""), Variant(L"nada")}), "texto ");
    EXPECT_EQ(shown_for(L"Nz", {Variant(false), Variant(7)}), shown(Variant(false)));
    EXPECT_EQ(shown_for(L"Nz", {Variant(0), Variant(7)}), "entero32 0");
    EXPECT_EQ(shown_for(L"Nz", {Variant(Date{45366.5}), Variant(7)}),
              shown(Variant(Date{45366.5})));
    const Variant object(create(L"Kovrel.clsFZip"));
    EXPECT_EQ(call_for(L"Nz", {object}).value.pdispVal, object.pdispVal);
    const Answer array = call_for(L"Nz", {array_of(L"uno")});
    EXPECT_EQ(array.value.vt, VT_ARRAY | VT_BSTR);
}

TEST_P(Values, NzLeavesTheCallersVariablesUnchanged) {
    const Answer answer = call_for(L"Nz", {Variant::null(), Variant(L"nada")});
    EXPECT_EQ(shown(answer.arguments[0]), "nulo");
    EXPECT_EQ(shown(answer.arguments[1]), "texto nada");
}

TEST_P(Values, BooleansAsNumbers) {
    const auto number = [&](const Variant& value) { return shown_for(L"CBolNum", {value}); };
    for (const Variant& zero :
         {Variant(false), Variant(), Variant(0), Variant(0.4), Variant(0.5), Variant(-0.5),
          Variant(L"0"), Variant(L" 0 "), Variant(L"000"), Variant(std::uint8_t{0})}) {
        EXPECT_EQ(number(zero), "entero16 0") << shown(zero);
    }
    for (const Variant& one :
         {Variant(true), Variant(-1), Variant(1), Variant(0.6), Variant(L"1"), Variant(L"-3"),
          Variant(L"Verdadero"), Variant(L"Falso"), Variant(L"True"), Variant(L"False"),
          Variant(L""), Variant(L"no"), Variant::null(), error_value(), Variant(Date{0})}) {
        EXPECT_EQ(number(one), "entero16 1") << shown(one);
    }
}

TEST_P(Values, BooleansOfTextsRoundAsNumbersDo) {
    const std::wstring zero = shown(Variant(0.5)) == "doble 0,5" ? L"0," : L"0.";
    EXPECT_EQ(shown_for(L"CBolNum", {Variant(zero + L"4")}), "entero16 0");
    EXPECT_EQ(shown_for(L"CBolNum", {Variant(zero + L"5")}), "entero16 0");
    EXPECT_EQ(shown_for(L"CBolNum", {Variant(zero + L"51")}), "entero16 1");
}

TEST_P(Values, ArraysAndNumbersTooLargeCountAsTrueAfterTheErrorBox) {
    EXPECT_EQ(
        shown_for(L"CBolNum", {array_of(L"Falso")},
                  {{L"Error 13\r (No coinciden los tipos) en procedimiento CBolNum del Módulo "
                    L"de clase clsFGen.",
                    16, L"kovrel"}}),
        "entero16 1");
    for (const Variant& large : {Variant(3e9), Variant(L"99999999999")}) {
        EXPECT_EQ(shown_for(L"CBolNum", {large},
                            {{L"Error 6\r (Desbordamiento) en procedimiento CBolNum del Módulo de "
                              L"clase clsFGen.",
                              16, L"kovrel"}}),
                  "entero16 1");
    }
}

/// Replaces "," with the user's decimal separator.
std::string in_settings(std::string text) {
    const bool comma = shown(Variant(0.5)) == "doble 0,5";
    if (!comma) std::replace(text.begin(), text.end(), ',', '.');
    return text;
}

TEST_P(Values, RoundedAmounts) {
    const auto two = [&](const Variant& value) { return shown_for(L"redondeoa2", {value}); };
    EXPECT_EQ(two(Variant(3)), in_settings("texto 3,00"));
    EXPECT_EQ(two(Variant(1234.5)), in_settings("texto 1234,50"));
    EXPECT_EQ(two(Variant(1.005)), in_settings("texto 1,01"));
    EXPECT_EQ(two(Variant(-0.456)), in_settings("texto -0,46"));
    EXPECT_EQ(two(Variant(0.5)), in_settings("texto 0,50"));
    EXPECT_EQ(two(Variant()), in_settings("texto 0,00"));
    EXPECT_EQ(two(Variant(true)), in_settings("texto -1,00"));
    EXPECT_EQ(two(Variant(L"7")), in_settings("texto 7,00"));
    EXPECT_EQ(two(Variant(1e15)), in_settings("texto 1000000000000000,00"));
    const auto four = [&](const Variant& value) { return shown_for(L"redondeoa4", {value}); };
    EXPECT_EQ(four(Variant(1)), in_settings("texto 1,0000"));
    EXPECT_EQ(four(Variant(2.00005)), in_settings("texto 2,0001"));
    EXPECT_EQ(four(Variant(-12.34567)), in_settings("texto -12,3457"));
}

TEST_P(Values, TextsThatAreNotNumbersShowABox) {
    // The title is not the host's name.
    put(general_.get(), L"AppOrigen", Variant(L"Facturas"));
    const ExpectedBox box{L"Error en la función de redondeo: el dato no es numérico", 16,
                          L"kovrel"};
    for (const wchar_t* const member : {L"redondeoa2", L"redondeoa4"}) {
        EXPECT_EQ(shown_for(member, {Variant(L"doce")}, {box}), "texto ");
        EXPECT_EQ(shown_for(member, {Variant(L"")}, {box}), "texto ");
        EXPECT_EQ(shown_for(member, {Variant::null()}, {box}), "texto ");
        EXPECT_EQ(shown_for(member, {Variant(Date{45366})}, {box}), "texto ");
        EXPECT_EQ(shown_for(member, {array_of(L"1")}, {box}), "texto ");
    }
}

TEST_P(Values, RoundingFailuresNameTheModuleFGen) {
    const Variant endless(std::numeric_limits<double>::infinity());
    EXPECT_EQ(
        shown_for(L"redondeoa2", {endless},
                  {{L"Error 6\r (Desbordamiento) en procedimiento redondeoa2 del Módulo FGen.", 16,
                    L"kovrel"}}),
        "texto ");
    EXPECT_EQ(
        shown_for(L"redondeoa4", {endless},
                  {{L"Error 6\r (Desbordamiento) en procedimiento redondeoa4 del Módulo FGen.", 16,
                    L"kovrel"}}),
        "texto ");
    // An object without a default value.
    EXPECT_EQ(shown_for(L"redondeoa2", {Variant(create(L"Kovrel.clsFZip"))},
                        {{L"Error 438\r (El objeto no admite esta propiedad o método) en "
                          L"procedimiento redondeoa2 del Módulo FGen.",
                          16, L"kovrel"}}),
              "texto ");
}

INSTANTIATE_TEST_SUITE_P(All, Values, testing::ValuesIn(every_way));

/// What a window of the waiting thread observes during a wait.
struct Wait {
    int timers = 0;
    int posted = 0;
    int hourglasses = 0;
    bool nested = false;
    ComPtr<IDispatch> general;
    std::wstring words;
};

LRESULT CALLBACK wait_procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    auto* const wait = reinterpret_cast<Wait*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (wait != nullptr && message == WM_APP) ++wait->posted;
    if (wait != nullptr && message == WM_TIMER) {
        ++wait->timers;
        if (GetCursor() == LoadCursorW(nullptr, IDC_WAIT)) ++wait->hourglasses;
        // As a window does when the mouse moves over it.
        SetCursor(LoadCursorW(nullptr, IDC_IBEAM));
        if (!wait->nested) {
            wait->nested = true;
            wait->words = text_of_result(call(wait->general.get(), L"ConvEurosALetra", {2.5}));
        }
    }
    return DefWindowProcW(window, message, wparam, lparam);
}

class Waits : public testing::TestWithParam<Way> {
 protected:
    Waits() {
        WNDCLASSW window_class{};
        window_class.lpfnWndProc = &wait_procedure;
        window_class.hInstance = GetModuleHandleW(nullptr);
        window_class.lpszClassName = L"KovrelWaitTest";
        RegisterClassW(&window_class);
        window_ = CreateWindowW(window_class.lpszClassName, L"", WS_OVERLAPPED, 0, 0, 0, 0,
                                HWND_MESSAGE, nullptr, window_class.hInstance, nullptr);
        SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(&seen_));
        seen_.general = general_;
    }
    ~Waits() override {
        DestroyWindow(window_);
        UnregisterClassW(L"KovrelWaitTest", GetModuleHandleW(nullptr));
    }

    /// Milliseconds that a wait took.
    ULONGLONG wait(float seconds) {
        const ULONGLONG start = GetTickCount64();
        EXPECT_EQ(call_in(GetParam(), general_.get(), L"Espera", {Variant(seconds)}).result, S_OK);
        return GetTickCount64() - start;
    }

    ComPtr<IDispatch> general_ = create(L"Kovrel.clsFGen");
    Wait seen_;
    HWND window_ = nullptr;
};

TEST_P(Waits, EventsRunUnderTheHourglass) {
    SetCursor(LoadCursorW(nullptr, IDC_CROSS));
    SetTimer(window_, 1, 20, nullptr);
    PostMessageW(window_, WM_APP, 0, 0);
    EXPECT_GE(wait(0.5F), 400U);
    KillTimer(window_, 1);
    EXPECT_EQ(seen_.posted, 1);
    EXPECT_GE(seen_.timers, 2);
    // The hourglass is set again before every event.
    EXPECT_EQ(seen_.hourglasses, seen_.timers);
    EXPECT_EQ(GetCursor(), LoadCursorW(nullptr, IDC_ARROW));
    // Event handlers may call the library.
    EXPECT_EQ(narrow(seen_.words), narrow(L"DOS EUROS CON CINCUENTA CÉNTIMOS"));
}

TEST_P(Waits, ZeroSecondsOnlyResetThePointer) {
    for (const float none : {0.0F, -1.0F, -1e30F}) {
        SetCursor(LoadCursorW(nullptr, IDC_CROSS));
        PostMessageW(window_, WM_APP, 0, 0);
        EXPECT_LT(wait(none), 400U);
        EXPECT_EQ(GetCursor(), LoadCursorW(nullptr, IDC_ARROW));
    }
    // No events are dispatched.
    EXPECT_EQ(seen_.posted, 0);
}

TEST_P(Waits, AQuitMessageIsLeftToTheHost) {
    PostQuitMessage(7);
    EXPECT_GE(wait(0.2F), 150U);
    MSG message{};
    EXPECT_TRUE(PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE));
    EXPECT_EQ(message.message, static_cast<UINT>(WM_QUIT));
    EXPECT_EQ(message.wParam, 7U);
}

INSTANTIATE_TEST_SUITE_P(All, Waits, testing::ValuesIn(every_way));

}  // namespace
}  // namespace kovrel::test
