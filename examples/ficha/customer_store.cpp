#include "customer_store.h"

namespace ficha {
namespace {

constexpr const wchar_t* key = L"\"NIF\"";
constexpr const wchar_t* photograph = L"\"Fotografía\"";

std::wstring quoted(const std::wstring& name) {
    return L'"' + name + L'"';
}

/// The columns that hold texts, each followed by `rest`, with commas between them.
std::wstring text_columns(const wchar_t* rest = L"") {
    std::wstring list;
    for (const wchar_t* const name : CustomerRecord::field_names) {
        list += (list.empty() ? L"" : L", ") + quoted(name) + rest;
    }
    return list;
}

std::wstring question_marks() {
    std::wstring list = L"?";
    for (std::size_t i = 0; i < CustomerRecord::field_names.size(); ++i) list += L", ?";
    return list;
}

}  // namespace

CustomerStore::CustomerStore(const std::wstring& connection) : database_(connection) {
    const Statement made(database_, L"CREATE TABLE IF NOT EXISTS clientes (" +
                                        text_columns(L" VARCHAR(60)") + L", " + photograph +
                                        L" BLOB, PRIMARY KEY (" + key + L"))");
}

std::vector<std::wstring> CustomerStore::tax_ids() const {
    Statement rows(database_, std::wstring(L"SELECT ") + key + L" FROM clientes ORDER BY " +
                                  quoted(CustomerRecord::field_names.front()) + L", " + key);
    std::vector<std::wstring> found;
    while (rows.next()) found.push_back(rows.value(0).to_text());
    return found;
}

Customer CustomerStore::load(const std::wstring& tax_id) const {
    Statement rows(
        database_,
        L"SELECT " + text_columns() + L", " + photograph + L" FROM clientes WHERE " + key + L" = ?",
        {Value(tax_id)});
    Customer customer;
    const bool found = rows.next();
    for (std::size_t column = 0; column < CustomerRecord::field_names.size(); ++column) {
        customer.values.push_back(
            {rows.name(column), found ? rows.value(column).to_text() : std::wstring()});
    }
    if (found) customer.photograph = rows.value(CustomerRecord::field_names.size());
    return customer;
}

void CustomerStore::save(const Customer& customer, const std::wstring& known_as) const {
    std::vector<Value> values;
    for (const CustomerRecord::Entry& entry : customer.values) values.emplace_back(entry.text);
    values.push_back(customer.photograph);
    std::wstring text;
    if (known_as.empty()) {
        text = L"INSERT INTO clientes (" + text_columns() + L", " + photograph + L") VALUES (" +
               question_marks() + L")";
    } else {
        text = L"UPDATE clientes SET " + text_columns(L" = ?") + L", " + photograph +
               L" = ? WHERE " + key + L" = ?";
        values.emplace_back(known_as);
    }
    const Statement saved(database_, text, values);
}

}  // namespace ficha
