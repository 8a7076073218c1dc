' clsFArchivo from VBScript: folders packed, looked at, tested and taken out.
Dim files, folder, archive, entries, entry, name, text
Set files = CreateObject("Scripting.FileSystemObject")
folder = WScript.Arguments(1)
Set archive = CreateObject("Kovrel.clsFArchivo")
archive.AppOrigen = "Copias"

Sub Write(name, text)
    Dim file
    Set file = files.CreateTextFile(folder & "\" & name, True)
    file.Write text
    file.Close
End Sub

Function Read(name)
    Dim stream
    Set stream = files.OpenTextFile(folder & "\" & name)
    Read = ""
    If Not stream.AtEndOfStream Then Read = stream.ReadAll
    stream.Close
End Function

Function Names(entries)
    Dim entry, text
    text = ""
    For Each entry In entries
        text = text & entry.Nombre & ";"
    Next
    Names = text
End Function

files.CreateFolder folder & "\datos"
files.CreateFolder folder & "\datos\año 2024"
files.CreateFolder folder & "\datos\vacía"
Write "datos\notas.txt", "hola"
Write "datos\borrador.tmp", "nada"
Write "datos\año 2024\enero.txt", String(10000, "x")
Write "datos\año 2024\vacío.txt", ""

' What it is like at first.
Check "Nivel", archive.Nivel, CLng(6)
Check "Recursivo", archive.Recursivo, True
Check "Ocultos", archive.Ocultos, True
Check "SinCarpetas", archive.SinCarpetas, False
Check "Excluye", archive.Excluye, ""
Check "Comentario", archive.Comentario, ""
Check "Existentes", archive.Existentes, CLng(0)
Check "LimiteBytes", archive.LimiteBytes, CDbl(4294967296)
Check "LimiteProporcion", archive.LimiteProporcion, CLng(250)

' Packed.
archive.Excluye = "*.tmp|*.bak"
archive.Comentario = "Año 2024"
Set entries = archive.Comprime(folder & "\a.zip", folder & "\datos")
Check "comprimidas", Names(entries), _
    "datos/;datos/año 2024/;datos/año 2024/enero.txt;datos/año 2024/vacío.txt;datos/notas.txt;datos/vacía/;"
Check "Count", entries.Count, CLng(6)
Check "Hechas", entries.Hechas, CLng(6)
Check "Fallidas", entries.Fallidas, CLng(0)
Check "Completo", entries.Completo, True
Check "Cancelado", entries.Cancelado, False
Check "Bytes", entries.Bytes, CDbl(10004)

' Looked at.
Set entries = archive.Lista(folder & "\a.zip")
Check "Comentario del archivo", entries.Comentario, "Año 2024"
Check "entradas", entries.Count, CLng(6)
Set entry = entries("datos/año 2024/enero.txt")
Check "Nombre", entry.Nombre, "datos/año 2024/enero.txt"
Check "Nombre, miembro por omisión", "" & entry, "datos/año 2024/enero.txt"
Check "Ruta", entry.Ruta, ""
Check "Bytes de la entrada", entry.Bytes, CDbl(10000)
Check "BytesComprimidos", entry.BytesComprimidos < 100, True
Check "Metodo", entry.Metodo, CLng(8)
Check "CRC", entries("datos/notas.txt").CRC, "6FA0F988"
Check "EsCarpeta", entries("datos/vacía/").EsCarpeta, True
Check "no es carpeta", entry.EsCarpeta, False
Check "Cifrada", entry.Cifrada, False
Check "Comentario de la entrada", entry.Comentario, ""
Check "Estado", entry.Estado, CLng(0)
Check "Motivo", entry.Motivo, ""
Check "Fecha", Abs(entry.Fecha - Now) < 0.01, True
Check "por número", entries(5).Nombre, "datos/notas.txt"
Check "en mayúsculas", entries("DATOS/NOTAS.TXT").Nombre, "datos/notas.txt"

' Tested.
Set entries = archive.Prueba(folder & "\a.zip")
Check "prueba", entries.Completo, True
Check "prueba, bytes", entries.Bytes, CDbl(10004)
Set entries = archive.Prueba(folder & "\a.zip", "*.txt")
Check "prueba de un patrón", entries.Hechas, CLng(3)
Check "lo no pedido", entries(1).Estado, CLng(1)
Check "lo no pedido, motivo", entries(1).Motivo, "no se ha pedido"
Check "lo no pedido no es un fallo", entries.Completo, True

' Taken out.
Set entries = archive.Extrae(folder & "\a.zip", folder & "\copia")
Check "extraído", entries.Completo, True
Check "contenido", Read("copia\datos\notas.txt"), "hola"
Check "contenido comprimido", Read("copia\datos\año 2024\enero.txt"), String(10000, "x")
Check "vacío", Read("copia\datos\año 2024\vacío.txt"), ""
Check "carpeta vacía", files.FolderExists(folder & "\copia\datos\vacía"), True
Check "Ruta extraída", files.FileExists(entries("datos/notas.txt").Ruta), True
Check "excluido", files.FileExists(folder & "\copia\datos\borrador.tmp"), False

' Files that are there.
Write "copia\datos\notas.txt", "otra cosa"
Set entries = archive.Extrae(folder & "\a.zip", folder & "\copia", "notas.txt")
Check "se conserva", Read("copia\datos\notas.txt"), "otra cosa"
Check "se conserva, estado", entries("datos/notas.txt").Estado, CLng(2)
Check "se conserva, motivo", entries("datos/notas.txt").Motivo, "ya existía y se conserva"
archive.Existentes = 3
Dim fixed
fixed = "C:\Copia de las pruebas"
If files.FolderExists(fixed) Then files.DeleteFolder fixed
files.CreateFolder fixed
files.CreateFolder fixed & "\datos"
Sub WriteFixed(text)
    Dim file
    Set file = files.CreateTextFile(fixed & "\datos\notas.txt", True)
    file.Write text
    file.Close
End Sub
Function ReadFixed()
    Dim stream
    Set stream = files.OpenTextFile(fixed & "\datos\notas.txt")
    ReadFixed = stream.ReadAll
    stream.Close
End Function
WriteFixed "otra cosa"
Set entries = archive.Extrae(folder & "\a.zip", fixed, "notas.txt")
Check "se pregunta y se conserva", ReadFixed(), "otra cosa"
Check "se pregunta y se conserva, estado", entries("datos/notas.txt").Estado, CLng(4)
Set entries = archive.Extrae(folder & "\a.zip", fixed, "notas.txt")
Check "se pregunta y se reemplaza", ReadFixed(), "hola"
files.DeleteFolder fixed
archive.Existentes = 1
Write "copia\datos\notas.txt", "otra cosa"
Set entries = archive.Extrae(folder & "\a.zip", folder & "\copia", "notas.txt")
Check "se reemplaza", Read("copia\datos\notas.txt"), "hola"

' Added to and brought up to date.
Write "datos\más.txt", "más"
Set entries = archive.Comprime(folder & "\a.zip", Array(folder & "\datos\más.txt"), folder, 1)
Check "añadido", Names(entries), "datos/más.txt;"
Check "añadido a lo anterior", archive.Lista(folder & "\a.zip").Count, CLng(7)
Set entries = archive.Comprime(folder & "\a.zip", folder & "\datos\más.txt", folder, 2)
Check "nada más reciente", entries(1).Motivo, "el fichero que había no es más antiguo"
Check "nada más reciente es lo pedido", entries.Completo, True
Set entries = archive.Comprime(folder & "\b.zip", folder & "\datos\*.txt|" & folder & "\no está")
Check "patrón", Names(entries), folder & "\no está;año 2024/enero.txt;año 2024/vacío.txt;más.txt;notas.txt;"
Check "lo que no está", entries(1).Motivo, "no se encuentra o no se puede abrir"
Check "lo que no está es un fallo", entries.Fallidas, CLng(1)
Check "incompleto", entries.Completo, False
archive.Recursivo = False
archive.Nivel = 0
Set entries = archive.Comprime(folder & "\b.zip", folder & "\datos\*.txt")
Check "sin lo de debajo", Names(entries), "más.txt;notas.txt;"
Check "sin comprimir", archive.Lista(folder & "\b.zip")(1).Metodo, CLng(0)
text = archive.Lista(folder & "\b.zip").ATexto
Check "ATexto", text, "más.txt" & vbTab & "3" & vbTab & "3" & vbTab & vbCrLf & _
    "notas.txt" & vbTab & "4" & vbTab & "4" & vbTab & vbCrLf

' Failures.
Sub CheckFailure(name, number)
    Check name, Err.Number And &HFFFF, CLng(number)
    Err.Clear
End Sub
On Error Resume Next
archive.Lista folder & "\no está.zip"
CheckFailure "archivo que no está", 53
archive.Lista folder & "\datos\notas.txt"
CheckFailure "lo que no es un archivo", 321
archive.Comprime folder & "\c.zip", folder & "\no está"
CheckFailure "nada que comprimir", 53
archive.Comprime folder & "\no está\c.zip", folder & "\datos"
CheckFailure "carpeta que no está", 75
archive.Comprime folder & "\c.zip", folder & "\datos", folder & "\copia"
CheckFailure "fuera de la base", 5
archive.Comprime folder & "\c.zip", 12, "", 4
CheckFailure "modo que no hay", 5
archive.Nivel = 10
CheckFailure "nivel que no hay", 5
archive.LimiteBytes = 4
archive.Extrae folder & "\a.zip", folder & "\d"
CheckFailure "límite de bytes", 6
entries.Item 100
CheckFailure "entrada que no hay", 9
On Error Goto 0
Check "nada escrito", files.FolderExists(folder & "\d") Or files.FileExists(folder & "\c.zip"), False

WScript.Echo count & " comprobaciones correctas"
