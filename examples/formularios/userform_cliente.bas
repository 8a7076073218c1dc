' Kovrel en un UserForm de Excel o de Word: copie estas líneas en el módulo del formulario, que tiene los
' cuadros de texto txtNombre, txtCodigoPostal, txtNif e txtImporte, el combo cmbProvincia y el botón
' cmdAceptar. Hace falta la referencia a Kovrel (Herramientas, Referencias).
'
' En estos formularios Cancel y KeyAscii son objetos: se asigna su valor, y no sirven para un parámetro
' por referencia de tipo Integer, que pide una variable Integer.
Option Explicit

Private general As New Kovrel.clsFGen

Private Sub UserForm_Initialize()
    general.AppOrigen = "Clientes"
    txtNombre.Tag = "Nombre"
    txtCodigoPostal.Tag = "Código postal"
    txtCodigoPostal.MaxLength = 5
    cmbProvincia.Tag = "Provincia"
End Sub

Private Sub txtNombre_Exit(ByVal Cancel As MSForms.ReturnBoolean)
    Cancel.Value = general.Requerido(txtNombre)
End Sub

Private Sub txtCodigoPostal_Exit(ByVal Cancel As MSForms.ReturnBoolean)
    Cancel.Value = general.LongitudExacta(txtCodigoPostal, True)
End Sub

Private Sub cmbProvincia_Exit(ByVal Cancel As MSForms.ReturnBoolean)
    Cancel.Value = general.ValidateComboALista(cmbProvincia, True)
End Sub

Private Sub txtNif_Exit(ByVal Cancel As MSForms.ReturnBoolean)
    Dim nif As String
    If Len(txtNif.Text) = 0 Then Exit Sub
    nif = general.Verifica_NIF(txtNif.Text)
    If Len(nif) = 0 Then Cancel.Value = True Else txtNif.Text = nif
End Sub

Private Sub txtImporte_KeyPress(ByVal KeyAscii As MSForms.ReturnInteger)
    Dim tecla As Integer
    tecla = KeyAscii.Value
    general.Solo_Numero tecla, True, True
    KeyAscii.Value = tecla
End Sub

Private Sub cmdAceptar_Click()
    Dim importe As Double
    importe = CDbl(txtImporte.Text)
    MsgBox general.ConvEurosALetra(importe)
End Sub
