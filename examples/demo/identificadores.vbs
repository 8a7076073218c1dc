' Comprueba una lista de identificadores fiscales. Por cada uno escribe, separados por tabuladores,
' lo escrito, lo devuelto y cuántos mensajes se habían mostrado hasta entonces.
'   cscript //nologo identificadores.vbs REGISTRO LISTA
' REGISTRO es el archivo en el que otro programa anota los mensajes, uno por línea.
Option Explicit

Dim archivos, general, lista, linea, devuelto
Set archivos = CreateObject("Scripting.FileSystemObject")
Set general = CreateObject("Kovrel.clsFGen")
general.AppOrigen = "Demostración"

Set lista = archivos.OpenTextFile(WScript.Arguments(1), 1)
Do Until lista.AtEndOfStream
    linea = lista.ReadLine
    If linea <> "" And Left(linea, 1) <> "#" Then
        devuelto = general.Verifica_NIF(linea)
        WScript.Echo linea & vbTab & devuelto & vbTab & Mensajes(WScript.Arguments(0))
    End If
Loop
lista.Close

Function Mensajes(registro)
    Dim flujo
    Mensajes = 0
    Set flujo = archivos.OpenTextFile(registro, 1)
    Do Until flujo.AtEndOfStream
        flujo.ReadLine
        Mensajes = Mensajes + 1
    Loop
    flujo.Close
End Function
