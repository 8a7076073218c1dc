Attribute VB_Name = "SinRegistro"
' Kovrel sin registrar, desde VBA 7 (Office 2010 o posterior): se activa el manifiesto de la biblioteca
' mientras se crea cada objeto. kovrel.dll, de los bits de Office, está en la carpeta del manifiesto.
'
'   Set general = SinRegistrar("Kovrel.clsFGen", "C:\Kovrel\x64\Kovrel.Assembly.manifest")
'
' Sin registro tampoco hay referencia que poner: las variables son As Object y se llama por nombre.
Option Explicit

Private Type ACTCTX
    cbSize As Long
    dwFlags As Long
    lpSource As LongPtr
    wProcessorArchitecture As Integer
    wLangId As Integer
    lpAssemblyDirectory As LongPtr
    lpResourceName As LongPtr
    lpApplicationName As LongPtr
    hModule As LongPtr
End Type

Private Declare PtrSafe Function CreateActCtxW Lib "kernel32" (ByRef contexto As ACTCTX) As LongPtr
Private Declare PtrSafe Function ActivateActCtx Lib "kernel32" (ByVal contexto As LongPtr, _
                                                               ByRef activado As LongPtr) As Long
Private Declare PtrSafe Function DeactivateActCtx Lib "kernel32" (ByVal opciones As Long, _
                                                                 ByVal activado As LongPtr) As Long
Private Declare PtrSafe Sub ReleaseActCtx Lib "kernel32" (ByVal contexto As LongPtr)

Public Function SinRegistrar(ByVal programa As String, ByVal manifiesto As String) As Object
    Dim contexto As ACTCTX
    Dim activable As LongPtr
    Dim activado As LongPtr
    Dim numero As Long
    Dim descripcion As String
    contexto.cbSize = LenB(contexto)
    contexto.lpSource = StrPtr(manifiesto)
    activable = CreateActCtxW(contexto)
    If activable = -1 Then Err.Raise 53, , "No se pudo leer " & manifiesto
    ActivateActCtx activable, activado
    On Error Resume Next
    Set SinRegistrar = CreateObject(programa)
    numero = Err.Number
    descripcion = Err.Description
    On Error GoTo 0
    DeactivateActCtx 0, activado
    ReleaseActCtx activable
    If numero <> 0 Then Err.Raise numero, , descripcion
End Function

Public Sub Prueba()
    Dim general As Object
    Set general = SinRegistrar("Kovrel.clsFGen", "C:\Kovrel\x64\Kovrel.Assembly.manifest")
    Debug.Print "Letra: " & general.LetraNIF(12345678)
End Sub
