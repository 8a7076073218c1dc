#include "messages/catalogue.h"

#include <initializer_list>
#include <utility>

#include "runtime/text.h"

namespace kovrel::catalogue {
namespace {

std::wstring join(std::initializer_list<std::wstring_view> pieces) {
    std::wstring text;
    for (const auto piece : pieces) text += piece;
    return text;
}

Notice exclamation(std::wstring title, std::wstring text) {
    return {std::move(text), NoticeStyle::exclamation, std::move(title)};
}

Notice critical(std::wstring title, std::wstring text) {
    return {std::move(text), NoticeStyle::critical, std::move(title)};
}

Notice question(std::wstring title, std::wstring text) {
    return {std::move(text), NoticeStyle::yes_or_no, std::move(title)};
}

/// The name of a field as it stands in a sentence.
std::wstring quoted(std::wstring_view name) {
    return name.empty() ? std::wstring() : join({L"\"", name, L"\" "});
}

Notice date_order(std::wstring title, std::wstring_view date, std::wstring_view order,
                  std::wstring_view other) {
    return exclamation(std::move(title),
                       join({L"La ", date, L" debe ser ", order, L" a la ", other, L"."}));
}

constexpr std::wstring_view save_or_undo =
    L"Antes de realizar la operación \"Guarde\" o \"Deshaga\" los cambios realizados en ";

}  // namespace

Notice form_cannot_open(std::wstring title) {
    return exclamation(std::move(title), L"No es posible abrir el formulario en este momento.");
}

Notice form_has_no_data(std::wstring title, std::wstring_view row_name) {
    return exclamation(std::move(title),
                       join({L"No es posible abrir el formulario en este momento.\r\r"
                             L"No existe ningún ",
                             row_name, L"."}));
}

Notice form_is_open(std::wstring title) {
    return exclamation(std::move(title), L"El formulario ya está abierto desde otra ubicación.");
}

Notice ask_to_reopen_form(std::wstring title) {
    return question(std::move(title),
                    L"El formulario ya está abierto.\r\r¿Desea volver a abrirlo ahora?");
}

Notice choose_list_item(std::wstring title) {
    return exclamation(std::move(title), L"Seleccione un elemento de la lista.");
}

Notice field_is_wrong(std::wstring title, std::wstring_view field_name) {
    return exclamation(std::move(title),
                       join({L"Escriba el dato ", quoted(field_name), L"correctamente."}));
}

Notice field_is_empty(std::wstring title, std::wstring_view field_name) {
    // The two blanks before the name are what users' documents show.
    return exclamation(std::move(title),
                       join({L"El dato  ", quoted(field_name), L"no puede quedar vacío."}));
}

Notice date_is_wrong(std::wstring title) {
    return exclamation(std::move(title), L"Escriba la fecha correctamente.");
}

Notice date_must_be_after(std::wstring title, std::wstring_view date, std::wstring_view earlier) {
    return date_order(std::move(title), date, L"posterior", earlier);
}

Notice date_must_not_be_before(std::wstring title, std::wstring_view date,
                               std::wstring_view earlier) {
    return date_order(std::move(title), date, L"posterior o igual", earlier);
}

Notice date_must_be_before(std::wstring title, std::wstring_view date, std::wstring_view later) {
    return date_order(std::move(title), date, L"anterior", later);
}

Notice date_must_not_be_after(std::wstring title, std::wstring_view date, std::wstring_view later) {
    return date_order(std::move(title), date, L"anterior o igual", later);
}

Notice save_changes_first(std::wstring title) {
    return exclamation(std::move(title), join({save_or_undo, L"el registro."}));
}

Notice save_main_record_first(std::wstring title) {
    return exclamation(std::move(title), join({save_or_undo, L"el registro principal."}));
}

Notice save_table_first(std::wstring title, std::wstring_view table) {
    return exclamation(std::move(title), join({save_or_undo, L"la tabla ", table, L"."}));
}

Notice process_cancelled(std::wstring title) {
    return exclamation(std::move(title), L"Proceso cancelado.");
}

Notice operation_cancelled_by_user(std::wstring title) {
    return exclamation(std::move(title), L"Operación cancelada por el usuario.");
}

Notice operation_failed_ask_supplier(std::wstring title, std::wstring_view error) {
    if (error.empty() || trim(error) == L"0") {
        return critical(std::move(title),
                        L"No ha sido posible realizar la operación. "
                        L"Consulte al proveedor de la aplicación.");
    }
    return critical(std::move(title), join({L"No es posible realizar la operación. "
                                            L"Consulte al proveedor de la aplicación.\r\r",
                                            error}));
}

Notice operation_failed(std::wstring title, std::wstring_view text) {
    if (text.empty()) {
        return critical(std::move(title), L"No ha sido posible realizar la operación.");
    }
    return critical(std::move(title), join({L"No es posible realizar la operación.\r\r", text}));
}

Notice filter_finds_nothing(std::wstring title) {
    return exclamation(std::move(title),
                       L"No existe ningún registro que cumpla las condiciones establecidas.");
}

Notice nothing_to_search(std::wstring title) {
    return {L"No existen registros en donde realizar la búsqueda.", NoticeStyle::information,
            std::move(title)};
}

Notice record_not_found(std::wstring title) {
    return exclamation(std::move(title), L"No se ha encontrado ningún registro.");
}

Notice ask_for_next_record(std::wstring title, std::int16_t total, std::int16_t current) {
    return question(std::move(title),
                    join({L"Registro ", decimal_text(current), L" de ", decimal_text(total),
                          L" registros encontrados.\r\r¿Ir al siguiente?"}));
}

Notice period_cannot_be_invoiced(std::wstring title) {
    return critical(std::move(title),
                    L"No es posible facturar este periodo. Revise las fechas de Alta y Baja del "
                    L"Contrato o seleccione un periodo activo para la facturación.");
}

Notice invoicing_cancelled_by_user(std::wstring title) {
    return exclamation(std::move(title), L"Proceso de facturación cancelado por el usuario.");
}

Notice ask_to_edit_invoices(std::wstring title) {
    return question(std::move(title), L"¿Desea editar la facturación generada?");
}

Notice invoices_not_deleted(std::wstring title) {
    return critical(std::move(title),
                    L"No ha sido posible eliminar las Facturas de Pagador de la tabla "
                    L"\"FACTURAS_PAGADORES\".");
}

Notice invoice_numbers_not_updated(std::wstring title) {
    return critical(std::move(title),
                    L"No ha sido posible actualizar los números de facturas en la tabla "
                    L"\"CONTRATOS\".");
}

Notice database_not_reached(std::wstring title, std::wstring_view description) {
    return critical(std::move(title),
                    join({L"No es posible acceder a la base de datos. "
                          L"Intente enlazar la aplicación al fichero de base de datos.",
                          description.empty() ? L"" : L"\r\r", description}));
}

}  // namespace kovrel::catalogue
