// A small customer form, as a host writes it: each field is checked by the library, late-bound,
// when the user leaves it. The library tells the user what is wrong and gives the focus back.
#include <windows.h>

#include <functional>
#include <vector>

#include "automation/host_object.h"
#include "runtime/failure.h"
#include "tests/support/host_controls.h"

namespace {

using kovrel::ComPtr;
using kovrel::HostObject;
using kovrel::Variant;
using kovrel::test::HostControl;
using kovrel::test::HostForm;

ComPtr<IDispatch> create(const wchar_t* prog_id) {
    CLSID id{};
    ComPtr<IDispatch> instance;
    if (SUCCEEDED(CLSIDFromProgID(prog_id, &id))) {
        CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch, instance.put_void());
    }
    return instance;
}

/// A field and what is done when it is left.
struct Field {
    HostControl control;
    std::function<void(const HostControl&)> leave;
};

class CustomerForm {
 public:
    CustomerForm() : form_(L"Ficha de cliente"), general_(create(L"Kovrel.clsFGen")) {
        general_.put(L"AppOrigen", Variant(L"Clientes"));
        add(form_.add_text(L"Nombre", 40),
            [this](const HostControl& field) { check(L"Requerido", field); });
        add(form_.add_text(L"NIF", 14),
            [this](const HostControl& field) { correct_tax_id(field); });
        add(form_.add_text(L"Código postal", 5),
            [this](const HostControl& field) { check(L"LongitudExacta", field); });
        add(form_.add_masked_date(L"Fecha de alta"),
            [this](const HostControl& field) { check(L"FechaCorrecta", field); });
        add(form_.add_combo(L"Forma de pago", {L"Contado", L"Domiciliación", L"Transferencia"}),
            [this](const HostControl& field) { check(L"ValidateComboALista", field); });
        SetFocus(fields_.front().control.window);
    }

    void run() {
        HWND focus = GetFocus();
        MSG message;
        while (IsWindow(form_.window()) && GetMessageW(&message, nullptr, 0, 0) > 0) {
            if (!IsDialogMessageW(form_.window(), &message)) {
                TranslateMessage(&message);
                DispatchMessageW(&message);
            }
            HWND const now = GetFocus();
            if (now == focus || now == nullptr) continue;
            left(focus);
            focus = GetFocus();
        }
    }

 private:
    void add(HostControl control, std::function<void(const HostControl&)> leave) {
        fields_.push_back({std::move(control), std::move(leave)});
    }

    void left(HWND window) const {
        for (const Field& field : fields_) {
            if (field.control.window == window) field.leave(field.control);
        }
    }

    void check(const wchar_t* validator, const HostControl& field) const {
        general_.call(validator, {Variant(field.object.query<IDispatch>())});
    }

    void correct_tax_id(const HostControl& field) const {
        if (field.text().empty()) return;
        field.set_text(general_.call(L"Verifica_NIF", {Variant(field.text())}).to_text());
    }

    HostForm form_;
    HostObject general_;
    std::vector<Field> fields_;
};

}  // namespace

int WINAPI wWinMain(HINSTANCE /*module*/, HINSTANCE /*previous*/, wchar_t* /*line*/, int /*show*/) {
    OleInitialize(nullptr);
    try {
        CustomerForm().run();
    } catch (const kovrel::Failure& failure) {
        MessageBoxW(nullptr, failure.description().data(), L"Ficha de cliente", MB_ICONERROR);
        return 1;
    }
    return 0;
}
