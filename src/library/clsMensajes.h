// The catalogue of standard messages, and what the library says of itself.
#pragma once

#include <cstdint>
#include <string>

#include "automation/class_info.h"
#include "automation/com_ptr.h"
#include "automation/native_type.h"
#include "library/app_origin.h"

namespace kovrel {

class clsProfile;

class clsMensajes : public AppOrigen {
 public:
    static const ClassInfo class_info;

    clsMensajes();

    std::wstring get_ArchiVersion();
    std::wstring get_ArchiInformacion();
    void MsgFormA(const std::wstring& strCaption, const std::wstring& strMensaje,
                  const bool& BoFuenteTT);
    void MsjNoEsPosibleAbrirFormulario();
    void MsjNoEsPosibleAbrirFormulario_NoDatos(const Variant& StrNombreFila);
    void MsjFormularioEstaAbierto();
    std::int32_t MsjFormularioEstaAbiertoDeseaVolverAAbrirlo();
    void MsjElegirElementoDeLista();
    void MsjEscribaElDatoCorrectamente(const std::wstring& strNombreDato);
    void MsjDatoNoVacio(const std::wstring& strNombreDato);
    void MsjFechaIncorrecta();
    void MsjFechaMayorQue(const std::wstring& Fecha, const std::wstring& FechaMenor);
    void MsjFechaMayorIgualQue(const std::wstring& Fecha, const std::wstring& FechaMenor);
    void MsjFechaMenorQue(const std::wstring& Fecha, const std::wstring& FechaMayor);
    void MsjFechaMenorIgualQue(const std::wstring& Fecha, const std::wstring& FechaMayor);
    void MsjGuardarCambiosAntesdeOperacion();
    void MsjGuardarCambiosRegistroPrincipal();
    void MsjGuardarCambiosRegistroSecundario(const std::wstring& NombreRegSecundario);
    void MsjProcesoCancelado();
    void MsjOperacionCanceladaUsuario();
    void MsjNoEsPosibleRealizarOperacionConsulteProveeedor(const std::wstring& strError);
    void MsjNoEsPosibleRealizarOperacionMasTexto(const std::wstring& strTexto);
    void MsjFiltro_NoExistenResgistrosParaFiltro();
    void MsjBus_NoExistenRegistrosParaBusqueda();
    void MsjBus_RegistroNoEncontrado();
    std::int32_t MsjBus_IrAlSiguienteRegistro(const std::int16_t& IntNReg,
                                              const std::int16_t& IntRegAct);
    void MsjFact_NoFacturacionPeriodoReviseFechas();
    void MsjFact_ProcesoCanceladoUsuario();
    std::int32_t MsjFact_DeseaEditarFacturacion();
    void MsjFact_ErrorAlEliminarFacturasPag();
    void MsjFact_ErrorAlActualizarNumeracionFacturas();
    void MsjBD_ErrorAlAbrirBaseDatos(const std::wstring& StrDescripcion);
    void MensajeErroresADO(const std::wstring& strErrorTextoGenerico,
                           const ComPtr<IDispatch>& colecErrors);
    std::int16_t ExistenErroresADO(const ComPtr<IDispatch>& Cnn, const bool& boMensajes);

 private:
    InstanceOf<clsProfile> profile_;
};

}  // namespace kovrel
