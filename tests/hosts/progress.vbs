' El progreso desde un guion: variables por referencia, argumentos omitidos, sin ventana.
Option Explicit
Dim count
count = 0

Sub Check(what, found, wanted)
    If TypeName(found) <> TypeName(wanted) Or found <> wanted Then
        WScript.Echo "MAL " & what & ": " & TypeName(found) & " " & found & " en vez de " & wanted
        WScript.Quit 1
    End If
    count = count + 1
End Sub

Dim general, percentage, message
Set general = CreateObject("Kovrel.clsFGen")
general.AppOrigen = "Clientes"

' Antes de abrirla no hay ventana que mover, y cerrarla no hace nada.
general.BarraProgresoActualiza 10, "Nada"
general.BarraProgresoFinaliza
Check "cancelada sin ventana", general.BarraProgresoCancelada(), False

general.BarraProgresoInicia "Recibos", "Se generan", True, , 9000, 0, 0
For percentage = 0 To 100 Step 5
    message = "Recibo " & percentage
    general.BarraProgresoActualiza percentage, message
    Check "porcentaje tras llamar", percentage Mod 5, 0
    Check "mensaje tras llamar", message, "Recibo " & percentage
Next
general.BarraProgresoActualiza 100
Check "cancelada", general.BarraProgresoCancelada(), False
general.BarraProgresoFinaliza
general.BarraProgresoFinaliza

' Por nombre en otra variable, de texto.
percentage = "40"
general.BarraProgresoInicia "Otra", "Texto"
general.BarraProgresoActualiza percentage
Check "texto tras llamar", percentage, "40"
general.BarraProgresoFinaliza

WScript.Echo count & " comprobaciones correctas"
