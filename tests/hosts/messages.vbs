' The catalogue of messages from VBScript.
Dim messages, field_name, total, current
Set messages = CreateObject("Kovrel.clsMensajes")
messages.MsjProcesoCancelado
messages.AppOrigen = "Gestión"
messages.MsjDatoNoVacio
field_name = "Código"
messages.MsjDatoNoVacio field_name
messages.MsjEscribaElDatoCorrectamente field_name
messages.MsjFechaMayorIgualQue "fecha de baja", "fecha de alta"
messages.MsjGuardarCambiosRegistroSecundario "LÍNEAS"
messages.MsjNoEsPosibleRealizarOperacionConsulteProveeedor " 0 "
messages.MsjFiltro_NoExistenResgistrosParaFiltro
messages.MsjBus_NoExistenRegistrosParaBusqueda
messages.MsjNoEsPosibleAbrirFormulario_NoDatos Null
messages.MsjBD_ErrorAlAbrirBaseDatos "No está."
Check "sí", messages.MsjFormularioEstaAbiertoDeseaVolverAAbrirlo(), CLng(6)
total = 12
current = 3
Check "no", messages.MsjBus_IrAlSiguienteRegistro(total, current), CLng(7)
Check "total", total, 12
Check "editar", messages.MsjFact_DeseaEditarFacturacion(), CLng(6)

On Error Resume Next
messages.MsjNoEsPosibleAbrirFormulario_NoDatos messages
Check "un objeto no es un texto", Err.Number, CLng(438)
On Error GoTo 0

WScript.Echo count & " comprobaciones correctas"
