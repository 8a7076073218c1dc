' Kovrel sin registrar, desde un guion o una macro: el objeto Microsoft.Windows.ActCtx, que es parte de
' Windows, activa el manifiesto de la biblioteca. kovrel.dll, de los bits del anfitrión, está en su carpeta.
'
'   cscript //nologo sin_registro.vbs C:\Kovrel\x64\Kovrel.Assembly.manifest
Option Explicit

Dim contexto, general
Set contexto = CreateObject("Microsoft.Windows.ActCtx")
contexto.Manifest = WScript.Arguments(0)
Set general = contexto.CreateObject("Kovrel.clsFGen")
WScript.Echo "Letra: " & general.LetraNIF(12345678)
