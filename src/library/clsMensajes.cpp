#include "library/clsMensajes.h"

#include "automation/declare.h"
#include "library/library.h"

namespace kovrel {
namespace {

constexpr ClassIdentity identity{
    library_name,
    L"clsMensajes",
    {0x3f3419cf, 0x3ee3, 0x40d7, {0x8d, 0x9e, 0x4b, 0x16, 0x88, 0xbf, 0xf9, 0x4d}},
    {0x36ca0814, 0x7bfb, 0x4448, {0x91, 0x48, 0x42, 0xa4, 0x7b, 0x8b, 0x09, 0x67}},
};

constexpr auto declared =
    declare<clsMensajes>(identity,
                         L"Mensajes habituales de una aplicación de base de datos, e "
                         L"información de la biblioteca.")
        .read_only<&clsMensajes::get_ArchiVersion>(L"ArchiVersion", L"Versión de la biblioteca.")
        .read_only<&clsMensajes::get_ArchiInformacion>(
            L"ArchiInformacion", L"Título, versión y archivo de la biblioteca.")
        .property<&clsMensajes::get_AppOrigen, &clsMensajes::set_AppOrigen>(
            L"AppOrigen",
            L"Nombre de la aplicación anfitriona; titula los mensajes que lo indican.")
        .method<&clsMensajes::MsgFormA>(
            L"MsgFormA", {L"strCaption", L"strMensaje", optional(L"BoFuenteTT", true, false)},
            L"Muestra un texto largo en una ventana que se puede agrandar. BoFuenteTT omitido "
            L"equivale a falso en llamadas por nombre; a verdadero en las compiladas.")
        .method<&clsMensajes::MsjNoEsPosibleAbrirFormulario>(
            L"MsjNoEsPosibleAbrirFormulario", L"Avisa de que el formulario no se puede abrir.")
        .method<&clsMensajes::MsjNoEsPosibleAbrirFormulario_NoDatos>(
            L"MsjNoEsPosibleAbrirFormulario_NoDatos", {L"StrNombreFila"},
            L"Avisa de que el formulario no se puede abrir porque no hay datos.")
        .method<&clsMensajes::MsjFormularioEstaAbierto>(
            L"MsjFormularioEstaAbierto", L"Avisa de que el formulario ya está abierto.")
        .method<&clsMensajes::MsjFormularioEstaAbiertoDeseaVolverAAbrirlo>(
            L"MsjFormularioEstaAbiertoDeseaVolverAAbrirlo",
            L"Pregunta si se vuelve a abrir un formulario abierto: 6 sí, 7 no.")
        .method<&clsMensajes::MsjElegirElementoDeLista>(
            L"MsjElegirElementoDeLista", L"Pide que se elija un elemento de la lista.")
        .method<&clsMensajes::MsjEscribaElDatoCorrectamente>(L"MsjEscribaElDatoCorrectamente",
                                                             {optional(L"strNombreDato", L"")},
                                                             L"Pide que se escriba bien un dato.")
        .method<&clsMensajes::MsjDatoNoVacio>(L"MsjDatoNoVacio", {optional(L"strNombreDato", L"")},
                                              L"Avisa de que un dato no puede quedar vacío.")
        .method<&clsMensajes::MsjFechaIncorrecta>(L"MsjFechaIncorrecta",
                                                  L"Pide que se escriba bien la fecha.")
        .method<&clsMensajes::MsjFechaMayorQue>(
            L"MsjFechaMayorQue", {L"Fecha", L"FechaMenor"},
            L"Avisa de que una fecha debe ser posterior a otra.")
        .method<&clsMensajes::MsjFechaMayorIgualQue>(
            L"MsjFechaMayorIgualQue", {L"Fecha", L"FechaMenor"},
            L"Avisa de que una fecha debe ser posterior o igual a otra.")
        .method<&clsMensajes::MsjFechaMenorQue>(L"MsjFechaMenorQue", {L"Fecha", L"FechaMayor"},
                                                L"Avisa de que una fecha debe ser anterior a otra.")
        .method<&clsMensajes::MsjFechaMenorIgualQue>(
            L"MsjFechaMenorIgualQue", {L"Fecha", L"FechaMayor"},
            L"Avisa de que una fecha debe ser anterior o igual a otra.")
        .method<&clsMensajes::MsjGuardarCambiosAntesdeOperacion>(
            L"MsjGuardarCambiosAntesdeOperacion",
            L"Pide que se guarden o deshagan los cambios del registro.")
        .method<&clsMensajes::MsjGuardarCambiosRegistroPrincipal>(
            L"MsjGuardarCambiosRegistroPrincipal",
            L"Pide que se guarden o deshagan los cambios del registro principal.")
        .method<&clsMensajes::MsjGuardarCambiosRegistroSecundario>(
            L"MsjGuardarCambiosRegistroSecundario", {L"NombreRegSecundario"},
            L"Pide que se guarden o deshagan los cambios de una tabla.")
        .method<&clsMensajes::MsjProcesoCancelado>(L"MsjProcesoCancelado",
                                                   L"Avisa de que el proceso se ha cancelado.")
        .method<&clsMensajes::MsjOperacionCanceladaUsuario>(
            L"MsjOperacionCanceladaUsuario", L"Avisa de que el usuario ha cancelado la operación.")
        .method<&clsMensajes::MsjNoEsPosibleRealizarOperacionConsulteProveeedor>(
            L"MsjNoEsPosibleRealizarOperacionConsulteProveeedor", {optional(L"strError", L"")},
            L"Avisa de que la operación ha fallado y remite al proveedor.")
        .method<&clsMensajes::MsjNoEsPosibleRealizarOperacionMasTexto>(
            L"MsjNoEsPosibleRealizarOperacionMasTexto", {optional(L"strTexto", L"")},
            L"Avisa de que la operación ha fallado, con un texto añadido.")
        .method<&clsMensajes::MsjFiltro_NoExistenResgistrosParaFiltro>(
            L"MsjFiltro_NoExistenResgistrosParaFiltro",
            L"Avisa de que ningún registro cumple el filtro.")
        .method<&clsMensajes::MsjBus_NoExistenRegistrosParaBusqueda>(
            L"MsjBus_NoExistenRegistrosParaBusqueda",
            L"Avisa de que no hay registros en los que buscar.")
        .method<&clsMensajes::MsjBus_RegistroNoEncontrado>(
            L"MsjBus_RegistroNoEncontrado", L"Avisa de que no se ha encontrado ningún registro.")
        .method<&clsMensajes::MsjBus_IrAlSiguienteRegistro>(
            L"MsjBus_IrAlSiguienteRegistro", {L"IntNReg", L"IntRegAct"},
            L"Pregunta si se va al siguiente registro encontrado: 6 sí, 7 no.")
        .method<&clsMensajes::MsjFact_NoFacturacionPeriodoReviseFechas>(
            L"MsjFact_NoFacturacionPeriodoReviseFechas",
            L"Avisa de que el periodo no se puede facturar.")
        .method<&clsMensajes::MsjFact_ProcesoCanceladoUsuario>(
            L"MsjFact_ProcesoCanceladoUsuario",
            L"Avisa de que el usuario ha cancelado la facturación.")
        .method<&clsMensajes::MsjFact_DeseaEditarFacturacion>(
            L"MsjFact_DeseaEditarFacturacion",
            L"Pregunta si se edita la facturación generada: 6 sí, 7 no.")
        .method<&clsMensajes::MsjFact_ErrorAlEliminarFacturasPag>(
            L"MsjFact_ErrorAlEliminarFacturasPag",
            L"Avisa de que no se han podido eliminar las facturas de pagador.")
        .method<&clsMensajes::MsjFact_ErrorAlActualizarNumeracionFacturas>(
            L"MsjFact_ErrorAlActualizarNumeracionFacturas",
            L"Avisa de que no se ha podido actualizar la numeración de las facturas.")
        .method<&clsMensajes::MsjBD_ErrorAlAbrirBaseDatos>(
            L"MsjBD_ErrorAlAbrirBaseDatos", {optional(L"StrDescripcion", L"")},
            L"Avisa de que no se puede acceder a la base de datos.")
        .method<&clsMensajes::MensajeErroresADO>(L"MensajeErroresADO",
                                                 {L"strErrorTextoGenerico", L"colecErrors"},
                                                 L"Muestra los errores de una conexión de ADO.")
        .method<&clsMensajes::ExistenErroresADO>(L"ExistenErroresADO",
                                                 {L"Cnn", optional(L"boMensajes", false)},
                                                 L"Número de errores de una conexión de ADO.");

}  // namespace

constinit const ClassInfo clsMensajes::class_info = class_tables<declared>;

}  // namespace kovrel
