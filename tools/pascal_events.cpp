#include "tools/pascal_events.h"

#include <sstream>

#include "automation/registration.h"
#include "runtime/failure.h"
#include "tools/declared_text.h"
#include "tools/pascal_names.h"

namespace kovrel {
namespace {

std::wstring receiver_of(const ClassInfo& info) {
    return L"T" + std::wstring(info.name) + L"Eventos";
}

std::wstring handler_of(const ClassInfo& info, const EventsInfo::Event& event) {
    return L"T" + std::wstring(info.name) + pascal_name(event.name);
}

/// The argument of an event as its handler takes it; arguments come from the last to the first.
std::wstring argument(const ParameterInfo& parameter, std::size_t place) {
    const std::wstring given = L"Dados^[" + std::to_wstring(place) + L"].";
    const std::wstring type = pascal_type(parameter.type);
    if (parameter.by_reference) return L"P" + type + L"(" + given + L"byRef)^";
    if (parameter.type.instance_of != nullptr) {
        return L"IDispatch(" + given + L"dispVal) as " + type;
    }
    switch (parameter.type.type) {
        case VT_I4:
            return given + L"lVal";
        case VT_BSTR:
            return L"WideString(" + given + L"bstrVal)";
        default:
            throw Failure(E_NOTIMPL, L"Un argumento que los eventos de Pascal no conocen");
    }
}

/// Connects when it is created, and disconnects when it is destroyed.
std::wstring lifetime(const ClassInfo& info) {
    const std::wstring receiver = receiver_of(info);
    const std::wstring events = L"DIID_" + std::wstring(info.events->name);
    return L"constructor " + receiver + L".Create(const Origen: " + info.interface_name +
           L");\nbegin\n  inherited Create;\n  FOrigen := Origen;\n  InterfaceConnect(FOrigen, " +
           events + L", Self as IDispatch, FConexion);\nend;\n\ndestructor " + receiver +
           L".Destroy;\nbegin\n  if FOrigen <> nil then InterfaceDisconnect(FOrigen, " + events +
           L", FConexion);\n  inherited Destroy;\nend;\n\n";
}

}  // namespace

std::wstring pascal_events_type(const ClassInfo& info) {
    const EventsInfo& events = *info.events;
    const std::wstring receiver = receiver_of(info);
    std::wostringstream out;
    out << L"\n  { " << events.help << L" }\n  " << events.name << L" = dispinterface\n    ['"
        << text_of_guid(events.id) << L"']\n";
    for (const EventsInfo::Event& event : events.events) {
        out << L"    { " << event.help << L" }\n"
            << pascal_dispatch_method(method_of(event), event.id);
    }
    out << L"  end;\n\n";
    for (const EventsInfo::Event& event : events.events) {
        out << L"  " << handler_of(info, event) << L" = procedure(Sender: TObject";
        for (const ParameterInfo& parameter : event.parameters) {
            out << (parameter.by_reference ? L"; var " : L"; const ")
                << pascal_name(name_of(parameter)) << L": " << pascal_type(parameter.type);
        }
        out << L") of object;\n";
    }
    out << L"\n  I" << info.name << L"Eventos = interface(IDispatch)\n    ['"
        << text_of_guid(events.id) << L"']\n  end;\n\n  { Recibe los eventos de una instancia de "
        << info.name << L" hasta que se destruye. }\n  " << receiver
        << L" = class(TInterfacedPersistent, IDispatch, I" << info.name
        << L"Eventos)\n  private\n    FOrigen: IUnknown;\n"
           L"    FConexion: {$IFDEF FPC}DWORD{$ELSE}Longint{$ENDIF};\n";
    for (const EventsInfo::Event& event : events.events) {
        out << L"    FOn" << event.name << L": " << handler_of(info, event) << L";\n";
    }
    out << LR"(    function GetTypeInfoCount(out Count: Integer): HResult; stdcall;
    function GetTypeInfo(Index, LocaleID: Integer; out TypeInfo): HResult; stdcall;
    function GetIDsOfNames(const IID: TGUID; Names: Pointer; NameCount, LocaleID: Integer;
      DispIDs: Pointer): HResult; stdcall;
    function Invoke(DispID: Integer; const IID: TGUID; LocaleID: Integer; Flags: Word; var Params;
      VarResult, ExcepInfo, ArgErr: Pointer): HResult; stdcall;
  public
    constructor Create(const Origen: )"
        << info.interface_name << L");\n    destructor Destroy; override;\n";
    for (const EventsInfo::Event& event : events.events) {
        out << L"    property On" << event.name << L": " << handler_of(info, event) << L" read FOn"
            << event.name << L" write FOn" << event.name << L";\n";
    }
    out << L"  end;\n";
    return out.str();
}

std::wstring pascal_events_implementation(const ClassInfo& info) {
    const EventsInfo& events = *info.events;
    const std::wstring receiver = receiver_of(info);
    std::wostringstream out;
    out << lifetime(info) << L"function " << receiver
        << LR"(.GetTypeInfoCount(out Count: Integer): HResult;
begin
  Count := 0;
  Result := S_OK;
end;

function )"
        << receiver << LR"(.GetTypeInfo(Index, LocaleID: Integer; out TypeInfo): HResult;
begin
  Pointer(TypeInfo) := nil;
  Result := DISP_E_BADINDEX;
end;

function )"
        << receiver << LR"(.GetIDsOfNames(const IID: TGUID; Names: Pointer;
  NameCount, LocaleID: Integer; DispIDs: Pointer): HResult;
begin
  Result := DISP_E_UNKNOWNNAME;
end;

function )"
        << receiver << LR"(.Invoke(DispID: Integer; const IID: TGUID; LocaleID: Integer;
  Flags: Word; var Params; VarResult, ExcepInfo, ArgErr: Pointer): HResult;
var
  Dados: PVariantArgList;
begin
  Dados := TDispParams(Params).rgvarg;
  Result := S_OK;
  { Una excepción no puede llegar a la biblioteca. }
  try
    case DispID of
)";
    for (const EventsInfo::Event& event : events.events) {
        out << L"      " << event.id << L":\n        if Assigned(FOn" << event.name
            << L") then\n          FOn" << event.name << L"(Self";
        std::size_t place = event.parameters.size();
        for (const ParameterInfo& parameter : event.parameters) {
            out << L", " << argument(parameter, --place);
        }
        out << L");\n";
    }
    out << LR"(    else
      Result := DISP_E_MEMBERNOTFOUND;
    end;
  except
    Result := E_FAIL;
  end;
end;

)";
    return out.str();
}

}  // namespace kovrel
