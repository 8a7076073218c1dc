' What a user of an installed Kovrel does first: a tax id's letter and an archive.
'   cscript //nologo use.vbs FOLDER     packs FOLDER\datos.txt into FOLDER\datos.zip
Option Explicit

Dim general, archiver
Set general = CreateObject("Kovrel.clsFGen")
WScript.Echo "letter " & general.LetraNIF(12345678)
Set archiver = CreateObject("Kovrel.clsFZip")
archiver.GenerarZip "datos.zip", WScript.Arguments(0), Array(WScript.Arguments(0) & "\datos.txt")
WScript.Echo "done"
