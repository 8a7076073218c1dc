#include "tests/robustness/rubbish.h"

#include <cmath>
#include <cstring>
#include <limits>

#include "automation/bstr.h"

namespace kovrel::test {
namespace {

constexpr VARTYPE variable_types[] = {VT_I1,   VT_I2,       VT_I4,      VT_I8,   VT_UI1,    VT_UI2,
                                      VT_UI4,  VT_UI8,      VT_INT,     VT_UINT, VT_R4,     VT_R8,
                                      VT_CY,   VT_DATE,     VT_BSTR,    VT_BOOL, VT_ERROR,  VT_BSTR,
                                      VT_BSTR, VT_DISPATCH, VT_UNKNOWN, VT_CY,   VT_DECIMAL};
// Types that are invalid in a variant, passed without content.
constexpr VARTYPE careless_types[] = {15,          VT_VOID, VT_HRESULT, VT_PTR, VT_RECORD,
                                      VT_FILETIME, VT_BLOB, VT_CLSID,   0x0FFF, VT_VECTOR | VT_I4};

constexpr double numbers[] = {0,
                              1,
                              -1,
                              2,
                              5,
                              12,
                              31,
                              1999,
                              2024,
                              32767,
                              32768,
                              -32768,
                              -32769,
                              65536,
                              45366,
                              45366.5,
                              0.005,
                              -0.5,
                              1e15,
                              -1e15,
                              2147483647,
                              -2147483648.0,
                              2147483648.0,
                              1e300,
                              -1e300,
                              1e-300,
                              12345678,
                              2958465,
                              2958466,
                              -657434,
                              -657435,
                              99999999999.99};
constexpr double tame_numbers[] = {0, 1, 2, -1, 0.25, -0.5, -1e30};

constexpr const wchar_t* texts[] = {
    L"",
    L" ",
    L"x",
    L"0",
    L"-1",
    L"1,5",
    L"1.234.567,89",
    L"1e400",
    L"&HFF",
    L"12345678Z",
    L"12.345.678-Z",
    L"X1234567L",
    L"A58818501",
    L"00000000T",
    L"20770024003102575766",
    L"2077 0024 00 3102575766",
    L"29/02/2024",
    L"31/12/1899",
    L"1/1/100",
    L"99/99/9999",
    L"__/__/____",
    L"Verdadero",
    L"True",
    L"' OR ''='",
    L"ñÑáüß€",
    L"\xD83D\xDE00",
    L"\xD800",
    L"%s%n%d",
    L"\r\n\t",
    L"28001",
    L"*.txt",
    L"Textos (*.txt)|*.txt|Todos|*.*",
    L"Error",
};
// None names a file outside the current folder.
constexpr const wchar_t* tame_texts[] = {
    L"",
    L"prueba.ini",
    L".\\prueba.ini",
    L"carpeta\\prueba.ini",
    L"Sección",
    L"Clave",
    L"Valor",
    L"uno.txt",
    L"dos.txt",
    L"imagen.bmp",
    L"carpeta",
    L"carpeta\\dentro",
    L"carpeta\\no\\existe",
    L"archivo.zip",
    L"archivo",
    L"mal*nombre?",
    L"<|>",
    L"a\"b",
    L".",
    L" ",
};

}  // namespace

double Rubbish::number(bool tame) {
    if (tame) {
        return random.one_in(12) ? std::numeric_limits<double>::quiet_NaN()
                                 : random.any_of(tame_numbers);
    }
    switch (random.below(12)) {
        case 0:
            return std::numeric_limits<double>::quiet_NaN();
        case 1:
            return random.one_in(2) ? HUGE_VAL : -HUGE_VAL;
        case 2: {
            const std::uint64_t bits = random.next();
            double any = 0;
            std::memcpy(&any, &bits, sizeof any);
            return any;
        }
        case 3:
        case 4:
            return static_cast<double>(random.below(3'000'000)) / 100 - 10'000;
        default:
            return random.any_of(numbers);
    }
}

std::wstring Rubbish::text(bool tame) {
    if (tame) return random.any_of(tame_texts);
    if (!random.one_in(4)) return random.any_of(texts);
    std::wstring result;
    const std::size_t length =
        random.one_in(50) ? random.below(70'000) : random.below(random.one_in(5) ? 300 : 24);
    const bool digits = random.one_in(2);
    for (std::size_t index = 0; index < length; ++index) {
        const auto any =
            static_cast<wchar_t>(random.one_in(3) ? random.below(0x10000) : 32 + random.below(224));
        result +=
            digits && !random.one_in(12) ? static_cast<wchar_t>(L'0' + random.below(10)) : any;
    }
    return result;
}

VARTYPE Rubbish::variable_type() {
    return random.any_of(variable_types);
}

Variant Rubbish::object(bool tame) {
    if (!other_objects.empty() && random.one_in(6)) {
        return Variant(ComPtr<IDispatch>(random.any_of(other_objects)));
    }
    if (random.one_in(8)) return Variant(ComPtr<IDispatch>());
    return Variant(ComPtr<IDispatch>::attach(new RubbishObject(*this, tame)));
}

Variant Rubbish::value_of(VARTYPE type, bool tame) {
    Variant result;
    switch (type) {
        case VT_BSTR:
            if (random.one_in(10)) {
                result.vt = VT_BSTR;  // a null one is an empty text
                return result;
            }
            return Variant(text(tame));
        case VT_DISPATCH:
            return object(tame);
        case VT_UNKNOWN:
            result = object(tame);
            result.vt = VT_UNKNOWN;
            return result;
        case VT_R8:
            return Variant(number(tame));
        case VT_R4:
            result.fltVal = static_cast<float>(number(tame));
            break;
        case VT_DATE:
            result.date = number(tame);
            break;
        case VT_BOOL:
            result.boolVal = static_cast<VARIANT_BOOL>(
                random.one_in(4) ? random.next() : (random.one_in(2) ? 0 : 0xFFFF));
            if (tame && result.boolVal > 0) result.boolVal = VARIANT_TRUE;
            break;
        case VT_ERROR:
            result.scode =
                random.one_in(2) ? DISP_E_PARAMNOTFOUND : static_cast<SCODE>(random.next());
            break;
        case VT_DECIMAL:
            result.decVal.sign = random.one_in(2) ? DECIMAL_NEG : 0;
            // A larger scale is invalid.
            result.decVal.scale = static_cast<BYTE>(tame ? 28 : random.below(29));
            result.decVal.Hi32 = static_cast<ULONG>(tame || random.one_in(2) ? 0 : random.next());
            result.decVal.Lo64 = tame ? random.below(3) : random.next() >> random.below(64);
            break;
        default: {
            // Integers of any size; a currency is one too.
            const double chosen = number(tame);
            const bool fits = std::abs(chosen) < 9e18;
            result.llVal = fits && !random.one_in(8) ? static_cast<LONGLONG>(chosen)
                                                     : static_cast<LONGLONG>(random.next());
            if (tame) result.llVal = static_cast<LONGLONG>(random.below(4));
            break;
        }
    }
    result.vt = type;
    return result;
}

Variant Rubbish::array(bool tame) {
    constexpr VARTYPE elements[] = {VT_I2,   VT_I4,      VT_UI1,      VT_R8,     VT_BSTR,
                                    VT_BOOL, VT_VARIANT, VT_DATE,     VT_CY,     VT_UI1,
                                    VT_BSTR, VT_VARIANT, VT_DISPATCH, VT_UNKNOWN};
    const VARTYPE element = random.any_of(elements);
    Variant result;
    if (random.one_in(12)) {
        result.vt = VT_ARRAY | element;  // a null array, as uninitialized ones are
        return result;
    }
    const UINT dimensions = random.one_in(3) ? 1 + static_cast<UINT>(random.below(3)) : 1;
    SAFEARRAYBOUND bounds[3];
    for (SAFEARRAYBOUND& bound : bounds) {
        bound.cElements = static_cast<ULONG>(random.below(dimensions == 1 ? 120 : 5));
        bound.lLbound = random.one_in(3) ? static_cast<LONG>(random.below(10)) - 5 : 0;
        if (random.one_in(30)) bound.lLbound = std::numeric_limits<LONG>::max() - 130;
    }
    SAFEARRAY* const array = SafeArrayCreate(element, dimensions, bounds);
    if (array == nullptr) return result;
    result.parray = array;
    result.vt = VT_ARRAY | element;
    void* data = nullptr;
    if (FAILED(SafeArrayAccessData(array, &data))) return result;
    std::size_t count = 1;
    for (UINT dimension = 0; dimension < dimensions; ++dimension) {
        count *= bounds[dimension].cElements;
    }
    for (std::size_t index = 0; index < count; ++index) {
        if (element == VT_VARIANT) {
            static_cast<VARIANT*>(data)[index] =
                (random.one_in(4) ? value_of(variable_type(), tame) : Variant(text(tame))).detach();
        } else if (element == VT_BSTR) {
            static_cast<BSTR*>(data)[index] = random.one_in(9) ? nullptr : new_bstr(text(tame));
        } else if (element != VT_DISPATCH && element != VT_UNKNOWN) {
            const Variant filler = value_of(element, tame);
            std::memcpy(static_cast<char*>(data) + index * array->cbElements, &filler.llVal,
                        array->cbElements);
        }
    }
    SafeArrayUnaccessData(array);
    return result;
}

Variant Rubbish::value(bool tame) {
    switch (random.below(16)) {
        case 0:
            return Variant();
        case 1:
            return Variant::null();
        case 2:
            return Variant::missing();
        case 3:
            return array(tame);
        case 4:
        case 5:
        case 6:
            return value_of(VT_BSTR, tame);
        case 7:
        case 8:
            return object(tame);
        case 9:
            if (random.one_in(5)) {
                Variant careless;
                careless.vt = random.any_of(careless_types);
                return careless;
            }
            return value_of(VT_DATE, tame);
        default:
            return value_of(variable_type(), tame);
    }
}

}  // namespace kovrel::test
