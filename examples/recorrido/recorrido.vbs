' Kovrel desde VBScript: todas sus clases, con argumentos de todos los tipos.
'
'   cscript //nologo recorrido.vbs CARPETA
'
' No muestra nada en pantalla: clsAvisos lo anota todo. Escribe sus archivos en la carpeta.
Option Explicit

Dim carpeta, avisos, general
carpeta = WScript.Arguments(0)
Set avisos = CreateObject("Kovrel.clsAvisos")
avisos.Modo = 1                                     ' maSilencio
Set general = CreateObject("Kovrel.clsFGen")
Generales
Mensajes
Fechas
Textos
Carpetas
Dialogo
Identificadores
Registros
Anotado
Archivos

Function SiNo(valor)
    If valor Then SiNo = "sí" Else SiNo = "no"
End Function

Sub Generales()
    Dim texto, tecla
    general.AppOrigen = "Recorrido"
    WScript.Echo "Título: " & general.AppOrigen
    ' Los argumentos opcionales se omiten.
    WScript.Echo "NIF: " & general.Verifica_NIF("12345678A")
    WScript.Echo "Letra: " & general.LetraNIF(12345678)
    ' Las variables vuelven cambiadas.
    texto = "12.345.678-Z"
    general.QuitaCaracteresyEspacios texto
    WScript.Echo "Por referencia, texto: " & texto
    tecla = Asc("a")
    general.Convierte_May tecla
    WScript.Echo "Por referencia, número: " & tecla
    WScript.Echo "Nulo: " & general.Nz(Null, "ninguno")
    WScript.Echo "Importe: " & general.ConvEurosALetra(12.5)
    WScript.Echo "Número: " & general.ConvNumeroALetra(21, "factura", "facturas")
    general.BarraProgresoInicia "Recorrido", "Se recorre", True
    general.BarraProgresoActualiza 50
    WScript.Echo "Cancelada: " & SiNo(general.BarraProgresoCancelada)
    general.BarraProgresoFinaliza
End Sub

Sub Mensajes()
    Dim catalogo
    Set catalogo = CreateObject("Kovrel.clsMensajes")
    catalogo.AppOrigen = "Avisos"
    ' Una propiedad que es un objeto.
    Set general.Mensajes = catalogo
    WScript.Echo "Catálogo: " & general.Mensajes.AppOrigen
    avisos.Respuestas vbYesNo, vbNo, "editar"
    WScript.Echo "Editar: " & catalogo.MsjFact_DeseaEditarFacturacion
End Sub

Sub Fechas()
    Dim calendario, ultimo
    Set calendario = CreateObject("Kovrel.clsFFechas")
    ultimo = calendario.UltimoDiaMesActual(2, 2024)
    WScript.Echo "Último día: " & Day(ultimo)
    WScript.Echo "Semana del mes: " & calendario.SemanaEnElMes(ultimo)
    WScript.Echo "Mes: " & calendario.mes_letra(2)
    WScript.Echo "Año: " & calendario.ConvierteAñoA4(24)
    WScript.Echo "Bisiesto: " & SiNo(calendario.EsBisiesto(2024))
End Sub

Sub Textos()
    Dim sql, dialectos
    Set sql = CreateObject("Kovrel.clsCSQL")
    WScript.Echo "SQL: " & sql.Conv_String("O'Donnell") & ", " & sql.Conv_Boolean(True) & ", " & _
                 sql.Conv_DoubleDeDouble(12.5) & ", " & sql.Conv_Date_Date(DateSerial(2024, 2, 29))
    Set dialectos = CreateObject("Kovrel.clsFSQL")
    dialectos.Dialecto = 4                              ' diSQLite
    WScript.Echo "SQLite: " & dialectos.Texto("O'Donnell") & ", " & dialectos.Numero(12.5) & ", " & _
                 dialectos.Booleano(True)
End Sub

Sub Carpetas()
    Dim perfil
    Set perfil = CreateObject("Kovrel.clsProfile")
    WScript.Echo "Ruta: " & perfil.AñadirBackSlash("C:\Datos")
    WScript.Echo "Carpeta creada: " & SiNo(perfil.ExisteCarpeta(carpeta & "\copias", True))
    perfil.GuardarIni carpeta & "\recorrido.ini", "Empresa", "Nombre", "Peña"
    WScript.Echo "Leído: " & perfil.LeerIni(carpeta & "\recorrido.ini", "Empresa", "Nombre")
    WScript.Echo "Sin valor: " & perfil.LeerIni(carpeta & "\recorrido.ini", "Empresa", "Fax", "no tiene")
End Sub

Sub Dialogo()
    Const OFN_HIDEREADONLY = &H4, OFN_FILEMUSTEXIST = &H1000
    Dim archivo, ruta, nombre, extension
    Set archivo = CreateObject("Kovrel.cgsFileOpR")
    archivo.Flags = OFN_FILEMUSTEXIST Or OFN_HIDEREADONLY
    WScript.Echo "Opciones: " & archivo.Flags
    archivo.SplitPath "C:\Datos\carta.txt", ruta, nombre, extension
    WScript.Echo "Por referencia, partes: " & ruta & " " & nombre & " " & extension
End Sub

Sub Identificadores()
    Dim identificadores, motivo, motivos
    Set identificadores = CreateObject("Kovrel.clsFIdent")
    WScript.Echo "DNI correcto: " & SiNo(identificadores.Comprueba(2, "12345678A", motivo))
    WScript.Echo "Por referencia, motivo: " & identificadores.TextoMotivo(motivo)
    ' Una matriz de textos, y otra de vuelta.
    motivos = identificadores.CompruebaLista(1, Array("12345678Z", "12345678A"))
    WScript.Echo "Motivos: " & motivos(0) & " " & motivos(1)
End Sub

Sub Registros()
    Dim base
    Set base = CreateObject("Kovrel.clsADODBServices")
    base.AppOrigen = "Recorrido"
    ' Lo que se pasa no es un Recordset.
    WScript.Echo "Registro: " & base.RecordLocation(general)
    ' El archivo no existe: el fallo queda anotado.
    base.PutImageInField general, carpeta & "\no hay.bmp"
End Sub

Sub Anotado()
    Dim aviso
    WScript.Echo "Avisos: " & avisos.Count
    For Each aviso In avisos
        WScript.Echo "Aviso: " & aviso.Clase & " " & aviso.Miembro & " " & aviso.Respuesta
    Next
    WScript.Echo "Hoy: " & SiNo(Now - avisos.Ultimo.Hora < 1)
End Sub

Sub Archivos()
    Dim zip, archivos, entradas, entrada
    Set zip = CreateObject("Kovrel.clsFZip")
    WScript.Echo "Zip: " & SiNo(zip.GenerarZip("uno.zip", carpeta, Array(carpeta & "\recorrido.ini")) = _
                                carpeta & "\uno.zip")
    Set archivos = CreateObject("Kovrel.clsFArchivo")
    archivos.Nivel = 9
    general.BarraProgresoInicia "Recorrido", "Se comprime", True
    Set entradas = archivos.Comprime(carpeta & "\dos.zip", _
                                     Array(carpeta & "\recorrido.ini", carpeta & "\uno.zip"), _
                                     "", 0, general)
    general.BarraProgresoFinaliza
    WScript.Echo "Completo: " & SiNo(entradas.Completo)
    For Each entrada In entradas
        WScript.Echo "Entrada: " & entrada.Nombre & ", estado " & entrada.Estado
    Next
End Sub
