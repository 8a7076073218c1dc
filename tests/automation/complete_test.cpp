// Calls every member of every class: all of them work, but for those whose failure is known.
#include <atomic>
#include <gtest/gtest.h>
#include <map>
#include <set>
#include <thread>

#include "tests/support/box_watcher.h"
#include "tests/support/early.h"

namespace kovrel::test {
namespace {

constexpr HRESULT type_mismatch = static_cast<HRESULT>(0x800A000D);  // 13

/// Answers every box of this process.
class AnyBox {
 public:
    AnyBox() : thread_([this] { answer_all(); }) {}
    AnyBox(const AnyBox&) = delete;
    AnyBox& operator=(const AnyBox&) = delete;
    ~AnyBox() {
        stop_ = true;
        thread_.join();
    }

 private:
    void answer_all() const {
        while (!stop_) {
            for (HWND window : top_level_windows({L"#32770", {}, GetCurrentProcessId()})) {
                if (auto box = read_box(window)) answer_box(window, *box, {});
            }
            Sleep(1);
        }
    }

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

TEST(EveryMember, Works) {
    // These open windows, which have tests of their own.
    const std::set<std::wstring> windows{L"MsgFormA", L"PideFecha", L"LanzaVerificadorNIFyCCC",
                                         L"ShowOpen", L"BrowseForFolder"};
    // An empty variant is no date.
    const std::map<std::wstring, HRESULT> failures{{L"primerdia_mesanterior", type_mismatch},
                                                   {L"ultimodia_mesanterior", type_mismatch}};
    const AnyBox boxes;
    std::size_t called = 0;
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
            // Setting Mensajes would replace the catalogue for the calls that follow.
            if (windows.contains(name) || kind == DISPATCH_PROPERTYPUTREF) continue;
            const Outcome outcome = invoke(instance.get(), name, kind, arguments);
            const auto failure = failures.find(name);
            const bool fails = failure != failures.end();
            EXPECT_EQ(outcome.result, fails ? DISP_E_EXCEPTION : S_OK) << narrow(name);
            EXPECT_EQ(outcome.error, fails ? failure->second : S_OK) << narrow(name);
            ++called;
        }
    }
    EXPECT_EQ(called, 149U);
}

}  // namespace
}  // namespace kovrel::test
