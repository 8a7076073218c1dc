#include "customer_form.h"

#include <commctrl.h>
#include <commdlg.h>

#include "customer_export.h"
#include "resource.h"

namespace ficha {
namespace {

constexpr UINT field_left_message = WM_APP;

std::wstring day_month_year(DATE date) {
    SYSTEMTIME time{};
    VariantTimeToSystemTime(date, &time);
    std::wstring text(11, L'\0');
    swprintf(text.data(), text.size(), L"%02u/%02u/%04u", time.wDay, time.wMonth, time.wYear);
    text.pop_back();
    return text;
}

}  // namespace

CustomerForm::CustomerForm(const Library& library, std::filesystem::path folder,
                           const CustomerStore* customers, const std::wstring& title)
    : library_(library), folder_(std::move(folder)), customers_(customers), title_(title) {}

void CustomerForm::run() {
    DialogBoxParamW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDD_CUSTOMER), nullptr, &procedure,
                    reinterpret_cast<LPARAM>(this));
}

INT_PTR CALLBACK CustomerForm::procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    if (message == WM_INITDIALOG) {
        reinterpret_cast<CustomerForm*>(lparam)->window_ = window;
        SetWindowLongPtrW(window, DWLP_USER, lparam);
    }
    auto* const form = reinterpret_cast<CustomerForm*>(GetWindowLongPtrW(window, DWLP_USER));
    if (form == nullptr) return FALSE;
    try {
        return form->handle(message, wparam, lparam) ? TRUE : FALSE;
    } catch (const Failure& failure) {
        MessageBoxW(window, failure.description.c_str(), L"Clientes", MB_ICONERROR);
    }
    return TRUE;
}

bool CustomerForm::handle(UINT message, WPARAM wparam, LPARAM lparam) {
    switch (message) {
        case WM_INITDIALOG:
            load();
            return true;
        case WM_COMMAND: {
            const UINT event = HIWORD(wparam);
            const int id = LOWORD(wparam);
            const bool left = event == (id == IDC_PAYMENT ? CBN_KILLFOCUS : EN_KILLFOCUS);
            // Posted, because the focus is still changing when the field is notified.
            if (fields_.contains(id) && left && !busy_) {
                PostMessageW(window_, field_left_message, static_cast<WPARAM>(id), 0);
            } else if (event == BN_CLICKED && !busy_) {
                command(id);
            }
            return true;
        }
        case field_left_message:
            field_left(static_cast<int>(wparam));
            return true;
        case WM_DRAWITEM:
            photograph_.draw(*reinterpret_cast<const DRAWITEMSTRUCT*>(lparam));
            return true;
        default:
            return false;
    }
}

void CustomerForm::add_text(int id, const wchar_t* name, int max_length, const wchar_t* hint) {
    HWND const control = GetDlgItem(window_, id);
    fields_[id] = Owner<FormControl>(new TextBox(control, name, max_length));
    SendMessageW(control, EM_SETCUEBANNER, FALSE, reinterpret_cast<LPARAM>(hint));
}

void CustomerForm::load() {
    add_text(IDC_NAME, L"Nombre", 60);
    add_text(IDC_TAX_ID, L"NIF", 14);
    add_text(IDC_POSTAL_CODE, L"Código postal", 5);
    add_text(IDC_ACCOUNT, L"Cuenta", 20, L"20 dígitos");
    add_text(IDC_START, L"fecha de alta", 10, L"dd/mm/aaaa");
    add_text(IDC_END, L"fecha de baja", 10, L"dd/mm/aaaa");
    add_text(IDC_BALANCE, L"Saldo", 15);
    fields_[IDC_PAYMENT] =
        Owner<FormControl>(new ComboBox(GetDlgItem(window_, IDC_PAYMENT), L"Forma de pago"));
    library_.general.call(L"CargaComboDeRecordset",
                          {object(IDC_PAYMENT), payment_methods().value()});

    const auto filter = [this](int id, KeyFilter::Accepts accepts) {
        filters_.push_back(
            std::make_unique<KeyFilter>(fields_.at(id)->window(), library_.general, accepts));
    };
    filter(IDC_TAX_ID, KeyFilter::Accepts::capitals);
    filter(IDC_START, KeyFilter::Accepts::date);
    filter(IDC_END, KeyFilter::Accepts::date);
    filter(IDC_BALANCE, KeyFilter::Accepts::amount);
    for (const int id : {IDC_PREVIOUS, IDC_NEXT, IDC_NEW, IDC_UNDO}) {
        EnableWindow(GetDlgItem(window_, id), customers_ != nullptr);
    }
    SetWindowTextW(window_, title_.c_str());
    start_new();
    if (customers_ != nullptr && !customers_->tax_ids().empty()) browse(1);
}

void CustomerForm::command(int id) {
    switch (id) {
        case IDC_ASK_START:
            ask_date(IDC_START, L"¿Desde qué fecha es cliente?");
            break;
        case IDC_ASK_END:
            ask_date(IDC_END, L"¿En qué fecha se dio de baja?");
            break;
        case IDC_ASK_PHOTOGRAPH:
            ask_photograph();
            break;
        case IDC_PREVIOUS:
            if (leaves()) browse(-1);
            break;
        case IDC_NEXT:
            if (leaves()) browse(1);
            break;
        case IDC_NEW:
            if (leaves()) start_new();
            break;
        case IDC_UNDO:
            show(Customer(shown_));
            break;
        case IDC_SAVE:
            if (save()) set_label(IDC_STATUS, L"Cliente guardado.");
            break;
        case IDC_EXPORT:
            if (save()) export_record();
            break;
        case IDCANCEL:
            if (leaves()) EndDialog(window_, 0);
            break;
        default:
            break;
    }
}

void CustomerForm::field_left(int id) {
    HWND const now = GetFocus();
    HWND const field = fields_.at(id)->window();
    // Another window is active, the focus is back in the field, or the user is closing the form.
    const bool elsewhere = now == nullptr || !IsChild(window_, now);
    const bool back = now == field || IsChild(field, now);
    if (busy_ || elsewhere || back || now == GetDlgItem(window_, IDCANCEL)) return;
    // Undoes the selection that a closed list leaves.
    SendMessageW(fields_.at(IDC_PAYMENT)->window(), CB_SETEDITSEL, 0, MAKELPARAM(-1, 0));
    accepts(id);
}

void CustomerForm::ask_date(int field, const wchar_t* question) {
    const Busy showing(*this);
    const Value written(text(field));
    const Value proposed = Value::of_date(written.reads_as_date() ? written.to_date() : 0);
    const Value chosen =
        library_.dates.call(L"PideFecha", {Value(question), Value(L"Clientes"), proposed});
    fields_.at(field)->set_text(day_month_year(chosen.to_date()));
    go_to(field);
}

void CustomerForm::ask_photograph() {
    const Busy showing(*this);
    const Value flags(
        std::int32_t{OFN_HIDEREADONLY | OFN_FILEMUSTEXIST | OFN_PATHMUSTEXIST | OFN_EXPLORER});
    const Value owner(static_cast<std::int32_t>(reinterpret_cast<INT_PTR>(window_)));
    const bool chosen =
        library_.files
            .call(L"ShowOpen",
                  {Value(L""), Value(L"Elegir la fotografía"),
                   Value(L"Imágenes (*.bmp;*.jpg;*.gif)|*.bmp;*.jpg;*.gif"), flags, owner})
            .to_bool();
    if (!chosen) return;
    photograph_file_ = library_.files.get(L"FileName").to_text();
    const Value field = record_.photograph_field();
    library_.images.call(L"PutImageInField", {field, Value(photograph_file_.wstring())});
    photograph_.set(library_.images.call(L"GetImageFromField", {field}));
    photograph_is_new_ = true;
    InvalidateRect(GetDlgItem(window_, IDC_PHOTOGRAPH), nullptr, FALSE);
}

bool CustomerForm::save() {
    set_label(IDC_STATUS, L"");
    if (!accepts_all()) return false;
    current();
    return customers_ == nullptr || keep();
}

void CustomerForm::export_record() {
    const Busy showing(*this);
    export_customer(library_, {folder_, record_.values(), photograph_file_});
}

Value CustomerForm::object(int id) const {
    return Value(fields_.at(id).get());
}

void CustomerForm::set_label(int id, const std::wstring& text) {
    SetDlgItemTextW(window_, id, text.c_str());
}

void CustomerForm::go_to(int id) {
    SendMessageW(window_, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(fields_.at(id)->window()), TRUE);
}

}  // namespace ficha
