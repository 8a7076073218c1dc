' Values, words and keystrokes from VBScript.
Dim general, nothing_yet, amount
Set general = CreateObject("Kovrel.clsFGen")

Check "Nz de Null", general.Nz(Null), 0
Check "Nz de Empty", general.Nz(nothing_yet, "nada"), "nada"
Check "Nz de un texto", general.Nz("", "nada"), ""
Check "CBolNum", general.CBolNum(True), 1
Check "CBolNum de 0,4", general.CBolNum(0.4), 0
Check "CBolNum de Falso", general.CBolNum("Falso"), 1
Check "redondeoa2", general.redondeoa2(1234.5), "1234,50"
Check "redondeoa2 de un texto", general.redondeoa2("12,345"), "12,35"
Check "redondeoa4", general.redondeoa4(1), "1,0000"
Check "redondeoa2 sin número", general.redondeoa2("doce"), ""

amount = 12.5
Check "ConvEurosALetra", general.ConvEurosALetra(amount), "DOCE EUROS CON CINCUENTA CÉNTIMOS"
Check "negativo", general.ConvEurosALetra(-12.75), "MENOS TRECE EUROS"
Check "dos mil", general.ConvEurosALetra(2000), "DOS MIL  EUROS"
Check "ConvNumeroALetra", general.ConvNumeroALetra(1001), "mil uno"
Check "con texto", general.ConvNumeroALetra("el 12 de mayo"), "el doce de mayo"
Check "con unidad", general.ConvNumeroALetra("3,50", "Euro", "Euros", "Céntimo", "Céntimos"), _
      "tres Euros con cincuenta Céntimos"
Check "muchas cifras", general.ConvNumeroALetra("1" & String(24, "0")), "un cuatrillón"

Dim key, result
key = 46
result = general.Solo_Numero(key, False, True)
Check "Solo_Numero, resultado", result, 46
Check "Solo_Numero, tecla", CLng(key), CLng(44)
key = 9
Check "Solo_Fecha", general.Solo_Fecha(key), 0
Check "Solo_Fecha, tecla", CLng(key), CLng(0)
key = Asc("ñ")
Check "Convierte_May", general.Convierte_May(key), Asc("Ñ")
Check "ProvinciaDeCP", general.ProvinciaDeCP("8001"), CByte(8)
Check "ProvinciaDeCP largo", general.ProvinciaDeCP("280801"), CByte(0)

Dim start
start = Timer
general.Espera 0.2
Check "Espera", Timer - start >= 0.15, True

WScript.Echo count & " comprobaciones correctas"
