' Shows a box that the test does not announce.
MsgBox "de más", 16, "x"
WScript.Echo "1 comprobaciones correctas"
