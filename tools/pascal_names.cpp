#include "tools/pascal_names.h"

#include <algorithm>
#include <array>
#include <sstream>

#include "runtime/failure.h"
#include "runtime/text.h"
#include "tools/declared_text.h"

namespace kovrel {
namespace {

/// Of Delphi and Free Pascal alike.
constexpr std::array<std::wstring_view, 68> reserved_words{L"and",
                                                           L"array",
                                                           L"as",
                                                           L"asm",
                                                           L"begin",
                                                           L"case",
                                                           L"class",
                                                           L"const",
                                                           L"constructor",
                                                           L"destructor",
                                                           L"dispinterface",
                                                           L"div",
                                                           L"do",
                                                           L"downto",
                                                           L"else",
                                                           L"end",
                                                           L"except",
                                                           L"exports",
                                                           L"file",
                                                           L"finalization",
                                                           L"finally",
                                                           L"for",
                                                           L"function",
                                                           L"goto",
                                                           L"if",
                                                           L"implementation",
                                                           L"in",
                                                           L"inherited",
                                                           L"initialization",
                                                           L"inline",
                                                           L"interface",
                                                           L"is",
                                                           L"label",
                                                           L"library",
                                                           L"mod",
                                                           L"nil",
                                                           L"not",
                                                           L"object",
                                                           L"of",
                                                           L"on",
                                                           L"operator",
                                                           L"or",
                                                           L"out",
                                                           L"packed",
                                                           L"procedure",
                                                           L"program",
                                                           L"property",
                                                           L"raise",
                                                           L"record",
                                                           L"repeat",
                                                           L"resourcestring",
                                                           L"result",
                                                           L"self",
                                                           L"set",
                                                           L"shl",
                                                           L"shr",
                                                           L"string",
                                                           L"then",
                                                           L"threadvar",
                                                           L"to",
                                                           L"try",
                                                           L"type",
                                                           L"unit",
                                                           L"until",
                                                           L"uses",
                                                           L"var",
                                                           L"while",
                                                           L"with"};

}  // namespace

std::wstring pascal_name(std::wstring_view name) {
    std::wstring result = ascii_name(name);
    const bool reserved = std::ranges::any_of(
        reserved_words, [&](std::wstring_view word) { return equal_without_case(word, result); });
    return reserved ? result + L'_' : result;
}

std::wstring pascal_type(const TypeRef& type) {
    if (type.picture) return L"IPictureDisp";
    if (type.enumeration != nullptr) return type.enumeration->name;
    if (type.record != nullptr) return type.record->name;
    if (type.instance_of != nullptr) return type.instance_of->interface_name;
    switch (type.type) {
        case VT_UI1:
            return L"Byte";
        case VT_I2:
            return L"SmallInt";
        case VT_I4:
            return L"Integer";
        case VT_R4:
            return L"Single";
        case VT_R8:
            return L"Double";
        case VT_BOOL:
            return L"WordBool";
        case VT_DATE:
            return L"TDateTime";
        case VT_BSTR:
            return L"WideString";
        case VT_VARIANT:
            return L"OleVariant";
        case VT_DISPATCH:
            return L"IDispatch";
        case VT_UNKNOWN:
            return L"IUnknown";
        default:
            throw Failure(E_NOTIMPL, L"Un tipo que la unidad de Pascal no conoce");
    }
}

std::wstring pascal_dispatch_type(const TypeRef& type) {
    return type.record != nullptr ? L"OleVariant" : pascal_type(type);
}

std::wstring pascal_dispatch_method(const MemberInfo& member, DISPID id) {
    const bool returns = member.result.type != VT_VOID;
    std::wostringstream out;
    out << (returns ? L"    function " : L"    procedure ") << pascal_name(member.name);
    const wchar_t* separator = L"(";
    for (const ParameterInfo& parameter : member.parameters) {
        out << separator << (parameter.written_back ? L"var " : L"")
            << pascal_name(name_of(parameter)) << L": " << pascal_dispatch_type(parameter.type);
        separator = L"; ";
    }
    if (!member.parameters.empty()) out << L')';
    if (returns) out << L": " << pascal_dispatch_type(member.result);
    out << L"; dispid " << id << L";\n";
    return out.str();
}

}  // namespace kovrel
