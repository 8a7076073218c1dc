#include "messages/catalogue.h"

#include <initializer_list>

#include "runtime/text.h"

namespace kovrel::catalogue {
namespace {

Notice exclamation(const std::wstring& title, std::initializer_list<std::wstring_view> text) {
    return {concat(text), NoticeStyle::exclamation, title};
}

Notice critical(const std::wstring& title, std::initializer_list<std::wstring_view> text) {
    return {concat(text), NoticeStyle::critical, title};
}

Notice question(const std::wstring& title, std::initializer_list<std::wstring_view> text) {
    return {concat(text), NoticeStyle::yes_or_no, title};
}

/// The name of a field as it stands in a sentence.
std::wstring quoted(std::wstring_view name) {
    return name.empty() ? std::wstring() : concat({L"\"", name, L"\" "});
}

Notice date_order(const std::wstring& title, std::wstring_view date, std::wstring_view order,
                  std::wstring_view other) {
    return exclamation(title, {L"La ", date, L" debe ser ", order, L" a la ", other, L"."});
}

constexpr std::wstring_view save_or_undo =
    L"Antes de realizar la operación \"Guarde\" o \"Deshaga\" los cambios realizados en ";

}  // namespace

Notice form_cannot_open(const std::wstring& title) {
    return exclamation(title, {L"No es posible abrir el formulario en este momento."});
}

Notice form_has_no_data(const std::wstring& title, std::wstring_view row_name) {
    return exclamation(title, {L"No es posible abrir el formulario en este momento.\r\r"
                               L"No existe ningún ",
                               row_name, L"."});
}

Notice form_is_open(const std::wstring& title) {
    return exclamation(title, {L"El formulario ya está abierto desde otra ubicación."});
}

Notice ask_to_reopen_form(const std::wstring& title) {
    return question(title, {L"El formulario ya está abierto.\r\r¿Desea volver a abrirlo ahora?"});
}

Notice choose_list_item(const std::wstring& title) {
    return exclamation(title, {L"Seleccione un elemento de la lista."});
}

Notice field_is_wrong(const std::wstring& title, std::wstring_view field_name) {
    return exclamation(title, {L"Escriba el dato ", quoted(field_name), L"correctamente."});
}

Notice field_is_empty(const std::wstring& title, std::wstring_view field_name) {
    // The published text has two blanks before the name.
    return exclamation(title, {L"El dato  ", quoted(field_name), L"no puede quedar vacío."});
}

Notice date_is_wrong(const std::wstring& title) {
    return exclamation(title, {L"Escriba la fecha correctamente."});
}

Notice date_must_be_after(const std::wstring& title, std::wstring_view date,
                          std::wstring_view earlier) {
    return date_order(title, date, L"posterior", earlier);
}

Notice date_must_not_be_before(const std::wstring& title, std::wstring_view date,
                               std::wstring_view earlier) {
    return date_order(title, date, L"posterior o igual", earlier);
}

Notice date_must_be_before(const std::wstring& title, std::wstring_view date,
                           std::wstring_view later) {
    return date_order(title, date, L"anterior", later);
}

Notice date_must_not_be_after(const std::wstring& title, std::wstring_view date,
                              std::wstring_view later) {
    return date_order(title, date, L"anterior o igual", later);
}

Notice save_changes_first(const std::wstring& title) {
    return exclamation(title, {save_or_undo, L"el registro."});
}

Notice save_main_record_first(const std::wstring& title) {
    return exclamation(title, {save_or_undo, L"el registro principal."});
}

Notice save_table_first(const std::wstring& title, std::wstring_view table) {
    return exclamation(title, {save_or_undo, L"la tabla ", table, L"."});
}

Notice process_cancelled(const std::wstring& title) {
    return exclamation(title, {L"Proceso cancelado."});
}

Notice operation_cancelled_by_user(const std::wstring& title) {
    return exclamation(title, {L"Operación cancelada por el usuario."});
}

Notice operation_failed_ask_supplier(const std::wstring& title, std::wstring_view error) {
    if (error.empty() || trim(error) == L"0") {
        return critical(title, {L"No ha sido posible realizar la operación. "
                                L"Consulte al proveedor de la aplicación."});
    }
    return critical(title, {L"No es posible realizar la operación. "
                            L"Consulte al proveedor de la aplicación.\r\r",
                            error});
}

Notice operation_failed(const std::wstring& title, std::wstring_view text) {
    if (text.empty()) {
        return critical(title, {L"No ha sido posible realizar la operación."});
    }
    return critical(title, {L"No es posible realizar la operación.\r\r", text});
}

Notice filter_finds_nothing(const std::wstring& title) {
    return exclamation(title,
                       {L"No existe ningún registro que cumpla las condiciones establecidas."});
}

Notice nothing_to_search(const std::wstring& title) {
    return {L"No existen registros en donde realizar la búsqueda.", NoticeStyle::information,
            title};
}

Notice record_not_found(const std::wstring& title) {
    return exclamation(title, {L"No se ha encontrado ningún registro."});
}

Notice ask_for_next_record(const std::wstring& title, std::int16_t total, std::int16_t current) {
    return question(title, {L"Registro ", decimal_text(current), L" de ", decimal_text(total),
                            L" registros encontrados.\r\r¿Ir al siguiente?"});
}

Notice period_cannot_be_invoiced(const std::wstring& title) {
    return critical(title,
                    {L"No es posible facturar este periodo. Revise las fechas de Alta y Baja del "
                     L"Contrato o seleccione un periodo activo para la facturación."});
}

Notice invoicing_cancelled_by_user(const std::wstring& title) {
    return exclamation(title, {L"Proceso de facturación cancelado por el usuario."});
}

Notice ask_to_edit_invoices(const std::wstring& title) {
    return question(title, {L"¿Desea editar la facturación generada?"});
}

Notice invoices_not_deleted(const std::wstring& title) {
    return critical(title, {L"No ha sido posible eliminar las Facturas de Pagador de la tabla "
                            L"\"FACTURAS_PAGADORES\"."});
}

Notice invoice_numbers_not_updated(const std::wstring& title) {
    return critical(title, {L"No ha sido posible actualizar los números de facturas en la tabla "
                            L"\"CONTRATOS\"."});
}

Notice database_not_reached(const std::wstring& title, std::wstring_view description) {
    return critical(title, {L"No es posible acceder a la base de datos. "
                            L"Intente enlazar la aplicación al fichero de base de datos.",
                            description.empty() ? L"" : L"\r\r", description});
}

}  // namespace kovrel::catalogue
