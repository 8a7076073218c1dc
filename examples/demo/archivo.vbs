' Comprime los archivos indicados.
'   cscript //nologo archivo.vbs CARPETA NOMBRE ARCHIVO...
Option Explicit

Dim compresor, nombres(), n
Set compresor = CreateObject("Kovrel.clsFZip")
compresor.AppOrigen = "Demostración"
ReDim nombres(WScript.Arguments.Count - 3)
For n = 2 To WScript.Arguments.Count - 1
    nombres(n - 2) = WScript.Arguments(n)
Next
WScript.Echo "Archivo comprimido: " & _
    compresor.GenerarZip(WScript.Arguments(1), WScript.Arguments(0), nombres)
