// The standard messages of a data-entry application, one function for each. Every one takes the
// title of its box, the name of the host application, as it stands (it may be empty).
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "runtime/notice.h"

namespace kovrel::catalogue {

/// MsjNoEsPosibleAbrirFormulario
[[nodiscard]] Notice form_cannot_open(const std::wstring& title);
/// MsjNoEsPosibleAbrirFormulario_NoDatos; `row_name` is the argument as text, nothing for a null.
[[nodiscard]] Notice form_has_no_data(const std::wstring& title, std::wstring_view row_name);
/// MsjFormularioEstaAbierto
[[nodiscard]] Notice form_is_open(const std::wstring& title);
/// MsjFormularioEstaAbiertoDeseaVolverAAbrirlo; the system's beep sounds before it.
[[nodiscard]] Notice ask_to_reopen_form(const std::wstring& title);
/// MsjElegirElementoDeLista
[[nodiscard]] Notice choose_list_item(const std::wstring& title);
/// MsjEscribaElDatoCorrectamente; `field_name` may be empty.
[[nodiscard]] Notice field_is_wrong(const std::wstring& title, std::wstring_view field_name);
/// MsjDatoNoVacio; `field_name` may be empty.
[[nodiscard]] Notice field_is_empty(const std::wstring& title, std::wstring_view field_name);
/// MsjFechaIncorrecta
[[nodiscard]] Notice date_is_wrong(const std::wstring& title);
/// MsjFechaMayorQue; the two are the names that the user knows the dates by.
[[nodiscard]] Notice date_must_be_after(const std::wstring& title, std::wstring_view date,
                                        std::wstring_view earlier);
/// MsjFechaMayorIgualQue
[[nodiscard]] Notice date_must_not_be_before(const std::wstring& title, std::wstring_view date,
                                             std::wstring_view earlier);
/// MsjFechaMenorQue
[[nodiscard]] Notice date_must_be_before(const std::wstring& title, std::wstring_view date,
                                         std::wstring_view later);
/// MsjFechaMenorIgualQue
[[nodiscard]] Notice date_must_not_be_after(const std::wstring& title, std::wstring_view date,
                                            std::wstring_view later);
/// MsjGuardarCambiosAntesdeOperacion
[[nodiscard]] Notice save_changes_first(const std::wstring& title);
/// MsjGuardarCambiosRegistroPrincipal
[[nodiscard]] Notice save_main_record_first(const std::wstring& title);
/// MsjGuardarCambiosRegistroSecundario
[[nodiscard]] Notice save_table_first(const std::wstring& title, std::wstring_view table);
/// MsjProcesoCancelado
[[nodiscard]] Notice process_cancelled(const std::wstring& title);
/// MsjOperacionCanceladaUsuario
[[nodiscard]] Notice operation_cancelled_by_user(const std::wstring& title);
/// MsjNoEsPosibleRealizarOperacionConsulteProveeedor; an empty error, or "0" between any blanks,
/// stands for no error.
[[nodiscard]] Notice operation_failed_ask_supplier(const std::wstring& title,
                                                   std::wstring_view error);
/// MsjNoEsPosibleRealizarOperacionMasTexto; only an empty text stands for none.
[[nodiscard]] Notice operation_failed(const std::wstring& title, std::wstring_view text);
/// MsjFiltro_NoExistenResgistrosParaFiltro
[[nodiscard]] Notice filter_finds_nothing(const std::wstring& title);
/// MsjBus_NoExistenRegistrosParaBusqueda
[[nodiscard]] Notice nothing_to_search(const std::wstring& title);
/// MsjBus_RegistroNoEncontrado
[[nodiscard]] Notice record_not_found(const std::wstring& title);
/// MsjBus_IrAlSiguienteRegistro; the parameters in the member's order, the total first.
[[nodiscard]] Notice ask_for_next_record(const std::wstring& title, std::int16_t total,
                                         std::int16_t current);
/// MsjFact_NoFacturacionPeriodoReviseFechas
[[nodiscard]] Notice period_cannot_be_invoiced(const std::wstring& title);
/// MsjFact_ProcesoCanceladoUsuario
[[nodiscard]] Notice invoicing_cancelled_by_user(const std::wstring& title);
/// MsjFact_DeseaEditarFacturacion
[[nodiscard]] Notice ask_to_edit_invoices(const std::wstring& title);
/// MsjFact_ErrorAlEliminarFacturasPag
[[nodiscard]] Notice invoices_not_deleted(const std::wstring& title);
/// MsjFact_ErrorAlActualizarNumeracionFacturas
[[nodiscard]] Notice invoice_numbers_not_updated(const std::wstring& title);
/// MsjBD_ErrorAlAbrirBaseDatos; `description` may be empty.
[[nodiscard]] Notice database_not_reached(const std::wstring& title, std::wstring_view description);

}  // namespace kovrel::catalogue
