// clsMensajes: the catalogue of standard messages. Only the one of the database is guarded; a
// failure in any other reaches the host.
#include <windows.h>

#include "library/clsMensajes.h"
#include "messages/catalogue.h"
#include "services/guarded.h"
#include "services/message_box.h"

namespace kovrel {

void clsMensajes::MsjNoEsPosibleAbrirFormulario() {
    show(catalogue::form_cannot_open(app_origen()));
}

void clsMensajes::MsjNoEsPosibleAbrirFormulario_NoDatos(const Variant& StrNombreFila) {
    show(catalogue::form_has_no_data(app_origen(), StrNombreFila.to_text_or_empty()));
}

void clsMensajes::MsjFormularioEstaAbierto() {
    show(catalogue::form_is_open(app_origen()));
}

std::int32_t clsMensajes::MsjFormularioEstaAbiertoDeseaVolverAAbrirlo() {
    MessageBeep(MB_OK);
    return show(catalogue::ask_to_reopen_form(app_origen()));
}

void clsMensajes::MsjElegirElementoDeLista() {
    show(catalogue::choose_list_item(app_origen()));
}

void clsMensajes::MsjEscribaElDatoCorrectamente(const std::wstring& strNombreDato) {
    show(catalogue::field_is_wrong(app_origen(), strNombreDato));
}

void clsMensajes::MsjDatoNoVacio(const std::wstring& strNombreDato) {
    show(catalogue::field_is_empty(app_origen(), strNombreDato));
}

void clsMensajes::MsjFechaIncorrecta() {
    show(catalogue::date_is_wrong(app_origen()));
}

void clsMensajes::MsjFechaMayorQue(const std::wstring& Fecha, const std::wstring& FechaMenor) {
    show(catalogue::date_must_be_after(app_origen(), Fecha, FechaMenor));
}

void clsMensajes::MsjFechaMayorIgualQue(const std::wstring& Fecha, const std::wstring& FechaMenor) {
    show(catalogue::date_must_not_be_before(app_origen(), Fecha, FechaMenor));
}

void clsMensajes::MsjFechaMenorQue(const std::wstring& Fecha, const std::wstring& FechaMayor) {
    show(catalogue::date_must_be_before(app_origen(), Fecha, FechaMayor));
}

void clsMensajes::MsjFechaMenorIgualQue(const std::wstring& Fecha, const std::wstring& FechaMayor) {
    show(catalogue::date_must_not_be_after(app_origen(), Fecha, FechaMayor));
}

void clsMensajes::MsjGuardarCambiosAntesdeOperacion() {
    show(catalogue::save_changes_first(app_origen()));
}

void clsMensajes::MsjGuardarCambiosRegistroPrincipal() {
    show(catalogue::save_main_record_first(app_origen()));
}

void clsMensajes::MsjGuardarCambiosRegistroSecundario(const std::wstring& NombreRegSecundario) {
    show(catalogue::save_table_first(app_origen(), NombreRegSecundario));
}

void clsMensajes::MsjProcesoCancelado() {
    show(catalogue::process_cancelled(app_origen()));
}

void clsMensajes::MsjOperacionCanceladaUsuario() {
    show(catalogue::operation_cancelled_by_user(app_origen()));
}

void clsMensajes::MsjNoEsPosibleRealizarOperacionConsulteProveeedor(const std::wstring& strError) {
    show(catalogue::operation_failed_ask_supplier(app_origen(), strError));
}

void clsMensajes::MsjNoEsPosibleRealizarOperacionMasTexto(const std::wstring& strTexto) {
    show(catalogue::operation_failed(app_origen(), strTexto));
}

void clsMensajes::MsjFiltro_NoExistenResgistrosParaFiltro() {
    show(catalogue::filter_finds_nothing(app_origen()));
}

void clsMensajes::MsjBus_NoExistenRegistrosParaBusqueda() {
    show(catalogue::nothing_to_search(app_origen()));
}

void clsMensajes::MsjBus_RegistroNoEncontrado() {
    show(catalogue::record_not_found(app_origen()));
}

std::int32_t clsMensajes::MsjBus_IrAlSiguienteRegistro(const std::int16_t& IntNReg,
                                                       const std::int16_t& IntRegAct) {
    return show(catalogue::ask_for_next_record(app_origen(), IntNReg, IntRegAct));
}

void clsMensajes::MsjFact_NoFacturacionPeriodoReviseFechas() {
    show(catalogue::period_cannot_be_invoiced(app_origen()));
}

void clsMensajes::MsjFact_ProcesoCanceladoUsuario() {
    show(catalogue::invoicing_cancelled_by_user(app_origen()));
}

std::int32_t clsMensajes::MsjFact_DeseaEditarFacturacion() {
    return show(catalogue::ask_to_edit_invoices(app_origen()));
}

void clsMensajes::MsjFact_ErrorAlEliminarFacturasPag() {
    show(catalogue::invoices_not_deleted(app_origen()));
}

void clsMensajes::MsjFact_ErrorAlActualizarNumeracionFacturas() {
    show(catalogue::invoice_numbers_not_updated(app_origen()));
}

void clsMensajes::MsjBD_ErrorAlAbrirBaseDatos(const std::wstring& StrDescripcion) {
    guarded({L") en procedimiento MsjBD_ErrorAlAbrirBaseDatos del Módulo de clase clsMensajes."},
            [&] { show(catalogue::database_not_reached(app_origen(), StrDescripcion)); });
}

}  // namespace kovrel
