' Script objects passed to the library: fields, combo boxes, record sets, connections.
Class Field
    Public Tag
    Public MaxLength
    Public Content
    Public Focused
    Public Default Property Get Value()
        Value = Content
    End Property
    Public Sub SetFocus()
        Focused = Focused + 1
    End Sub
End Class

Function NewField(name, text)
    Dim made
    Set made = New Field
    made.Tag = name
    made.Content = text
    made.Focused = 0
    Set NewField = made
End Function

Class Combo
    Public Text
    Public ListCount
    Public ColumnCount
    Public List
    Public Items
    Public Opened
    Public Focused
    Public Default Property Get Value()
        Value = Null
    End Property
    Public Sub Clear()
        Items = ""
    End Sub
    Public Sub AddItem(item)
        Items = Items & item & ";"
    End Sub
    Public Sub SetFocus()
        Focused = True
    End Sub
    Public Sub DropDown()
        Opened = True
    End Sub
End Class

Class RecordField
    Public Value
End Class

Class RecordFields
    Public Row
    Public Default Property Get Item(index)
        Dim made
        Set made = New RecordField
        made.Value = "fila " & Row & " campo " & index
        Set Item = made
    End Property
End Class

Class Records
    Public RecordCount
    Public Bookmark
    Public Row
    Private Sub Class_Initialize()
        RecordCount = 3
        Bookmark = 2
        Row = 1
    End Sub
    Public Sub MoveFirst()
        Row = 0
    End Sub
    Public Sub MoveNext()
        Row = Row + 1
    End Sub
    Public Property Get EOF()
        EOF = (Row >= RecordCount)
    End Property
    Public Property Get BOF()
        BOF = False
    End Property
    Public Property Get AbsolutePosition()
        AbsolutePosition = Row + 1
    End Property
    Public Property Get Fields()
        Set Fields = New RecordFields
        Fields.Row = Row
    End Property
    Public Function GetRows(howMany)
        Dim cells(1, 2), i
        For i = 0 To 2
            cells(0, i) = i
            cells(1, i) = "fila " & i
        Next
        Row = 3
        GetRows = cells
    End Function
End Class

Dim general, name, post, combobox, list, rows
Set general = CreateObject("Kovrel.clsFGen")
general.AppOrigen = "Clientes"

Set name = NewField("Nombre", "  ")
Check "Requerido", general.Requerido(name), True
Check "foco", name.Focused, 1
name.Content = "Ana"
Check "Requerido lleno", general.Requerido(name), False

Set post = NewField("Código postal", "2800")
post.MaxLength = 5
Check "LongitudExacta", general.LongitudExacta(post), True
Check "LongitudExacta con suma", general.LongitudExacta(post, True, 1), False

Set combobox = New Combo
combobox.Text = "Len"
combobox.ListCount = 3
Check "ValidateComboALista", general.ValidateComboALista(combobox), True
Check "lista abierta", combobox.Opened, True

Set rows = New Records
combobox.Items = "vieja;"
Check "CargaComboDeRecordset", general.CargaComboDeRecordset(combobox, rows), True
Check "elementos", combobox.Items, "fila 0 campo 0;fila 1 campo 0;fila 2 campo 0;"
combobox.ColumnCount = 1
Check "cargaComboMSForms", general.cargaComboMSFormsDeRecordset(combobox, rows, 0), True
Check "columnas", combobox.ColumnCount, CLng(2)
list = combobox.List
Check "celda", list(2, 1), "fila 2"
Check "filas", UBound(list, 1), CLng(2)

Dim images
Set images = CreateObject("Kovrel.clsADODBServices")
rows.MoveFirst
rows.MoveNext
Check "RecordLocation", images.RecordLocation(rows, "Registro "), "Registro 2 de 3"
Check "RecordLocation sin objeto", images.RecordLocation(name), "VOID"

WScript.Echo count & " comprobaciones correctas"
