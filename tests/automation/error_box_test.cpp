// The standard error box for what hosts' objects report: numbers and texts of every kind.
#include <gtest/gtest.h>

#include "tests/automation/every_way.h"
#include "tests/support/scripted_object.h"

namespace kovrel::test {
namespace {

class ErrorBox : public testing::TestWithParam<Way> {
 protected:
    /// Checks a field whose reading fails, and expects the box with that number and description.
    void expect_box(const ObjectFailure& failure, const std::wstring& number,
                    const std::wstring& description) {
        const auto field = ScriptedObject::make();
        field->property(L"Value", Variant()).default_member(L"Value");
        field->fails(L"Value", failure);
        const std::wstring text = L"Error " + number + L"\r (" + description +
                                  L") en procedimiento Requerido del Módulo de clase clsFGen.";
        const Answer answer =
            call_in(GetParam(), general_.get(), L"Requerido",
                    {Variant(ComPtr<IDispatch>(field.get()))}, {{text.c_str(), 16, L"kovrel"}});
        EXPECT_EQ(answer.result, S_OK);
        EXPECT_EQ(shown(answer.value), shown(Variant(false)));
    }

    ComPtr<IDispatch> general_ = create(L"Kovrel.clsFGen");
};

/// What the system says of an HRESULT, line breaks at the end left out.
std::wstring text_of_system(HRESULT result) {
    std::wstring text(1000, L'\0');
    text.resize(FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
                               static_cast<DWORD>(result), 0, text.data(), 1000, nullptr));
    const auto end = text.find_last_not_of(L"\r\n");
    return text.substr(0, end + 1);
}

TEST_P(ErrorBox, AnEmptyDescriptionLeavesTheParentheses) {
    expect_box({0, {}, DISP_E_EXCEPTION, 30000}, L"30000", L"");
    expect_box({static_cast<std::int32_t>(0x800A0CB3), {}, DISP_E_EXCEPTION, 0}, L"3251", L"");
    expect_box({0, {}, DISP_E_EXCEPTION, 65535}, L"65535", L"");
}

TEST_P(ErrorBox, ANumberThatTheLibraryKnowsHasItsDescription) {
    expect_box({0, {}, DISP_E_EXCEPTION, 94}, L"94", L"Uso no válido de Null");
    expect_box(failure(13, L""), L"13", L"No coinciden los tipos");
    // The object's own text goes before it.
    expect_box(failure(13, L"Tipo raro"), L"13", L"Tipo raro");
    expect_box(bare_failure(static_cast<HRESULT>(0x800A0006)), L"6", L"Desbordamiento");
}

TEST_P(ErrorBox, ANegativeNumberHasItsSign) {
    expect_box({static_cast<std::int32_t>(0x80040E37), L"No existe la tabla \"CLIENTES\".",
                DISP_E_EXCEPTION, 0},
               L"-2147217865", L"No existe la tabla \"CLIENTES\".");
    expect_box({static_cast<std::int32_t>(0x80000000), L"El menor", DISP_E_EXCEPTION, 0},
               L"-2147483648", L"El menor");
    // Without a text of the object's own it is the system's.
    ASSERT_NE(text_of_system(E_ACCESSDENIED), L"");
    expect_box({static_cast<std::int32_t>(E_ACCESSDENIED), {}, DISP_E_EXCEPTION, 0}, L"-2147024891",
               text_of_system(E_ACCESSDENIED));
    expect_box(bare_failure(E_ACCESSDENIED), L"-2147024891", text_of_system(E_ACCESSDENIED));
    // An exception without any number is an unspecified failure.
    expect_box({0, L"Sin número", DISP_E_EXCEPTION, 0}, L"-2147467259", L"Sin número");
}

TEST_P(ErrorBox, ADescriptionIsWrittenAsItStands) {
    expect_box(failure(3021, L" uno\rdos\n\ttres & 100 % (cuatro) \u03c9 "), L"3021",
               L" uno\rdos\n\ttres & 100 % (cuatro) \u03c9 ");
    const std::wstring long_text(1500, L'x');
    expect_box(failure(3021, long_text), L"3021", long_text);
}

INSTANTIATE_TEST_SUITE_P(All, ErrorBox, testing::ValuesIn(every_way));

}  // namespace
}  // namespace kovrel::test
