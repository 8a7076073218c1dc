{ The identifiers in another language, late-bound: one of every kind, and a list of a hundred
  thousand. The client knows the library by its ProgID alone, and prints what it is answered. }
program identifiers_client;

{$mode delphi}

uses
  Windows, SysUtils, Variants, ActiveX, ComObj;

type
  TSample = record
    Right, Wrong, Incomplete: WideString;
  end;

const
  { By kind. }
  Samples: array [1..17] of TSample = (
    (Right: 'b-12345674'; Wrong: ''; Incomplete: '1234567'),
    (Right: '12345678Z'; Wrong: '12345678A'; Incomplete: '12345678'),
    (Right: 'Z1234567R'; Wrong: 'Z1234567L'; Incomplete: 'Z1234567'),
    (Right: 'L1234567L'; Wrong: 'L123456L'; Incomplete: 'L1234567'),
    (Right: 'P2800000H'; Wrong: 'T2800000H'; Incomplete: 'P2800000'),
    (Right: '21000418450200051332'; Wrong: '21000418450200051333'; Incomplete: '210004180200051332'),
    (Right: 'ES9121000418450200051332'; Wrong: 'ES6421000418450200051333';
     Incomplete: 'ES0021000418450200051332'),
    (Right: 'CAIXESBBXXX'; Wrong: 'CAIX12BB'; Incomplete: 'CAIXES'),
    (Right: 'ES11000B12345674'; Wrong: 'ES11000B1234567'; Incomplete: 'ES00000B12345674'),
    (Right: 'ESX1234567L'; Wrong: 'ESI1234567L'; Incomplete: 'ESX1234567'),
    (Right: '281234567840'; Wrong: '281234567841'; Incomplete: '2812345678'),
    (Right: '28123456742'; Wrong: '28123456743'; Incomplete: '281234567'),
    (Right: '28013'; Wrong: '00013'; Incomplete: '8013'),
    (Right: 'ES1234123456789012JY'; Wrong: 'FR1234123456789012JY'; Incomplete: 'ES1234123456789012'),
    (Right: '9872023VH5797S0001WX'; Wrong: '9872023VH5797S'; Incomplete: '9872023VH5797S0001'),
    (Right: '4111111111111111'; Wrong: '4111-1111-1111-1112'; Incomplete: '411111111111111'),
    (Right: '8412345123450'; Wrong: '8412345123451'; Incomplete: '841234512345'));
  Letters = 'TRWAGMYFPDXBNJZSQVHLCKE';
  ListLength = 100000;

procedure PrintKinds(const Identifiers: OleVariant);
var
  Kind, Reason: Integer;
  IsRight: Boolean;
  Name, Readable, Words, Completed: WideString;
begin
  for Kind := Low(Samples) to High(Samples) do
  begin
    Name := Identifiers.TextoTipo(Kind);
    IsRight := Identifiers.Comprueba(Kind, Samples[Kind].Right);
    Readable := Identifiers.Formatea(Kind, Samples[Kind].Right);
    WriteLn(Kind, ' ', Name, ': ', IsRight, ', tipo ', Integer(Identifiers.TipoDe(Samples[Kind].Right)),
      ', ', Readable);
    { The variable is passed by reference, and receives the reason. }
    Reason := -1;
    IsRight := Identifiers.Comprueba(Kind, Samples[Kind].Wrong, Reason);
    Words := Identifiers.TextoMotivo(Reason);
    Completed := Identifiers.Corrige(Kind, Samples[Kind].Incomplete);
    WriteLn('  ', IsRight, ' ', Reason, ': ', Words, ' -> [', Completed, ']');
  end;
end;

procedure PrintTexts(const Identifiers: OleVariant);
var
  Text: WideString;
begin
  Text := Identifiers.CCCaIBAN('2100 0418 45 0200051332');
  WriteLn('IBAN ', Text);
  Text := Identifiers.IBANaCCC(Text);
  WriteLn('CCC ', Text);
  Text := Identifiers.Normaliza(1, '1.234.567-l');
  WriteLn('NIF ', Text);
  Text := Identifiers.Titular('P2800000H');
  WriteLn('titular ', Text);
end;

{ DNIs, of which every seventh has the letter of the next number. }
function List: OleVariant;
var
  Index: Integer;
begin
  Result := VarArrayCreate([1, ListLength], varOleStr);
  for Index := 1 to ListLength do
    Result[Index] := WideString(Format('%.8d', [Index]) +
      Letters[(Index + Ord(Index mod 7 = 0)) mod 23 + 1]);
end;

procedure PrintList(const Identifiers: OleVariant);
var
  Reasons: OleVariant;
  Index, Right, Unexpected: Integer;
begin
  Reasons := Identifiers.CompruebaLista(1, List);
  Right := 0;
  Unexpected := 0;
  for Index := VarArrayLowBound(Reasons, 1) to VarArrayHighBound(Reasons, 1) do
  begin
    if Reasons[Index] = 0 then Inc(Right);
    if Reasons[Index] <> 5 * Ord(Index mod 7 = 0) then Inc(Unexpected);
  end;
  WriteLn('lista de ', VarArrayLowBound(Reasons, 1), ' a ', VarArrayHighBound(Reasons, 1), ': ',
    Right, ' correctos, ', Unexpected, ' motivos que no son');
end;

procedure PrintFailure(const Identifiers: OleVariant);
begin
  try
    Identifiers.MotivoDe(18, '12345678Z');
  except
    on Error: EOleException do WriteLn('fallo ', Error.ErrorCode and $FFFF, ': ', Error.Message);
  end;
end;

procedure Run;
var
  Identifiers: OleVariant;
begin
  Identifiers := CreateOleObject('Kovrel.clsFIdent');
  PrintKinds(Identifiers);
  PrintTexts(Identifiers);
  PrintList(Identifiers);
  PrintFailure(Identifiers);
end;

begin
  SetTextCodePage(Output, CP_UTF8);
  CoInitialize(nil);
  try
    Run;
  except
    on Error: SysUtils.Exception do
    begin
      WriteLn('FALLO: ', Error.Message);
      ExitCode := 1;
    end;
  end;
  CoUninitialize;
end.
