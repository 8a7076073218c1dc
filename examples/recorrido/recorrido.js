// Kovrel desde JScript: todas sus clases, con argumentos de todos los tipos.
//
//   cscript //nologo recorrido.js CARPETA
//
// No muestra nada en pantalla: clsAvisos lo anota todo. Escribe sus archivos en la carpeta.
var carpeta = WScript.Arguments.Item(0);
var avisos = new ActiveXObject("Kovrel.clsAvisos");
avisos.Modo = 1;                                    // maSilencio
var idNIF = 1, idDNI = 2, arNuevo = 0;
var general = new ActiveXObject("Kovrel.clsFGen");

function siNo(valor) {
  return valor ? "sí" : "no";
}

// Una matriz de las de Visual Basic, que es lo que devuelven los miembros.
function elementos(matriz) {
  return new VBArray(matriz).toArray();
}

function generales() {
  general.AppOrigen = "Recorrido";
  WScript.Echo("Título: " + general.AppOrigen);
  // Los argumentos opcionales se omiten.
  WScript.Echo("NIF: " + general.Verifica_NIF("12345678A"));
  WScript.Echo("Letra: " + general.LetraNIF(12345678));
  WScript.Echo("Nulo: " + general.Nz(null, "ninguno"));
  WScript.Echo("Importe: " + general.ConvEurosALetra(12.5));
  WScript.Echo("Número: " + general.ConvNumeroALetra(21, "factura", "facturas"));
  general.BarraProgresoInicia("Recorrido", "Se recorre", true);
  general.BarraProgresoActualiza(50);
  WScript.Echo("Cancelada: " + siNo(general.BarraProgresoCancelada()));
  general.BarraProgresoFinaliza();
}

function mensajes() {
  var catalogo = new ActiveXObject("Kovrel.clsMensajes");
  catalogo.AppOrigen = "Avisos";
  // Una propiedad que es un objeto.
  general.Mensajes = catalogo;
  WScript.Echo("Catálogo: " + general.Mensajes.AppOrigen);
  var botonesSiNo = 4;
  var respuestaNo = 7;
  avisos.Respuestas(botonesSiNo, respuestaNo, "editar");
  WScript.Echo("Editar: " + catalogo.MsjFact_DeseaEditarFacturacion());
}

function fechas() {
  var calendario = new ActiveXObject("Kovrel.clsFFechas");
  var ultimo = calendario.UltimoDiaMesActual(2, 2024);
  WScript.Echo("Último día: " + new Date(ultimo).getDate());
  WScript.Echo("Semana del mes: " + calendario.SemanaEnElMes(ultimo));
  WScript.Echo("Mes: " + calendario.mes_letra(2));
  WScript.Echo("Año: " + calendario.ConvierteAñoA4(24));
  WScript.Echo("Bisiesto: " + siNo(calendario.EsBisiesto(2024)));
}

function textos() {
  var sql = new ActiveXObject("Kovrel.clsCSQL");
  var calendario = new ActiveXObject("Kovrel.clsFFechas");
  WScript.Echo("SQL: " + sql.Conv_String("O'Donnell") + ", " + sql.Conv_Boolean(true) + ", " +
               sql.Conv_DoubleDeDouble(12.5) + ", " +
               sql.Conv_Date_Date(calendario.UltimoDiaMesActual(2, 2024)));
  var dialectos = new ActiveXObject("Kovrel.clsFSQL");
  dialectos.Dialecto = 4;                             // diSQLite
  WScript.Echo("SQLite: " + dialectos.Texto("O'Donnell") + ", " + dialectos.Numero(12.5) + ", " +
               dialectos.Booleano(true));
}

function carpetas() {
  var perfil = new ActiveXObject("Kovrel.clsProfile");
  WScript.Echo("Ruta: " + perfil.AñadirBackSlash("C:\\Datos"));
  WScript.Echo("Carpeta creada: " + siNo(perfil.ExisteCarpeta(carpeta + "\\copias", true)));
  perfil.GuardarIni(carpeta + "\\recorrido.ini", "Empresa", "Nombre", "Peña");
  WScript.Echo("Leído: " + perfil.LeerIni(carpeta + "\\recorrido.ini", "Empresa", "Nombre"));
  WScript.Echo("Sin valor: " +
               perfil.LeerIni(carpeta + "\\recorrido.ini", "Empresa", "Fax", "no tiene"));
}

function dialogo() {
  var archivo = new ActiveXObject("Kovrel.cgsFileOpR");
  var soloExistentes = 0x1000;                        // OFN_FILEMUSTEXIST
  var sinSoloLectura = 0x4;                           // OFN_HIDEREADONLY
  archivo.Flags = soloExistentes | sinSoloLectura;
  WScript.Echo("Opciones: " + archivo.Flags);
}

function identificadores() {
  var comprobador = new ActiveXObject("Kovrel.clsFIdent");
  WScript.Echo("DNI correcto: " +
               siNo(comprobador.Comprueba(idDNI, "12345678A")));
  // Una lista de JScript no es una matriz de las que leen los demás: la da otro objeto.
  var textos = new ActiveXObject("Scripting.Dictionary");
  textos.Add(0, "12345678Z");
  textos.Add(1, "12345678A");
  var motivos = elementos(comprobador.CompruebaLista(idNIF, textos.Items()));
  WScript.Echo("Motivos: " + motivos[0] + " " + motivos[1]);
}

function registros() {
  var datos = new ActiveXObject("Kovrel.clsADODBServices");
  // Lo que se pasa no es un Recordset.
  WScript.Echo("Registro: " + datos.RecordLocation(general));
  // El archivo no existe: el fallo queda anotado.
  datos.PutImageInField(general, carpeta + "\\no hay.bmp");
}

function anotado() {
  WScript.Echo("Avisos: " + avisos.Count);
  for (var todos = new Enumerator(avisos); !todos.atEnd(); todos.moveNext()) {
    var aviso = todos.item();
    WScript.Echo("Aviso: " + aviso.Clase + " " + aviso.Miembro + " " + aviso.Respuesta);
  }
  var hora = new Date(avisos.Ultimo.Hora).getTime();
  WScript.Echo("Hoy: " + siNo(new Date().getTime() - hora < 24 * 3600 * 1000));
}

function archivos() {
  var zip = new ActiveXObject("Kovrel.clsFZip");
  WScript.Echo("Zip: " + siNo(zip.GenerarZip("uno.zip", carpeta, [carpeta + "\\recorrido.ini"]) ===
                              carpeta + "\\uno.zip"));
  var archivo = new ActiveXObject("Kovrel.clsFArchivo");
  archivo.Nivel = 9;
  general.BarraProgresoInicia("Recorrido", "Se comprime", true);
  var entradas = archivo.Comprime(carpeta + "\\dos.zip",
                                    carpeta + "\\recorrido.ini|" + carpeta + "\\uno.zip", "",
                                    arNuevo, general);
  general.BarraProgresoFinaliza();
  WScript.Echo("Completo: " + siNo(entradas.Completo));
  for (var todas = new Enumerator(entradas); !todas.atEnd(); todas.moveNext()) {
    var entrada = todas.item();
    WScript.Echo("Entrada: " + entrada.Nombre + ", estado " + entrada.Estado);
  }
}

generales();
mensajes();
fechas();
textos();
carpetas();
dialogo();
identificadores();
registros();
anotado();
archivos();
