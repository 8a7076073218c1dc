' Progress from a script: variables by reference, omitted arguments, no window.
Dim general, percentage, message
Set general = CreateObject("Kovrel.clsFGen")
general.AppOrigen = "Clientes"

' Without a window updates show the error box, and closing does nothing.
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

' With a text in the variable of the percentage.
percentage = "40"
general.BarraProgresoInicia "Otra", "Texto"
general.BarraProgresoActualiza percentage
Check "texto tras llamar", percentage, "40"
general.BarraProgresoFinaliza

WScript.Echo count & " comprobaciones correctas"
