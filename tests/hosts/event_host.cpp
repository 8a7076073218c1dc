// Runs a script with the Windows script host's way of receiving events, which Wine's host lacks:
//
//     event_host SCRIPT [ARGUMENT...]
//
// SCRIPT is in the ANSI code page, its ending names the language. Its object WScript has Echo,
// Quit, Arguments, CreateObject with the prefix of the procedures that receive the object's events,
// ConnectObject and DisconnectObject. A script that fails outside a procedure for events makes the
// exit code 1.
#include <windows.h>
#include <ole2.h>

#include <activscp.h>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <ocidl.h>
#include <shellapi.h>
#include <string>
#include <utility>
#include <vector>

#include "automation/bstr.h"
#include "automation/com_ptr.h"
#include "automation/variant.h"
#include "services/text_encoding.h"
#include "tests/support/event_sink.h"
#include "tests/support/late.h"
#include "tests/support/scripted_object.h"

namespace kovrel::test {
namespace {

using Arguments = ScriptedObject::Arguments;

constexpr int exit_failed = 1;
constexpr int exit_usage = 2;

/// In the code page in which consoles get it.
void print(std::wstring_view line) {
    std::string bytes(line.size(), '\0');
    const auto length = static_cast<int>(line.size());
    WideCharToMultiByte(CP_OEMCP, 0, line.data(), length, bytes.data(), length, nullptr, nullptr);
    std::puts(bytes.c_str());
    std::fflush(stdout);
}

/// The value of an argument, which scripts pass as a reference to their variable.
Variant value_of(const Variant& argument) {
    Variant value;
    if (FAILED(VariantCopyInd(&value, const_cast<Variant*>(&argument))))
        throw bare_failure(DISP_E_TYPEMISMATCH);
    return value;
}

/// The description of an object's events.
ComPtr<ITypeInfo> events_of(IDispatch* object) {
    const auto provider = ComPtr<IDispatch>(object).query<IProvideClassInfo2>();
    GUID id{};
    ComPtr<ITypeInfo> of_class;
    ComPtr<ITypeLib> library;
    ComPtr<ITypeInfo> events;
    UINT index = 0;
    if (!provider || FAILED(provider->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, &id)) ||
        FAILED(provider->GetClassInfo(of_class.put())) ||
        FAILED(of_class->GetContainingTypeLib(library.put(), &index)) ||
        FAILED(library->GetTypeInfoOfGuid(id, events.put()))) {
        throw failure(430, L"El objeto no tiene eventos");
    }
    return events;
}

GUID interface_id(ITypeInfo* info) {
    TYPEATTR* attributes = nullptr;
    if (FAILED(info->GetTypeAttr(&attributes))) return GUID_NULL;
    const GUID id = attributes->guid;
    info->ReleaseTypeAttr(attributes);
    return id;
}

/// The arguments as scripts take them: a typed variable becomes a variable of theirs.
class Forwarded {
 public:
    explicit Forwarded(const DISPPARAMS& given) : values_(given.cArgs), passed_(given.cArgs) {
        for (UINT i = 0; i < given.cArgs; ++i) {
            passed_[i] = given.rgvarg[i];
            if ((given.rgvarg[i].vt & VT_BYREF) == 0) continue;
            VariantCopyInd(&values_[i], &given.rgvarg[i]);
            passed_[i].vt = VT_BYREF | VT_VARIANT;
            passed_[i].pvarVal = &values_[i];
        }
        parameters_.rgvarg = passed_.data();
        parameters_.cArgs = given.cArgs;
    }

    [[nodiscard]] DISPPARAMS* parameters() noexcept { return &parameters_; }

    HRESULT write_back(const DISPPARAMS& given) {
        for (UINT i = 0; i < given.cArgs; ++i) {
            const VARTYPE type = given.rgvarg[i].vt & ~VT_BYREF;
            if (type == given.rgvarg[i].vt) continue;
            Variant converted;
            const HRESULT result = VariantChangeType(&converted, &values_[i], 0, type);
            if (FAILED(result)) return result;
            std::memcpy(given.rgvarg[i].byref, &converted.byref, plain_size(type));
        }
        return S_OK;
    }

 private:
    std::vector<Variant> values_;
    std::vector<VARIANT> passed_;
    DISPPARAMS parameters_{};
};

/// Calls the script's procedure for an event, which is found by its name.
HRESULT forward(IDispatch* script, const std::wstring& prefix, ITypeInfo* events, DISPID event,
                const DISPPARAMS& given) {
    Bstr name;
    const HRESULT known = events->GetDocumentation(event, name.put(), nullptr, nullptr, nullptr);
    if (FAILED(known)) return known;
    std::wstring procedure = prefix + std::wstring(name.view());
    LPOLESTR procedure_name = procedure.data();
    DISPID id = DISPID_UNKNOWN;
    if (FAILED(script->GetIDsOfNames(IID_NULL, &procedure_name, 1, 0, &id))) {
        return S_OK;  // the script does not want this event
    }
    Forwarded forwarded(given);
    const HRESULT result = script->Invoke(id, IID_NULL, 0, DISPATCH_METHOD, forwarded.parameters(),
                                          nullptr, nullptr, nullptr);
    const HRESULT written = forwarded.write_back(given);
    return FAILED(result) ? result : written;
}

/// An object whose events a script receives.
struct Connection {
    ComPtr<IUnknown> object;
    ComPtr<IConnectionPoint> point;
    DWORD cookie;
};

class ScriptHost final : public IActiveScriptSite {
 public:
    explicit ScriptHost(std::vector<std::wstring> arguments) : arguments_(std::move(arguments)) {
        wscript_->method(L"Echo", [](const Arguments& given) {
            std::wstring line;
            for (const Variant& each : given) {
                line += (line.empty() ? L"" : L" ") + value_of(each).to_text();
            }
            print(line);
            return Variant();
        });
        wscript_->method(L"Quit", [](const Arguments& given) -> Variant {
            std::exit(given.empty() ? 0 : value_of(given[0]).to_int32());
        });
        wscript_->method(L"Arguments", [this](const Arguments& given) {
            return Variant(
                arguments_.at(static_cast<std::size_t>(value_of(given.at(0)).to_int32())));
        });
        wscript_->method(L"CreateObject", [this](const Arguments& given) {
            const auto object = create(value_of(given.at(0)).to_text().c_str());
            if (!object) throw failure(429, L"El componente ActiveX no puede crear el objeto");
            if (given.size() > 1) connect(object, value_of(given[1]).to_text());
            return Variant(object);
        });
        wscript_->method(L"ConnectObject", [this](const Arguments& given) {
            connect(value_of(given.at(0)).to_object(), value_of(given.at(1)).to_text());
            return Variant();
        });
        wscript_->method(L"DisconnectObject", [this](const Arguments& given) {
            disconnect(value_of(given.at(0)).to_object().query<IUnknown>());
            return Variant();
        });
    }
    ScriptHost(const ScriptHost&) = delete;
    ScriptHost& operator=(const ScriptHost&) = delete;
    ~ScriptHost() {
        while (!connections_.empty()) disconnect(connections_.back().object);
        if (engine_) engine_->Close();
    }

    /// False when the script failed.
    bool run(const wchar_t* language, const std::wstring& text) {
        CLSID id{};
        if (FAILED(CLSIDFromProgID(language, &id)) ||
            FAILED(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_IActiveScript,
                                    reinterpret_cast<void**>(engine_.put())))) {
            return false;
        }
        const auto parse = engine_.query<IActiveScriptParse>();
        return parse && SUCCEEDED(parse->InitNew()) && SUCCEEDED(engine_->SetScriptSite(this)) &&
               SUCCEEDED(engine_->AddNamedItem(L"WScript", SCRIPTITEM_ISVISIBLE)) &&
               SUCCEEDED(engine_->SetScriptState(SCRIPTSTATE_CONNECTED)) &&
               SUCCEEDED(parse->ParseScriptText(text.c_str(), nullptr, nullptr, nullptr, 0, 0,
                                                SCRIPTTEXT_ISVISIBLE, nullptr, nullptr));
    }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** result) override {
        const bool is_known = id == IID_IUnknown || id == IID_IActiveScriptSite;
        *result = is_known ? this : nullptr;
        return is_known ? S_OK : E_NOINTERFACE;
    }
    // Lives longer than the engine.
    ULONG STDMETHODCALLTYPE AddRef() override { return 1; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }
    HRESULT STDMETHODCALLTYPE GetLCID(LCID* /*locale*/) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetItemInfo(LPCOLESTR /*name*/, DWORD /*wanted*/, IUnknown** item,
                                          ITypeInfo** info) override {
        if (info != nullptr) *info = nullptr;
        if (item != nullptr) *item = ComPtr<IUnknown>(wscript_.get()).detach();
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetDocVersionString(BSTR* /*version*/) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE OnScriptTerminate(const VARIANT* /*result*/,
                                                const EXCEPINFO* /*exception*/) override {
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE OnStateChange(SCRIPTSTATE /*state*/) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE OnScriptError(IActiveScriptError* error) override {
        EXCEPINFO exception{};
        error->GetExceptionInfo(&exception);
        print(L"error: " + std::wstring(text_of(exception.bstrDescription)));
        SysFreeString(exception.bstrSource);
        SysFreeString(exception.bstrDescription);
        SysFreeString(exception.bstrHelpFile);
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE OnEnterScript() override { return S_OK; }
    HRESULT STDMETHODCALLTYPE OnLeaveScript() override { return S_OK; }

 private:
    void connect(const ComPtr<IDispatch>& object, std::wstring prefix) {
        const auto events = events_of(object.get());
        const auto container = object.query<IConnectionPointContainer>();
        Connection made{object.query<IUnknown>(), {}, 0};
        ComPtr<IDispatch> script;
        if (!container ||
            FAILED(container->FindConnectionPoint(interface_id(events.get()), made.point.put())) ||
            FAILED(engine_->GetScriptDispatch(nullptr, script.put()))) {
            throw failure(430, L"El objeto no tiene eventos");
        }
        const auto sink = EventSink::make(
            interface_id(events.get()), [script = std::move(script), prefix = std::move(prefix),
                                         events](DISPID event, const DISPPARAMS& given) {
                return forward(script.get(), prefix, events.get(), event, given);
            });
        if (FAILED(made.point->Advise(sink.get(), &made.cookie))) {
            throw failure(430, L"El objeto no admite el receptor");
        }
        connections_.push_back(std::move(made));
    }

    void disconnect(const ComPtr<IUnknown>& object) {
        const auto is_of_object = [&](const Connection& each) { return each.object == object; };
        // Out of the list first: letting go of the object runs code of its own.
        std::vector<Connection> found;
        std::copy_if(connections_.begin(), connections_.end(), std::back_inserter(found),
                     is_of_object);
        std::erase_if(connections_, is_of_object);
        for (const Connection& each : found) each.point->Unadvise(each.cookie);
    }

    const std::vector<std::wstring> arguments_;
    const ComPtr<ScriptedObject> wscript_ = ScriptedObject::make();
    ComPtr<IActiveScript> engine_;
    std::vector<Connection> connections_;
};

int run(const std::vector<std::wstring>& words) {
    const std::filesystem::path file(words[1]);
    std::ifstream stream(file, std::ios::binary);
    const std::string text{std::istreambuf_iterator<char>(stream), {}};
    const ComApartment apartment;
    ScriptHost host({words.begin() + 2, words.end()});
    const bool is_basic = file.extension() == L".vbs";
    return host.run(is_basic ? L"VBScript" : L"JScript", from_ansi(text)) ? 0 : exit_failed;
}

}  // namespace
}  // namespace kovrel::test

int main() {
    int count = 0;
    LPWSTR* const list = CommandLineToArgvW(GetCommandLineW(), &count);
    const std::vector<std::wstring> words(list, list + count);
    LocalFree(list);
    if (words.size() < 2) {
        std::fputs("usage: event_host SCRIPT [ARGUMENT...]\n", stderr);
        return kovrel::test::exit_usage;
    }
    return kovrel::test::run(words);
}
