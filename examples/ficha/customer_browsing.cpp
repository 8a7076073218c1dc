// The customers of the database on the form: one after the other, new ones, and their changes.
#include <algorithm>

#include "customer_form.h"
#include "resource.h"

namespace ficha {

/// What the form shows now.
Customer CustomerForm::current() {
    std::vector<CustomerRecord::Entry> entries;
    for (const auto& [id, field] : fields_) entries.push_back({field->name(), field->text()});
    record_.store(entries);
    return {record_.values(), Object(record_.photograph_field()).get(L"Value")};
}

/// False while there are changes that would be lost, which the user is told.
bool CustomerForm::leaves() {
    if (customers_ == nullptr || (!photograph_is_new_ && current().values == shown_.values)) {
        return true;
    }
    const Busy showing(*this);
    library_.messages.call(L"MsjGuardarCambiosAntesdeOperacion");
    return false;
}

/// Goes so many customers on or, below zero, back; from a new one to the first or the last.
void CustomerForm::browse(int step) {
    const std::vector<std::wstring> tax_ids = customers_->tax_ids();
    const auto count = static_cast<int>(tax_ids.size());
    const auto known = std::find(tax_ids.begin(), tax_ids.end(), known_as_);
    int place = static_cast<int>(known - tax_ids.begin()) + step;
    if (known == tax_ids.end()) place = step > 0 ? 0 : count - 1;
    if (place < 0 || place >= count) {
        set_label(IDC_STATUS, L"No hay más clientes.");
        return;
    }
    known_as_ = tax_ids[static_cast<std::size_t>(place)];
    show(customers_->load(known_as_));
}

void CustomerForm::start_new() {
    known_as_.clear();
    Customer nobody;
    for (const wchar_t* const name : CustomerRecord::field_names) {
        nobody.values.push_back({name, {}});
    }
    show(nobody);
}

void CustomerForm::show(const Customer& customer) {
    shown_ = customer;
    record_.store(customer.values);
    const std::vector<CustomerRecord::Entry> values = record_.values();
    for (const auto& [id, field] : fields_) {
        for (const CustomerRecord::Entry& value : values) {
            if (CustomerRecord::is_same_name(value.field, field->name())) {
                field->set_text(value.text);
            }
        }
    }
    const Value picture = record_.photograph_field();
    Object(picture).put(L"Value", customer.photograph);
    const bool has_photograph = (customer.photograph.vt & VT_ARRAY) != 0;
    photograph_.set(has_photograph ? library_.images.call(L"GetImageFromField", {picture})
                                   : Value(static_cast<IDispatch*>(nullptr)));
    photograph_file_.clear();
    photograph_is_new_ = false;
    InvalidateRect(GetDlgItem(window_, IDC_PHOTOGRAPH), nullptr, TRUE);
    show_province();
    show_balance();
    set_label(IDC_STATUS, known_as_.empty() ? L"Cliente nuevo." : L"");
    go_to(IDC_NAME);
}

/// Into the database. False when it refuses, which the user is told; the form then stays as it is.
bool CustomerForm::keep() {
    Customer customer = current();
    try {
        customers_->save(customer, known_as_);
    } catch (const DatabaseFailure& failure) {
        const Busy showing(*this);
        library_.messages.call(L"MsjNoEsPosibleRealizarOperacionMasTexto",
                               {Value(failure.description)});
        return false;
    }
    known_as_ = text(IDC_TAX_ID);
    shown_ = std::move(customer);
    photograph_is_new_ = false;
    return true;
}

}  // namespace ficha
