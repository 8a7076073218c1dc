// INI files and path texts from JScript, in the folder that the runner gives.
var files = new ActiveXObject("Kovrel.cgsFileOpR");
var ini = files.AddBackSlash(WScript.Arguments(1)) + "ajustes.ini";
check("sin valor", files.GetSetting(ini, "General", "Título"), "");
check("por defecto", files.GetSetting(ini, "General", "Título", 5), "5");
files.SaveSetting(ini, "General", "Título", "Facturación");
check("guardado", files.LeerIni(ini, "General", "Título", "otro"), "Facturación");
files.DeleteSetting(ini, "General", "Título");
check("clave borrada", files.GetSetting(ini, "General", "Título"), "");
check("sin adyacentes", files.QuitarCaracterEx("aab", "a"), "ab");
check("sustituidos", files.QuitarCaracterEx("aab", "a", ""), "b");
check("sin fin", files.QuitarCaracterEx("a-b", "-", "--"), "");
check("con barra", files.AddBackSlash("C:\\Datos"), "C:\\Datos\\");
check("sin barra", files.QuitarBackSlash("C:\\Datos\\\\"), "C:\\Datos\\");

var folders = new ActiveXObject("Kovrel.clsProfile");
folders.GuardarIni(ini, "Carpetas", "Última", "C:\\Datos");
check("de clsProfile", folders.LeerIni(ini, "Carpetas", "Última"), "C:\\Datos");
check("nombre con ñ", folders["AñadirBackSlash"]("C:\\Datos"), "C:\\Datos\\");

WScript.Echo(count + " comprobaciones correctas");
