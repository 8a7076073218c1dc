// The generated C++ header compared with the registered type library: each function's vtable
// offset, name and parameters; identifiers; constants.
#include <array>
#include <bit>
#include <gtest/gtest.h>
#include <kovrel.h>
#include <map>

#include "tests/support/box_watcher.h"
#include "tests/support/early.h"
#include "tests/support/type_spelling.h"

namespace kovrel::test {
namespace {

struct Declared {
    std::wstring name;
    std::ptrdiff_t place;  ///< a member's offset in the vtable, in bytes; an event's id
    std::wstring parameters;
};

using DeclaredInterfaces = std::map<std::wstring, std::vector<Declared>>;

/// The vtable offset in a pointer to a virtual member function, which holds it plus 1.
template <class Function>
std::ptrdiff_t offset_of(Function function) {
    const auto words = std::bit_cast<std::array<std::ptrdiff_t, 2>>(function);
    return words[0] - 1;
}

/// By interface, in the order of the header.
DeclaredInterfaces declared_members() {
    DeclaredInterfaces interfaces;
#define FLAG(enumeration, name)
#define EVENT(interface_name, id, parameters)
#define MEMBER(interface_name, name, parameters) \
    interfaces[L## #interface_name].push_back(   \
        {L## #name, offset_of(&Kovrel::interface_name::name), parameters});
#include "header_members.inc"
#undef MEMBER
#undef EVENT
    return interfaces;
}

DeclaredInterfaces declared_events() {
    DeclaredInterfaces interfaces;
#define EVENT(interface_name, id, parameters) \
    interfaces[L## #interface_name].push_back({L## #id, Kovrel::interface_name::id, parameters});
#define MEMBER(interface_name, name, parameters)
#include "header_members.inc"
#undef EVENT
#undef FLAG
    return interfaces;
}

/// The constants of each enumeration.
std::map<std::wstring, std::vector<std::pair<std::wstring, LONG>>> declared_flags() {
    std::map<std::wstring, std::vector<std::pair<std::wstring, LONG>>> enumerations;
#define FLAG(enumeration, name) \
    enumerations[L## #enumeration].emplace_back(L## #name, Kovrel::name);
#define EVENT(interface_name, id, parameters)
#include "header_members.inc"
#undef EVENT
#undef MEMBER
#undef FLAG
    return enumerations;
}

ComPtr<ITypeLib> type_library() {
    ComPtr<ITypeLib> library;
    EXPECT_EQ(LoadRegTypeLib(Kovrel::LIBID_Kovrel, 1, 0, LOCALE_NEUTRAL, library.put()), S_OK);
    return library;
}

ComPtr<ITypeInfo> type(const GUID& id) {
    ComPtr<ITypeInfo> info;
    EXPECT_EQ(type_library()->GetTypeInfoOfGuid(id, info.put()), S_OK);
    return info;
}

std::wstring spelled_parameters(ITypeInfo* info, const FUNCDESC& function) {
    std::array<BSTR, 20> names{};
    UINT count = 0;
    info->GetNames(function.memid, names.data(), static_cast<UINT>(names.size()), &count);
    std::wstring text;
    for (SHORT at = 0; at < function.cParams; ++at) {
        const ELEMDESC& parameter = function.lprgelemdescParam[at];
        const USHORT flags = parameter.paramdesc.wParamFlags;
        const bool result = (flags & PARAMFLAG_FRETVAL) != 0;
        if (!text.empty()) text += L"; ";
        text += result ? L"[out, retval" : L"[in";
        if (!result && (flags & PARAMFLAG_FOUT) != 0) text += L", out";
        if ((flags & PARAMFLAG_FOPT) != 0) text += L", optional";
        if ((flags & PARAMFLAG_FHASDEFAULT) != 0) {
            text += L", defaultvalue(" +
                    spelled(parameter.paramdesc.pparamdescex->varDefaultValue) + L')';
        }
        text += L"] " + spelled(info, parameter.tdesc) + L' ';
        const auto index = static_cast<std::size_t>(at) + 1;
        const bool named = function.invkind == INVOKE_FUNC && index < count;
        text += result ? L"result" : named ? std::wstring(text_of(names[index])) : L"value";
    }
    for (BSTR name : names) SysFreeString(name);
    return text;
}

std::wstring prefix(INVOKEKIND kind) {
    switch (kind) {
        case INVOKE_PROPERTYGET:
            return L"get_";
        case INVOKE_PROPERTYPUT:
            return L"put_";
        case INVOKE_PROPERTYPUTREF:
            return L"putref_";
        default:
            return L"";
    }
}

TEST(Header, DeclaresEveryMemberAtItsVtableOffset) {
    const auto interfaces = declared_members();
    const auto library = type_library();
    ASSERT_TRUE(library);
    std::size_t seen = 0;
    for (UINT at = 0; at < library->GetTypeInfoCount(); ++at) {
        TYPEKIND kind{};
        library->GetTypeInfoType(at, &kind);
        if (kind != TKIND_DISPATCH && kind != TKIND_INTERFACE) continue;
        ComPtr<ITypeInfo> described;
        ASSERT_EQ(library->GetTypeInfo(at, described.put()), S_OK);
        if (!is_dual(described.get())) continue;
        const auto info = vtable_side_of(described);
        const std::wstring name = name_of(info.get());
        SCOPED_TRACE(narrow(name));
        ASSERT_EQ(interfaces.count(name), 1U);
        const std::vector<Declared>& members = interfaces.at(name);
        TYPEATTR* attributes = nullptr;
        info->GetTypeAttr(&attributes);
        EXPECT_EQ(attributes->cFuncs, members.size());
        // The header has no members after the last one.
        EXPECT_EQ(attributes->cbSizeVft, (7 + members.size()) * sizeof(void*));
        info->ReleaseTypeAttr(attributes);
        for (UINT index = 0; index < members.size(); ++index) {
            FUNCDESC* function = nullptr;
            ASSERT_EQ(info->GetFuncDesc(index, &function), S_OK);
            EXPECT_EQ(narrow(members[index].name),
                      narrow(prefix(function->invkind) + name_of(info.get(), function->memid)));
            EXPECT_EQ(members[index].place, function->oVft) << narrow(members[index].name);
            EXPECT_EQ(narrow(members[index].parameters),
                      narrow(spelled_parameters(info.get(), *function)));
            info->ReleaseFuncDesc(function);
        }
        ++seen;
    }
    EXPECT_EQ(seen, 15U);
    EXPECT_EQ(interfaces.size(), 15U);
}

TEST(Header, DeclaresEveryEventWithItsId) {
    const auto interfaces = declared_events();
    ASSERT_EQ(interfaces.size(), 1U);
    for (const auto& [name, events] : interfaces) {
        const auto info = type(Kovrel::DIID__clsAvisosEvents);
        EXPECT_EQ(narrow(name_of(info.get())), narrow(name));
        EXPECT_FALSE(is_dual(info.get()));
        ASSERT_EQ(events.size(), 2U);
        for (UINT index = 0; index < events.size(); ++index) {
            FUNCDESC* function = nullptr;
            // Those of IDispatch come first.
            ASSERT_EQ(info->GetFuncDesc(7 + index, &function), S_OK);
            EXPECT_EQ(narrow(events[index].name),
                      narrow(L"id_" + name_of(info.get(), function->memid)));
            EXPECT_EQ(events[index].place, function->memid);
            EXPECT_EQ(narrow(events[index].parameters),
                      narrow(spelled_parameters(info.get(), *function)));
            info->ReleaseFuncDesc(function);
        }
    }
}

TEST(Header, DeclaresTheConstants) {
    const auto enumerations = declared_flags();
    ASSERT_EQ(enumerations.size(), 9U);
    EXPECT_EQ(enumerations.at(L"eOFN").size(), 26U);
    EXPECT_EQ(enumerations.at(L"eModoAvisos").size(), 3U);
    EXPECT_EQ(enumerations.at(L"eClaseAviso").size(), 5U);
    EXPECT_EQ(enumerations.at(L"eIdentificador").size(), 18U);
    EXPECT_EQ(enumerations.at(L"eMotivo").size(), 9U);
    EXPECT_EQ(enumerations.at(L"eModoArchivo").size(), 4U);
    EXPECT_EQ(enumerations.at(L"eExistentes").size(), 4U);
    EXPECT_EQ(enumerations.at(L"eEstadoEntrada").size(), 19U);
    EXPECT_EQ(enumerations.at(L"eDialecto").size(), 6U);
    for (const auto& [enumeration, flags] : enumerations) {
        ComPtr<ITypeInfo> info;
        MEMBERID member = 0;
        USHORT found = 1;
        std::wstring name = enumeration;
        ASSERT_EQ(type_library()->FindName(name.data(), 0, info.put(), &member, &found), S_OK);
        ASSERT_EQ(found, 1U);
        for (UINT index = 0; index < flags.size(); ++index) {
            VARDESC* constant = nullptr;
            ASSERT_EQ(info->GetVarDesc(index, &constant), S_OK);
            EXPECT_EQ(narrow(flags[index].first), narrow(name_of(info.get(), constant->memid)));
            EXPECT_EQ(flags[index].second, constant->lpvarValue->lVal);
            info->ReleaseVarDesc(constant);
        }
    }
}

/// A class's identifiers in each of their forms, and the type library's.
template <class Class, class Interface>
void expect_identifiers(const wchar_t* name, const GUID& class_id, const GUID& interface_id,
                        const wchar_t* prog_id) {
    SCOPED_TRACE(narrow(name));
    EXPECT_EQ(prog_id, L"Kovrel." + std::wstring(name));
    CLSID registered{};
    EXPECT_EQ(CLSIDFromProgID(prog_id, &registered), S_OK);
    EXPECT_EQ(class_id, registered);
    EXPECT_EQ(class_id, __uuidof(Class));
    EXPECT_EQ(interface_id, __uuidof(Interface));
    EXPECT_EQ(name_of(type(class_id).get()), name);
    EXPECT_EQ(name_of(type(interface_id).get()), L"_" + std::wstring(name));
}

TEST(Header, Identifiers) {
    using namespace Kovrel;
#define EXPECT_IDENTIFIERS(name) \
    expect_identifiers<name, _##name>(L## #name, CLSID_##name, IID__##name, ProgID_##name)
    EXPECT_IDENTIFIERS(clsFFechas);
    EXPECT_IDENTIFIERS(clsADODBServices);
    EXPECT_IDENTIFIERS(cgsFileOpR);
    EXPECT_IDENTIFIERS(clsProfile);
    EXPECT_IDENTIFIERS(clsCSQL);
    EXPECT_IDENTIFIERS(clsFZip);
    EXPECT_IDENTIFIERS(clsFGen);
    EXPECT_IDENTIFIERS(clsMensajes);
    EXPECT_IDENTIFIERS(clsAvisos);
    EXPECT_IDENTIFIERS(clsFIdent);
    EXPECT_IDENTIFIERS(clsFArchivo);
    EXPECT_IDENTIFIERS(clsFSQL);
#undef EXPECT_IDENTIFIERS
    EXPECT_EQ(GUID_ZIPnames, __uuidof(ZIPnames));
    const auto record = type(GUID_ZIPnames);
    EXPECT_EQ(name_of(record.get()), L"ZIPnames");
    TYPEATTR* attributes = nullptr;
    record->GetTypeAttr(&attributes);
    EXPECT_EQ(attributes->cbSizeInstance, sizeof(ZIPnames));
    record->ReleaseTypeAttr(attributes);
}

}  // namespace
}  // namespace kovrel::test
