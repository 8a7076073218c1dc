Attribute VB_Name = "Recorrido"
' Kovrel desde VBA o Basic clásico: todas sus clases, con argumentos de todos los tipos. Importe este módulo
' y Oyente.cls, ponga la referencia a Kovrel y ejecute Recorre en la ventana Inmediato: Recorre "C:\Temp".
'
' No muestra nada en pantalla: clsAvisos lo anota todo. Escribe sus archivos en la carpeta.
'
' Una variable que se pasa por referencia ha de ser del tipo exacto del parámetro ("El tipo del argumento
' de ByRef no coincide"). Una constante o una expresión se pasan como copia, y no hay que declararlas.
Option Explicit

Private carpeta As String
Private avisos As Kovrel.clsAvisos
Private general As Kovrel.clsFGen

Public Sub Recorre(ByVal enCarpeta As String)
    Dim receptor As Oyente
    carpeta = enCarpeta
    Set avisos = New Kovrel.clsAvisos
    avisos.Modo = maSilencio
    Set general = New Kovrel.clsFGen
    Set receptor = New Oyente
    receptor.Oye avisos
    Generales
    Mensajes
    Fechas
    Textos
    Carpetas
    Dialogo
    Identificadores
    Registros
    Set receptor = Nothing
    Anotado
    Archivos
    Set general = Nothing
    Set avisos = Nothing
End Sub

Private Function SiNo(ByVal valor As Boolean) As String
    SiNo = IIf(valor, "sí", "no")
End Function

Private Sub Generales()
    Dim texto As String
    Dim tecla As Integer
    general.AppOrigen = "Recorrido"
    Debug.Print "Título: " & general.AppOrigen
    ' Los argumentos opcionales se omiten.
    Debug.Print "NIF: " & general.Verifica_NIF("12345678A")
    Debug.Print "Letra: " & general.LetraNIF(12345678)
    ' Las variables vuelven cambiadas.
    texto = "12.345.678-Z"
    general.QuitaCaracteresyEspacios texto
    Debug.Print "Por referencia, texto: " & texto
    tecla = Asc("a")
    general.Convierte_May tecla
    Debug.Print "Por referencia, número: " & tecla
    Debug.Print "Nulo: " & general.Nz(Null, "ninguno")
    Debug.Print "Importe: " & general.ConvEurosALetra(12.5)
    Debug.Print "Número: " & general.ConvNumeroALetra(21, "factura", "facturas")
    general.BarraProgresoInicia "Recorrido", "Se recorre", True
    general.BarraProgresoActualiza 50
    Debug.Print "Cancelada: " & SiNo(general.BarraProgresoCancelada())
    general.BarraProgresoFinaliza
End Sub

Private Sub Mensajes()
    Dim catalogo As New Kovrel.clsMensajes
    catalogo.AppOrigen = "Avisos"
    ' Una propiedad que es un objeto.
    Set general.Mensajes = catalogo
    Debug.Print "Catálogo: " & general.Mensajes.AppOrigen
    avisos.Respuestas vbYesNo, vbNo, "editar"
    Debug.Print "Editar: " & catalogo.MsjFact_DeseaEditarFacturacion()
End Sub

Private Sub Fechas()
    Dim calendario As New Kovrel.clsFFechas
    Dim ultimo As Date
    ultimo = calendario.UltimoDiaMesActual(2, 2024)
    Debug.Print "Último día: " & Day(ultimo)
    Debug.Print "Semana del mes: " & calendario.SemanaEnElMes(ultimo)
    Debug.Print "Mes: " & calendario.mes_letra(2)
    Debug.Print "Año: " & calendario.ConvierteAñoA4(24)
    Debug.Print "Bisiesto: " & SiNo(calendario.EsBisiesto(2024))
End Sub

Private Sub Textos()
    Dim sql As New Kovrel.clsCSQL
    Debug.Print "SQL: " & sql.Conv_String("O'Donnell") & ", " & sql.Conv_Boolean(True) & ", " & _
                sql.Conv_DoubleDeDouble(12.5) & ", " & sql.Conv_Date_Date(#2/29/2024#)
    Dim dialectos As New Kovrel.clsFSQL
    dialectos.Dialecto = diSQLite
    Debug.Print "SQLite: " & dialectos.Texto("O'Donnell") & ", " & dialectos.Numero(12.5) & ", " & _
                dialectos.Booleano(True)
End Sub

Private Sub Carpetas()
    Dim perfil As New Kovrel.clsProfile
    Debug.Print "Ruta: " & perfil.AñadirBackSlash("C:\Datos")
    Debug.Print "Carpeta creada: " & SiNo(perfil.ExisteCarpeta(carpeta & "\copias", True, False))
    perfil.GuardarIni carpeta & "\recorrido.ini", "Empresa", "Nombre", "Peña"
    Debug.Print "Leído: " & perfil.LeerIni(carpeta & "\recorrido.ini", "Empresa", "Nombre")
    Debug.Print "Sin valor: " & perfil.LeerIni(carpeta & "\recorrido.ini", "Empresa", "Fax", "no tiene")
End Sub

Private Sub Dialogo()
    Dim dialogoDeArchivo As New Kovrel.cgsFileOpR
    Dim ruta As String
    Dim nombre As Variant
    Dim extension As Variant
    dialogoDeArchivo.Flags = OFN_FILEMUSTEXIST Or OFN_HIDEREADONLY
    Debug.Print "Opciones: " & dialogoDeArchivo.Flags
    dialogoDeArchivo.SplitPath "C:\Datos\carta.txt", ruta, nombre, extension
    Debug.Print "Por referencia, partes: " & ruta & " " & nombre & " " & extension
End Sub

Private Sub Identificadores()
    Dim ident As New Kovrel.clsFIdent
    Dim motivo As eMotivo
    Dim motivos As Variant
    Debug.Print "DNI correcto: " & SiNo(ident.Comprueba(idDNI, "12345678A", motivo))
    Debug.Print "Por referencia, motivo: " & ident.TextoMotivo(motivo)
    ' Una matriz de textos, y otra de vuelta.
    motivos = ident.CompruebaLista(idNIF, Array("12345678Z", "12345678A"))
    Debug.Print "Motivos: " & motivos(0) & " " & motivos(1)
End Sub

Private Sub Registros()
    Dim datos As New Kovrel.clsADODBServices
    ' Lo que se pasa no es un Recordset.
    Debug.Print "Registro: " & datos.RecordLocation(general)
    ' El archivo no existe: el fallo queda anotado.
    datos.PutImageInField general, carpeta & "\no hay.bmp"
End Sub

Private Sub Anotado()
    Dim aviso As Kovrel.clsAviso
    Debug.Print "Avisos: " & avisos.Count
    For Each aviso In avisos
        Debug.Print "Aviso: " & aviso.Clase & " " & aviso.Miembro & " " & aviso.Respuesta
    Next
    Debug.Print "Hoy: " & SiNo(Now - avisos.Ultimo.Hora < 1)
End Sub

Private Sub Archivos()
    Dim zip As New Kovrel.clsFZip
    Dim nombres As Kovrel.ZIPnames
    Dim comprimidos As New Kovrel.clsFArchivo
    Dim entradas As Kovrel.clsEntradas
    Dim entrada As Kovrel.clsEntrada
    ' Un registro.
    nombres.Nombres(0) = carpeta & "\recorrido.ini"
    Debug.Print "Zip: " & SiNo(zip.GenerarZip("uno.zip", carpeta, nombres) = carpeta & "\uno.zip")
    comprimidos.Nivel = 9
    general.BarraProgresoInicia "Recorrido", "Se comprime", True
    Set entradas = comprimidos.Comprime(carpeta & "\dos.zip", _
                                        Array(carpeta & "\recorrido.ini", carpeta & "\uno.zip"), _
                                        "", arNuevo, general)
    general.BarraProgresoFinaliza
    Debug.Print "Completo: " & SiNo(entradas.Completo)
    For Each entrada In entradas
        Debug.Print "Entrada: " & entrada.Nombre & ", estado " & entrada.Estado
    Next
End Sub
