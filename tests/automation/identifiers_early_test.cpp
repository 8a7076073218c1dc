// clsFIdent through the generated header, as compiled programs call it.
#include <array>
#include <gtest/gtest.h>
#include <kovrel.h>
#include <string>

#include "automation/safe_array.h"
#include "tests/support/box_watcher.h"
#include "tests/support/late.h"

namespace kovrel::test {
namespace {

constexpr std::array kinds{Kovrel::idNIF,
                           Kovrel::idDNI,
                           Kovrel::idNIE,
                           Kovrel::idNIFPersonal,
                           Kovrel::idNIFEntidad,
                           Kovrel::idCCC,
                           Kovrel::idIBAN,
                           Kovrel::idBIC,
                           Kovrel::idAcreedorSEPA,
                           Kovrel::idIVA,
                           Kovrel::idSeguridadSocial,
                           Kovrel::idCuentaCotizacion,
                           Kovrel::idCodigoPostal,
                           Kovrel::idCUPS,
                           Kovrel::idReferenciaCatastral,
                           Kovrel::idTarjeta,
                           Kovrel::idEAN13};

/// The result of a member, for as long as it is read.
struct Result {
    Result() = default;
    Result(const Result&) = delete;
    Result& operator=(const Result&) = delete;
    ~Result() { SysFreeString(raw); }

    [[nodiscard]] std::string read() const { return narrow(std::wstring(text_of(raw))); }

    BSTR raw = nullptr;
};

class EarlyIdentifiers : public testing::Test {
 protected:
    void SetUp() override {
        ASSERT_EQ(CoCreateInstance(__uuidof(Kovrel::clsFIdent), nullptr, CLSCTX_INPROC_SERVER,
                                   __uuidof(Kovrel::_clsFIdent), identifiers_.put_void()),
                  S_OK);
    }

    /// The reason by reference, which must be that of MotivoDe.
    Kovrel::eMotivo reason(Kovrel::eIdentificador kind, const wchar_t* text) {
        const Bstr given(text);
        auto by_reference = static_cast<Kovrel::eMotivo>(-1);
        auto by_result = static_cast<Kovrel::eMotivo>(-1);
        VARIANT_BOOL is_right = VARIANT_FALSE;
        EXPECT_EQ(identifiers_->Comprueba(kind, given.get(), &by_reference, &is_right), S_OK);
        EXPECT_EQ(identifiers_->MotivoDe(kind, given.get(), &by_result), S_OK);
        EXPECT_EQ(by_reference, by_result);
        EXPECT_EQ(is_right == VARIANT_TRUE, by_reference == Kovrel::moCorrecto);
        return by_reference;
    }

    const BoxWatcher no_box_;
    ComPtr<Kovrel::_clsFIdent> identifiers_;
};

TEST_F(EarlyIdentifiers, OneOfEveryKindHasAReason) {
    constexpr std::array right{L"12345678Z",
                               L"12345678Z",
                               L"X1234567L",
                               L"M1234567L",
                               L"A28015865",
                               L"21000418450200051332",
                               L"ES9121000418450200051332",
                               L"CAIXESBBXXX",
                               L"ES11000B12345674",
                               L"ESB12345674",
                               L"281234567840",
                               L"28123456742",
                               L"08001",
                               L"ES1234123456789012JY",
                               L"9872023VH5797S0001WX",
                               L"4111111111111111",
                               L"8412345123450"};
    static_assert(right.size() == kinds.size());
    for (std::size_t i = 0; i < kinds.size(); ++i) {
        SCOPED_TRACE(narrow(right[i]));
        EXPECT_EQ(reason(kinds[i], right[i]), Kovrel::moCorrecto);
        EXPECT_EQ(reason(kinds[i], L""), Kovrel::moVacio);
        auto kind = Kovrel::idDesconocido;
        EXPECT_EQ(identifiers_->TipoDe(Bstr(right[i]).get(), &kind), S_OK);
        EXPECT_EQ(kind, i == 0 ? Kovrel::idDNI : kinds[i]);
    }
}

TEST_F(EarlyIdentifiers, EveryReasonIsGiven) {
    EXPECT_EQ(reason(Kovrel::idCodigoPostal, L"2801A"), Kovrel::moCaracteres);
    EXPECT_EQ(reason(Kovrel::idNIF, L"1234567L"), Kovrel::moLongitud);
    EXPECT_EQ(reason(Kovrel::idNIFEntidad, L"T28015865"), Kovrel::moPrimeraLetra);
    EXPECT_EQ(reason(Kovrel::idCCC, L"21000418460200051332"), Kovrel::moControl);
    EXPECT_EQ(reason(Kovrel::idEAN13, L"0000000000000"), Kovrel::moValor);
    EXPECT_EQ(reason(Kovrel::idIBAN, L"US9121000418450200051332"), Kovrel::moPais);
    EXPECT_EQ(reason(Kovrel::idIBAN, L"ES6421000418450200051333"), Kovrel::moCuenta);
    Result words;
    EXPECT_EQ(identifiers_->TextoMotivo(Kovrel::moCuenta, &words.raw), S_OK);
    EXPECT_EQ(words.read(), "La cuenta española que contiene el IBAN no es correcta.");
}

TEST_F(EarlyIdentifiers, TextsAreNormalizedFormattedAndCorrected) {
    const Bstr account(L"2100 0418 ** 0200051332");
    Result normal;
    Result corrected;
    Result iban;
    Result readable;
    EXPECT_EQ(identifiers_->Normaliza(Kovrel::idNIF, Bstr(L"1.234.567-l").get(), &normal.raw),
              S_OK);
    EXPECT_EQ(normal.read(), "01234567L");
    EXPECT_EQ(identifiers_->Corrige(Kovrel::idCCC, account.get(), &corrected.raw), S_OK);
    EXPECT_EQ(corrected.read(), "21000418450200051332");
    EXPECT_EQ(identifiers_->CCCaIBAN(corrected.raw, &iban.raw), S_OK);
    EXPECT_EQ(iban.read(), "ES9121000418450200051332");
    EXPECT_EQ(identifiers_->Formatea(Kovrel::idIBAN, iban.raw, &readable.raw), S_OK);
    EXPECT_EQ(readable.read(), "ES91 2100 0418 4502 0005 1332");
}

TEST_F(EarlyIdentifiers, AListOfTexts) {
    constexpr ULONG count = 1000;
    Variant list;
    list.parray = SafeArrayCreateVector(VT_BSTR, 1, count);
    list.vt = VT_ARRAY | VT_BSTR;
    {
        const ArrayAccess<BSTR> texts(list.parray);
        std::size_t index = 0;
        for (BSTR& text : texts.elements()) {
            text = SysAllocString(index++ % 3 == 0 ? L"12345678A" : L"12345678Z");
        }
    }
    Variant reasons;
    ASSERT_EQ(identifiers_->CompruebaLista(Kovrel::idNIF, list, 0, nullptr, &reasons), S_OK);
    const ArrayAccess<VARIANT> given(array_in(reasons, VT_VARIANT, 1));
    ASSERT_EQ(given.elements().size(), count);
    LONG first = 0;
    EXPECT_EQ(SafeArrayGetLBound(reasons.parray, 1, &first), S_OK);
    EXPECT_EQ(first, 1);
    std::size_t index = 0;
    for (const VARIANT& element : given.elements()) {
        EXPECT_EQ(element.vt, VT_I4);
        EXPECT_EQ(element.lVal, index % 3 == 0 ? Kovrel::moControl : Kovrel::moCorrecto) << index;
        ++index;
    }
}

TEST_F(EarlyIdentifiers, AKindThatIsNoneFails) {
    constexpr HRESULT invalid_argument = MAKE_HRESULT(SEVERITY_ERROR, FACILITY_CONTROL, 5);
    auto reason = Kovrel::moVacio;
    EXPECT_EQ(identifiers_->MotivoDe(Kovrel::idDesconocido, Bstr(L"12345678Z").get(), &reason),
              invalid_argument);
}

}  // namespace
}  // namespace kovrel::test
