#include "taxid/verifier_notices.h"

namespace kovrel {
namespace {

Notice missing(const wchar_t* text) {
    return {text, NoticeStyle::information, L"Dato incorrecto o falta"};
}

Notice untitled(const wchar_t* text, NoticeStyle style) {
    return {text, style, std::nullopt};
}

}  // namespace

Notice tax_id_to_copy_missing() {
    return missing(L"Escriba el NIF");
}

Notice account_to_copy_missing() {
    return missing(L"Escriba el Código de la Cuenta Bancaria (20 dígitos)");
}

std::optional<Notice> data_entry_notice(std::int32_t code, std::wstring_view active_control) {
    switch (code) {
        case 3162:
        case 3314:
            return untitled(L"El dato no puede quedar vacío.", NoticeStyle::exclamation);
        case 2113:
            return untitled(L"Introduzca el dato correctamente.", NoticeStyle::information);
        case 2279:
            return untitled(
                active_control == L"MkNIF"
                    ? L"Introduzca el NIF correctamente (Ejemplo: \"09123456X\" o \"X9123456Y\")"
                    : L"Introduzca el Código de Cuenta Bancaria correctamente.",
                NoticeStyle::information);
        default:
            return std::nullopt;
    }
}

}  // namespace kovrel
