' clsFZip from VBScript, which passes an array where the record of names is expected.
Dim files, folder, zip, names(99), i, list
Set files = CreateObject("Scripting.FileSystemObject")
folder = WScript.Arguments(1)
Set zip = CreateObject("Kovrel.clsFZip")
zip.AppOrigen = "Copias"

Function Written(name, text)
    Dim file
    Written = folder & "\" & name
    Set file = files.CreateTextFile(Written)
    file.Write text
    file.Close
End Function

Sub CheckArchive(path, entries)
    Dim stream, text
    Set stream = files.OpenTextFile(path)
    text = stream.ReadAll
    stream.Close
    Check path & " es un zip", Left(text, 2), "PK"
    ' The number of entries is 12 bytes before the end.
    Check "archivos de " & path, Asc(Mid(text, Len(text) - 11, 1)), entries
End Sub

Check "sin nombre", zip.GenerarZip("", folder, Array("a")), ""
Check "sin carpeta", zip.GenerarZip("a.zip", "no\hay", Array("a")), ""
Check "sin archivos", zip.GenerarZip("a.zip", folder, Array()), ""
Check "uno", zip.GenerarZip("a.zip", folder, Array(Written("señal ñ.txt", "uno"))), folder & "\a.zip"
CheckArchive folder & "\a.zip", 1
list = Array(Written("b.txt", "dos"), folder & "\no está.txt", Written("vacío.txt", ""))
Check "reemplazado", zip.GenerarZip("a.zip", folder & "\", list), folder & "\a.zip"
CheckArchive folder & "\a.zip", 3
Check "ninguno", zip.GenerarZip("b.zip", folder, Array("no está.txt")), ""
For i = 0 To 99
    names(i) = Written("n" & i, i)
Next
Check "cien", zip.GenerarZip("Camión.zip", folder, names), folder & "\Camión.zip"
CheckArchive folder & "\Camión.zip", 100
Check "existe", files.FileExists(folder & "\Camión.zip"), True

WScript.Echo count & " comprobaciones correctas"
