// clsFSQL: values to literals.
#include <utility>
#include <vector>

#include "automation/bstr.h"
#include "automation/host_object.h"
#include "automation/safe_array.h"
#include "automation/variant_argument.h"
#include "library/clsFSQL.h"
#include "runtime/exact_number.h"
#include "runtime/failure.h"
#include "services/system_regional.h"
#include "sql/pattern.h"
#include "sql/quoted_name.h"
#include "sql/text_literal.h"
#include "sql/value_literal.h"

namespace kovrel {
namespace {

[[noreturn]] void refuse_type() {
    throw Failure(FailureNumber::type_mismatch);
}

/// A value that is no object, and no array, which would be copied.
Variant plain_value(const VARIANT& given) {
    if ((given.vt & VT_ARRAY) != 0) refuse_type();
    Variant value;
    const HRESULT copied = copy_followed(value, given);
    if (FAILED(copied)) throw_conversion_failure(copied);
    return value.vt == VT_DISPATCH ? HostObject(value.pdispVal).default_value() : value;
}

bool is_absent(const Variant& value) {
    return value.is_null() || value.is_empty() || value.is_missing();
}

std::wstring number_of(const Variant& value) {
    if (value.vt == VT_R4) return exact_number(value.fltVal);
    if (value.vt == VT_R8) return exact_number(value.dblVal);
    if (value.vt == VT_BSTR) {
        auto number = exact_number(text_of(value.bstrVal), SystemRegional());
        if (!number) refuse_type();
        return *std::move(number);
    }
    if (!value.is_numeric()) refuse_type();
    // True is -1, which some platforms' conversion to a decimal makes 1.
    const Variant number = value.vt == VT_BOOL ? value.as(VT_I2) : value;
    const DECIMAL decimal = number.as(VT_DECIMAL).decVal;
    return exact_number(ScaledInteger{.high = decimal.Hi32,
                                      .low = decimal.Lo64,
                                      .scale = decimal.scale,
                                      .negative = decimal.sign == DECIMAL_NEG});
}

double date_of(const Variant& value) {
    if (value.vt == VT_DATE) return value.date;
    if (value.vt != VT_BSTR) refuse_type();
    const auto date = SystemRegional().date(text_of(value.bstrVal));
    if (!date) refuse_type();
    return *date;
}

std::wstring bytes_of(Dialect dialect, const VARIANT& given) {
    const GivenArray bytes = array_of(given);
    if (bytes.element != VT_UI1) refuse_type();
    if (bytes.array->cDims != 1) throw Failure(FailureNumber::subscript_out_of_range);
    const ArrayAccess<const std::uint8_t> access(bytes.array);
    return bytes_literal(dialect, access.elements());
}

std::wstring literal_of(Dialect dialect, const Variant& value) {
    if (is_absent(value)) return std::wstring(null_literal);
    switch (value.vt) {
        case VT_BSTR:
            return text_literal(dialect, text_of(value.bstrVal));
        case VT_BOOL:
            return boolean_literal(dialect, value.to_bool());
        case VT_DATE:
            return shortest_date_literal(dialect, value.date);
        default:
            if ((value.vt & VT_ARRAY) != 0) return bytes_of(dialect, value);
            return number_literal(dialect, number_of(value));
    }
}

/// write(value) gives the literal of a value that is there.
template <class Write>
std::wstring literal_or_null(const ValueArgument& given, const Write& write) {
    const Variant value = plain_value(given.value());
    return is_absent(value) ? std::wstring(null_literal) : write(value);
}

/// The literals of an array's elements, each as its own type asks for.
std::vector<std::wstring> literals_in(Dialect dialect, const GivenArray& list) {
    if (list.element == VT_RECORD) refuse_type();
    if (list.array->cDims != 1) throw Failure(FailureNumber::subscript_out_of_range);
    const ArrayAccess<std::uint8_t> access(list.array);
    std::uint8_t* place = access.elements().data();
    const ULONG count = list.array->rgsabound[0].cElements;
    std::vector<std::wstring> literals;
    literals.reserve(count);
    for (ULONG index = 0; index < count; ++index, place += list.array->cbElements) {
        VARIANT element{};
        element.vt = static_cast<VARTYPE>(VT_BYREF | list.element);
        element.byref = place;
        const Variant value = plain_value(ValueArgument(element).value());
        if (is_absent(value)) throw Failure(FailureNumber::invalid_use_of_null);
        literals.push_back(literal_of(dialect, value));
    }
    return literals;
}

}  // namespace

void clsFSQL::set_Dialecto(eDialecto dialect) {
    if (dialect < eDialecto::diAccess || dialect > eDialecto::diOracle) {
        throw Failure(FailureNumber::invalid_argument);
    }
    dialect_ = dialect;
}

std::wstring clsFSQL::Valor(ValueArgument Valor) const {
    const VARIANT& given = Valor.value();
    if ((given.vt & VT_ARRAY) != 0) return bytes_of(dialect(), given);
    return literal_of(dialect(), plain_value(given));
}

std::wstring clsFSQL::Texto(ValueArgument Texto) const {
    return literal_or_null(
        Texto, [this](const Variant& value) { return text_literal(dialect(), value.to_text()); });
}

std::wstring clsFSQL::Numero(ValueArgument Numero) const {
    return literal_or_null(Numero, [this](const Variant& value) {
        return number_literal(dialect(), number_of(value));
    });
}

std::wstring clsFSQL::Fecha(ValueArgument Fecha) const {
    return literal_or_null(
        Fecha, [this](const Variant& value) { return date_literal(dialect(), date_of(value)); });
}

std::wstring clsFSQL::FechaHora(ValueArgument Fecha) const {
    return literal_or_null(Fecha, [this](const Variant& value) {
        return date_time_literal(dialect(), date_of(value));
    });
}

std::wstring clsFSQL::Booleano(ValueArgument Booleano) const {
    return literal_or_null(Booleano, [this](const Variant& value) {
        return boolean_literal(dialect(), value.to_bool());
    });
}

std::wstring clsFSQL::Bytes(ValueArgument Bytes) const {
    const VARIANT& given = Bytes.value();
    if ((given.vt & VT_ARRAY) != 0) return bytes_of(dialect(), given);
    return literal_or_null(Bytes,
                           [this](const Variant& value) { return bytes_of(dialect(), value); });
}

std::wstring clsFSQL::Lista(ValueArgument Lista) const {
    return list_literal(dialect(), literals_in(dialect(), array_of(Lista.value())));
}

std::wstring clsFSQL::Nombre(std::wstring_view Nombre) const {
    return quoted_name(dialect(), Nombre);
}

std::wstring clsFSQL::Patron(std::wstring_view Texto) const {
    return escaped_pattern(dialect(), Texto);
}

std::wstring clsFSQL::Como(std::wstring_view Patron) const {
    return like_clause(dialect(), Patron);
}

}  // namespace kovrel
