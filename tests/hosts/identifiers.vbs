' Today's identifiers from VBScript: every kind, whole lists and a recordset, and no box.
Dim ident
Set ident = CreateObject("Kovrel.clsFIdent")

Sub CheckKind(kind, name, right, readable, incomplete, completed, wrong, reason)
    Dim given
    given = -1
    Check name, ident.TextoTipo(kind), name
    Check name & " correcto", ident.Comprueba(kind, right, given), True
    Check name & " correcto, motivo", given, CLng(0)
    Check name & " incorrecto", ident.Comprueba(kind, wrong, given), False
    Check name & " incorrecto, motivo", given, CLng(reason)
    Check name & " MotivoDe", ident.MotivoDe(kind, wrong), CLng(reason)
    Check name & " TipoDe", ident.TipoDe(right), CLng(kind)
    Check name & " Formatea", ident.Formatea(kind, right), readable
    Check name & " Normaliza", ident.Normaliza(kind, LCase(readable)), right
    Check name & " Corrige", ident.Corrige(kind, incomplete), completed
End Sub

CheckKind 2, "DNI", "12345678Z", "12345678-Z", "12345678", "12345678Z", "B12345674", 4
CheckKind 3, "NIE", "X1234567L", "X-1234567-L", "X1234567", "X1234567L", "12345678Z", 4
CheckKind 4, "NIF de persona física sin DNI ni NIE", "M1234567L", "M-1234567-L", "M1234567D", _
    "M1234567L", "M1234567D", 5
CheckKind 5, "NIF de entidad", "A28015865", "A-28015865", "A2801586E", "A28015865", "A2801586E", 5
CheckKind 6, "Código de cuenta cliente", "21000418450200051332", "2100 0418 45 0200051332", _
    "2100 0418 ** 0200051332", "21000418450200051332", "00000000000000000000", 6
CheckKind 7, "IBAN", "ES9121000418450200051332", "ES91 2100 0418 4502 0005 1332", _
    "ES** 2100 0418 4502 0005 1332", "ES9121000418450200051332", "ES6421000418450200051333", 8
CheckKind 8, "BIC", "CAIXESBBXXX", "CAIXESBBXXX", "CAIXES", "", "CAIXZZBB", 7
CheckKind 9, "Identificador de acreedor SEPA", "ES11000B12345674", "ES11000B12345674", _
    "ES00000B12345674", "ES11000B12345674", "ES97000B12345674", 5
CheckKind 10, "NIF-IVA", "ESB12345674", "ESB12345674", "ESB1234567", "ESB12345674", "FRB12345674", 7
CheckKind 11, "Número de la Seguridad Social", "281234567840", "28/12345678/40", "28/12345678", _
    "281234567840", "281234567841", 5
CheckKind 12, "Código de cuenta de cotización", "28123456742", "28/1234567/42", "28/1234567", _
    "28123456742", "2812345674", 3
CheckKind 13, "Código postal", "08001", "08001", "8001", "08001", "53000", 6
CheckKind 14, "CUPS", "ES1234123456789012JY", "ES 1234 1234 5678 9012 JY", "ES1234123456789012", _
    "ES1234123456789012JY", "ES1234123456789012JZ", 5
CheckKind 15, "Referencia catastral", "9872023VH5797S0001WX", "9872023 VH5797S 0001 W X", _
    "9872023VH5797S0001", "9872023VH5797S0001WX", "9872023VH5797S*001WX", 2
CheckKind 16, "Tarjeta de pago", "4111111111111111", "4111 1111 1111 1111", "411111111111111", "", _
    "4111111111111112", 5
CheckKind 17, "EAN-13", "8412345123450", "8 412345 123450", "841234512345", "8412345123450", _
    "0000000000000", 6

' Of any holder: the kind is that of the holder.
Dim reason
Check "NIF", ident.TextoTipo(1), "NIF"
Check "NIF correcto", ident.Comprueba(1, "x-1234567-l", reason), True
Check "NIF vacío", ident.Comprueba(1, " ", reason), False
Check "NIF vacío, motivo", reason, CLng(1)
Check "NIF TipoDe", ident.TipoDe("X1234567L"), CLng(3)
Check "NIF Formatea", ident.Formatea(1, "a28015865"), "A-28015865"
Check "NIF Normaliza", ident.Normaliza(1, "1.234.567-l"), "01234567L"
Check "NIF Corrige", ident.Corrige(1, "1234567"), "01234567L"
Check "Titular", ident.Titular("A28015865"), "Sociedad anónima"
Check "Titular de nada", ident.Titular("A28015866"), ""
Check "TipoDe de nada", ident.TipoDe("Núñez"), CLng(0)
Check "CCCaIBAN", ident.CCCaIBAN("2100 0418 45 0200051332"), "ES9121000418450200051332"
Check "CCCaIBAN incorrecta", ident.CCCaIBAN("2100 0418 46 0200051332"), ""
Check "IBANaCCC", ident.IBANaCCC("ES91 2100 0418 4502 0005 1332"), "21000418450200051332"
Check "IBANaCCC extranjero", ident.IBANaCCC("GB29 NWBK 6016 1331 9268 19"), ""

Check "motivo 0", ident.TextoMotivo(0), "El dato es correcto."
Check "motivo 1", ident.TextoMotivo(1), "El dato está vacío."
Check "motivo 2", ident.TextoMotivo(2), "El dato tiene caracteres que no le corresponden."
Check "motivo 3", ident.TextoMotivo(3), "El número de caracteres del dato no es el que le corresponde."
Check "motivo 4", ident.TextoMotivo(4), "La primera letra del dato no es válida."
Check "motivo 5", ident.TextoMotivo(5), "Los caracteres de control no corresponden al resto del dato."
Check "motivo 6", ident.TextoMotivo(6), "El dato está bien escrito, pero su valor no puede existir."
Check "motivo 7", ident.TextoMotivo(7), "El país del dato no es válido."
Check "motivo 8", ident.TextoMotivo(8), "La cuenta española que contiene el IBAN no es correcta."

On Error Resume Next
ident.MotivoDe 18, "12345678Z"
Check "tipo que no existe", Err.Number, CLng(5)
Err.Clear
ident.CompruebaLista 1, "12345678Z"
Check "lista que no lo es", Err.Number, CLng(13)
On Error GoTo 0

' A hundred thousand DNIs, of which every seventh has the letter of the next number.
Const letters = "TRWAGMYFPDXBNJZSQVHLCKE"
Dim texts(99999), reasons, i, lettered, unexpected, wanted, wrong
For i = 0 To 99999
    lettered = CLng(i)
    If i Mod 7 = 0 Then lettered = lettered + 1
    texts(i) = Right("0000000" & i, 8) & Mid(letters, lettered Mod 23 + 1, 1)
Next
reasons = ident.CompruebaLista(1, texts)
Check "LBound", LBound(reasons), CLng(0)
Check "UBound", UBound(reasons), CLng(99999)
Check "tipo de un motivo", reasons(0), CLng(5)
unexpected = 0
wrong = 0
For i = 0 To 99999
    wanted = 0
    If i Mod 7 = 0 Then wanted = 5
    If reasons(i) <> wanted Then unexpected = unexpected + 1
    If reasons(i) <> 0 Then wrong = wrong + 1
Next
Check "motivos que no son", CLng(unexpected), CLng(0)
Check "incorrectos", CLng(wrong), CLng(14286)

' Rows as GetRows gives them: the fields first.
Dim rows(1, 2)
rows(0, 0) = "Ana": rows(1, 0) = "ES91 2100 0418 4502 0005 1332"
rows(0, 1) = "Eva": rows(1, 1) = Null
rows(0, 2) = "Luis": rows(1, 2) = 12345678
reasons = ident.CompruebaLista(7, rows, 1)
Check "filas", UBound(reasons), CLng(2)
Check "fila 0", reasons(0), CLng(0)
Check "fila 1", reasons(1), CLng(1)
Check "fila 2", reasons(2), CLng(7)

Dim records, text, places
Set records = CreateObject("ADODB.Recordset")
records.Fields.Append "nif", 202, 20
records.Open
For Each text In Array("12345678Z", "12345678A", "B12345674", "")
    records.AddNew
    records.Fields("nif").Value = CStr(text)
Next
Check "recordset sin posiciones", ident.CompruebaRecordset(2, records, "nif"), CLng(3)
Check "recordset", ident.CompruebaRecordset(1, records, "nif", places), CLng(2)
Check "posiciones", UBound(places), CLng(1)
Check "primera posición", places(0), CLng(2)
Check "segunda posición", places(1), CLng(4)

WScript.Echo count & " comprobaciones correctas"
