' A script that ends with the progress window open.
Dim general
Set general = CreateObject("Kovrel.clsFGen")
general.BarraProgresoInicia "Recibos", "Se generan", True
WScript.Echo "1 comprobaciones correctas"
