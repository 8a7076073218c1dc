#include "customer_record.h"

#include <algorithm>

namespace ficha {
namespace {

// ADO's numbers of the field types, and the attribute of fields that may be null.
constexpr std::int32_t ad_var_wchar = 202;
constexpr std::int32_t ad_long_var_binary = 205;
constexpr std::int32_t ad_fld_is_nullable = 0x20;
constexpr std::int32_t text_size = 60;
constexpr std::int32_t photograph_size = 4'000'000;

struct Field {
    const wchar_t* name;
    std::int32_t type;
    std::int32_t size;
};

/// A recordset in memory, open and empty.
Object make_recordset(const std::vector<Field>& fields) {
    CLSID class_id{};
    void* instance = nullptr;
    if (FAILED(CLSIDFromProgID(L"ADODB.Recordset", &class_id)) ||
        FAILED(
            CoCreateInstance(class_id, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch, &instance))) {
        throw NoDatabase();
    }
    const Owner<IDispatch> owner(static_cast<IDispatch*>(instance));
    Object recordset{Value(owner.get())};
    const Object collection(recordset.get(L"Fields"));
    for (const Field& field : fields) {
        collection.call(L"Append", {Value(field.name), Value(field.type), Value(field.size),
                                    Value(ad_fld_is_nullable)});
    }
    recordset.call(L"Open");
    return recordset;
}

Value field_of(const Object& recordset, std::size_t index) {
    return Object(recordset.get(L"Fields")).get(L"Item", {Value(static_cast<std::int32_t>(index))});
}

Object make_customers() {
    std::vector<Field> fields;
    fields.reserve(CustomerRecord::field_names.size() + 1);
    for (const wchar_t* name : CustomerRecord::field_names)
        fields.push_back({name, ad_var_wchar, text_size});
    fields.push_back({L"Fotografía", ad_long_var_binary, photograph_size});
    Object customers = make_recordset(fields);
    customers.call(L"AddNew");
    for (std::size_t index = 0; index < CustomerRecord::field_names.size(); ++index) {
        Object(field_of(customers, index)).put(L"Value", Value(L""));
    }
    return customers;
}

}  // namespace

bool CustomerRecord::is_same_name(const std::wstring& one, const std::wstring& other) {
    return CompareStringOrdinal(one.c_str(), -1, other.c_str(), -1, TRUE) == CSTR_EQUAL;
}

CustomerRecord::CustomerRecord() : records_(make_customers()) {}

void CustomerRecord::store(const std::vector<Entry>& values) {
    for (const Entry& value : values) {
        const auto* const found =
            std::find_if(field_names.begin(), field_names.end(),
                         [&](const wchar_t* name) { return is_same_name(name, value.field); });
        if (found == field_names.end()) continue;
        const auto index = static_cast<std::size_t>(found - field_names.begin());
        Object(field_of(records_, index)).put(L"Value", Value(value.text));
    }
}

std::vector<CustomerRecord::Entry> CustomerRecord::values() const {
    std::vector<Entry> values;
    for (std::size_t index = 0; index < field_names.size(); ++index) {
        const Object field(field_of(records_, index));
        values.push_back({field_names.at(index), field.get(L"Value").to_text()});
    }
    return values;
}

Value CustomerRecord::photograph_field() const {
    return field_of(records_, field_names.size());
}

Object payment_methods() {
    Object methods = make_recordset({{L"Forma de pago", ad_var_wchar, text_size}});
    for (const wchar_t* method :
         {L"Contado", L"Domiciliación bancaria", L"Transferencia", L"Letra a 30 días"}) {
        methods.call(L"AddNew");
        Object(field_of(methods, 0)).put(L"Value", Value(method));
    }
    return methods;
}

}  // namespace ficha
