' The events of clsAvisos in a script, by the prefix of the procedures that receive them.
Dim notices, general, messages, task, answer, cancel_at
Set notices = WScript.CreateObject("Kovrel.clsAvisos", "avisos_")
Set general = CreateObject("Kovrel.clsFGen")
Set messages = CreateObject("Kovrel.clsMensajes")
messages.AppOrigen = "Facturación"

Sub avisos_Aviso(aviso, respuesta, mostrar)
    WScript.Echo "aviso " & aviso.Clase & " de " & aviso.Miembro & ", " & respuesta & " " & _
                 CInt(mostrar) & ": " & aviso.Texto
    Select Case task
        Case "contesta"
            respuesta = answer
        Case "muestra"
            mostrar = True
        Case "no muestra"
            mostrar = False
        Case "falla"
            Err.Raise 1000, "events.vbs", "el receptor falla"
        Case "habla"
            Check "sin otro evento", messages.MsjFact_DeseaEditarFacturacion(), CLng(vbYes)
        Case "suelta"
            WScript.DisconnectObject notices
            Set notices = Nothing
    End Select
End Sub

Sub avisos_Progreso(porcentaje, mensaje, cancelar)
    WScript.Echo "progreso " & porcentaje & ", " & CInt(cancelar) & ": " & mensaje
    If porcentaje = cancel_at Then cancelar = True
End Sub

Sub otro_Aviso(aviso, respuesta, mostrar)
    WScript.Echo "otro, " & respuesta & " " & CInt(mostrar)
End Sub

WScript.Echo "en silencio"
notices.Modo = 1
Check "NIF", general.Verifica_NIF("12345678A"), "12345678Z"
task = "muestra"
Check "no hay quien muestre", general.Verifica_NIF("12345678A"), "12345678Z"

WScript.Echo "con respuesta"
task = "contesta"
answer = vbNo
Check "no", messages.MsjFact_DeseaEditarFacturacion(), CLng(vbNo)
Check "anotado", notices.Ultimo.Respuesta, CLng(vbNo)
answer = vbCancel
Check "sin ese botón", messages.MsjFact_DeseaEditarFacturacion(), CLng(vbYes)
answer = "7"
Check "en letra", messages.MsjFact_DeseaEditarFacturacion(), CLng(vbNo)
answer = "sí"
Check "sin sentido", messages.MsjFact_DeseaEditarFacturacion(), CLng(vbYes)

WScript.Echo "mostrando"
notices.Modo = 0
task = ""
Check "el usuario", messages.MsjFact_DeseaEditarFacturacion(), CLng(vbNo)
task = "no muestra"
Check "nadie", messages.MsjFact_DeseaEditarFacturacion(), CLng(vbYes)

WScript.Echo "solo con el evento"
notices.Limpia
notices.Modo = 2
task = ""
Check "sin mostrar", messages.MsjFact_DeseaEditarFacturacion(), CLng(vbYes)
task = "muestra"
Check "mostrado", messages.MsjFact_DeseaEditarFacturacion(), CLng(vbNo)
Check "sin anotar", notices.Count, CLng(0)

WScript.Echo "progreso"
notices.Modo = 1
task = ""
cancel_at = 20
general.BarraProgresoInicia "Recibos", "Se generan", True
general.BarraProgresoActualiza 10, "Primero"
Check "sigue", general.BarraProgresoCancelada(), False
general.BarraProgresoActualiza 20, "Segundo"
Check "cancelado", general.BarraProgresoCancelada(), True
general.BarraProgresoFinaliza

WScript.Echo "con un receptor que falla y otro"
WScript.ConnectObject notices, "otro_"
task = "falla"
Check "pese al fallo", general.Verifica_NIF("12345678A"), "12345678Z"
task = "contesta"
answer = vbNo
Check "uno tras otro", messages.MsjFact_DeseaEditarFacturacion(), CLng(vbNo)
task = "habla"
Check "desde el receptor", general.Verifica_NIF("12345678A"), "12345678Z"
Check "anotado lo que dice", notices.Ultimo.Miembro, "clsMensajes.MsjFact_DeseaEditarFacturacion"

WScript.Echo "hasta que se suelta"
task = "suelta"
Check "durante el evento", general.Verifica_NIF("12345678A"), "12345678Z"
Check "suelto", notices Is Nothing, True
Check "otra vez el usuario", messages.MsjFact_DeseaEditarFacturacion(), CLng(vbNo)

WScript.Echo count & " comprobaciones correctas"
