// The runner with the other script language, and no box.
var count = 0;
if ("año".charCodeAt(1) === 0xF1) count++;
if (WScript.Arguments.length === 2) count++;
if (count === 2) WScript.Echo(count + " comprobaciones correctas");
