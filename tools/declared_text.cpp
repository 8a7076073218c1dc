#include "tools/declared_text.h"

#include <algorithm>
#include <iomanip>
#include <sstream>

#include "automation/bstr.h"
#include "automation/registration.h"
#include "automation/thunk.h"
#include "automation/variant.h"
#include "runtime/failure.h"

namespace kovrel {

std::wstring initializer(const GUID& id, bool braces) {
    std::wostringstream out;
    out << std::hex << std::setfill(L'0');
    out << L"0x" << std::setw(8) << id.Data1 << L", 0x" << std::setw(4) << id.Data2 << L", 0x"
        << std::setw(4) << id.Data3;
    const wchar_t* separator = braces ? L", {" : L", ";
    for (const unsigned byte : id.Data4) {
        out << separator << L"0x" << std::setw(2) << byte;
        separator = L", ";
    }
    if (braces) out << L'}';
    return out.str();
}

std::wstring without_braces(const GUID& id) {
    const std::wstring text = text_of_guid(id);
    return text.substr(1, text.size() - 2);
}

std::wstring_view prefix(MemberKind kind) {
    switch (kind) {
        case MemberKind::property_get:
            return L"get_";
        case MemberKind::property_put:
            return L"put_";
        case MemberKind::property_put_object:
            return L"putref_";
        case MemberKind::method:
            break;
    }
    return L"";
}

const wchar_t* name_of(const ParameterInfo& parameter) {
    return parameter.name != nullptr ? parameter.name : L"value";
}

std::wstring c_type_name(const TypeRef& type) {
    if (type.picture) return L"IPictureDisp*";
    if (type.enumeration != nullptr) return type.enumeration->name;
    if (type.record != nullptr) return type.record->name;
    if (type.instance_of != nullptr) return std::wstring(type.instance_of->interface_name) + L'*';
    switch (type.type) {
        case VT_UI1:
            return L"BYTE";
        case VT_I2:
            return L"short";
        case VT_I4:
            return L"long";
        case VT_R4:
            return L"float";
        case VT_R8:
            return L"double";
        case VT_BOOL:
            return L"VARIANT_BOOL";
        case VT_DATE:
            return L"DATE";
        case VT_BSTR:
            return L"BSTR";
        case VT_VARIANT:
            return L"VARIANT";
        case VT_DISPATCH:
            return L"IDispatch*";
        case VT_UNKNOWN:
            return L"IUnknown*";
        default:
            throw Failure(E_NOTIMPL, L"Un tipo que el archivo de cabecera no conoce");
    }
}

std::wstring default_text(const VARIANT& value) {
    switch (value.vt) {
        case VT_BSTR:
            return L'"' + std::wstring(text_of(value.bstrVal)) + L'"';
        case VT_BOOL:
            return value.boolVal != VARIANT_FALSE ? L"VARIANT_TRUE" : L"VARIANT_FALSE";
        case VT_DATE:
            return std::to_wstring(static_cast<long>(value.date));
        default:
            return std::to_wstring(Variant(value).to_int32());
    }
}

std::wstring c_parameter_text(const ParameterInfo& parameter) {
    std::wstring text = parameter.by_reference ? L"/* [in, out" : L"/* [in";
    if (parameter.optional) text += L", optional";
    if (parameter.declared_default != nullptr) {
        text += L", defaultvalue(" + default_text(*parameter.declared_default) + L')';
    }
    text += L"] */ " + c_type_name(parameter.type);
    if (parameter.by_reference) text += L'*';
    return text + L' ' + name_of(parameter);
}

std::wstring ascii_name(std::wstring_view name) {
    constexpr std::wstring_view accented = L"áéíóúüÁÉÍÓÚÜ";
    constexpr std::wstring_view plain = L"aeiouuAEIOUU";
    std::wstring result;
    for (const wchar_t letter : name) {
        if (const std::size_t at = accented.find(letter); at != std::wstring_view::npos) {
            result += plain[at];
        } else if (letter == L'ñ' || letter == L'Ñ') {
            result += letter == L'ñ' ? L"ny" : L"Ny";
        } else if (letter < L'\x80') {
            result += letter;
        } else {
            throw Failure(E_NOTIMPL, L"Un nombre que no puede escribirse en ASCII");
        }
    }
    return result;
}

std::wstring xml_text(std::wstring_view text) {
    std::wstring result;
    for (const wchar_t character : text) {
        switch (character) {
            case L'&':
                result += L"&amp;";
                break;
            case L'<':
                result += L"&lt;";
                break;
            case L'"':
                result += L"&quot;";
                break;
            default:
                result += character;
        }
    }
    return result;
}

std::wstring changed_names(std::span<const ParameterInfo> parameters) {
    std::wstring names;
    for (const ParameterInfo& parameter : parameters) {
        if (!parameter.written_back) continue;
        names += (names.empty() ? L"" : L", ") + std::wstring(name_of(parameter));
    }
    return names;
}

MemberInfo method_of(const EventsInfo::Event& event) {
    return {.name = event.name,
            .help = event.help,
            .id = event.id,
            .kind = MemberKind::method,
            .parameters = event.parameters,
            .result = type_of<void>,
            .late = nullptr};
}

void for_each_group(const ClassInfo& info, const std::function<void(MemberGroup)>& visit) {
    MemberGroup rest = info.members;
    while (!rest.empty()) {
        const auto end = std::ranges::find_if(
            rest, [&](const MemberInfo& member) { return member.id != rest.front().id; });
        const auto size = static_cast<std::size_t>(end - rest.begin());
        visit(rest.first(size));
        rest = rest.subspan(size);
    }
}

const ClassInfo* element_of(const ClassInfo& info) {
    if (info.enumeration == DISPID_UNKNOWN) return nullptr;
    const auto item = std::ranges::find(info.members, info.default_member, &MemberInfo::id);
    return item == info.members.end() ? nullptr : item->result.instance_of;
}

}  // namespace kovrel
