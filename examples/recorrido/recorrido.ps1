# Kovrel desde PowerShell: todas sus clases, con argumentos de todos los tipos.
#
#   powershell -File recorrido.ps1 CARPETA
#
# No muestra nada en pantalla: clsAvisos lo anota todo. Escribe sus archivos en la carpeta.
#
# Lo que un miembro cambia se pasa como [ref]; lo demás se pasa como copia. Los argumentos opcionales se
# omiten. Los nombres llevan ñ y tildes: guarde este archivo en UTF-8 con marca.
param([Parameter(Mandatory)][string]$carpeta)

$avisos = New-Object -ComObject Kovrel.clsAvisos
$avisos.Modo = 1                                  # maSilencio
$general = New-Object -ComObject Kovrel.clsFGen

function SiNo($valor) { if ($valor) { "sí" } else { "no" } }

$general.AppOrigen = "Recorrido"
"Título: " + $general.AppOrigen
"NIF: " + $general.Verifica_NIF("12345678A")
"Letra: " + $general.LetraNIF(12345678)
$texto = "12.345.678-Z"
$general.QuitaCaracteresyEspacios([ref]$texto)
"Por referencia, texto: $texto"
[int16]$tecla = [char]"a"
[void]$general.Convierte_May([ref]$tecla)
"Por referencia, número: $tecla"
"Nulo: " + $general.Nz([DBNull]::Value, "ninguno")
"Importe: " + $general.ConvEurosALetra(12.5)
"Número: " + $general.ConvNumeroALetra(21, "factura", "facturas")
$general.BarraProgresoInicia("Recorrido", "Se recorre", $true)
$general.BarraProgresoActualiza(50)
"Cancelada: " + (SiNo $general.BarraProgresoCancelada())
$general.BarraProgresoFinaliza()

$catalogo = New-Object -ComObject Kovrel.clsMensajes
$catalogo.AppOrigen = "Avisos"
$general.Mensajes = $catalogo
"Catálogo: " + $catalogo.AppOrigen
$avisos.Respuestas(4, 7, "editar")                # vbYesNo, vbNo
"Editar: " + $catalogo.MsjFact_DeseaEditarFacturacion()

$calendario = New-Object -ComObject Kovrel.clsFFechas
$ultimo = $calendario.UltimoDiaMesActual(2, 2024)
"Último día: " + $ultimo.Day
"Semana del mes: " + $calendario.SemanaEnElMes($ultimo)
"Mes: " + $calendario.mes_letra(2)
"Año: " + $calendario.ConvierteAñoA4(24)
"Bisiesto: " + (SiNo $calendario.EsBisiesto(2024))

$sql = New-Object -ComObject Kovrel.clsCSQL
$literales = $sql.Conv_String("O'Donnell"), $sql.Conv_Boolean($true), $sql.Conv_DoubleDeDouble(12.5),
             $sql.Conv_Date_Date([datetime]"2024-02-29")
"SQL: " + ($literales -join ", ")
$dialectos = New-Object -ComObject Kovrel.clsFSQL
$dialectos.Dialecto = 4                             # diSQLite
$literales = $dialectos.Texto("O'Donnell"), $dialectos.Numero(12.5), $dialectos.Booleano($true)
"SQLite: " + ($literales -join ", ")

$perfil = New-Object -ComObject Kovrel.clsProfile
"Ruta: " + $perfil.AñadirBackSlash("C:\Datos")
"Carpeta creada: " + (SiNo $perfil.ExisteCarpeta("$carpeta\copias", $true, $false))
$perfil.GuardarIni("$carpeta\recorrido.ini", "Empresa", "Nombre", "Peña")
"Leído: " + $perfil.LeerIni("$carpeta\recorrido.ini", "Empresa", "Nombre")
"Sin valor: " + $perfil.LeerIni("$carpeta\recorrido.ini", "Empresa", "Fax", "no tiene")

$archivo = New-Object -ComObject Kovrel.cgsFileOpR
$archivo.Flags = 0x1000 -bor 0x4                  # OFN_FILEMUSTEXIST, OFN_HIDEREADONLY
"Opciones: " + $archivo.Flags
[string]$ruta = ""
$nombre = $null
$extension = $null
$archivo.SplitPath("C:\Datos\carta.txt", [ref]$ruta, [ref]$nombre, [ref]$extension)
"Por referencia, partes: $ruta $nombre $extension"

$ident = New-Object -ComObject Kovrel.clsFIdent
$idNIF = 1
$idDNI = 2
[int]$motivo = 0
"DNI correcto: " + (SiNo $ident.Comprueba($idDNI, "12345678A", [ref]$motivo))
"Por referencia, motivo: " + $ident.TextoMotivo($motivo)
$motivos = $ident.CompruebaLista($idNIF, @("12345678Z", "12345678A"))
"Motivos: " + ($motivos -join " ")

$datos = New-Object -ComObject Kovrel.clsADODBServices
"Registro: " + $datos.RecordLocation($general)
$datos.PutImageInField($general, "$carpeta\no hay.bmp")

"Avisos: " + $avisos.Count
foreach ($aviso in $avisos) { "Aviso: $($aviso.Clase) $($aviso.Miembro) $($aviso.Respuesta)" }

$zip = New-Object -ComObject Kovrel.clsFZip
"Zip: " + (SiNo ($zip.GenerarZip("uno.zip", $carpeta, @("$carpeta\recorrido.ini")) -eq "$carpeta\uno.zip"))
$comprimidos = New-Object -ComObject Kovrel.clsFArchivo
$comprimidos.Nivel = 9
$general.BarraProgresoInicia("Recorrido", "Se comprime", $true)
$entradas = $comprimidos.Comprime("$carpeta\dos.zip", "$carpeta\recorrido.ini|$carpeta\uno.zip", "", 0, $general)
$general.BarraProgresoFinaliza()
"Completo: " + (SiNo $entradas.Completo)
foreach ($entrada in $entradas) { "Entrada: $($entrada.Nombre), estado $($entrada.Estado)" }

# Hasta que no se suelta, clsAvisos sigue decidiendo en este hilo.
[void][Runtime.InteropServices.Marshal]::ReleaseComObject($avisos)
