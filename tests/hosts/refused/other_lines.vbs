' Prints a line that the test does not expect.
WScript.Echo "otra línea"
WScript.Echo "1 comprobaciones correctas"
