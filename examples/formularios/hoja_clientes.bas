' Kovrel en una hoja de Excel: copie estas líneas en el módulo de la hoja. La columna B tiene NIF, y la C
' recibe por qué no son correctos. Hace falta la referencia a Kovrel (Herramientas, Referencias).
Option Explicit

Private ident As New Kovrel.clsFIdent

' Al escribir o pegar.
Private Sub Worksheet_Change(ByVal Target As Range)
    Dim cambiadas As Range
    Dim celda As Range
    Dim motivo As eMotivo
    Set cambiadas = Intersect(Target, Me.Columns("B"))
    If cambiadas Is Nothing Then Exit Sub
    On Error GoTo Salida
    Application.EnableEvents = False
    For Each celda In cambiadas.Cells
        If ident.Comprueba(idNIF, CStr(celda.Value), motivo) Then
            celda.Value = ident.Formatea(idNIF, CStr(celda.Value))
            celda.Offset(0, 1).ClearContents
        ElseIf motivo = moVacio Then
            celda.Offset(0, 1).ClearContents
        Else
            celda.Offset(0, 1).Value = ident.TextoMotivo(motivo)
        End If
    Next
Salida:
    Application.EnableEvents = True
End Sub

' La columna entera, en una llamada.
Public Sub RevisaLosNIF()
    Dim celdas As Range
    Dim motivos As Variant
    Dim i As Long
    Set celdas = Me.Range("B2", Me.Cells(Me.Rows.Count, "B").End(xlUp))
    motivos = ident.CompruebaLista(idNIF, Application.Transpose(celdas.Value))
    For i = LBound(motivos) To UBound(motivos)
        If motivos(i) = moCorrecto Or motivos(i) = moVacio Then
            celdas.Cells(i, 1).Offset(0, 1).ClearContents
        Else
            celdas.Cells(i, 1).Offset(0, 1).Value = ident.TextoMotivo(motivos(i))
        End If
    Next
End Sub
