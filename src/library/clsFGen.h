// General functions. Its members are implemented in one file a topic, clsFGen_<topic>.cpp.
#pragma once

#include <compare>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "automation/class_info.h"
#include "automation/com_ptr.h"
#include "automation/host_object.h"
#include "automation/native_type.h"

namespace kovrel {

class clsMensajes;
class frmBarraProgreso;

class clsFGen {
 public:
    static const ClassInfo class_info;

    clsFGen();
    clsFGen(const clsFGen&) = delete;
    clsFGen& operator=(const clsFGen&) = delete;
    ~clsFGen();

    [[nodiscard]] InstanceOf<clsMensajes> get_Mensajes() const;
    void set_Mensajes(InstanceOf<clsMensajes> messages);
    [[nodiscard]] std::wstring get_AppOrigen() const;
    void set_AppOrigen(const std::wstring& name);
    void BarraProgresoInicia(std::wstring_view strCaption, std::wstring_view strMensaje,
                             bool boBotones, std::int32_t lgAltoMensaje, std::int32_t lgAnchoFrm,
                             std::int32_t lgTopFrm, std::int32_t lgLeftFrm,
                             std::int32_t lgForeColor);
    void BarraProgresoFinaliza();
    void BarraProgresoActualiza(const std::int32_t& Porcentaje, const std::wstring& strMensaje);
    void BarraProgreso(const ComPtr<IDispatch>& Picture, const std::int32_t& Porcentaje);
    Variant Nz(const Variant& Value, const Variant& ValueNull);
    std::int16_t CBolNum(const Variant& Value);
    void Espera(const float& Segundos);
    std::wstring redondeoa2(const Variant& Cantidad);
    std::wstring redondeoa4(const Variant& Cantidad);
    bool ValidateComboALista(const ComPtr<IDispatch>& Cmb, const bool& BoRequerido);
    bool ValidateDataComboALista(const ComPtr<IDispatch>& DtCmb, const bool& BoRequerido);
    bool Requerido(const ComPtr<IDispatch>& Obj);
    bool LongitudExacta(const ComPtr<IDispatch>& Obj, const bool& PermitirLenCero,
                        const std::int16_t& IntSumaLen);
    bool FechaCorrecta(const ComPtr<IDispatch>& Obj, const bool& PermitirLenCero);
    bool FechaMayorQue(const ComPtr<IDispatch>& Obj, const Variant& ObjFechaMenor);
    bool FechaMayorIgualQue(const ComPtr<IDispatch>& Obj, const Variant& ObjFechaMenor);
    bool FechaMenorQue(const ComPtr<IDispatch>& Obj, const Variant& ObjFechaMayor);
    bool FechaMenorIgualQue(const ComPtr<IDispatch>& Obj, const Variant& ObjFechaMayor);
    std::uint8_t ProvinciaDeCP(std::wstring_view CP);
    std::int16_t Solo_Numero(std::int16_t& pulsa, const bool& SoloPositivos,
                             const bool& boPuntoAComa);
    std::int16_t Solo_Fecha(std::int16_t& pulsa);
    std::int16_t Convierte_May(std::int16_t& pulsa);
    std::wstring Verifica_NIF(std::wstring_view Nif, const bool& Mensajes);
    std::wstring LetraNIF(const std::int32_t& DNI);
    bool Verifica_CC(const std::wstring& CCC, const bool& BoRequerido, const bool& BoMsj);
    std::wstring DC(const std::wstring& banco, const std::wstring& sucursal,
                    const std::wstring& cuenta);
    std::wstring Banco_CC(const std::wstring& CCC);
    std::wstring Sucursal_CC(const std::wstring& CCC);
    std::wstring DC_CC(const std::wstring& CCC);
    std::wstring Cuenta_CC(const std::wstring& CCC);
    bool cargaComboMSFormsDeRecordset(const ComPtr<IDispatch>& cmbCombo,
                                      const ComPtr<IDispatch>& rsRecordset,
                                      std::int16_t intNumCampos);
    bool CargaComboDeRecordset(const ComPtr<IDispatch>& cmbCombo,
                               const ComPtr<IDispatch>& rsRecordset);
    void QuitaCaracteresyEspacios(std::wstring& strCifNif);
    Variant LanzaVerificadorNIFyCCC();
    std::wstring ConvNumeroALetra(Variant Numero, const std::wstring& TipoCambioSingular,
                                  const std::wstring& TipoCambioPlural,
                                  const std::wstring& subTipoCambioSingular,
                                  const std::wstring& subTipoCambioPlural,
                                  const std::int32_t& xInternal);
    std::wstring ConvEurosALetra(const double& dblNumero);
    std::wstring DescripNIFCIF(std::wstring_view strLetra);
    /// True once the user has canceled the progress window.
    bool BarraProgresoCancelada();

 private:
    /// The catalogue that the property Mensajes holds; failure 91 when the host has set it to
    /// Nothing.
    [[nodiscard]] HostObject messages() const;
    /// Whether the field's date and the other one are in an order that is not right; the user has
    /// been told by then, with the names of both fields.
    bool has_wrong_order(const ComPtr<IDispatch>& Obj, const Variant& other,
                         bool (*is_right)(std::partial_ordering) noexcept,
                         std::wstring_view message);
    void forward_name() const;

    InstanceOf<clsMensajes> messages_;
    std::wstring name_;
    /// The window that updates go to. It is kept, closed, after the user has canceled.
    std::shared_ptr<frmBarraProgreso> progress_window_;
    /// All windows opened that may still exist.
    std::vector<std::weak_ptr<frmBarraProgreso>> progress_windows_;
};

}  // namespace kovrel
