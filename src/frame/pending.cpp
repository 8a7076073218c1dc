// Members whose behaviour is not built yet: each answers failure 445.

#include "dates/clsFFechas.h"
#include "files/cgsFileOpR.h"
#include "frame/clsFGen.h"
#include "messages/clsMensajes.h"
#include "numbers/clsCSQL.h"
#include "runtime/failure.h"
#include "zip/clsFZip.h"

namespace kovrel {

std::wstring clsFFechas::ConvierteAñoA2(const std::int16_t& /*IntAño*/) {
    throw Failure(FailureNumber::action_not_supported);
}

std::wstring clsFFechas::ConvierteAñoA4(std::int16_t& /*IntAño*/) {
    throw Failure(FailureNumber::action_not_supported);
}

std::int16_t clsFFechas::Dias_Anyo(const std::int16_t& /*Anyo*/) {
    throw Failure(FailureNumber::action_not_supported);
}

std::int16_t clsFFechas::Dias_Mes(const std::int16_t& /*Mes*/, const std::int16_t& /*Anyo*/) {
    throw Failure(FailureNumber::action_not_supported);
}

bool clsFFechas::EsBisiesto(std::int16_t /*IntAño*/) {
    throw Failure(FailureNumber::action_not_supported);
}

std::int16_t clsFFechas::SemanasMes(std::int16_t /*IntAño*/, std::int16_t /*IntMes*/) {
    throw Failure(FailureNumber::action_not_supported);
}

std::int16_t clsFFechas::SemanaEnElMes(Date /*DtFecha*/) {
    throw Failure(FailureNumber::action_not_supported);
}

Date clsFFechas::PrimerDiaSemana(const Date& /*DtFecha*/) {
    throw Failure(FailureNumber::action_not_supported);
}

Date clsFFechas::UltimoDiaSemana(const Date& /*DtFecha*/) {
    throw Failure(FailureNumber::action_not_supported);
}

std::wstring clsFFechas::SemanaDel(const Date& /*DtFecha*/) {
    throw Failure(FailureNumber::action_not_supported);
}

Date clsFFechas::PrimerDiaMesActual(std::int16_t& /*Mes*/, std::int16_t& /*Año*/) {
    throw Failure(FailureNumber::action_not_supported);
}

Date clsFFechas::UltimoDiaMesActual(std::int16_t& /*Mes*/, std::int16_t& /*Año*/) {
    throw Failure(FailureNumber::action_not_supported);
}

Date clsFFechas::primerdia_mesanterior(const std::uint8_t& /*Mes*/, const std::int16_t& /*Año*/) {
    throw Failure(FailureNumber::action_not_supported);
}

Date clsFFechas::ultimodia_mesanterior(const std::uint8_t& /*Mes*/, const std::int16_t& /*Año*/) {
    throw Failure(FailureNumber::action_not_supported);
}

std::wstring clsFFechas::mes_letra(const std::uint8_t& /*n_mes*/) {
    throw Failure(FailureNumber::action_not_supported);
}

Date clsFFechas::PideFecha(const std::wstring& /*strMensaje*/, const std::wstring& /*strCaption*/,
                           Date& /*DtFechaDefecto*/) {
    throw Failure(FailureNumber::action_not_supported);
}

void cgsFileOpR::DeleteSetting(std::wstring /*sIniFile*/, std::wstring /*sSection*/,
                               std::wstring /*sKey*/) {
    throw Failure(FailureNumber::action_not_supported);
}

void cgsFileOpR::SplitPath(std::wstring /*sTodo*/, std::wstring& /*sPath*/, Variant& /*vNombre*/,
                           Variant& /*vExt*/) {
    throw Failure(FailureNumber::action_not_supported);
}

std::wstring cgsFileOpR::QuitarCaracterEx(std::wstring /*sValor*/, std::wstring /*sCaracter*/,
                                          Variant /*sPoner*/) {
    throw Failure(FailureNumber::action_not_supported);
}

bool cgsFileOpR::ShowOpen(Variant /*vFileName*/, Variant /*vTitle*/, Variant /*vFilter*/,
                          const Variant& /*vFlags*/, Variant /*vhWnd*/) {
    throw Failure(FailureNumber::action_not_supported);
}

void cgsFileOpR::set_Action(const std::int16_t& /*value*/) {
    throw Failure(FailureNumber::action_not_supported);
}

void cgsFileOpR::set_Filter(std::wstring /*value*/) {
    throw Failure(FailureNumber::action_not_supported);
}

std::wstring cgsFileOpR::LeerIni(std::wstring /*lpFileName*/, std::wstring /*lpAppName*/,
                                 std::wstring /*lpKeyName*/, Variant /*vDefault*/) {
    throw Failure(FailureNumber::action_not_supported);
}

std::wstring cgsFileOpR::GetSetting(std::wstring /*lpFileName*/, std::wstring /*lpAppName*/,
                                    std::wstring /*lpKeyName*/, Variant /*vDefault*/) {
    throw Failure(FailureNumber::action_not_supported);
}

void cgsFileOpR::GuardarIni(std::wstring /*lpFileName*/, std::wstring /*lpAppName*/,
                            std::wstring /*lpKeyName*/, std::wstring /*lpString*/) {
    throw Failure(FailureNumber::action_not_supported);
}

void cgsFileOpR::SaveSetting(std::wstring /*lpFileName*/, std::wstring /*lpAppName*/,
                             std::wstring /*lpKeyName*/, std::wstring /*lpString*/) {
    throw Failure(FailureNumber::action_not_supported);
}

std::wstring cgsFileOpR::AddBackSlash(std::wstring /*sPath*/) {
    throw Failure(FailureNumber::action_not_supported);
}

std::wstring cgsFileOpR::QuitarBackSlash(std::wstring /*sPath*/) {
    throw Failure(FailureNumber::action_not_supported);
}

std::wstring clsCSQL::Conv_Double(const Variant& /*Numero*/) {
    throw Failure(FailureNumber::action_not_supported);
}

std::wstring clsCSQL::Conv_DoubleDeDouble(const double& /*Numero*/) {
    throw Failure(FailureNumber::action_not_supported);
}

std::wstring clsCSQL::Conv_Double4(const Variant& /*Numero*/) {
    throw Failure(FailureNumber::action_not_supported);
}

std::wstring clsCSQL::Conv_Date(const std::wstring& /*Fecha*/) {
    throw Failure(FailureNumber::action_not_supported);
}

std::wstring clsCSQL::Conv_Date_Date(const Date& /*Fecha*/) {
    throw Failure(FailureNumber::action_not_supported);
}

std::int16_t clsCSQL::Conv_Boolean(const bool& /*BooDato*/) {
    throw Failure(FailureNumber::action_not_supported);
}

std::wstring clsCSQL::Conv_String(const std::wstring& /*StrCadena*/) {
    throw Failure(FailureNumber::action_not_supported);
}

std::wstring clsFZip::GenerarZip(const std::wstring& /*strNombreFicheroZip*/,
                                 const std::wstring& /*strRutaSalida*/,
                                 const ZIPnames& /*NombresFicheros1*/) {
    throw Failure(FailureNumber::action_not_supported);
}

void clsFGen::BarraProgresoInicia(std::wstring /*strCaption*/, std::wstring /*strMensaje*/,
                                  bool /*boBotones*/, std::int32_t /*lgAltoMensaje*/,
                                  std::int32_t /*lgAnchoFrm*/, std::int32_t /*lgTopFrm*/,
                                  std::int32_t /*lgLeftFrm*/, std::int32_t /*lgForeColor*/) {
    throw Failure(FailureNumber::action_not_supported);
}

void clsFGen::BarraProgresoFinaliza() {
    throw Failure(FailureNumber::action_not_supported);
}

void clsFGen::BarraProgresoActualiza(const std::int32_t& /*Porcentaje*/,
                                     const std::wstring& /*strMensaje*/) {
    throw Failure(FailureNumber::action_not_supported);
}

void clsFGen::BarraProgreso(const ComPtr<IDispatch>& /*Picture*/,
                            const std::int32_t& /*Porcentaje*/) {
    throw Failure(FailureNumber::action_not_supported);
}

Variant clsFGen::Nz(const Variant& /*Value*/, const Variant& /*ValueNull*/) {
    throw Failure(FailureNumber::action_not_supported);
}

std::int16_t clsFGen::CBolNum(const Variant& /*Value*/) {
    throw Failure(FailureNumber::action_not_supported);
}

void clsFGen::Espera(const float& /*Segundos*/) {
    throw Failure(FailureNumber::action_not_supported);
}

std::wstring clsFGen::redondeoa2(const Variant& /*Cantidad*/) {
    throw Failure(FailureNumber::action_not_supported);
}

std::wstring clsFGen::redondeoa4(const Variant& /*Cantidad*/) {
    throw Failure(FailureNumber::action_not_supported);
}

std::uint8_t clsFGen::ProvinciaDeCP(std::wstring /*CP*/) {
    throw Failure(FailureNumber::action_not_supported);
}

std::int16_t clsFGen::Solo_Numero(std::int16_t& /*pulsa*/, const bool& /*SoloPositivos*/,
                                  const bool& /*boPuntoAComa*/) {
    throw Failure(FailureNumber::action_not_supported);
}

std::int16_t clsFGen::Solo_Fecha(std::int16_t& /*pulsa*/) {
    throw Failure(FailureNumber::action_not_supported);
}

std::int16_t clsFGen::Convierte_May(std::int16_t& /*pulsa*/) {
    throw Failure(FailureNumber::action_not_supported);
}

bool clsFGen::Verifica_CC(const std::wstring& /*CCC*/, const bool& /*BoRequerido*/,
                          const bool& /*BoMsj*/) {
    throw Failure(FailureNumber::action_not_supported);
}

std::wstring clsFGen::DC(const std::wstring& /*banco*/, const std::wstring& /*sucursal*/,
                         const std::wstring& /*cuenta*/) {
    throw Failure(FailureNumber::action_not_supported);
}

std::wstring clsFGen::Banco_CC(const std::wstring& /*CCC*/) {
    throw Failure(FailureNumber::action_not_supported);
}

std::wstring clsFGen::Sucursal_CC(const std::wstring& /*CCC*/) {
    throw Failure(FailureNumber::action_not_supported);
}

std::wstring clsFGen::DC_CC(const std::wstring& /*CCC*/) {
    throw Failure(FailureNumber::action_not_supported);
}

std::wstring clsFGen::Cuenta_CC(const std::wstring& /*CCC*/) {
    throw Failure(FailureNumber::action_not_supported);
}

Variant clsFGen::LanzaVerificadorNIFyCCC() {
    throw Failure(FailureNumber::action_not_supported);
}

std::wstring clsFGen::ConvNumeroALetra(Variant /*Numero*/,
                                       const std::wstring& /*TipoCambioSingular*/,
                                       const std::wstring& /*TipoCambioPlural*/,
                                       const std::wstring& /*subTipoCambioSingular*/,
                                       const std::wstring& /*subTipoCambioPlural*/,
                                       const std::int32_t& /*xInternal*/) {
    throw Failure(FailureNumber::action_not_supported);
}

std::wstring clsFGen::ConvEurosALetra(const double& /*dblNumero*/) {
    throw Failure(FailureNumber::action_not_supported);
}

std::wstring clsFGen::DescripNIFCIF(std::wstring /*strLetra*/) {
    throw Failure(FailureNumber::action_not_supported);
}

bool clsFGen::BarraProgresoCancelada() {
    throw Failure(FailureNumber::action_not_supported);
}

void clsMensajes::MsgFormA(const std::wstring& /*strCaption*/, const std::wstring& /*strMensaje*/,
                           const bool& /*BoFuenteTT*/) {
    throw Failure(FailureNumber::action_not_supported);
}

void clsMensajes::MsjNoEsPosibleAbrirFormulario() {
    throw Failure(FailureNumber::action_not_supported);
}

void clsMensajes::MsjNoEsPosibleAbrirFormulario_NoDatos(const Variant& /*StrNombreFila*/) {
    throw Failure(FailureNumber::action_not_supported);
}

void clsMensajes::MsjFormularioEstaAbierto() {
    throw Failure(FailureNumber::action_not_supported);
}

std::int32_t clsMensajes::MsjFormularioEstaAbiertoDeseaVolverAAbrirlo() {
    throw Failure(FailureNumber::action_not_supported);
}

void clsMensajes::MsjElegirElementoDeLista() {
    throw Failure(FailureNumber::action_not_supported);
}

void clsMensajes::MsjEscribaElDatoCorrectamente(const std::wstring& /*strNombreDato*/) {
    throw Failure(FailureNumber::action_not_supported);
}

void clsMensajes::MsjDatoNoVacio(const std::wstring& /*strNombreDato*/) {
    throw Failure(FailureNumber::action_not_supported);
}

void clsMensajes::MsjFechaIncorrecta() {
    throw Failure(FailureNumber::action_not_supported);
}

void clsMensajes::MsjFechaMayorQue(const std::wstring& /*Fecha*/,
                                   const std::wstring& /*FechaMenor*/) {
    throw Failure(FailureNumber::action_not_supported);
}

void clsMensajes::MsjFechaMayorIgualQue(const std::wstring& /*Fecha*/,
                                        const std::wstring& /*FechaMenor*/) {
    throw Failure(FailureNumber::action_not_supported);
}

void clsMensajes::MsjFechaMenorQue(const std::wstring& /*Fecha*/,
                                   const std::wstring& /*FechaMayor*/) {
    throw Failure(FailureNumber::action_not_supported);
}

void clsMensajes::MsjFechaMenorIgualQue(const std::wstring& /*Fecha*/,
                                        const std::wstring& /*FechaMayor*/) {
    throw Failure(FailureNumber::action_not_supported);
}

void clsMensajes::MsjGuardarCambiosAntesdeOperacion() {
    throw Failure(FailureNumber::action_not_supported);
}

void clsMensajes::MsjGuardarCambiosRegistroPrincipal() {
    throw Failure(FailureNumber::action_not_supported);
}

void clsMensajes::MsjGuardarCambiosRegistroSecundario(const std::wstring& /*NombreRegSecundario*/) {
    throw Failure(FailureNumber::action_not_supported);
}

void clsMensajes::MsjProcesoCancelado() {
    throw Failure(FailureNumber::action_not_supported);
}

void clsMensajes::MsjOperacionCanceladaUsuario() {
    throw Failure(FailureNumber::action_not_supported);
}

void clsMensajes::MsjNoEsPosibleRealizarOperacionConsulteProveeedor(
    const std::wstring& /*strError*/) {
    throw Failure(FailureNumber::action_not_supported);
}

void clsMensajes::MsjNoEsPosibleRealizarOperacionMasTexto(const std::wstring& /*strTexto*/) {
    throw Failure(FailureNumber::action_not_supported);
}

void clsMensajes::MsjFiltro_NoExistenResgistrosParaFiltro() {
    throw Failure(FailureNumber::action_not_supported);
}

void clsMensajes::MsjBus_NoExistenRegistrosParaBusqueda() {
    throw Failure(FailureNumber::action_not_supported);
}

void clsMensajes::MsjBus_RegistroNoEncontrado() {
    throw Failure(FailureNumber::action_not_supported);
}

std::int32_t clsMensajes::MsjBus_IrAlSiguienteRegistro(const std::int16_t& /*IntNReg*/,
                                                       const std::int16_t& /*IntRegAct*/) {
    throw Failure(FailureNumber::action_not_supported);
}

void clsMensajes::MsjFact_NoFacturacionPeriodoReviseFechas() {
    throw Failure(FailureNumber::action_not_supported);
}

void clsMensajes::MsjFact_ProcesoCanceladoUsuario() {
    throw Failure(FailureNumber::action_not_supported);
}

std::int32_t clsMensajes::MsjFact_DeseaEditarFacturacion() {
    throw Failure(FailureNumber::action_not_supported);
}

void clsMensajes::MsjFact_ErrorAlEliminarFacturasPag() {
    throw Failure(FailureNumber::action_not_supported);
}

void clsMensajes::MsjFact_ErrorAlActualizarNumeracionFacturas() {
    throw Failure(FailureNumber::action_not_supported);
}

void clsMensajes::MsjBD_ErrorAlAbrirBaseDatos(const std::wstring& /*StrDescripcion*/) {
    throw Failure(FailureNumber::action_not_supported);
}

}  // namespace kovrel
