' A host that keeps the library in use until a file appears, for a minute at most.
'   cscript //nologo hold.vbs FOLDER    makes FOLDER\holding, waits for FOLDER\enough
Option Explicit

Dim general, files, tries
Set files = CreateObject("Scripting.FileSystemObject")
Set general = CreateObject("Kovrel.clsFGen")
WScript.Echo general.LetraNIF(12345678)
files.CreateTextFile(WScript.Arguments(0) & "\holding").Close
Do Until files.FileExists(WScript.Arguments(0) & "\enough") Or tries = 60
    general.Espera 1
    tries = tries + 1
Loop
