' Nobody in front and no display to show anything on: what the library says goes into the record.
Dim notices, general, messages, literals, archives, dates, files, folder, nobody

' Without a display the system cannot even show a box of its own, so that no answer comes back.
nobody = MsgBox("¿Hay alguien?", vbYesNo)
Check "nadie contesta", nobody <> vbYes And nobody <> vbNo, True

Set notices = CreateObject("Kovrel.clsAvisos")
notices.Modo = 1
notices.Limite = 5000
Set general = CreateObject("Kovrel.clsFGen")
Set messages = CreateObject("Kovrel.clsMensajes")
Set literals = CreateObject("Kovrel.clsCSQL")
Set archives = CreateObject("Kovrel.clsFZip")
Set dates = CreateObject("Kovrel.clsFFechas")
messages.AppOrigen = "Facturación"
literals.AppOrigen = "Consultas"
folder = WScript.Arguments(1)

Function LetterOf(number)
    LetterOf = Mid("TRWAGMYFPDXBNJZSQVHLCKE", number Mod 23 + 1, 1)
End Function

' Of 10,000 identifiers, ten are impossible, twenty are companies' with a wrong digit, and of the
' others every seventh has the letter of its neighbour.
Dim i, number, right, given, came_back, as_sent, corrected
came_back = 0
as_sent = 0
corrected = 0
general.BarraProgresoInicia "Clientes", "Se revisan", True
For i = 1 To 10000
    number = 12340000 + i
    right = number & LetterOf(number)
    given = right
    If i Mod 1000 = 500 Then
        given = "1234A678Z"
    ElseIf i Mod 500 = 250 Then
        given = "B12345675"
    ElseIf i Mod 7 = 0 Then
        given = number & LetterOf(number + 1)
    End If
    Select Case general.Verifica_NIF(given)
        Case ""
        Case given
            as_sent = as_sent + 1
        Case right
            corrected = corrected + 1
        Case Else
            WScript.Echo "MAL " & given
    End Select
    If i Mod 100 = 0 Then general.BarraProgresoActualiza i \ 100, "Cliente " & i
Next
general.BarraProgresoFinaliza
WScript.Echo "sin cambios " & as_sent & ", corregidos " & corrected & ", rechazados " & _
             10000 - as_sent - corrected

Check "editar", messages.MsjFact_DeseaEditarFacturacion(), CLng(vbYes)
notices.Respuestas vbYesNo, vbNo, "FACTURACIÓN"
Check "editar, contestado", messages.MsjFact_DeseaEditarFacturacion(), CLng(vbNo)
Check "sin número", literals.Conv_Double("doce"), ""
Check "sin fecha", dates.PideFecha("¿Desde qué día?"), CDate(0)

Set files = CreateObject("Scripting.FileSystemObject")
With files.CreateTextFile(folder & "\clientes.txt")
    .Write String(10000, "x")
    .Close
End With
Check "archivo", archives.GenerarZip("copia.zip", folder, Array(folder & "\clientes.txt")), _
      folder & "\copia.zip"
Check "sin nombre", archives.GenerarZip("", folder, Array(folder & "\clientes.txt")), ""
Check "hay archivo", files.FileExists(folder & "\copia.zip"), True

' The record: by its members, by For Each, and as text.
Dim notice, kinds(5), answers(7), in_order, lines, at
in_order = 0
For Each notice In notices
    kinds(notice.Clase) = kinds(notice.Clase) + 1
    answers(notice.Respuesta) = answers(notice.Respuesta) + 1
    in_order = in_order + 1
    If notice.Texto <> notices(in_order).Texto Then WScript.Echo "MAL " & in_order
    Check "hora", Abs(Now - notice.Hora) < 1, True
Next
WScript.Echo "avisos " & notices.Count & ", con For Each " & in_order
WScript.Echo "mensajes " & kinds(1) & ", errores " & kinds(2) & ", preguntas " & kinds(3) & _
             ", progreso " & kinds(4) & ", ventanas " & kinds(5)
WScript.Echo "Aceptar " & answers(1) & ", Cancelar " & answers(2) & ", Sí " & answers(6) & _
             ", No " & answers(7)
lines = Split(notices.ATexto(), vbCrLf)
WScript.Echo "líneas " & UBound(lines)
For Each at In Array(0, 38, 74, 77, UBound(lines) - 6, UBound(lines) - 5, UBound(lines) - 4, _
                     UBound(lines) - 3, UBound(lines) - 2, UBound(lines) - 1)
    WScript.Echo Replace(Mid(lines(at), Len("2026-11-22 17:05:09") + 2), vbTab, "|")
Next

notices.Limite = 3
Check "quedan los últimos", notices.Count, CLng(3)
WScript.Echo notices(1).Miembro & " " & notices.Ultimo.Miembro
notices.Limpia
Check "no queda ninguno", notices.Count, CLng(0)
Check "ni último", notices.Ultimo Is Nothing, True

WScript.Echo count & " comprobaciones correctas"
