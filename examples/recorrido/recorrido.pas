{ Kovrel desde Delphi o Lazarus: todas sus clases, con argumentos de todos los tipos.

    recorrido CARPETA

  No muestra nada en pantalla: clsAvisos lo anota todo. Escribe sus archivos en la carpeta. Compílelo con
  la carpeta de Kovrel.pas entre las de las unidades. }
program recorrido;

{$APPTYPE CONSOLE}
{$IFDEF FPC}{$MODE DELPHI}{$ENDIF}

uses
  Windows, SysUtils, Variants, ActiveX, ComObj, Kovrel;

type
  { Lo que se hace con los eventos de clsAvisos. }
  TOyente = class
    procedure Aviso(Sender: TObject; const Aviso: _clsAviso; var Respuesta: Integer;
      var Mostrar: WordBool);
    procedure Progreso(Sender: TObject; const Porcentaje: Integer; const Mensaje: WideString;
      var Cancelar: WordBool);
  end;

var
  Carpeta: WideString;
  Avisos: _clsAvisos;
  General: _clsFGen;
  Eventos: TclsAvisosEventos;
  Oyente: TOyente;

function SiNo(Valor: Boolean): WideString;
begin
  if Valor then Result := 'sí' else Result := 'no';
end;

procedure TOyente.Aviso(Sender: TObject; const Aviso: _clsAviso; var Respuesta: Integer;
  var Mostrar: WordBool);
begin
  WriteLn('Evento: ' + Aviso.Miembro);
end;

procedure TOyente.Progreso(Sender: TObject; const Porcentaje: Integer; const Mensaje: WideString;
  var Cancelar: WordBool);
begin
  WriteLn('Evento: progreso ' + IntToStr(Porcentaje));
  Cancelar := Porcentaje > 90;
end;

procedure Generales;
var
  Texto, Mensaje, Singular, Plural, Ninguno: WideString;
  ConMensajes: WordBool;
  DNI, Porcentaje, Interno: Integer;
  Tecla: SmallInt;
  Importe: Double;
  Valor, Sustituto: OleVariant;
begin
  Texto := 'Recorrido';
  General.Set_AppOrigen(Texto);
  WriteLn('Título: ' + General.AppOrigen);
  ConMensajes := True;
  WriteLn('NIF: ' + General.Verifica_NIF('12345678A', ConMensajes));
  DNI := 12345678;
  WriteLn('Letra: ' + General.LetraNIF(DNI));
  { Las variables vuelven cambiadas. }
  Texto := '12.345.678-Z';
  General.QuitaCaracteresyEspacios(Texto);
  WriteLn('Por referencia, texto: ' + Texto);
  Tecla := Ord('a');
  General.Convierte_May(Tecla);
  WriteLn('Por referencia, número: ' + IntToStr(Tecla));
  Valor := Null;
  Sustituto := 'ninguno';
  WriteLn('Nulo: ' + WideString(General.Nz(Valor, Sustituto)));
  Importe := 12.5;
  WriteLn('Importe: ' + General.ConvEurosALetra(Importe));
  Singular := 'factura';
  Plural := 'facturas';
  Ninguno := '';
  Interno := 0;
  WriteLn('Número: ' + General.ConvNumeroALetra(21, Singular, Plural, Ninguno, Ninguno, Interno));
  { Los argumentos opcionales que van por valor se omiten. }
  General.BarraProgresoInicia('Recorrido', 'Se recorre', True);
  Porcentaje := 50;
  Mensaje := '';
  General.BarraProgresoActualiza(Porcentaje, Mensaje);
  WriteLn('Cancelada: ' + SiNo(General.BarraProgresoCancelada));
  General.BarraProgresoFinaliza;
end;

procedure Mensajes;
var
  Catalogo: _clsMensajes;
begin
  Catalogo := CoclsMensajes.Create;
  { La interfaz que llama por número asigna las propiedades que van por referencia. }
  _clsMensajesDisp(IDispatch(Catalogo)).AppOrigen := 'Avisos';
  { Una propiedad que es un objeto. }
  General.Mensajes := Catalogo;
  WriteLn('Catálogo: ' + General.Mensajes.AppOrigen);
  Avisos.Respuestas(MB_YESNO, IDNO, 'editar');
  WriteLn('Editar: ' + IntToStr(Catalogo.MsjFact_DeseaEditarFacturacion));
end;

procedure Fechas;
var
  Calendario: _clsFFechas;
  Mes, Anyo: SmallInt;
  NumeroDeMes: Byte;
  Ultimo: TDateTime;
begin
  Calendario := CoclsFFechas.Create;
  Mes := 2;
  Anyo := 2024;
  Ultimo := Calendario.UltimoDiaMesActual(Mes, Anyo);
  WriteLn('Último día: ' + FormatDateTime('d', Ultimo));
  WriteLn('Semana del mes: ' + IntToStr(Calendario.SemanaEnElMes(Ultimo)));
  NumeroDeMes := 2;
  WriteLn('Mes: ' + Calendario.mes_letra(NumeroDeMes));
  Anyo := 24;
  WriteLn('Año: ' + Calendario.ConvierteAnyoA4(Anyo));
  WriteLn('Bisiesto: ' + SiNo(Calendario.EsBisiesto(2024)));
end;

procedure Textos;
var
  SQL: _clsCSQLDisp;
  Dialectos: _clsFSQL;
  Texto: WideString;
begin
  { Por número, los miembros que solo leen sus argumentos admiten constantes. }
  SQL := _clsCSQLDisp(IDispatch(CoclsCSQL.Create));
  Texto := 'O''Donnell';
  WriteLn('SQL: ' + SQL.Conv_String(Texto) + ', ' + IntToStr(SQL.Conv_Boolean(True)) + ', ' +
    SQL.Conv_DoubleDeDouble(12.5) + ', ' + SQL.Conv_Date_Date(EncodeDate(2024, 2, 29)));
  Dialectos := CoclsFSQL.Create;
  Dialectos.Set_Dialecto(diSQLite);
  WriteLn('SQLite: ' + Dialectos.Texto(Texto) + ', ' + Dialectos.Numero(12.5) + ', ' +
    Dialectos.Booleano(True));
end;

procedure Carpetas;
var
  Perfil: _clsProfile;
  Ruta, Seccion, Clave, Valor: WideString;
  Crea, ConMensaje: WordBool;
  SinValor: OleVariant;
begin
  Perfil := CoclsProfile.Create;
  WriteLn('Ruta: ' + Perfil.AnyadirBackSlash('C:\Datos'));
  Ruta := Carpeta + '\copias';
  Crea := True;
  ConMensaje := False;
  WriteLn('Carpeta creada: ' + SiNo(Perfil.ExisteCarpeta(Ruta, Crea, ConMensaje)));
  Ruta := Carpeta + '\recorrido.ini';
  Seccion := 'Empresa';
  Clave := 'Nombre';
  Valor := 'Peña';
  Perfil.GuardarIni(Ruta, Seccion, Clave, Valor);
  { Un OleVariant que falta. }
  SinValor := EmptyParam;
  WriteLn('Leído: ' + Perfil.LeerIni(Ruta, Seccion, Clave, SinValor));
  Clave := 'Fax';
  SinValor := 'no tiene';
  WriteLn('Sin valor: ' + Perfil.LeerIni(Ruta, Seccion, Clave, SinValor));
end;

procedure Dialogo;
var
  Archivo: _cgsFileOpR;
  Ruta: WideString;
  Nombre, Extension: OleVariant;
begin
  Archivo := CocgsFileOpR.Create;
  Archivo.Flags := OFN_FILEMUSTEXIST or OFN_HIDEREADONLY;
  WriteLn('Opciones: ' + IntToStr(Archivo.Flags));
  Ruta := '';
  Archivo.SplitPath('C:\Datos\carta.txt', Ruta, Nombre, Extension);
  WriteLn('Por referencia, partes: ' + Ruta + ' ' + WideString(Nombre) + ' ' +
    WideString(Extension));
end;

procedure Identificadores;
var
  Comprobador: _clsFIdent;
  Motivo: eMotivo;
  Lista, Motivos: OleVariant;
begin
  Comprobador := CoclsFIdent.Create;
  WriteLn('DNI correcto: ' + SiNo(Comprobador.Comprueba(idDNI, '12345678A', Motivo)));
  WriteLn('Por referencia, motivo: ' + Comprobador.TextoMotivo(Motivo));
  { Una matriz de textos, y otra de vuelta. }
  Lista := VarArrayCreate([0, 1], varOleStr);
  Lista[0] := WideString('12345678Z');
  Lista[1] := WideString('12345678A');
  Motivos := Comprobador.CompruebaLista(idNIF, Lista);
  WriteLn('Motivos: ' + IntToStr(Motivos[0]) + ' ' + IntToStr(Motivos[1]));
end;

procedure Registros;
var
  Base: _clsADODBServices;
  Titulo, Imagen: WideString;
  Objeto: IDispatch;
begin
  Base := CoclsADODBServices.Create;
  Titulo := '';
  Objeto := General;
  { Lo que se pasa no es un Recordset. }
  WriteLn('Registro: ' + WideString(Base.RecordLocation(Objeto, Titulo)));
  { El archivo no existe: el fallo queda anotado. }
  Imagen := Carpeta + '\no hay.bmp';
  Base.PutImageInField(Objeto, Imagen);
end;

procedure Anotado;
var
  Todos: IEnumVARIANT;
  Elemento: OleVariant;
  Leidos: LongWord;
  Uno: _clsAviso;
begin
  WriteLn('Avisos: ' + IntToStr(Avisos.Count));
  Todos := Avisos._NewEnum as IEnumVARIANT;
  while Todos.Next(1, Elemento, Leidos) = S_OK do
  begin
    Uno := IDispatch(Elemento) as _clsAviso;
    WriteLn('Aviso: ' + IntToStr(Uno.Clase) + ' ' + Uno.Miembro + ' ' + IntToStr(Uno.Respuesta));
  end;
  WriteLn('Hoy: ' + SiNo(Now - Avisos.Ultimo.Hora < 1));
end;

procedure Archivos;
var
  Zip: _clsFZip;
  Archivo: _clsFArchivo;
  Entradas: _clsEntradas;
  Nombres: ZIPnames;
  Nombre, Salida: WideString;
  Lista: OleVariant;
  Indice: Integer;
begin
  Zip := CoclsFZip.Create;
  Nombre := 'uno.zip';
  Salida := Carpeta;
  Nombres.Nombres[0] := Carpeta + '\recorrido.ini';
  WriteLn('Zip: ' + SiNo(Zip.GenerarZip(Nombre, Salida, Nombres) = Carpeta + '\uno.zip'));
  Archivo := CoclsFArchivo.Create;
  Archivo.Nivel := 9;
  Lista := VarArrayCreate([0, 1], varOleStr);
  Lista[0] := Carpeta + '\recorrido.ini';
  Lista[1] := Carpeta + '\uno.zip';
  General.BarraProgresoInicia('Recorrido', 'Se comprime', True);
  Entradas := Archivo.Comprime(Carpeta + '\dos.zip', Lista, '', arNuevo, General);
  General.BarraProgresoFinaliza;
  WriteLn('Completo: ' + SiNo(Entradas.Completo));
  for Indice := 1 to Entradas.Count do
    WriteLn('Entrada: ' + Entradas.Item(Indice).Nombre + ', estado ' +
      IntToStr(Entradas.Item(Indice).Estado));
end;

procedure Recorre;
begin
  Avisos := CoclsAvisos.Create;
  Avisos.Modo := maSilencio;
  General := CoclsFGen.Create;
  Oyente := TOyente.Create;
  Eventos := TclsAvisosEventos.Create(Avisos);
  Eventos.OnAviso := Oyente.Aviso;
  Eventos.OnProgreso := Oyente.Progreso;
  try
    Generales;
    Mensajes;
    Fechas;
    Textos;
    Carpetas;
    Dialogo;
    Identificadores;
    Registros;
  finally
    Eventos.Free;
    Oyente.Free;
  end;
  Anotado;
  Archivos;
  General := nil;
  Avisos := nil;
end;

begin
  {$IFDEF FPC}SetTextCodePage(Output, CP_UTF8);{$ENDIF}
  CoInitialize(nil);
  Carpeta := ParamStr(1);
  try
    Recorre;
  except
    on Fallo: Exception do
    begin
      WriteLn('Fallo: ', Fallo.Message);
      ExitCode := 1;
    end;
  end;
  CoUninitialize;
end.
