#include "messages/catalogue.h"

#include <gtest/gtest.h>
#include <limits>

namespace kovrel {
namespace {

using namespace catalogue;

Notice exclamation(std::wstring text) {
    return {std::move(text), NoticeStyle::exclamation, L"Facturas"};
}
Notice critical(std::wstring text) {
    return {std::move(text), NoticeStyle::critical, L"Facturas"};
}
Notice information(std::wstring text) {
    return {std::move(text), NoticeStyle::information, L"Facturas"};
}
Notice question(std::wstring text) {
    return {std::move(text), NoticeStyle::yes_or_no, L"Facturas"};
}

const std::wstring title = L"Facturas";

TEST(Catalogue, FormMessages) {
    EXPECT_EQ(form_cannot_open(title),
              exclamation(L"No es posible abrir el formulario en este momento."));
    EXPECT_EQ(form_has_no_data(title, L"pagador"),
              exclamation(L"No es posible abrir el formulario en este momento.\r\rNo existe "
                          L"ningún pagador."));
    EXPECT_EQ(form_has_no_data(title, L""),
              exclamation(L"No es posible abrir el formulario en este momento.\r\rNo existe "
                          L"ningún ."));
    EXPECT_EQ(form_is_open(title),
              exclamation(L"El formulario ya está abierto desde otra ubicación."));
    EXPECT_EQ(ask_to_reopen_form(title),
              question(L"El formulario ya está abierto.\r\r¿Desea volver a abrirlo ahora?"));
}

TEST(Catalogue, FieldMessages) {
    EXPECT_EQ(choose_list_item(title), exclamation(L"Seleccione un elemento de la lista."));
    EXPECT_EQ(field_is_wrong(title, L"Importe"),
              exclamation(L"Escriba el dato \"Importe\" correctamente."));
    EXPECT_EQ(field_is_wrong(title, L""), exclamation(L"Escriba el dato correctamente."));
    EXPECT_EQ(field_is_empty(title, L"Importe"),
              exclamation(L"El dato  \"Importe\" no puede quedar vacío."));
    EXPECT_EQ(field_is_empty(title, L""), exclamation(L"El dato  no puede quedar vacío."));
    EXPECT_EQ(field_is_empty(title, L" "), exclamation(L"El dato  \" \" no puede quedar vacío."));
}

TEST(Catalogue, DateMessages) {
    EXPECT_EQ(date_is_wrong(title), exclamation(L"Escriba la fecha correctamente."));
    EXPECT_EQ(date_must_be_after(title, L"Fecha de baja", L"Fecha de alta"),
              exclamation(L"La Fecha de baja debe ser posterior a la Fecha de alta."));
    EXPECT_EQ(date_must_not_be_before(title, L"Fecha de baja", L"Fecha de alta"),
              exclamation(L"La Fecha de baja debe ser posterior o igual a la Fecha de alta."));
    EXPECT_EQ(date_must_be_before(title, L"Fecha de alta", L"Fecha de baja"),
              exclamation(L"La Fecha de alta debe ser anterior a la Fecha de baja."));
    EXPECT_EQ(date_must_not_be_after(title, L"Fecha de alta", L"Fecha de baja"),
              exclamation(L"La Fecha de alta debe ser anterior o igual a la Fecha de baja."));
    EXPECT_EQ(date_must_be_after(title, L"", L""), exclamation(L"La  debe ser posterior a la ."));
}

TEST(Catalogue, UnsavedChanges) {
    EXPECT_EQ(save_changes_first(title),
              exclamation(L"Antes de realizar la operación \"Guarde\" o \"Deshaga\" los cambios "
                          L"realizados en el registro."));
    EXPECT_EQ(save_main_record_first(title),
              exclamation(L"Antes de realizar la operación \"Guarde\" o \"Deshaga\" los cambios "
                          L"realizados en el registro principal."));
    EXPECT_EQ(save_table_first(title, L"LÍNEAS"),
              exclamation(L"Antes de realizar la operación \"Guarde\" o \"Deshaga\" los cambios "
                          L"realizados en la tabla LÍNEAS."));
}

TEST(Catalogue, CancelledAndFailedOperations) {
    EXPECT_EQ(process_cancelled(title), exclamation(L"Proceso cancelado."));
    EXPECT_EQ(operation_cancelled_by_user(title),
              exclamation(L"Operación cancelada por el usuario."));
    const auto without_error = critical(
        L"No ha sido posible realizar la operación. Consulte al proveedor de la aplicación.");
    for (const std::wstring_view error : {L"", L"0", L" 0 ", L"0   "}) {
        EXPECT_EQ(operation_failed_ask_supplier(title, error), without_error);
    }
    const std::wstring with_error =
        L"No es posible realizar la operación. Consulte al proveedor de la aplicación.\r\r";
    for (const std::wstring_view error : {L"Error 91", L" ", L"00", L"0,0", L"\t0", L" 5 "}) {
        EXPECT_EQ(operation_failed_ask_supplier(title, error),
                  critical(with_error + std::wstring(error)));
    }
    EXPECT_EQ(operation_failed(title, L""), critical(L"No ha sido posible realizar la operación."));
    for (const std::wstring_view text : {L"Sin papel", L"0", L"  "}) {
        EXPECT_EQ(operation_failed(title, text),
                  critical(L"No es posible realizar la operación.\r\r" + std::wstring(text)));
    }
}

TEST(Catalogue, FiltersAndSearches) {
    EXPECT_EQ(filter_finds_nothing(title),
              exclamation(L"No existe ningún registro que cumpla las condiciones establecidas."));
    EXPECT_EQ(nothing_to_search(title),
              information(L"No existen registros en donde realizar la búsqueda."));
    EXPECT_EQ(record_not_found(title), exclamation(L"No se ha encontrado ningún registro."));
    EXPECT_EQ(ask_for_next_record(title, 12, 3),
              question(L"Registro 3 de 12 registros encontrados.\r\r¿Ir al siguiente?"));
    EXPECT_EQ(ask_for_next_record(title, std::numeric_limits<std::int16_t>::max(),
                                  std::numeric_limits<std::int16_t>::min()),
              question(L"Registro -32768 de 32767 registros encontrados.\r\r¿Ir al siguiente?"));
}

TEST(Catalogue, Invoicing) {
    EXPECT_EQ(period_cannot_be_invoiced(title),
              critical(L"No es posible facturar este periodo. Revise las fechas de Alta y Baja "
                       L"del Contrato o seleccione un periodo activo para la facturación."));
    EXPECT_EQ(invoicing_cancelled_by_user(title),
              exclamation(L"Proceso de facturación cancelado por el usuario."));
    EXPECT_EQ(ask_to_edit_invoices(title), question(L"¿Desea editar la facturación generada?"));
    EXPECT_EQ(invoices_not_deleted(title),
              critical(L"No ha sido posible eliminar las Facturas de Pagador de la tabla "
                       L"\"FACTURAS_PAGADORES\"."));
    EXPECT_EQ(invoice_numbers_not_updated(title),
              critical(L"No ha sido posible actualizar los números de facturas en la tabla "
                       L"\"CONTRATOS\"."));
}

TEST(Catalogue, Database) {
    const std::wstring text =
        L"No es posible acceder a la base de datos. Intente enlazar la aplicación al fichero de "
        L"base de datos.";
    EXPECT_EQ(database_not_reached(title, L""), critical(text));
    EXPECT_EQ(database_not_reached(title, L"Disco lleno"), critical(text + L"\r\rDisco lleno"));
    EXPECT_EQ(database_not_reached(title, L" "), critical(text + L"\r\r "));
}

TEST(Catalogue, ATitleThatWasNeverSetIsEmptyNotAbsent) {
    EXPECT_EQ(process_cancelled(L"").title, L"");
}

}  // namespace
}  // namespace kovrel
