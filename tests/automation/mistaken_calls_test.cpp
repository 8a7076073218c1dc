// Calls that do not fit their member: the description that the host's programmer reads.
#include <gtest/gtest.h>

#include "tests/support/box_watcher.h"
#include "tests/support/early.h"

namespace kovrel::test {
namespace {

/// The thread's error object.
struct LastError {
    LastError() {
        ComPtr<IErrorInfo> info;
        if (GetErrorInfo(0, info.put()) != S_OK) return;
        Bstr text;
        info->GetDescription(text.put());
        description = narrow(std::wstring(text.view()));
        info->GetSource(text.put());
        source = narrow(std::wstring(text.view()));
        info->GetGUID(&interface_id);
    }

    std::string description;
    std::string source;
    GUID interface_id{};
};

GUID interface_id_of(IDispatch* object) {
    const auto info = interface_of(object);
    TYPEATTR* attributes = nullptr;
    info->GetTypeAttr(&attributes);
    const GUID id = attributes->guid;
    info->ReleaseTypeAttr(attributes);
    return id;
}

class MistakenCalls : public testing::Test {
 protected:
    MistakenCalls() { SetErrorInfo(0, nullptr); }

    /// Expects the text in the exception record and in the error object.
    static void expect_text(const Outcome& outcome, HRESULT result, const char* description,
                            const char* source = "Kovrel.clsFFechas") {
        EXPECT_EQ(outcome.result, result);
        EXPECT_EQ(outcome.error, result);
        EXPECT_EQ(narrow(outcome.description), description);
        EXPECT_EQ(narrow(outcome.source), source);
        const LastError last;
        EXPECT_EQ(last.description, description);
        EXPECT_EQ(last.source, source);
    }

    ComPtr<IDispatch> dates_ = create(L"Kovrel.clsFFechas");
};

TEST_F(MistakenCalls, LateBoundNameTheMemberAndTheArgument) {
    expect_text(call(dates_.get(), L"Dias_Mes", {L"enero", 2024}), DISP_E_TYPEMISMATCH,
                "No coinciden los tipos: argumento Mes de Dias_Mes");
    expect_text(call(dates_.get(), L"EsBisiesto", {70000}), DISP_E_OVERFLOW,
                "Desbordamiento: argumento IntAño de EsBisiesto");
    expect_text(call(dates_.get(), L"Dias_Mes", {2}), DISP_E_BADPARAMCOUNT,
                "Número de argumentos incorrecto o asignación de propiedad no válida: argumento "
                "Anyo de Dias_Mes");
    expect_text(call(dates_.get(), L"EsBisiesto", {2024, 1}), DISP_E_BADPARAMCOUNT,
                "Número de argumentos incorrecto o asignación de propiedad no válida: EsBisiesto");
    expect_text(call(dates_.get(), L"Dias_Mes", {LateArgument::missing(), 2024}),
                DISP_E_PARAMNOTOPTIONAL, "Argumento no opcional: argumento Mes de Dias_Mes");
    expect_text(put(dates_.get(), L"Dias_Mes", Variant(2)), DISP_E_MEMBERNOTFOUND,
                "El objeto no admite esta propiedad o método: Dias_Mes");
}

TEST_F(MistakenCalls, AMemberIdAsArgumentName) {
    Variant year(2024);
    DISPID name = 7;
    DISPPARAMS parameters{&year, &name, 1, 1};
    EXCEPINFO exception{};
    UINT argument = 9;
    const HRESULT result =
        dates_->Invoke(id_of(dates_.get(), L"EsBisiesto"), IID_NULL, LOCALE_USER_DEFAULT,
                       DISPATCH_METHOD, &parameters, nullptr, &exception, &argument);
    EXPECT_EQ(result, DISP_E_PARAMNOTFOUND);
    EXPECT_EQ(argument, 0U);
    EXPECT_EQ(narrow(std::wstring(text_of(exception.bstrDescription))),
              "No se encontró el argumento con nombre: EsBisiesto");
    SysFreeString(exception.bstrDescription);
    SysFreeString(exception.bstrSource);
}

// GetIDsOfNames can describe a failure in the thread's error object only.
TEST_F(MistakenCalls, AMisspeltName) {
    EXPECT_EQ(call(dates_.get(), L"Dias_Mess", {2, 2024}).result, DISP_E_UNKNOWNNAME);
    const LastError member;
    EXPECT_EQ(member.description, "El objeto no admite esta propiedad o método: Dias_Mess");
    EXPECT_EQ(member.source, "Kovrel.clsFFechas");
    EXPECT_EQ(invoke(dates_.get(), L"Dias_Mes", DISPATCH_METHOD, {2, 2024}, {L"Año"}).result,
              DISP_E_UNKNOWNNAME);
    EXPECT_EQ(LastError().description,
              "No se encontró el argumento con nombre: argumento Año de Dias_Mes");
}

TEST_F(MistakenCalls, MoreNamesThanAnArchiveTakes) {
    const auto zip = create(L"Kovrel.clsFZip");
    Variant names;
    names.vt = VT_ARRAY | VT_BSTR;
    names.parray = SafeArrayCreateVector(VT_BSTR, 0, 120);
    expect_text(call(zip.get(), L"GenerarZip", {L"a.zip", L"", names}), DISP_E_BADINDEX,
                "Subíndice fuera del intervalo: argumento NombresFicheros1 de GenerarZip",
                "Kovrel.clsFZip");
}

TEST_F(MistakenCalls, EarlyBoundNullPointers) {
    using DiasMes = HRESULT(STDMETHODCALLTYPE*)(IDispatch*, SHORT*, SHORT*, SHORT*);
    const auto member = early<DiasMes>(dates_.get(), L"Dias_Mes");
    SHORT month = 2;
    SHORT days = 0;
    EXPECT_EQ(member(dates_.get(), &month, nullptr, &days), E_POINTER);
    const LastError year;
    EXPECT_EQ(year.description,
              "Llamada a procedimiento o argumento no válidos: argumento Anyo de Dias_Mes");
    EXPECT_EQ(year.source, "Kovrel.clsFFechas");
    EXPECT_EQ(member(dates_.get(), &month, &month, nullptr), E_POINTER);
    EXPECT_EQ(LastError().description, "Llamada a procedimiento o argumento no válidos: Dias_Mes");
}

TEST_F(MistakenCalls, EarlyBoundVariants) {
    using ConvDouble = HRESULT(STDMETHODCALLTYPE*)(IDispatch*, VARIANT*, BSTR*);
    const auto literals = create(L"Kovrel.clsCSQL");
    VARIANT nothing{};
    nothing.vt = VT_BYREF | VT_R8;
    Bstr literal;
    EXPECT_EQ(
        early<ConvDouble>(literals.get(), L"Conv_Double")(literals.get(), &nothing, literal.put()),
        static_cast<HRESULT>(0x800A000D));
    EXPECT_EQ(LastError().description, "No coinciden los tipos: argumento Numero de Conv_Double");

    using SplitPath = HRESULT(STDMETHODCALLTYPE*)(IDispatch*, BSTR, BSTR*, VARIANT*, VARIANT*);
    const auto files = create(L"Kovrel.cgsFileOpR");
    LONG number = 5;
    VARIANT name{};
    name.vt = VT_BYREF | VT_I4;
    name.plVal = &number;
    Variant extension;
    Bstr folder;
    EXPECT_EQ(early<SplitPath>(files.get(), L"SplitPath")(files.get(), Bstr(L"C:\\carta.txt").get(),
                                                          folder.put(), &name, &extension),
              static_cast<HRESULT>(0x800A000D));
    EXPECT_EQ(number, 5);
    EXPECT_EQ(LastError().description, "No coinciden los tipos: argumento vNombre de SplitPath");
}

// Hosts compare its interface to see whether the error object is that of the call.
TEST_F(MistakenCalls, AnErrorObjectNamesItsInterface) {
    using FirstDay = HRESULT(STDMETHODCALLTYPE*)(IDispatch*, BYTE*, SHORT*, DATE*);
    BYTE month = 0;
    SHORT year = 2024;
    DATE day = 0;
    EXPECT_EQ(
        early<FirstDay>(dates_.get(), L"primerdia_mesanterior")(dates_.get(), &month, &year, &day),
        static_cast<HRESULT>(0x800A000D));
    const LastError last;
    // The description of the member's own failure is unchanged.
    EXPECT_EQ(last.description, "No coinciden los tipos");
    EXPECT_TRUE(IsEqualGUID(last.interface_id, interface_id_of(dates_.get())));
}

}  // namespace
}  // namespace kovrel::test
