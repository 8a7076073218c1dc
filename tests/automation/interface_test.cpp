// The published interface, read from the registered type library and compared with a table written
// independently of the declarations.
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <map>
#include <ocidl.h>
#include <sstream>

#include "services/text_encoding.h"
#include "tests/support/box_watcher.h"
#include "tests/support/early.h"
#include "tests/support/test_folder.h"

namespace kovrel::test {
namespace {

struct ExpectedClass {
    std::wstring name;
    std::vector<std::wstring> members;
};

std::vector<ExpectedClass> expected_classes() {
    std::ifstream file(std::filesystem::path(KOVREL_TEST_DATA) / L"interface.txt");
    std::vector<ExpectedClass> classes;
    for (std::string line; std::getline(file, line);) {
        if (!line.empty() && line.back() == '\r') line.pop_back();
        if (line.front() == '[') {
            classes.push_back({from_utf8(line.substr(1, line.size() - 2)), {}});
        } else {
            classes.back().members.push_back(from_utf8(line));
        }
    }
    return classes;
}

std::wstring help_of(ITypeInfo* info, MEMBERID member = MEMBERID_NIL) {
    Bstr help;
    info->GetDocumentation(member, nullptr, help.put(), nullptr, nullptr);
    return std::wstring(help.view());
}

/// A type as the table names it, with pointers to interfaces resolved.
std::wstring type_name(ITypeInfo* info, const TYPEDESC& type) {
    static const std::map<VARTYPE, std::wstring> names{
        {VT_BSTR, L"texto"}, {VT_I2, L"entero16"},     {VT_I4, L"entero32"},
        {VT_UI1, L"byte"},   {VT_BOOL, L"booleano"},   {VT_R4, L"simple"},
        {VT_R8, L"doble"},   {VT_DATE, L"fecha"},      {VT_VARIANT, L"variante"},
        {VT_HRESULT, L"hr"}, {VT_DISPATCH, L"objeto"}, {VT_UNKNOWN, L"objeto desconocido"},
    };
    if (type.vt == VT_PTR) return type_name(info, *type.lptdesc) + L"*";
    if (type.vt != VT_USERDEFINED) return names.at(type.vt);
    ComPtr<ITypeInfo> target;
    info->GetRefTypeInfo(type.hreftype, target.put());
    const std::wstring name = name_of(target.get());
    if (name == L"IPictureDisp" || name == L"Picture") return L"imagen";
    return name.front() == L'_' ? name.substr(1) : name;
}

/// Removes the pointer that interface types always have.
std::wstring without_own_pointer(std::wstring type) {
    for (const wchar_t* const interface_type :
         {L"imagen*", L"clsMensajes*", L"clsAviso*", L"clsEntrada*", L"clsEntradas*"}) {
        if (type.rfind(interface_type, 0) == 0) return type.erase(type.find(L'*'), 1);
    }
    return type;
}

std::wstring default_text(const VARIANT& value) {
    switch (value.vt) {
        case VT_BSTR:
            return L'"' + std::wstring(text_of(value.bstrVal)) + L'"';
        case VT_BOOL:
            if (value.boolVal == VARIANT_FALSE) return L"falso";
            return value.boolVal == VARIANT_TRUE ? L"verdadero" : L"?";
        case VT_I2:
            return std::to_wstring(value.iVal);
        case VT_I4:
            return std::to_wstring(value.lVal);
        case VT_DATE:
            return std::to_wstring(static_cast<int>(value.date));
        default:
            return L"?";
    }
}

std::wstring parameter_text(ITypeInfo* info, const ELEMDESC& parameter, const std::wstring& name) {
    std::wstring type = without_own_pointer(type_name(info, parameter.tdesc));
    const bool by_reference = type.back() == L'*';
    if (by_reference) type.pop_back();
    const USHORT flags = parameter.paramdesc.wParamFlags;
    EXPECT_EQ((flags & PARAMFLAG_FOUT) != 0, by_reference) << narrow(name);
    std::wstring text =
        (name.empty() ? L"" : name + L": ") + (by_reference ? L"ref " : L"val ") + type;
    if ((flags & PARAMFLAG_FOPT) == 0) return text;
    if ((flags & PARAMFLAG_FHASDEFAULT) == 0) return text + L" opcional";
    const VARIANT& value = parameter.paramdesc.pparamdescex->varDefaultValue;
    // The default of a variant parameter states its type.
    if (type == L"variante" && value.vt == VT_I2)
        return text + L" = entero16 " + default_text(value);
    return text + L" = " + default_text(value);
}

std::wstring member_text(ITypeInfo* info, const FUNCDESC& function) {
    BSTR raw_names[12] = {};
    UINT count = 0;
    info->GetNames(function.memid, raw_names, 12, &count);
    std::vector<std::wstring> names;
    for (UINT index = 0; index < count; ++index) {
        names.emplace_back(text_of(raw_names[index]));
        SysFreeString(raw_names[index]);
    }
    names.resize(static_cast<std::size_t>(function.cParams) + 1);
    std::wstring parameters;
    std::wstring result;
    for (SHORT index = 0; index < function.cParams; ++index) {
        const ELEMDESC& parameter = function.lprgelemdescParam[index];
        if ((parameter.paramdesc.wParamFlags & PARAMFLAG_FRETVAL) != 0) {
            result = without_own_pointer(type_name(info, parameter.tdesc));
            result.pop_back();
        } else {
            if (!parameters.empty()) parameters += L"; ";
            const bool puts = function.invkind != INVOKE_FUNC;
            parameters += parameter_text(info, parameter,
                                         puts ? L"" : names[static_cast<std::size_t>(index) + 1]);
        }
    }
    static const std::map<INVOKEKIND, std::wstring> kinds{
        {INVOKE_FUNC, L"llamar"},
        {INVOKE_PROPERTYGET, L"leer"},
        {INVOKE_PROPERTYPUT, L"escribir"},
        {INVOKE_PROPERTYPUTREF, L"asignar objeto"}};
    std::wstring text = names.front() + L" | " + kinds.at(function.invkind) + L" |";
    text += parameters.empty() ? L"" : L" " + parameters;
    text += result.empty() ? L" |" : L" | " + result;
    return text;
}

class Interface : public testing::Test {
 protected:
    /// The library that a registered class belongs to.
    static ComPtr<ITypeLib> library() {
        const auto instance = create(L"Kovrel.clsFGen");
        ComPtr<ITypeLib> result;
        if (!instance) return result;
        UINT index = 0;
        interface_of(instance.get())->GetContainingTypeLib(result.put(), &index);
        return result;
    }

    /// Whether hosts get instances from other classes only.
    static bool is_given(const std::wstring& name) {
        return name == L"clsAviso" || name == L"clsEntrada" || name == L"clsEntradas";
    }

    /// A new instance, or for the classes that only others give out, one from them.
    static ComPtr<IDispatch> instance_of(const std::wstring& name) {
        if (!is_given(name)) return create((L"Kovrel." + name).c_str());
        if (name != L"clsAviso") {
            const TestFolder folder;
            const auto entries = call(create(L"Kovrel.clsFArchivo").get(), L"Comprime",
                                      {Variant(folder / L"a.zip"), Variant(folder.write(L"f.txt"))})
                                     .value.to_object();
            return name == L"clsEntradas"
                       ? entries
                       : call(entries.get(), L"Item", {Variant(1)}).value.to_object();
        }
        const auto notices = create(L"Kovrel.clsAvisos");
        put(notices.get(), L"Modo", Variant(1));
        call(create(L"Kovrel.clsMensajes").get(), L"MsjFechaIncorrecta");
        return get(notices.get(), L"Ultimo").value.to_object();
    }

    static ComPtr<ITypeInfo> type(ITypeLib* library, const std::wstring& name) {
        ComPtr<ITypeInfo> found;
        std::wstring wanted = name;
        MEMBERID member = 0;
        USHORT count = 1;
        library->FindName(wanted.data(), 0, found.put(), &member, &count);
        return found;
    }
};

TEST_F(Interface, EveryClassListsItsMembersInOrder) {
    const auto classes = expected_classes();
    ASSERT_EQ(classes.size(), 15U);
    for (const ExpectedClass& expected : classes) {
        SCOPED_TRACE(narrow(expected.name));
        const auto instance = instance_of(expected.name);
        ASSERT_TRUE(instance);
        const auto info = interface_of(instance.get());
        ASSERT_TRUE(info);
        EXPECT_EQ(name_of(info.get()), L"_" + expected.name);
        EXPECT_NE(help_of(info.get()), L"");

        TYPEATTR* attributes = nullptr;
        info->GetTypeAttr(&attributes);
        const UINT count = attributes->cFuncs;
        EXPECT_NE(attributes->wTypeFlags & TYPEFLAG_FDUAL, 0);
        EXPECT_NE(attributes->wTypeFlags & TYPEFLAG_FOLEAUTOMATION, 0);
        EXPECT_NE(attributes->wTypeFlags & TYPEFLAG_FNONEXTENSIBLE, 0);
        info->ReleaseTypeAttr(attributes);

        std::vector<std::wstring> members;
        for (UINT index = 0; index < count; ++index) {
            FUNCDESC* function = nullptr;
            info->GetFuncDesc(index, &function);
            members.push_back(member_text(info.get(), *function));
            EXPECT_NE(help_of(info.get(), function->memid), L"") << narrow(members.back());
            EXPECT_EQ(function->oVft, static_cast<SHORT>((7 + index) * sizeof(void*)));
            info->ReleaseFuncDesc(function);
        }
        ASSERT_EQ(members.size(), expected.members.size());
        for (std::size_t index = 0; index < members.size(); ++index) {
            EXPECT_EQ(narrow(members[index]), narrow(expected.members[index]));
        }
    }
}

/// Looks names up in the dispatch side of the dual interface, as compilers do.
TEST_F(Interface, NoOtherNamesAreAccepted) {
    for (const ExpectedClass& expected : expected_classes()) {
        const auto instance = instance_of(expected.name);
        ASSERT_TRUE(instance);
        ComPtr<ITypeInfo> info;
        ASSERT_EQ(instance->GetTypeInfo(0, LOCALE_NEUTRAL, info.put()), S_OK);
        TYPEATTR* attributes = nullptr;
        ASSERT_EQ(info->GetTypeAttr(&attributes), S_OK);
        EXPECT_EQ(attributes->typekind, TKIND_DISPATCH);
        EXPECT_NE(attributes->wTypeFlags & TYPEFLAG_FNONEXTENSIBLE, 0) << narrow(expected.name);
        info->ReleaseTypeAttr(attributes);
    }
}

TEST_F(Interface, LateBoundNamesAreThoseOfTheTypeLibrary) {
    for (const ExpectedClass& expected : expected_classes()) {
        const auto instance = instance_of(expected.name);
        ASSERT_TRUE(instance);
        const auto info = interface_of(instance.get());
        for (const std::wstring& member : expected.members) {
            std::wstring name = member.substr(0, member.find(L' '));
            auto* raw = name.data();
            MEMBERID id = MEMBERID_NIL;
            EXPECT_EQ(info->GetIDsOfNames(&raw, 1, &id), S_OK) << narrow(name);
            EXPECT_EQ(id_of(instance.get(), name), id) << narrow(name);
        }
    }
}

TEST_F(Interface, AttributesOfTheLibrary) {
    const auto own = library();
    ASSERT_TRUE(own);
    Bstr name;
    Bstr help;
    own->GetDocumentation(-1, name.put(), help.put(), nullptr, nullptr);
    EXPECT_EQ(name.view(), L"Kovrel");
    EXPECT_EQ(help.view(), L"Kovrel: utilidades para aplicaciones de base de datos en español");
    TLIBATTR* attributes = nullptr;
    own->GetLibAttr(&attributes);
    EXPECT_EQ(attributes->wMajorVerNum, 1);
    EXPECT_EQ(attributes->wMinorVerNum, 1);
    EXPECT_EQ(attributes->lcid, 0U);
    own->ReleaseTLibAttr(attributes);
    // Fifteen classes with an interface each, one with events, nine enumerations, one record.
    EXPECT_EQ(own->GetTypeInfoCount(), 41U);
}

TEST_F(Interface, ThreeClassesAreApplicationObjects) {
    const auto own = library();
    ASSERT_TRUE(own);
    for (const ExpectedClass& expected : expected_classes()) {
        const auto info = type(own.get(), expected.name);
        ASSERT_TRUE(info);
        EXPECT_NE(help_of(info.get()), L"");
        TYPEATTR* attributes = nullptr;
        info->GetTypeAttr(&attributes);
        EXPECT_EQ(attributes->typekind, TKIND_COCLASS);
        const bool global = expected.name == L"clsFFechas" ||
                            expected.name == L"clsADODBServices" || expected.name == L"cgsFileOpR";
        EXPECT_EQ((attributes->wTypeFlags & TYPEFLAG_FAPPOBJECT) != 0, global);
        EXPECT_EQ((attributes->wTypeFlags & TYPEFLAG_FCANCREATE) != 0, !is_given(expected.name));
        info->ReleaseTypeAttr(attributes);
    }
}

TEST_F(Interface, TheDialogFlagsHaveTheirPublishedValues) {
    // The open-file dialog flags of the platform's commdlg.h.
    const std::vector<std::pair<std::wstring, LONG>> published{
        {L"OFN_READONLY", 0x1},
        {L"OFN_OVERWRITEPROMPT", 0x2},
        {L"OFN_HIDEREADONLY", 0x4},
        {L"OFN_NOCHANGEDIR", 0x8},
        {L"OFN_SHOWHELP", 0x10},
        {L"OFN_ENABLEHOOK", 0x20},
        {L"OFN_ENABLETEMPLATE", 0x40},
        {L"OFN_ENABLETEMPLATEHANDLE", 0x80},
        {L"OFN_NOVALIDATE", 0x100},
        {L"OFN_ALLOWMULTISELECT", 0x200},
        {L"OFN_EXTENSIONDIFFERENT", 0x400},
        {L"OFN_PATHMUSTEXIST", 0x800},
        {L"OFN_FILEMUSTEXIST", 0x1000},
        {L"OFN_CREATEPROMPT", 0x2000},
        {L"OFN_SHAREAWARE", 0x4000},
        {L"OFN_NOREADONLYRETURN", 0x8000},
        {L"OFN_NOTESTFILECREATE", 0x10000},
        {L"OFN_NONETWORKBUTTON", 0x20000},
        {L"OFN_NOLONGNAMES", 0x40000},
        {L"OFN_EXPLORER", 0x80000},
        {L"OFN_NODEREFERENCELINKS", 0x100000},
        {L"OFN_LONGNAMES", 0x200000},
        {L"OFN_ENABLEINCLUDENOTIFY", 0x400000},
        {L"OFN_ENABLESIZING", 0x800000},
        {L"OFN_DONTADDTORECENT", 0x2000000},
        {L"OFN_FORCESHOWHIDDEN", 0x10000000},
    };
    const auto own = library();
    ASSERT_TRUE(own);
    const auto info = type(own.get(), L"eOFN");
    ASSERT_TRUE(info);
    for (UINT index = 0; index < published.size(); ++index) {
        VARDESC* constant = nullptr;
        ASSERT_EQ(info->GetVarDesc(index, &constant), S_OK);
        EXPECT_EQ(narrow(name_of(info.get(), constant->memid)), narrow(published[index].first));
        EXPECT_EQ(constant->lpvarValue->lVal, published[index].second);
        info->ReleaseVarDesc(constant);
    }
    VARDESC* none = nullptr;
    EXPECT_NE(info->GetVarDesc(26, &none), S_OK);
}

TEST_F(Interface, TheListOfNamesIsARecordOfAHundredTexts) {
    const auto own = library();
    ASSERT_TRUE(own);
    const auto info = type(own.get(), L"ZIPnames");
    ASSERT_TRUE(info);
    TYPEATTR* attributes = nullptr;
    info->GetTypeAttr(&attributes);
    EXPECT_EQ(attributes->typekind, TKIND_RECORD);
    EXPECT_EQ(attributes->cVars, 1);
    EXPECT_EQ(attributes->cbSizeInstance, 100 * sizeof(BSTR));
    info->ReleaseTypeAttr(attributes);
    VARDESC* field = nullptr;
    ASSERT_EQ(info->GetVarDesc(0, &field), S_OK);
    ASSERT_EQ(field->elemdescVar.tdesc.vt, VT_CARRAY);
    const ARRAYDESC& array = *field->elemdescVar.tdesc.lpadesc;
    EXPECT_EQ(array.tdescElem.vt, VT_BSTR);
    EXPECT_EQ(array.cDims, 1);
    EXPECT_EQ(array.rgbounds[0].cElements, 100U);
    EXPECT_EQ(array.rgbounds[0].lLbound, 0);
    info->ReleaseVarDesc(field);
}

TEST_F(Interface, InstancesReportTheirClass) {
    for (const ExpectedClass& expected : expected_classes()) {
        const auto instance = instance_of(expected.name);
        const auto provider = instance.query<IProvideClassInfo>();
        ASSERT_TRUE(provider);
        ComPtr<ITypeInfo> info;
        ASSERT_EQ(provider->GetClassInfo(info.put()), S_OK);
        EXPECT_EQ(name_of(info.get()), expected.name);
    }
}

}  // namespace
}  // namespace kovrel::test
