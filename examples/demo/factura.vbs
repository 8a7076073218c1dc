' Una factura: total en letra, cuenta comprobada, calendario del mes, literales de SQL y opciones
' guardadas y vueltas a leer.
'   cscript //nologo factura.vbs CARPETA
Option Explicit

Dim general, fechas, sql, archivo, carpeta
Set general = CreateObject("Kovrel.clsFGen")
Set fechas = CreateObject("Kovrel.clsFFechas")
Set sql = CreateObject("Kovrel.clsCSQL")
Set archivo = CreateObject("Kovrel.cgsFileOpR")
carpeta = WScript.Arguments(0)

Dim base, cuota, total
base = 1234.5
cuota = base * 0.21
total = base + cuota
WScript.Echo "Base imponible:  " & general.redondeoa2(base)
WScript.Echo "IVA (21 %):      " & general.redondeoa2(cuota)
WScript.Echo "Total:           " & general.redondeoa2(total)
WScript.Echo "En letra:        " & general.ConvEurosALetra(CDbl(general.redondeoa2(total)))
WScript.Echo "En una frase:    " & general.ConvNumeroALetra("factura 1001 del día 21 de marzo")
WScript.Echo ""

Dim cuenta
cuenta = "20850103920300731702"
WScript.Echo "Cuenta:          " & general.Banco_CC(cuenta) & "-" & general.Sucursal_CC(cuenta) & _
    "-" & general.DC_CC(cuenta) & "-" & general.Cuenta_CC(cuenta)
WScript.Echo "Dígitos:         " & _
    general.DC(general.Banco_CC(cuenta), general.Sucursal_CC(cuenta), general.Cuenta_CC(cuenta))
WScript.Echo "Es correcta:     " & general.Verifica_CC(cuenta)
WScript.Echo "Titular:         " & general.DescripNIFCIF("B")
WScript.Echo ""

Dim dia, columna, linea
WScript.Echo fechas.mes_letra(3) & " DE 2024, " & fechas.SemanasMes(2024, 3) & " semanas"
WScript.Echo " lu  ma  mi  ju  vi  sá  do"
linea = Space(4 * (Weekday(DateSerial(2024, 3, 1), vbMonday) - 1))
For dia = 1 To fechas.Dias_Mes(3, 2024)
    linea = linea & Right("   " & dia, 3) & " "
    If Weekday(DateSerial(2024, 3, dia), vbMonday) = 7 Or dia = fechas.Dias_Mes(3, 2024) Then
        WScript.Echo linea
        linea = ""
    End If
Next
WScript.Echo fechas.SemanaDel(DateSerial(2024, 3, 15))
WScript.Echo ""

WScript.Echo "INSERT INTO FACTURAS (CLIENTE, FECHA, TOTAL, PAGADA) VALUES (" & _
    sql.Conv_String("Hermanos Núñez, S.L.") & ", " & sql.Conv_Date_Date(DateSerial(2024, 3, 15)) & _
    ", " & sql.Conv_Double(total) & ", " & sql.Conv_Boolean(False) & ")"
WScript.Echo ""

Dim opciones
opciones = archivo.AddBackSlash(carpeta) & "opciones.ini"
archivo.GuardarIni opciones, "Facturas", "Serie", "Año 2024"
WScript.Echo "Serie guardada:  " & archivo.LeerIni(opciones, "Facturas", "Serie")
WScript.Echo "Sin guardar:     " & archivo.LeerIni(opciones, "Facturas", "Copias", 2)
