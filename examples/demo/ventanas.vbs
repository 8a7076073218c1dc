' Muestra una de las ventanas de la biblioteca.
'   cscript //nologo ventanas.vbs mensaje|letra|progreso|fecha|verificador
'   cscript //nologo ventanas.vbs abrir CARPETA
Option Explicit

Dim general, n, texto
Set general = CreateObject("Kovrel.clsFGen")
general.AppOrigen = "Demostración"

Select Case WScript.Arguments(0)
    Case "mensaje"
        texto = "Resultado de la importación" & vbCr & vbCr
        For n = 1 To 40
            texto = texto & "Línea " & n & ": cliente actualizado." & vbCr
        Next
        general.Mensajes.MsgFormA "Importación de clientes", texto, True
    Case "letra"
        WScript.Echo general.Verifica_NIF("12345678A")
    Case "progreso"
        general.BarraProgresoInicia "Exportación", "Preparando los datos...", True
        For n = 0 To 100
            general.BarraProgresoActualiza n, "Registro " & n & " de 100"
            If n = 37 Then general.Espera 3
        Next
        general.BarraProgresoFinaliza
    Case "fecha"
        WScript.Echo CreateObject("Kovrel.clsFFechas").PideFecha("¿Desde qué fecha se factura?", _
            "Facturación", DateSerial(2024, 3, 15))
    Case "verificador"
        general.LanzaVerificadorNIFyCCC
    Case "abrir"
        Dim archivo
        Set archivo = CreateObject("Kovrel.cgsFileOpR")
        archivo.InitDir = WScript.Arguments(1)
        WScript.Echo archivo.ShowOpen("", "Abrir una factura", "Facturas (*.txt)|*.txt")
End Select
