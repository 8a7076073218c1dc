// The standard error box for failures of the host's objects: every kind of number and description.
#include <gtest/gtest.h>
#include <tuple>

#include "tests/support/every_way.h"
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

TEST_P(ErrorBox, AKnownNumberHasItsDescription) {
    expect_box({0, {}, DISP_E_EXCEPTION, 94}, L"94", L"Uso no válido de Null");
    expect_box(failure(13, L""), L"13", L"No coinciden los tipos");
    // The object's own description takes precedence.
    expect_box(failure(13, L"Tipo raro"), L"13", L"Tipo raro");
    expect_box(bare_failure(static_cast<HRESULT>(0x800A0006)), L"6", L"Desbordamiento");
}

TEST_P(ErrorBox, ANegativeNumberHasItsSign) {
    expect_box({static_cast<std::int32_t>(0x80040E37), L"No existe la tabla \"CLIENTES\".",
                DISP_E_EXCEPTION, 0},
               L"-2147217865", L"No existe la tabla \"CLIENTES\".");
    expect_box({static_cast<std::int32_t>(0x80000000), L"El menor", DISP_E_EXCEPTION, 0},
               L"-2147483648", L"El menor");
    // Without a description the system's text is used.
    ASSERT_NE(text_of_system(E_FAIL), L"");
    expect_box({static_cast<std::int32_t>(E_FAIL), {}, DISP_E_EXCEPTION, 0}, L"-2147467259",
               text_of_system(E_FAIL));
    expect_box(bare_failure(E_FAIL), L"-2147467259", text_of_system(E_FAIL));
    // An exception without any number is an unspecified failure.
    expect_box({0, L"Sin número", DISP_E_EXCEPTION, 0}, L"-2147467259", L"Sin número");
}

// Platform HRESULTs map to run-time failures, as a return value as well as in the exception record.
TEST_P(ErrorBox, PlatformCodesMapToFailures) {
    const std::vector<std::tuple<HRESULT, const wchar_t*, const wchar_t*>> codes{
        {E_INVALIDARG, L"5", L"Llamada a procedimiento o argumento no válidos"},
        {DISP_E_OVERFLOW, L"6", L"Desbordamiento"},
        {E_OUTOFMEMORY, L"7", L"Memoria insuficiente"},
        {DISP_E_BADINDEX, L"9", L"Subíndice fuera del intervalo"},
        {DISP_E_ARRAYISLOCKED, L"10", L"La matriz es fija o está bloqueada temporalmente"},
        {DISP_E_DIVBYZERO, L"11", L"División por cero"},
        {DISP_E_TYPEMISMATCH, L"13", L"No coinciden los tipos"},
        {STG_E_FILENOTFOUND, L"53", L"No se encontró el archivo"},
        {E_ACCESSDENIED, L"70", L"Permiso denegado"},
        {DISP_E_UNKNOWNNAME, L"438", L"El objeto no admite esta propiedad o método"},
        {DISP_E_MEMBERNOTFOUND, L"438", L"El objeto no admite esta propiedad o método"},
        {E_NOTIMPL, L"445", L"El objeto no admite esta acción"},
        {DISP_E_NONAMEDARGS, L"446", L"El objeto no admite argumentos con nombre"},
        {DISP_E_UNKNOWNLCID, L"447", L"El objeto no admite la configuración regional actual"},
        {DISP_E_PARAMNOTFOUND, L"448", L"No se encontró el argumento con nombre"},
        {DISP_E_PARAMNOTOPTIONAL, L"449", L"Argumento no opcional"},
        {DISP_E_BADPARAMCOUNT, L"450",
         L"Número de argumentos incorrecto o asignación de propiedad no válida"},
        {DISP_E_NOTACOLLECTION, L"451", L"El objeto no es una colección"},
        {DISP_E_BADVARTYPE, L"458", L"La variable usa un tipo de automatización no admitido"},
    };
    for (const auto& [code, number, description] : codes) {
        expect_box(bare_failure(code), number, description);
        expect_box({static_cast<std::int32_t>(code), {}, DISP_E_EXCEPTION, 0}, number, description);
        expect_box({static_cast<std::int32_t>(code), L"Lo que dice el objeto", DISP_E_EXCEPTION, 0},
                   number, L"Lo que dice el objeto");
    }
}

TEST_P(ErrorBox, ADescriptionIsShownUnchanged) {
    expect_box(failure(3021, L" uno\rdos\n\ttres & 100 % (cuatro) \u03c9 "), L"3021",
               L" uno\rdos\n\ttres & 100 % (cuatro) \u03c9 ");
    const std::wstring long_text(1500, L'x');
    expect_box(failure(3021, long_text), L"3021", long_text);
}

INSTANTIATE_TEST_SUITE_P(All, ErrorBox, testing::ValuesIn(every_way));

}  // namespace
}  // namespace kovrel::test
