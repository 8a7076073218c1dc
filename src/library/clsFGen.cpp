#include "library/clsFGen.h"

#include "automation/declare.h"
#include "library/clsMensajes.h"
#include "library/library.h"

namespace kovrel {
namespace {

constexpr ClassIdentity identity{
    library_name,
    L"clsFGen",
    {0x20a24250, 0x90c1, 0x4802, {0x80, 0x98, 0xd6, 0x8c, 0x3b, 0x2c, 0x84, 0xec}},
    {0x513d12c4, 0xd877, 0x4855, {0x8f, 0x0e, 0xb2, 0x41, 0x04, 0x04, 0x62, 0x33}},
};

constexpr auto declared =
    declare<clsFGen>(identity,
                     L"Funciones generales: identificadores fiscales, cuentas, números, "
                     L"validación de campos y progreso.")
        .object_property<&clsFGen::get_Mensajes, &clsFGen::set_Mensajes>(
            L"Mensajes", L"Catálogo de mensajes con el que la clase habla al usuario.")
        .property<&clsFGen::get_AppOrigen, &clsFGen::set_AppOrigen>(
            L"AppOrigen",
            L"Nombre de la aplicación anfitriona; titula los mensajes que lo indican.")
        .method<&clsFGen::BarraProgresoInicia>(
            L"BarraProgresoInicia",
            {L"strCaption", L"strMensaje", optional(L"boBotones", false),
             optional(L"lgAltoMensaje", -1), optional(L"lgAnchoFrm", -1), optional(L"lgTopFrm", -1),
             optional(L"lgLeftFrm", -1), optional(L"lgForeColor", -1)},
            L"Abre la ventana de progreso.")
        .method<&clsFGen::BarraProgresoFinaliza>(L"BarraProgresoFinaliza",
                                                 L"Cierra la ventana de progreso.")
        .method<&clsFGen::BarraProgresoActualiza>(
            L"BarraProgresoActualiza", {L"Porcentaje", optional(L"strMensaje", L"")},
            L"Mueve la barra de la ventana de progreso y cambia su mensaje.")
        .method<&clsFGen::BarraProgreso>(
            L"BarraProgreso", {L"Picture", L"Porcentaje"},
            L"Dibuja una barra de progreso en una imagen del anfitrión.")
        .method<&clsFGen::Nz>(L"Nz", {L"Value", optional(L"ValueNull", std::int16_t{0})},
                              L"El valor, o el sustituto cuando es nulo, vacío o de error.")
        .method<&clsFGen::CBolNum>(L"CBolNum", {L"Value"}, L"1 para verdadero y 0 para falso.")
        .method<&clsFGen::Espera>(
            L"Espera", {L"Segundos"},
            L"Espera los segundos indicados atendiendo los sucesos pendientes.")
        .method<&clsFGen::redondeoa2>(L"redondeoa2", {L"Cantidad"}, L"Cantidad con dos decimales.")
        .method<&clsFGen::redondeoa4>(L"redondeoa4", {L"Cantidad"},
                                      L"Cantidad con cuatro decimales.")
        .method<&clsFGen::ValidateComboALista>(
            L"ValidateComboALista", {L"Cmb", optional(L"BoRequerido", false)},
            L"Verdadero si el texto del combo no está en su lista.")
        .method<&clsFGen::ValidateDataComboALista>(
            L"ValidateDataComboALista", {L"DtCmb", optional(L"BoRequerido", false)},
            L"Verdadero si el texto del combo enlazado no está en su lista.")
        .method<&clsFGen::Requerido>(L"Requerido", {L"Obj"}, L"Verdadero si el campo está vacío.")
        .method<&clsFGen::LongitudExacta>(
            L"LongitudExacta",
            {L"Obj", optional(L"PermitirLenCero", true, false), optional(L"IntSumaLen", 0)},
            L"Verdadero si el campo no tiene la longitud exacta. PermitirLenCero omitido "
            L"equivale a falso en llamadas por nombre; a verdadero en las compiladas.")
        .method<&clsFGen::FechaCorrecta>(
            L"FechaCorrecta", {L"Obj", optional(L"PermitirLenCero", true, false)},
            L"Verdadero si el campo no contiene una fecha. PermitirLenCero "
            L"omitido equivale a falso en llamadas por nombre; a "
            L"verdadero en las compiladas.")
        .method<&clsFGen::FechaMayorQue>(
            L"FechaMayorQue", {L"Obj", L"ObjFechaMenor"},
            L"Verdadero si la fecha del campo no es posterior a la del otro.")
        .method<&clsFGen::FechaMayorIgualQue>(
            L"FechaMayorIgualQue", {L"Obj", L"ObjFechaMenor"},
            L"Verdadero si la fecha del campo es anterior a la del otro.")
        .method<&clsFGen::FechaMenorQue>(
            L"FechaMenorQue", {L"Obj", L"ObjFechaMayor"},
            L"Verdadero si la fecha del campo no es anterior a la del otro.")
        .method<&clsFGen::FechaMenorIgualQue>(
            L"FechaMenorIgualQue", {L"Obj", L"ObjFechaMayor"},
            L"Verdadero si la fecha del campo es posterior a la del otro.")
        .method<&clsFGen::ProvinciaDeCP>(L"ProvinciaDeCP", {L"CP"},
                                         L"Número de provincia de un código postal.")
        .method<&clsFGen::Solo_Numero>(
            L"Solo_Numero",
            {L"pulsa", optional(L"SoloPositivos", false), optional(L"boPuntoAComa", false)},
            L"Filtro de teclas para campos numéricos; pone a 0 la tecla rechazada.")
        .method<&clsFGen::Solo_Fecha>(
            L"Solo_Fecha", {L"pulsa"},
            L"Filtro de teclas para campos de fecha; pone a 0 la tecla rechazada.")
        .method<&clsFGen::Convierte_May>(L"Convierte_May", {L"pulsa"},
                                         L"Filtro de teclas que convierte a mayúsculas.")
        .method<&clsFGen::Verifica_NIF>(
            L"Verifica_NIF", {L"Nif", optional(L"Mensajes", true)},
            L"Identificador fiscal comprobado y corregido; vacío si se rechaza.")
        .method<&clsFGen::LetraNIF>(L"LetraNIF", {L"DNI"},
                                    L"Letra que corresponde a un número de identificación fiscal.")
        .method<&clsFGen::Verifica_CC>(
            L"Verifica_CC", {L"CCC", optional(L"BoRequerido", false), optional(L"BoMsj", false)},
            L"Verdadero si el código de cuenta es correcto.")
        .method<&clsFGen::DC>(L"DC", {L"banco", L"sucursal", L"cuenta"},
                              L"Los dos dígitos de control de una cuenta.")
        .method<&clsFGen::Banco_CC>(L"Banco_CC", {L"CCC"}, L"Banco de un código de cuenta.")
        .method<&clsFGen::Sucursal_CC>(L"Sucursal_CC", {L"CCC"},
                                       L"Sucursal de un código de cuenta.")
        .method<&clsFGen::DC_CC>(L"DC_CC", {L"CCC"}, L"Dígitos de control de un código de cuenta.")
        .method<&clsFGen::Cuenta_CC>(L"Cuenta_CC", {L"CCC"},
                                     L"Número de cuenta de un código de cuenta.")
        .method<&clsFGen::cargaComboMSFormsDeRecordset>(
            L"cargaComboMSFormsDeRecordset",
            {L"cmbCombo", L"rsRecordset", optional(L"intNumCampos", 0)},
            L"Llena un combo de varias columnas con un Recordset.")
        .method<&clsFGen::CargaComboDeRecordset>(
            L"CargaComboDeRecordset", {L"cmbCombo", L"rsRecordset"},
            L"Llena un combo con el primer campo de un Recordset.")
        .method<&clsFGen::QuitaCaracteresyEspacios>(
            L"QuitaCaracteresyEspacios", {L"strCifNif"},
            L"Quita guiones, barras, espacios y puntos de la variable recibida.")
        .method<&clsFGen::LanzaVerificadorNIFyCCC>(
            L"LanzaVerificadorNIFyCCC",
            L"Abre el verificador de identificadores fiscales y cuentas.")
        .method<&clsFGen::ConvNumeroALetra>(
            L"ConvNumeroALetra",
            {L"Numero", optional(L"TipoCambioSingular", L""), optional(L"TipoCambioPlural"),
             optional(L"subTipoCambioSingular"), optional(L"subTipoCambioPlural"),
             optional(L"xInternal", 0)},
            L"Número, o texto con números, en palabras.")
        .method<&clsFGen::ConvEurosALetra>(L"ConvEurosALetra", {L"dblNumero"},
                                           L"Importe en euros en palabras y mayúsculas.")
        .method<&clsFGen::DescripNIFCIF>(L"DescripNIFCIF", {L"strLetra"},
                                         L"Descripción de la letra de un identificador fiscal.")
        .method<&clsFGen::BarraProgresoCancelada>(
            L"BarraProgresoCancelada",
            L"Verdadero si el usuario ha pulsado el botón de cancelar de la ventana de "
            L"progreso.");

}  // namespace

constinit const ClassInfo clsFGen::class_info = class_tables<declared>;

}  // namespace kovrel
