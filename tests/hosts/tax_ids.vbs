' Tax identifiers and bank codes from VBScript, with the boxes that explain them.
Dim class_name, instance
For Each class_name In Array("clsFGen", "clsFFechas", "clsCSQL", "clsMensajes", "cgsFileOpR", _
                             "clsProfile", "clsADODBServices", "clsFZip")
    Set instance = CreateObject("Kovrel." & class_name)
    Check class_name, IsObject(instance), True
Next

Dim general, typed, result, silent
Set general = CreateObject("Kovrel.clsFGen")
general.AppOrigen = "Clientes"

typed = "12345678A"
result = general.Verifica_NIF(typed)
Check "NIF corregido", result, "12345678Z"
Check "lo escrito no cambia", typed, "12345678A"
Check "NIF correcto", general.Verifica_NIF("12.345.678-z"), "12345678Z"
silent = False
Check "NIE sin mensajes", general.Verifica_NIF("X1234567A", silent), "X1234567L"
Check "CIF", general.Verifica_NIF("B-12345674"), "B12345674"
Check "CIF rechazado", general.Verifica_NIF("B12345675"), ""
Check "NIF imposible", general.Verifica_NIF("1234A678Z"), ""

typed = "12.345.678-Z / x"
general.QuitaCaracteresyEspacios typed
Check "separadores", typed, "12345678Zx"
Check "LetraNIF", general.LetraNIF(12345678), "Z"
Check "LetraNIF de un texto", general.LetraNIF("23"), "T"
Check "DescripNIFCIF", general.DescripNIFCIF("b"), "B - Sociedad de Responsabilidad Limitada"
Check "DescripNIFCIF de un dígito", general.DescripNIFCIF(7), "NIF - Número de Identificación Fiscal"

Dim code
code = "20770024003102575766"
Check "Verifica_CC", general.Verifica_CC(code), True
Check "DC", general.DC("2077", "0024", "3102575766"), "00"
Check "Banco_CC", general.Banco_CC(code), "2077"
Check "Sucursal_CC", general.Sucursal_CC(code), "0024"
Check "DC_CC", general.DC_CC(code), "00"
Check "Cuenta_CC", general.Cuenta_CC(code), "3102575766"
code = "20770024103102575766"
Check "cuenta equivocada", general.Verifica_CC(code), False
Check "cuenta equivocada, con dígitos", general.Verifica_CC(code, False, True), False
Check "cuenta vacía", general.Verifica_CC("", True, True), False

WScript.Echo count & " comprobaciones correctas"
