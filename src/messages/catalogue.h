// The standard messages of a data-entry application, one function for each. Every one takes the
// title of its box, the name of the host application, as it stands (it may be empty).
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "runtime/notice.h"

namespace kovrel::catalogue {

/// MsjNoEsPosibleAbrirFormulario
[[nodiscard]] Notice form_cannot_open(std::wstring title);
/// MsjNoEsPosibleAbrirFormulario_NoDatos; `row_name` is the argument as text, nothing for a null.
[[nodiscard]] Notice form_has_no_data(std::wstring title, std::wstring_view row_name);
/// MsjFormularioEstaAbierto
[[nodiscard]] Notice form_is_open(std::wstring title);
/// MsjFormularioEstaAbiertoDeseaVolverAAbrirlo; the system's beep sounds before it.
[[nodiscard]] Notice ask_to_reopen_form(std::wstring title);
/// MsjElegirElementoDeLista
[[nodiscard]] Notice choose_list_item(std::wstring title);
/// MsjEscribaElDatoCorrectamente; `field_name` may be empty.
[[nodiscard]] Notice field_is_wrong(std::wstring title, std::wstring_view field_name);
/// MsjDatoNoVacio; `field_name` may be empty.
[[nodiscard]] Notice field_is_empty(std::wstring title, std::wstring_view field_name);
/// MsjFechaIncorrecta
[[nodiscard]] Notice date_is_wrong(std::wstring title);
/// MsjFechaMayorQue; the two are the names that the user knows the dates by.
[[nodiscard]] Notice date_must_be_after(std::wstring title, std::wstring_view date,
                                        std::wstring_view earlier);
/// MsjFechaMayorIgualQue
[[nodiscard]] Notice date_must_not_be_before(std::wstring title, std::wstring_view date,
                                             std::wstring_view earlier);
/// MsjFechaMenorQue
[[nodiscard]] Notice date_must_be_before(std::wstring title, std::wstring_view date,
                                         std::wstring_view later);
/// MsjFechaMenorIgualQue
[[nodiscard]] Notice date_must_not_be_after(std::wstring title, std::wstring_view date,
                                            std::wstring_view later);
/// MsjGuardarCambiosAntesdeOperacion
[[nodiscard]] Notice save_changes_first(std::wstring title);
/// MsjGuardarCambiosRegistroPrincipal
[[nodiscard]] Notice save_main_record_first(std::wstring title);
/// MsjGuardarCambiosRegistroSecundario
[[nodiscard]] Notice save_table_first(std::wstring title, std::wstring_view table);
/// MsjProcesoCancelado
[[nodiscard]] Notice process_cancelled(std::wstring title);
/// MsjOperacionCanceladaUsuario
[[nodiscard]] Notice operation_cancelled_by_user(std::wstring title);
/// MsjNoEsPosibleRealizarOperacionConsulteProveeedor; an empty error, and one that is "0" between
/// any blanks, is none.
[[nodiscard]] Notice operation_failed_ask_supplier(std::wstring title, std::wstring_view error);
/// MsjNoEsPosibleRealizarOperacionMasTexto; only an empty text is none.
[[nodiscard]] Notice operation_failed(std::wstring title, std::wstring_view text);
/// MsjFiltro_NoExistenResgistrosParaFiltro
[[nodiscard]] Notice filter_finds_nothing(std::wstring title);
/// MsjBus_NoExistenRegistrosParaBusqueda
[[nodiscard]] Notice nothing_to_search(std::wstring title);
/// MsjBus_RegistroNoEncontrado
[[nodiscard]] Notice record_not_found(std::wstring title);
/// MsjBus_IrAlSiguienteRegistro; the parameters in the member's order, the total first.
[[nodiscard]] Notice ask_for_next_record(std::wstring title, std::int16_t total,
                                         std::int16_t current);
/// MsjFact_NoFacturacionPeriodoReviseFechas
[[nodiscard]] Notice period_cannot_be_invoiced(std::wstring title);
/// MsjFact_ProcesoCanceladoUsuario
[[nodiscard]] Notice invoicing_cancelled_by_user(std::wstring title);
/// MsjFact_DeseaEditarFacturacion
[[nodiscard]] Notice ask_to_edit_invoices(std::wstring title);
/// MsjFact_ErrorAlEliminarFacturasPag
[[nodiscard]] Notice invoices_not_deleted(std::wstring title);
/// MsjFact_ErrorAlActualizarNumeracionFacturas
[[nodiscard]] Notice invoice_numbers_not_updated(std::wstring title);
/// MsjBD_ErrorAlAbrirBaseDatos; `description` may be empty.
[[nodiscard]] Notice database_not_reached(std::wstring title, std::wstring_view description);

}  // namespace kovrel::catalogue
