{ A client with events in another language: it knows the library by its ProgIDs alone, finds the
  events' interface by its name in the type library, and prints what it receives. }
program event_client;

{$mode delphi}

uses
  Windows, SysUtils, ActiveX, ComObj;

type
  TReceived = procedure(const Event: WideString; Arguments: PVariantArgList; Count: Integer) of object;

  { An object that receives the events of an interface. }
  TEventSink = class(TInterfacedObject, IUnknown, IDispatch)
  private
    FEvents: ITypeInfo;
    FId: TGUID;
    FReceived: TReceived;
  public
    constructor Create(const Events: ITypeInfo; const Id: TGUID; Received: TReceived);
    function QueryInterface(constref Id: TGUID; out Obj): LongInt; stdcall;
    function GetTypeInfoCount(out Count: LongInt): HResult; stdcall;
    function GetTypeInfo(Index, Locale: LongInt; out Info): HResult; stdcall;
    function GetIDsOfNames(const Id: TGUID; Names: Pointer; Count, Locale: LongInt;
      Ids: Pointer): HResult; stdcall;
    function Invoke(Event: LongInt; const Id: TGUID; Locale: LongInt; Flags: Word; var Params;
      Answer, Exception, BadArgument: Pointer): HResult; stdcall;
  end;

  { What the client does with them. }
  TReceiver = class
  public
    Answer: Integer;
    Shows, Cancels, Fails: Boolean;
    procedure Received(const Event: WideString; Arguments: PVariantArgList; Count: Integer);
  end;

var
  Receiver: TReceiver;

constructor TEventSink.Create(const Events: ITypeInfo; const Id: TGUID; Received: TReceived);
begin
  FEvents := Events;
  FId := Id;
  FReceived := Received;
end;

function TEventSink.QueryInterface(constref Id: TGUID; out Obj): LongInt; stdcall;
begin
  if IsEqualGUID(Id, FId) then
    Result := inherited QueryInterface(IDispatch, Obj)
  else
    Result := inherited QueryInterface(Id, Obj);
end;

function TEventSink.GetTypeInfoCount(out Count: LongInt): HResult; stdcall;
begin
  Count := 0;
  Result := S_OK;
end;

function TEventSink.GetTypeInfo(Index, Locale: LongInt; out Info): HResult; stdcall;
begin
  Pointer(Info) := nil;
  Result := DISP_E_BADINDEX;
end;

function TEventSink.GetIDsOfNames(const Id: TGUID; Names: Pointer; Count, Locale: LongInt;
  Ids: Pointer): HResult; stdcall;
begin
  Result := DISP_E_UNKNOWNNAME;
end;

function TEventSink.Invoke(Event: LongInt; const Id: TGUID; Locale: LongInt; Flags: Word;
  var Params; Answer, Exception, BadArgument: Pointer): HResult; stdcall;
var
  Name: WideString;
begin
  Result := FEvents.GetDocumentation(Event, @Name, nil, nil, nil);
  if Result <> S_OK then Exit;
  try
    FReceived(Name, TDispParams(Params).rgvarg, TDispParams(Params).cArgs);
  except
    on Error: SysUtils.Exception do
    begin
      PExcepInfo(Exception)^.Description := WideString(Error.Message);
      Result := DISP_E_EXCEPTION;
    end;
  end;
end;

procedure TReceiver.Received(const Event: WideString; Arguments: PVariantArgList; Count: Integer);
var
  Notice: OleVariant;
begin
  { The last argument comes first. }
  if Event = 'Aviso' then
  begin
    Notice := IDispatch(Arguments^[2].dispVal);
    WriteLn('  ', Event, ' de ', Notice.Miembro, ', respuesta ', Arguments^[1].plVal^,
      ', mostrar ', SmallInt(Arguments^[0].pbool^), ': ', Notice.Texto);
    if Fails then raise SysUtils.Exception.Create('el receptor falla');
    if Answer <> 0 then Arguments^[1].plVal^ := Answer;
    if Shows then SmallInt(Arguments^[0].pbool^) := -1;
  end
  else
  begin
    WriteLn('  ', Event, ' ', Arguments^[2].lVal, ', cancelar ', SmallInt(Arguments^[0].pbool^),
      ': ', WideString(Arguments^[1].bstrVal));
    if Cancels then SmallInt(Arguments^[0].pbool^) := -1;
  end;
end;

{ The members of an interface but those of IDispatch, which are listed too, as restricted ones. }
procedure PrintMembers(const Name: WideString; const Info: ITypeInfo; Count: Integer);
var
  Index: Integer;
  Description: LPFUNCDESC;
  Member: WideString;
begin
  Write(Name, ':');
  for Index := 0 to Count - 1 do
  begin
    OleCheck(Info.GetFuncDesc(Index, Description));
    OleCheck(Info.GetDocumentation(Description^.memid, @Member, nil, nil, nil));
    if Description^.wFuncFlags and FUNCFLAG_FRESTRICTED = 0 then
      Write(' ', Member, '(', Description^.cParams, ')');
    Info.ReleaseFuncDesc(Description);
  end;
  WriteLn;
end;

{ The interface of an object's type library with this name. }
function FindInterface(const Source: IDispatch; const Wanted: WideString; out Id: TGUID): ITypeInfo;
var
  Info: ITypeInfo;
  Types: ITypeLib;
  Attributes: LPTYPEATTR;
  Name: WideString;
  Index: LongWord;
begin
  OleCheck(Source.GetTypeInfo(0, 0, Info));
  OleCheck(Info.GetContainingTypeLib(Types, Index));
  for Index := 0 to Types.GetTypeInfoCount - 1 do
  begin
    OleCheck(Types.GetDocumentation(Index, @Name, nil, nil, nil));
    if Name <> Wanted then Continue;
    OleCheck(Types.GetTypeInfo(Index, Result));
    OleCheck(Result.GetTypeAttr(Attributes));
    Id := Attributes^.GUID;
    PrintMembers(Name, Result, Attributes^.cFuncs);
    Result.ReleaseTypeAttr(Attributes);
    Exit;
  end;
  raise SysUtils.Exception.Create('La biblioteca de tipos no tiene ' + string(Wanted));
end;

procedure PrintRecord(const Notices: OleVariant);
var
  Notice: OleVariant;
  All: IEnumVARIANT;
  Fetched: ULONG;
begin
  WriteLn('anotados ', Notices.Count);
  All := IUnknown(Notices._NewEnum) as IEnumVARIANT;
  while All.Next(1, Notice, Fetched) = S_OK do
    WriteLn('  ', Notice.Clase, ' ', Notice.Miembro, ' ', Notice.Respuesta, ' ', Notice.Porcentaje);
end;

procedure SendId(const General: OleVariant);
var
  Corrected: WideString;
begin
  Corrected := General.Verifica_NIF('12345678A');
  WriteLn('NIF ', Corrected);
end;

procedure Ask(const Messages: OleVariant);
var
  Answer: Integer;
begin
  Answer := Messages.MsjFact_DeseaEditarFacturacion;
  WriteLn('editar ', Answer);
end;

procedure Run;
var
  Source: IDispatch;
  Events: ITypeInfo;
  EventsId: TGUID;
  Connection: DWORD;
  Notices, General, Messages: OleVariant;
begin
  Source := CreateOleObject('Kovrel.clsAvisos');
  Events := FindInterface(Source, '_clsAvisosEvents', EventsId);
  Connection := 0;
  InterfaceConnect(Source, EventsId, TEventSink.Create(Events, EventsId, Receiver.Received),
    Connection);
  Notices := Source;
  Notices.Modo := 1;
  General := CreateOleObject('Kovrel.clsFGen');
  Messages := CreateOleObject('Kovrel.clsMensajes');

  SendId(General);
  Ask(Messages);
  Receiver.Answer := 7;
  Ask(Messages);
  Receiver.Answer := 2;
  Ask(Messages);
  Receiver.Answer := 0;
  Receiver.Fails := True;
  SendId(General);
  Receiver.Fails := False;
  Receiver.Shows := True;
  SendId(General);

  General.BarraProgresoInicia('Recibos', 'Se generan', True);
  General.BarraProgresoActualiza(40, 'Recibo 4');
  WriteLn('cancelado ', Boolean(General.BarraProgresoCancelada));
  Receiver.Cancels := True;
  General.BarraProgresoActualiza(50, 'Recibo 5');
  WriteLn('cancelado ', Boolean(General.BarraProgresoCancelada));
  General.BarraProgresoFinaliza;

  InterfaceDisconnect(Source, EventsId, Connection);
  SendId(General);
  PrintRecord(Notices);
end;

begin
  SetTextCodePage(Output, CP_UTF8);
  CoInitialize(nil);
  Receiver := TReceiver.Create;
  try
    Run;
  except
    on Error: SysUtils.Exception do
    begin
      WriteLn('FALLO: ', Error.Message);
      ExitCode := 1;
    end;
  end;
  Receiver.Free;
  CoUninitialize;
end.
