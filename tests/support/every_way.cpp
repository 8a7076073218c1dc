#include "tests/support/every_way.h"

#include <gtest/gtest.h>

namespace kovrel::test {
namespace {

struct ParameterShape {
    VARTYPE type = VT_EMPTY;
    bool by_reference = false;
    Variant when_omitted;
};

/// What a compiler knows of a member from the type library.
struct MemberShape {
    std::ptrdiff_t offset = -1;
    std::vector<ParameterShape> parameters;
    VARTYPE result = VT_EMPTY;
};

/// A type of the library is a class's interface behind a pointer, else an enumeration, which is
/// passed as its number.
VARTYPE passed_type(const TYPEDESC& described) {
    if (described.vt == VT_PTR) return VT_DISPATCH;
    return described.vt == VT_USERDEFINED ? VARTYPE{VT_I4} : described.vt;
}

ParameterShape parameter_shape(const ELEMDESC& described) {
    ParameterShape shape;
    shape.by_reference = described.tdesc.vt == VT_PTR;
    shape.type = passed_type(shape.by_reference ? *described.tdesc.lptdesc : described.tdesc);
    if ((described.paramdesc.wParamFlags & PARAMFLAG_FHASDEFAULT) != 0) {
        shape.when_omitted = Variant(described.paramdesc.pparamdescex->varDefaultValue);
    } else if (shape.type == VT_VARIANT) {
        shape.when_omitted = Variant::missing();
    } else if (shape.type == VT_DISPATCH) {
        shape.when_omitted = Variant(ComPtr<IDispatch>());
    } else {
        shape.when_omitted = Variant().as(shape.type);
    }
    return shape;
}

MemberShape member_shape(IDispatch* object, const std::wstring& member) {
    MemberShape shape;
    shape.offset = vtable_offset(object, member, INVOKE_FUNC);
    const auto info = interface_of(object);
    FUNCDESC* function = nullptr;
    for (UINT index = 0; SUCCEEDED(info->GetFuncDesc(index, &function)); ++index) {
        const bool found = function->oVft == shape.offset && function->invkind == INVOKE_FUNC;
        for (SHORT place = 0; found && place < function->cParams; ++place) {
            const ELEMDESC& parameter = function->lprgelemdescParam[place];
            if ((parameter.paramdesc.wParamFlags & PARAMFLAG_FRETVAL) != 0) {
                shape.result = passed_type(*parameter.tdesc.lptdesc);
            } else {
                shape.parameters.push_back(parameter_shape(parameter));
            }
        }
        info->ReleaseFuncDesc(function);
        if (found) break;
    }
    return shape;
}

/// Where a variant keeps its value.
void* storage(Variant& variable, VARTYPE type) {
    return type == VT_VARIANT ? static_cast<void*>(&variable) : static_cast<void*>(&variable.llVal);
}

VARIANT reference_to(Variant& variable, VARTYPE type) {
    VARIANT reference;
    VariantInit(&reference);
    reference.vt = static_cast<VARTYPE>(VT_BYREF | type);
    reference.byref = storage(variable, type);
    return reference;
}

bool has_a_type(const Variant& value) {
    return !value.is_empty() && !value.is_null() && !value.is_error();
}

/// The last failure's description and source, as a compiled host asks for them.
void read_last_failure(Answer& answer) {
    ComPtr<IErrorInfo> info;
    if (GetErrorInfo(0, info.put()) != S_OK) return;
    Bstr description;
    Bstr source;
    info->GetDescription(description.put());
    info->GetSource(source.put());
    answer.description = description.view();
    answer.source = source.view();
}

Answer call_early(IDispatch* object, const MemberShape& shape, Answer answer) {
    const std::size_t count = shape.parameters.size();
    std::vector<Variant>& variables = answer.arguments;
    variables.resize(count, Variant::missing());  // all at once: references follow
    std::vector<VARIANT> raw;
    std::vector<VARTYPE> types;
    for (std::size_t index = 0; index < count; ++index) {
        const ParameterShape& parameter = shape.parameters[index];
        Variant& variable = variables[index];
        if (variable.is_missing()) variable = parameter.when_omitted;
        if (parameter.type != VT_VARIANT) variable = variable.as(parameter.type);
        if (parameter.by_reference) {
            raw.push_back(reference_to(variable, parameter.type));
            types.push_back(VT_PTR);
        } else {
            raw.push_back(variable);
            types.push_back(parameter.type);
        }
    }
    if (shape.result != VT_EMPTY) {
        raw.push_back(reference_to(answer.value, shape.result));
        types.push_back(VT_PTR);
    }
    std::vector<VARIANT*> pointers;
    pointers.reserve(raw.size());
    for (VARIANT& argument : raw) pointers.push_back(&argument);
    Variant result;
    SetErrorInfo(0, nullptr);
    const HRESULT called = made([&] {
        return DispCallFunc(object, static_cast<ULONG_PTR>(shape.offset), CC_STDCALL, VT_I4,
                            static_cast<UINT>(raw.size()), types.data(), pointers.data(), &result);
    });
    EXPECT_EQ(called, S_OK);
    answer.result = result.lVal;
    if (FAILED(answer.result)) read_last_failure(answer);
    // The vtable call writes a bare value of the declared type.
    if (shape.result != VT_EMPTY && shape.result != VT_VARIANT) answer.value.vt = shape.result;
    return answer;
}

Answer call_late(Way way, IDispatch* object, const std::wstring& member, const MemberShape& shape,
                 Answer answer) {
    std::vector<LateArgument> arguments;
    for (std::size_t index = 0; index < answer.arguments.size(); ++index) {
        Variant& variable = answer.arguments[index];
        if (way == Way::values || variable.is_missing()) {
            arguments.emplace_back(variable);
        } else if (way == Way::variant_references || !has_a_type(variable)) {
            arguments.push_back(LateArgument::variable(variable));
        } else {
            const VARTYPE wanted = shape.parameters[index].type;
            if (wanted != VT_VARIANT) variable = variable.as(wanted);
            LateArgument reference{Variant()};
            static_cast<VARIANT&>(reference) = reference_to(variable, variable.vt);
            arguments.push_back(reference);
        }
    }
    const Outcome outcome = call(object, member, arguments);
    answer.result = outcome.result == DISP_E_EXCEPTION ? outcome.error : outcome.result;
    answer.description = outcome.description;
    answer.source = outcome.source;
    answer.value = outcome.value;
    return answer;
}

std::string type_of(const Variant& value) {
    switch (value.vt) {
        case VT_EMPTY:
            return "vacío";
        case VT_NULL:
            return "nulo";
        case VT_BSTR:
            return "texto";
        case VT_BOOL:
            return "booleano";
        case VT_UI1:
            return "byte";
        case VT_I2:
            return "entero16";
        case VT_I4:
            return "entero32";
        case VT_R4:
            return "simple";
        case VT_R8:
            return "doble";
        case VT_DATE:
            return "fecha";
        case VT_ERROR:
            return "error";
        case VT_DISPATCH:
            return "objeto";
        default:
            return "tipo " + std::to_string(value.vt);
    }
}

}  // namespace

const char* name_of(Way way) {
    constexpr std::array names{"values", "typed references", "variant references", "early"};
    return names[static_cast<std::size_t>(way)];
}

Answer call_in(Way way, IDispatch* object, const std::wstring& member,
               std::vector<Variant> arguments) {
    const MemberShape shape = member_shape(object, member);
    EXPECT_GE(shape.offset, 0) << narrow(member);
    if (shape.offset < 0) return {};
    Answer answer;
    answer.arguments = std::move(arguments);
    return way == Way::early ? call_early(object, shape, std::move(answer))
                             : call_late(way, object, member, shape, std::move(answer));
}

Answer call_in(Way way, IDispatch* object, const std::wstring& member,
               std::vector<Variant> arguments, const std::vector<ExpectedBox>& boxes) {
    const testing::ScopedTrace trace(__FILE__, __LINE__, narrow(member) + ", " + name_of(way));
    std::vector<Expectation> expectations;
    expectations.reserve(boxes.size());
    for (const ExpectedBox& box : boxes) expectations.push_back(answer(box.pressed));
    BoxWatcher watcher(std::move(expectations));
    Answer answer = call_in(way, object, member, std::move(arguments));
    const auto seen = watcher.seen();
    EXPECT_EQ(seen.size(), boxes.size());
    for (std::size_t index = 0; index < std::min(seen.size(), boxes.size()); ++index) {
        EXPECT_EQ(narrow(seen[index].text), narrow(boxes[index].text));
        EXPECT_EQ(narrow(seen[index].title), narrow(boxes[index].title));
        EXPECT_EQ(seen[index].style, boxes[index].style);
    }
    return answer;
}

std::string shown(const Variant& value) {
    std::string text = type_of(value);
    if (value.vt == VT_BSTR) return text + ' ' + narrow(std::wstring(text_of(value.bstrVal)));
    if (value.vt == VT_ERROR || value.is_object() || !has_a_type(value)) return text;
    Variant number = value;
    if (number.vt == VT_DATE) number.vt = VT_R8;
    return text + ' ' + narrow(number.to_text());
}

}  // namespace kovrel::test
