// The catalogue of messages from JScript: the same boxes as from VBScript.
var messages = new ActiveXObject("Kovrel.clsMensajes");
messages.MsjProcesoCancelado();
messages.AppOrigen = "Gestión";
messages.MsjDatoNoVacio();
messages.MsjDatoNoVacio("Código");
messages.MsjEscribaElDatoCorrectamente("Código");
messages.MsjFechaMayorIgualQue("fecha de baja", "fecha de alta");
messages.MsjGuardarCambiosRegistroSecundario("LÍNEAS");
messages.MsjNoEsPosibleRealizarOperacionConsulteProveeedor(" 0 ");
messages.MsjFiltro_NoExistenResgistrosParaFiltro();
messages.MsjBus_NoExistenRegistrosParaBusqueda();
messages.MsjNoEsPosibleAbrirFormulario_NoDatos(null);
messages.MsjBD_ErrorAlAbrirBaseDatos("No está.");
check("sí", messages.MsjFormularioEstaAbiertoDeseaVolverAAbrirlo(), 6);
check("no", messages.MsjBus_IrAlSiguienteRegistro(12, 3), 7);
check("editar", messages.MsjFact_DeseaEditarFacturacion(), 6);

WScript.Echo(count + " comprobaciones correctas");
