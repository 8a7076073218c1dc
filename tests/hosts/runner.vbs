' The runner: boxes are answered and logged, accents are kept, the bitness is as requested.
Dim log, stream
Check "Aceptar", MsgBox("Año nuevo" & Chr(13) & "segunda línea", 48, "Título"), 1
Check "No", MsgBox("¿Seguir?", 36, "Pregunta"), 7
Check "Cancelar", MsgBox("C:\ruta", 33, "Barra | vertical"), 2

Set stream = CreateObject("Scripting.FileSystemObject").OpenTextFile(WScript.Arguments(0), 1)
Check "registro", Left(stream.ReadLine, 3), "48|"
stream.Close
Check "carpeta", CreateObject("Scripting.FileSystemObject").FolderExists(WScript.Arguments(1)), True

WScript.Echo "año, ñ, €"
WScript.Echo count & " comprobaciones correctas"
