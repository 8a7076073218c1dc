' SQL literals, names and patterns of each database from VBScript. No box is shown.
Dim sql, dialect, day, field, records
Set sql = CreateObject("Kovrel.clsFSQL")
Check "Dialecto", sql.Dialecto, CLng(0)
day = DateSerial(2024, 3, 15)

' What each database is given, in the order of the enumeration.
Sub CheckEach(member, given, expected)
    Dim found
    For dialect = 0 To 5
        sql.Dialecto = dialect
        Select Case member
            Case "Valor": found = sql.Valor(given)
            Case "Texto": found = sql.Texto(given)
            Case "Numero": found = sql.Numero(given)
            Case "Fecha": found = sql.Fecha(given)
            Case "FechaHora": found = sql.FechaHora(given)
            Case "Booleano": found = sql.Booleano(given)
            Case "Lista": found = sql.Lista(given)
            Case "Nombre": found = sql.Nombre(given)
            Case "Patron": found = sql.Patron(given)
            Case "Como": found = sql.Como(given)
        End Select
        Check member & " " & dialect, found, expected(dialect)
    Next
End Sub

CheckEach "Texto", "D'Ors", Array("'D''Ors'", "N'D''Ors'", "'D''Ors'", "'D''Ors'", "'D''Ors'", "'D''Ors'")
CheckEach "Texto", "\'", Array("'\'''", "N'\'''", "E'\\'''", "_utf8mb4 X'5C27'", "'\'''", "'\'''")
CheckEach "Numero", -1234.5, Array("(-1234.5)", "(-1234.5)", "(-1234.5)", "(-1234.5)", "(-1234.5)", "(-1234.5)")
CheckEach "Numero", "12,50", Array("12.5", "12.5", "12.5", "12.5", "12.5", "12.5")
CheckEach "Fecha", day, Array("#2024-03-15#", "'20240315'", "DATE '2024-03-15'", "DATE '2024-03-15'", _
    "'2024-03-15'", "DATE '2024-03-15'")
CheckEach "FechaHora", day + 0.75, Array("#2024-03-15 18:00:00#", "'2024-03-15T18:00:00'", _
    "TIMESTAMP '2024-03-15 18:00:00'", "TIMESTAMP '2024-03-15 18:00:00'", "'2024-03-15 18:00:00'", _
    "TO_DATE('2024-03-15 18:00:00', 'YYYY-MM-DD HH24:MI:SS')")
CheckEach "Booleano", True, Array("True", "1", "TRUE", "TRUE", "1", "1")
CheckEach "Valor", Null, Array("NULL", "NULL", "NULL", "NULL", "NULL", "NULL")
CheckEach "Valor", Empty, Array("NULL", "NULL", "NULL", "NULL", "NULL", "NULL")
CheckEach "Lista", Array(1, "a"), Array("(1, 'a')", "(1, N'a')", "(1, 'a')", "(1, 'a')", "(1, 'a')", "(1, 'a')")
CheckEach "Nombre", "Año", Array("[Año]", "[Año]", """Año""", "`Año`", "`Año`", """Año""")
CheckEach "Patron", "5%!", Array("5[%]!", "5!%!!", "5!%!!", "5!%!!", "5!%!!", "5!%!!")
CheckEach "Como", "a%", Array("ALIKE 'a%'", "LIKE N'a%' ESCAPE '!'", "LIKE 'a%' ESCAPE '!'", _
    "LIKE 'a%' ESCAPE '!'", "LIKE 'a%' ESCAPE '!'", "LIKE 'a%' ESCAPE '!'")

' A field of a recordset is its value; a variable is left as it is.
sql.Dialecto = 4
Set records = CreateObject("ADODB.Recordset")
records.Fields.Append "nombre", 202, 20
records.Open
records.AddNew
records.Fields("nombre").Value = "D'Ors"
Check "campo", sql.Valor(records.Fields("nombre")), "'D''Ors'"
Set field = records.Fields("nombre")
Check "campo como texto", sql.Texto(field), "'D''Ors'"
Check "moneda", sql.Valor(CCur(0.1)), "0.1"
Check "byte", sql.Valor(CByte(200)), "200"
Check "simple", sql.Valor(CSng(0.1)), "0.1"

On Error Resume Next
sql.Dialecto = 6
Check "dialecto que no existe", Err.Number, CLng(5)
Err.Clear
sql.Numero "doce"
Check "sin número", Err.Number, CLng(13)
Check "descripción", Err.Description, "No coinciden los tipos"
Err.Clear
sql.Lista Array(1, Null)
Check "nulo en una lista", Err.Number, CLng(94)
Err.Clear
sql.Dialecto = 2
sql.Texto "a" & Chr(0)
Check "carácter nulo", Err.Number, CLng(5)
Check "su descripción", Err.Description, _
    "Llamada a procedimiento o argumento no válidos: PostgreSQL no admite el carácter nulo en un texto"
On Error GoTo 0

WScript.Echo count & " comprobaciones correctas"
