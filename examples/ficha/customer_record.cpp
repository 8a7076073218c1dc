#include "customer_record.h"

#include <algorithm>
#include <array>

#include "tests/support/ado_recordset.h"

namespace ficha {
namespace {

using kovrel::ComPtr;
using kovrel::HostObject;
using kovrel::Variant;
using kovrel::test::AdoField;
using kovrel::test::AdoType;

constexpr std::array field_names{L"Nombre",        L"NIF",           L"Código postal", L"Cuenta",
                                 L"Fecha de alta", L"Fecha de baja", L"Forma de pago", L"Saldo"};
constexpr std::int32_t text_size = 60;
constexpr std::int32_t photograph_size = 4'000'000;

/// As databases compare the names of fields: without regard to case.
bool is_same_name(const wchar_t* one, const wchar_t* other) {
    return CompareStringOrdinal(one, -1, other, -1, TRUE) == CSTR_EQUAL;
}

ComPtr<IDispatch> open_recordset(const std::vector<AdoField>& fields) {
    ComPtr<IDispatch> recordset = kovrel::test::make_recordset(fields);
    if (!recordset) throw NoDatabase();
    return recordset;
}

ComPtr<IDispatch> make_customers() {
    std::vector<AdoField> fields;
    for (const wchar_t* name : field_names) fields.push_back({name, AdoType::text, text_size});
    fields.push_back({L"Fotografía", AdoType::long_binary, photograph_size});
    ComPtr<IDispatch> customers = open_recordset(fields);
    const std::vector<Variant> empty(field_names.size(), Variant(L""));
    kovrel::test::add_rows(customers.get(), {empty});
    return customers;
}

}  // namespace

CustomerRecord::CustomerRecord() : records_(make_customers()) {}

HostObject CustomerRecord::field(std::size_t index) const {
    return HostObject(records_.element(L"Fields", static_cast<std::int32_t>(index)));
}

void CustomerRecord::store(const std::vector<Value>& values) {
    for (const Value& value : values) {
        const auto* const found = std::find_if(
            field_names.begin(), field_names.end(),
            [&](const wchar_t* name) { return is_same_name(name, value.field.c_str()); });
        if (found == field_names.end()) continue;
        field(static_cast<std::size_t>(found - field_names.begin()))
            .put(L"Value", Variant(value.text));
    }
}

std::vector<CustomerRecord::Value> CustomerRecord::values() const {
    std::vector<Value> values;
    for (std::size_t index = 0; index < field_names.size(); ++index) {
        values.push_back({field_names.at(index), field(index).get(L"Value").to_text_or_empty()});
    }
    return values;
}

Variant CustomerRecord::photograph_field() const {
    return records_.element(L"Fields", static_cast<std::int32_t>(field_names.size()));
}

ComPtr<IDispatch> payment_methods() {
    ComPtr<IDispatch> methods = open_recordset({{L"Forma de pago", AdoType::text, text_size}});
    kovrel::test::add_rows(methods.get(), {{Variant(L"Contado")},
                                           {Variant(L"Domiciliación bancaria")},
                                           {Variant(L"Transferencia")},
                                           {Variant(L"Letra a 30 días")}});
    return methods;
}

}  // namespace ficha
