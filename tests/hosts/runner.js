// The runner with the other script language, and no box.
check("ñ", "año".charCodeAt(1), 0xF1);
check("argumentos", WScript.Arguments.length, 2);
WScript.Echo(count + " comprobaciones correctas");
