// The checks of the customer form. The library's validators answer true when a field is wrong; by
// then they have told the user and put the focus back on the field.
#include "customer_form.h"
#include "provinces.h"
#include "resource.h"

namespace ficha {

bool CustomerForm::passes(const wchar_t* validator, Object::Arguments arguments) {
    const Busy showing(*this);
    return !library_.general.call(validator, arguments).to_bool();
}

bool CustomerForm::accepts(int id) {
    const Value empty_allowed(true);
    switch (id) {
        case IDC_NAME:
            return passes(L"Requerido", {object(id)});
        case IDC_TAX_ID:
            return correct_tax_id();
        case IDC_POSTAL_CODE:
            return show_province();
        case IDC_ACCOUNT:
            return check_account();
        case IDC_START:
            return passes(L"FechaCorrecta", {object(id), empty_allowed});
        case IDC_END:
            return passes(L"FechaCorrecta", {object(id), empty_allowed}) &&
                   passes(L"FechaMayorIgualQue", {object(id), object(IDC_START)});
        case IDC_PAYMENT:
            return passes(L"ValidateComboALista", {object(id)});
        case IDC_BALANCE:
            return show_balance();
        default:
            return true;
    }
}

bool CustomerForm::accepts_all() {
    for (const int id : {IDC_NAME, IDC_TAX_ID, IDC_START, IDC_PAYMENT}) {
        if (!passes(L"Requerido", {object(id)})) return false;
    }
    for (const int id :
         {IDC_TAX_ID, IDC_POSTAL_CODE, IDC_ACCOUNT, IDC_START, IDC_END, IDC_PAYMENT, IDC_BALANCE}) {
        if (!accepts(id)) return false;
    }
    return true;
}

/// A wrong letter is replaced by the right one; a company's number cannot be corrected.
bool CustomerForm::correct_tax_id() {
    if (text(IDC_TAX_ID).empty()) return true;
    const Busy showing(*this);
    const std::wstring right =
        library_.general.call(L"Verifica_NIF", {Value(text(IDC_TAX_ID))}).to_text();
    if (right.empty()) {
        go_to(IDC_TAX_ID);
        return false;
    }
    fields_.at(IDC_TAX_ID)->set_text(right);
    return true;
}

bool CustomerForm::show_province() {
    const Value empty_allowed(true);
    set_label(IDC_PROVINCE, L"");
    if (!passes(L"LongitudExacta", {object(IDC_POSTAL_CODE), empty_allowed})) return false;
    if (text(IDC_POSTAL_CODE).empty()) return true;
    const Value number = library_.general.call(L"ProvinciaDeCP", {Value(text(IDC_POSTAL_CODE))});
    set_label(IDC_PROVINCE, province_name(number.to_int32()));
    return true;
}

bool CustomerForm::check_account() {
    const Busy showing(*this);
    const bool required = false;
    const bool name_right_digits = true;
    const Value account(text(IDC_ACCOUNT));
    if (library_.general.call(L"Verifica_CC", {account, Value(required), Value(name_right_digits)})
            .to_bool()) {
        return true;
    }
    go_to(IDC_ACCOUNT);
    return false;
}

/// With two decimals, and in words.
bool CustomerForm::show_balance() {
    set_label(IDC_BALANCE_WORDS, L"");
    const Value written(text(IDC_BALANCE));
    if (text(IDC_BALANCE).empty()) return true;
    const Busy showing(*this);
    if (!written.reads_as_number()) {
        library_.messages.call(L"MsjEscribaElDatoCorrectamente", {Value(L"Saldo")});
        go_to(IDC_BALANCE);
        return false;
    }
    const Value rounded = library_.general.call(L"redondeoa2", {written});
    fields_.at(IDC_BALANCE)->set_text(rounded.to_text());
    set_label(IDC_BALANCE_WORDS,
              library_.general.call(L"ConvEurosALetra", {Value(rounded.to_double())}).to_text());
    return true;
}

}  // namespace ficha
