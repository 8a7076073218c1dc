// Calls every member of every class: all of them work, but for those whose failure is known.
#include <algorithm>
#include <atomic>
#include <functional>
#include <gtest/gtest.h>
#include <map>
#include <set>
#include <thread>
#include <utility>

#include "tests/support/box_watcher.h"
#include "tests/support/early.h"

namespace kovrel::test {
namespace {

constexpr HRESULT type_mismatch = static_cast<HRESULT>(0x800A000D);  // 13

/// Answers every box of this process, and keeps its text.
class AnyBox {
 public:
    AnyBox() : thread_([this] { answer_all(); }) {}
    AnyBox(const AnyBox&) = delete;
    AnyBox& operator=(const AnyBox&) = delete;
    ~AnyBox() { stop(); }

    /// Ends the watch: the last box is closed before its text is kept.
    [[nodiscard]] const std::vector<std::wstring>& texts() {
        stop();
        return texts_;
    }

 private:
    void stop() {
        stop_ = true;
        if (thread_.joinable()) thread_.join();
    }

    void answer_all() {
        while (!stop_) {
            for (HWND window : top_level_windows({L"#32770", {}, GetCurrentProcessId()})) {
                auto box = read_box(window);
                if (!box || !answer_box(window, *box, {})) continue;
                texts_.push_back(box->text);
            }
            Sleep(1);
        }
    }

    std::vector<std::wstring> texts_;
    std::atomic<bool> stop_ = false;
    std::thread thread_;
};

/// What script hosts pass for a record of names.
Variant one_text() {
    Variant texts;
    texts.vt = VT_ARRAY | VT_BSTR;
    texts.parray = SafeArrayCreateVector(VT_BSTR, 0, 1);
    return texts;
}

TYPEKIND kind_of(ITypeInfo* info, HREFTYPE type) {
    ComPtr<ITypeInfo> described;
    TYPEATTR* attributes = nullptr;
    if (FAILED(info->GetRefTypeInfo(type, described.put())) ||
        FAILED(described->GetTypeAttr(&attributes))) {
        return TKIND_MAX;
    }
    const TYPEKIND kind = attributes->typekind;
    described->ReleaseTypeAttr(attributes);
    return kind;
}

/// A harmless value of a parameter's type.
Variant value_for(ITypeInfo* info, const ELEMDESC& parameter) {
    const TYPEDESC* type = &parameter.tdesc;
    while (type->vt == VT_PTR) type = type->lptdesc;
    if (type->vt == VT_USERDEFINED) {
        const TYPEKIND kind = kind_of(info, type->hreftype);
        if (kind == TKIND_ENUM) return Variant(0);
        if (kind == TKIND_RECORD) return one_text();
        return Variant(ComPtr<IDispatch>());
    }
    switch (type->vt) {
        case VT_BSTR:
            return Variant(L"x");
        case VT_VARIANT:
            return Variant();
        case VT_DISPATCH:
            return Variant(ComPtr<IDispatch>());
        default:
            return Variant(0);
    }
}

/// Setting Mensajes would replace the catalogue for the calls that follow.
bool replaces_messages(WORD kind) {
    return kind == DISPATCH_PROPERTYPUTREF;
}

/// Calls every member of the eight classes that can speak, but those left out.
void call_members(const std::set<std::wstring>& left_out,
                  const std::function<void(const std::wstring& name, const Outcome&)>& handle) {
    for (const wchar_t* const prog_id :
         {L"Kovrel.clsFGen", L"Kovrel.clsFFechas", L"Kovrel.clsCSQL", L"Kovrel.clsMensajes",
          L"Kovrel.cgsFileOpR", L"Kovrel.clsProfile", L"Kovrel.clsADODBServices",
          L"Kovrel.clsFZip"}) {
        const auto instance = create(prog_id);
        ASSERT_TRUE(instance);
        const auto info = interface_of(instance.get());
        TYPEATTR* attributes = nullptr;
        info->GetTypeAttr(&attributes);
        const UINT count = attributes->cFuncs;
        info->ReleaseTypeAttr(attributes);
        for (UINT index = 0; index < count; ++index) {
            FUNCDESC* function = nullptr;
            ASSERT_EQ(info->GetFuncDesc(index, &function), S_OK);
            Bstr raw_name;
            UINT names = 0;
            info->GetNames(function->memid, raw_name.put(), 1, &names);
            const std::wstring name(raw_name.view());
            std::vector<LateArgument> arguments;
            for (SHORT at = 0; at < function->cParams; ++at) {
                const ELEMDESC& parameter = function->lprgelemdescParam[at];
                const bool result = (parameter.paramdesc.wParamFlags & PARAMFLAG_FRETVAL) != 0;
                if (!result) arguments.emplace_back(value_for(info.get(), parameter));
            }
            const auto kind = static_cast<WORD>(function->invkind);
            info->ReleaseFuncDesc(function);
            if (left_out.contains(name) || replaces_messages(kind)) continue;
            handle(name, invoke(instance.get(), name, kind, arguments));
        }
    }
}

/// These open windows, which have tests of their own.
const std::set<std::wstring> windows{L"MsgFormA", L"PideFecha", L"LanzaVerificadorNIFyCCC",
                                     L"ShowOpen", L"BrowseForFolder"};

TEST(EveryMember, Works) {
    // An empty variant is no date.
    const std::map<std::wstring, HRESULT> failures{{L"primerdia_mesanterior", type_mismatch},
                                                   {L"ultimodia_mesanterior", type_mismatch}};
    const AnyBox boxes;
    std::size_t called = 0;
    call_members(windows, [&](const std::wstring& name, const Outcome& outcome) {
        const auto failure = failures.find(name);
        const bool fails = failure != failures.end();
        EXPECT_EQ(outcome.result, fails ? DISP_E_EXCEPTION : S_OK) << narrow(name);
        EXPECT_EQ(outcome.error, fails ? failure->second : S_OK) << narrow(name);
        ++called;
    });
    EXPECT_EQ(called, 149U);
}

/// Counts the windows that this thread makes, children apart.
class MadeWindows {
 public:
    MadeWindows() : hook_(SetWindowsHookExW(WH_CBT, &hook, nullptr, GetCurrentThreadId())) {
        made = 0;
    }
    MadeWindows(const MadeWindows&) = delete;
    MadeWindows& operator=(const MadeWindows&) = delete;
    ~MadeWindows() { UnhookWindowsHookEx(hook_); }

    static inline int made = 0;

 private:
    static LRESULT CALLBACK hook(int code, WPARAM wparam, LPARAM lparam) {
        if (code == HCBT_CREATEWND) {
            const auto* const creation = reinterpret_cast<const CBT_CREATEWNDW*>(lparam)->lpcs;
            if ((creation->style & WS_CHILD) == 0) ++made;
        }
        return CallNextHookEx(nullptr, code, wparam, lparam);
    }

    HHOOK hook_;
};

/// The texts that each member says, as a clsAvisos notes them.
using Said = std::vector<std::pair<std::wstring, std::vector<std::wstring>>>;

Said said_by_members(IDispatch* avisos, const std::set<std::wstring>& left_out) {
    Said said;
    call_members(left_out, [&](const std::wstring& name, const Outcome& /*outcome*/) {
        std::vector<std::wstring> texts;
        const std::int32_t count = get(avisos, L"Count").value.to_int32();
        for (std::int32_t place = 1; place <= count; ++place) {
            const auto aviso = call(avisos, L"Item", {Variant(place)}).value.to_object();
            texts.push_back(get(aviso.get(), L"Texto").value.to_text());
            const std::wstring member = get(aviso.get(), L"Miembro").value.to_text();
            EXPECT_EQ(narrow(member.substr(member.find(L'.') + 1)), narrow(name));
        }
        call(avisos, L"Limpia");
        said.emplace_back(name, std::move(texts));
    });
    return said;
}

TEST(EveryMember, SaysSilentlyWhatItSaysInBoxes) {
    const auto avisos = create(L"Kovrel.clsAvisos");
    std::set<std::wstring> opening = windows;
    opening.insert(L"BarraProgresoInicia");
    Said in_boxes;
    {
        AnyBox boxes;
        in_boxes = said_by_members(avisos.get(), opening);
        std::vector<std::wstring> noted;
        for (const auto& [name, texts] : in_boxes) {
            noted.insert(noted.end(), texts.begin(), texts.end());
        }
        EXPECT_EQ(noted, boxes.texts());
    }
    put(avisos.get(), L"Modo", Variant(1));
    const MadeWindows made;
    EXPECT_EQ(said_by_members(avisos.get(), opening), in_boxes);
    const auto speaks = [](const auto& member) { return !member.second.empty(); };
    EXPECT_EQ(std::count_if(in_boxes.begin(), in_boxes.end(), speaks), 53);
    // And those with windows, each of which says that it would have opened.
    std::set<std::wstring> noted;
    for (const auto& [name, texts] : said_by_members(avisos.get(), {})) {
        if (opening.contains(name) && texts.size() == 1) noted.insert(name);
    }
    EXPECT_EQ(noted, opening);
    EXPECT_EQ(MadeWindows::made, 0);
}

}  // namespace
}  // namespace kovrel::test
