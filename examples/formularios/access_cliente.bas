' Kovrel en un formulario de Access: copie estas líneas en el módulo del formulario, que tiene los cuadros
' de texto txtNombre, txtNif, txtIban, txtAlta, txtBaja e txtImporte, la etiqueta lblIban y el botón
' cmdRevisar. Hace falta la referencia a Kovrel (Herramientas, Referencias).
'
' Los validadores devuelven el foco al control, y Access no lo permite en BeforeUpdate: se llaman en Exit.
' Cancel es allí un Integer, que recibe True si el campo está mal.
Option Compare Database
Option Explicit

Private general As New Kovrel.clsFGen
Private ident As New Kovrel.clsFIdent

Private Sub Form_Load()
    general.AppOrigen = "Clientes"
    Me.txtNombre.Tag = "Nombre"
    Me.txtAlta.Tag = "fecha de alta"
    Me.txtBaja.Tag = "fecha de baja"
End Sub

Private Sub txtNombre_Exit(Cancel As Integer)
    Cancel = general.Requerido(Me.txtNombre)
End Sub

Private Sub txtBaja_Exit(Cancel As Integer)
    Cancel = general.FechaCorrecta(Me.txtBaja, True)
    If Not Cancel Then Cancel = general.FechaMayorIgualQue(Me.txtBaja, Me.txtAlta)
End Sub

Private Sub txtNif_BeforeUpdate(Cancel As Integer)
    If IsNull(Me.txtNif) Then Exit Sub
    Cancel = (Len(general.Verifica_NIF(Me.txtNif)) = 0)
End Sub

' El valor de un control no se puede cambiar en su BeforeUpdate.
Private Sub txtNif_AfterUpdate()
    If Not IsNull(Me.txtNif) Then Me.txtNif = general.Verifica_NIF(Me.txtNif, False)
End Sub

' Mientras se escribe, el texto está en Text; Value no cambia hasta salir.
Private Sub txtIban_Change()
    Dim motivo As eMotivo
    Me.lblIban.Caption = ""
    If Not ident.Comprueba(idIBAN, Me.txtIban.Text, motivo) Then
        If motivo <> moVacio Then Me.lblIban.Caption = ident.TextoMotivo(motivo)
    End If
End Sub

' La variable KeyAscii es del mismo tipo que el parámetro, Integer, y vuelve a 0 si la tecla no vale.
Private Sub txtImporte_KeyPress(KeyAscii As Integer)
    general.Solo_Numero KeyAscii, True, True
End Sub

' Los NIF de todos los registros, sin mensajes.
Private Sub cmdRevisar_Click()
    Const adOpenStatic As Long = 3
    Dim registros As Object
    Set registros = CreateObject("ADODB.Recordset")
    registros.Open "SELECT NIF FROM Clientes", CurrentProject.Connection, adOpenStatic
    MsgBox ident.CompruebaRecordset(idNIF, registros, "NIF") & " NIF incorrectos"
    registros.Close
End Sub
