' Prepended to every VBScript test: checks a value and its type.
Option Explicit
Dim count
count = 0

Sub Check(what, found, wanted)
    If VarType(found) <> VarType(wanted) Or found <> wanted Then
        WScript.Echo "MAL " & what & ": " & TypeName(found) & " " & found & " en vez de " & wanted
        WScript.Quit 1
    End If
    count = count + 1
End Sub
