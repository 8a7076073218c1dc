' Un guion que termina con la ventana de progreso abierta.
Option Explicit
Dim general
Set general = CreateObject("Kovrel.clsFGen")
general.BarraProgresoInicia "Recibos", "Se generan", True
WScript.Echo "1 comprobaciones correctas"
