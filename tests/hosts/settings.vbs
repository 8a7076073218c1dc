' INI files and path texts from VBScript, in the folder that the runner gives.
Dim files, ini
Set files = CreateObject("Kovrel.cgsFileOpR")
ini = files.AddBackSlash(WScript.Arguments(1)) & "ajustes.ini"

Check "sin valor", files.GetSetting(ini, "General", "Título"), ""
Check "por defecto", files.GetSetting(ini, "General", "Título", 5), "5"
files.SaveSetting ini, "General", "Título", "Facturación"
Check "guardado", files.LeerIni(ini, "General", "Título", "otro"), "Facturación"
files.GuardarIni ini, "General", "Largo", String(300, "ñ")
Check "cortado", files.GetSetting(ini, "General", "Largo"), String(254, "ñ")
files.DeleteSetting ini, "General", "Título"
Check "clave borrada", files.GetSetting(ini, "General", "Título"), ""
Check "la otra queda", Len(files.GetSetting(ini, "General", "Largo")), CLng(254)
files.DeleteSetting ini, "General"
Check "sección borrada", files.GetSetting(ini, "General", "Largo"), ""

Dim folder, file_name, extension
files.SplitPath "C:\Datos\año.2\factura.tar.gz", folder, file_name, extension
Check "carpeta", folder, "C:\Datos\año.2"
Check "nombre", file_name, "factura.tar.gz"
Check "extensión", extension, "gz"
files.SplitPath "factura", folder
Check "sin carpeta", folder, ""

Check "sin adyacentes", files.QuitarCaracterEx("aab", "a"), "ab"
Check "sustituidos", files.QuitarCaracterEx("aab", "a", ""), "b"
Check "números", files.QuitarCaracterEx("1.000", ".", 7), "17000"
Check "ceros", files.QuitarCaracterEx("C:\x" & Chr(0) & Chr(0), Chr(0)), "C:\x"
Check "sin fin", files.QuitarCaracterEx("a-b", "-", "--"), ""
Check "con barra", files.AddBackSlash("C:\Datos"), "C:\Datos\"
Check "sin barra", files.QuitarBackSlash("C:\Datos\\"), "C:\Datos\"

WScript.Echo count & " comprobaciones correctas"
