VERSION 5.00
Begin VB.Form frmCliente 
   Caption         =   "Cliente"
   ClientHeight    =   2055
   ClientLeft      =   60
   ClientTop       =   345
   ClientWidth     =   4680
   ScaleHeight     =   2055
   ScaleWidth      =   4680
   StartUpPosition =   3
   Begin VB.TextBox txtNombre 
      Height          =   315
      Left            =   120
      TabIndex        =   0
      Tag             =   "Nombre"
      Top             =   120
      Width           =   4335
   End
   Begin VB.TextBox txtNif 
      Height          =   315
      Left            =   120
      TabIndex        =   1
      Tag             =   "NIF"
      Top             =   540
      Width           =   1935
   End
   Begin VB.TextBox txtImporte 
      Height          =   315
      Left            =   120
      TabIndex        =   2
      Tag             =   "Importe"
      Top             =   960
      Width           =   1935
   End
   Begin VB.CommandButton cmdGenerar 
      Caption         =   "&Generar"
      Height          =   375
      Left            =   3240
      TabIndex        =   3
      Top             =   1560
      Width           =   1215
   End
End
Attribute VB_Name = "frmCliente"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
' Kovrel en un formulario clásico de Basic. Hace falta la referencia a Kovrel (Proyecto, Referencias).
'
' Una variable que se pasa por referencia ha de ser del tipo exacto del parámetro; una propiedad o una
' expresión se pasan como copia.
Option Explicit

Private general As New Kovrel.clsFGen
Private WithEvents avisos As Kovrel.clsAvisos

Private Sub Form_Load()
    Set avisos = New Kovrel.clsAvisos
    general.AppOrigen = "Clientes"
End Sub

Private Sub Form_Unload(Cancel As Integer)
    Set avisos = Nothing
End Sub

Private Sub txtNombre_Validate(Cancel As Boolean)
    Cancel = general.Requerido(txtNombre)
End Sub

Private Sub txtNif_Validate(Cancel As Boolean)
    Dim nif As String
    If Len(txtNif.Text) = 0 Then Exit Sub
    nif = general.Verifica_NIF(txtNif.Text)
    If Len(nif) = 0 Then Cancel = True Else txtNif.Text = nif
End Sub

Private Sub txtImporte_KeyPress(KeyAscii As Integer)
    general.Solo_Numero KeyAscii, True, True
End Sub

Private Sub cmdGenerar_Click()
    Dim porcentaje As Long
    general.BarraProgresoInicia "Recibos", "Se generan", True
    For porcentaje = 1 To 100
        general.BarraProgresoActualiza porcentaje, "Recibo " & porcentaje
        If general.BarraProgresoCancelada() Then Exit For
    Next
    general.BarraProgresoFinaliza
End Sub

' Los avisos se escriben en el título de la ventana en vez de mostrarse; las preguntas se muestran.
Private Sub avisos_Aviso(ByVal aviso As Kovrel.clsAviso, Respuesta As Long, Mostrar As Boolean)
    If aviso.Clase = caMensaje Then
        Me.Caption = aviso.Texto
        Mostrar = False
    End If
End Sub

Private Sub avisos_Progreso(ByVal Porcentaje As Long, ByVal Mensaje As String, Cancelar As Boolean)
    Me.Caption = Porcentaje & " %: " & Mensaje
End Sub
