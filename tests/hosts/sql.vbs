' SQL literals from VBScript.
Dim literals, amount, day
Set literals = CreateObject("Kovrel.clsCSQL")
literals.AppOrigen = "Consultas"

amount = 1234.5
Check "Conv_Double", literals.Conv_Double(amount), "1234.50"
Check "Conv_Double de un texto", literals.Conv_Double("12,5"), "12.50"
Check "Conv_Double sin nada", literals.Conv_Double(""), ""
Check "Conv_DoubleDeDouble", literals.Conv_DoubleDeDouble(-0.456), "-0.46"
Check "Conv_Double4", literals.Conv_Double4(1), "1.0000"
Check "Conv_Double4 sin número", literals.Conv_Double4("doce"), ""
day = DateSerial(2024, 3, 15)
Check "Conv_Date_Date", literals.Conv_Date_Date(day), "#03/15/2024#"
Check "Conv_Date", literals.Conv_Date("15/03/2024"), "#03/15/2024#"
Check "Conv_Date de una fecha", literals.Conv_Date(day), "#03/15/2024#"
Check "Conv_Date sin fecha", literals.Conv_Date("mañana"), "#mañana#"
Check "Conv_Boolean", literals.Conv_Boolean(True), -1
Check "Conv_Boolean de 0", literals.Conv_Boolean(0), 0
Check "Conv_String", literals.Conv_String("Muñoz"), "'Muñoz'"
Check "Conv_String vacío", literals.Conv_String(""), "''"

WScript.Echo count & " comprobaciones correctas"
