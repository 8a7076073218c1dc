// Turns a class's declaration into its tables, at compile time.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>
#include <type_traits>
#include <utility>

#include "automation/class_info.h"
#include "automation/event_source.h"
#include "automation/object.h"
#include "automation/thunk.h"
#include "runtime/text.h"

namespace kovrel {

/// A text laid out as a BSTR: preceded by its length in bytes.
template <std::size_t Size>
struct TextConstant {
    std::uint32_t bytes = (Size - 1) * sizeof(wchar_t);
    wchar_t characters[Size]{};
};

/// The concatenation of the texts.
template <std::size_t Size>
[[nodiscard]] consteval TextConstant<Size> joined(std::wstring_view first,
                                                  std::wstring_view second = {},
                                                  std::wstring_view third = {}) {
    TextConstant<Size> result;
    wchar_t* end = result.characters;
    for (const std::wstring_view text : {first, second, third}) {
        end = std::copy(text.begin(), text.end(), end);
    }
    return result;
}

/// A declared default as a VARIANT of the parameter's type; without one, the type's zero value.
template <class Default>
[[nodiscard]] consteval VARIANT number_constant(const Default& given, VARTYPE type) {
    VARIANT result{};
    result.vt = type != VT_VARIANT || given.type == VT_EMPTY ? type : given.type;
    switch (result.vt) {
        case VT_VARIANT:
            result.vt = VT_ERROR;
            result.scode = DISP_E_PARAMNOTFOUND;
            break;
        case VT_BOOL:
            result.boolVal = given.number != 0 ? VARIANT_TRUE : VARIANT_FALSE;
            break;
        case VT_UI1:
            result.bVal = static_cast<BYTE>(given.number);
            break;
        case VT_I2:
            result.iVal = static_cast<SHORT>(given.number);
            break;
        case VT_I4:
            result.lVal = given.number;
            break;
        case VT_DATE:
            result.date = given.number;
            break;
        case VT_BSTR:
        case VT_DISPATCH:
            result.byref = nullptr;
            break;
        default:
            throw "no default for a parameter of this type";
    }
    return result;
}

/// Placeholder for parameters that are not optional.
inline constexpr VARIANT no_value{};

template <const auto& declared, class Declared = std::remove_cvref_t<decltype(declared)>>
struct ClassTables;

template <const auto& declared, template <class, std::size_t, class...> class Declaration,
          class Class, std::size_t ParameterCount, class... Thunks>
struct ClassTables<declared, Declaration<Class, ParameterCount, Thunks...>> {
    static consteval ClassInfo info() {
        return {.name = declared.identity.name,
                .help = declared.help,
                .instancing = declared.instancing,
                .class_id = declared.identity.class_id,
                .interface_id = declared.identity.interface_id,
                .prog_id = prog_id.characters,
                .interface_name = interface_name.characters,
                .members = members,
                .vtable = &vtable,
                .create = &Object<Class>::create,
                .destroy = &Object<Class>::destroy,
                .default_member = declared.identity.default_member,
                .enumeration = declared.identity.enumeration,
                .events = declared.identity.events,
                .event_source = event_source(),
                .by_id = by_id,
                .by_name = by_name};
    }

 private:
    static consteval auto event_source() -> EventSource& (*)(void*) {
        if constexpr (requires(Class & instance) { instance.events.has_sinks(); }) {
            return [](void* implementation) -> EventSource& {
                return static_cast<Class*>(implementation)->events;
            };
        } else {
            return nullptr;
        }
    }

    static constexpr auto places = std::index_sequence_for<Thunks...>{};
    static constexpr std::size_t ids = static_cast<std::size_t>(declared.members.back().id);

    static consteval std::array<PassedType, ParameterCount> passed_types() {
        std::array<PassedType, ParameterCount> result;
        auto end = result.begin();
        ((end = std::copy(Thunks::parameters.begin(), Thunks::parameters.end(), end)), ...);
        return result;
    }

    template <std::size_t Index, auto Which>
    static constexpr auto text =
        joined<std::wstring_view((declared.parameters[Index].*Which).text).size() + 1>(
            (declared.parameters[Index].*Which).text);

    template <std::size_t Index, auto Which>
    static consteval VARIANT value_of_default() {
        constexpr const auto& given = declared.parameters[Index].*Which;
        const TypeRef& passed = *passed_types()[Index].type;
        // What else has a type of its own is an enumeration; the sanitizers leave no constant
        // comparison with the address of its description.
        const bool is_enumeration = passed.type == VT_USERDEFINED && !passed.picture &&
                                    passed.instance_of == nullptr && passed.record == nullptr;
        VARIANT result = number_constant(given, is_enumeration ? VARTYPE{VT_I4} : passed.type);
        if constexpr (given.text != nullptr) {
            if (result.vt != VT_BSTR) throw "a text for a parameter of another type";
            result.bstrVal = const_cast<wchar_t*>(text<Index, Which>.characters);
        }
        return result;
    }
    template <std::size_t Index, auto Which>
    static constexpr VARIANT default_value = value_of_default<Index, Which>();

    template <std::size_t Index>
    static consteval ParameterInfo parameter() {
        constexpr const auto& given = declared.parameters[Index];
        const PassedType passed = passed_types()[Index];
        const VARIANT* declared_default = nullptr;
        const VARIANT* when_missing = &no_value;
        using Given = std::remove_cvref_t<decltype(given)>;
        if constexpr (given.declared_default.type != VT_EMPTY) {
            declared_default = &default_value<Index, &Given::declared_default>;
        }
        if constexpr (given.optional) {
            when_missing = &default_value<Index, &Given::when_missing>;
        }
        return {given.name,     *passed.type,     passed.by_reference, passed.written_back,
                given.optional, declared_default, *when_missing};
    }

    template <std::size_t... Index>
    static consteval std::array<ParameterInfo, ParameterCount> all_parameters(
        std::index_sequence<Index...> /*indexes*/) {
        return {parameter<Index>()...};
    }
    static constexpr auto parameters = all_parameters(std::make_index_sequence<ParameterCount>{});

    template <class Entry>
    static consteval MemberInfo member(std::size_t place) {
        const auto& given = declared.members[place];
        for (const wchar_t character : std::wstring_view(given.name)) {
            if (character > 0xFF) throw "a letter whose capital is not known here";
        }
        return {given.name,
                given.help,
                given.id,
                given.kind,
                std::span(parameters).subspan(given.first_parameter, Entry::arity),
                Entry::result,
                &Entry::late};
    }

    template <std::size_t... Place>
    static consteval std::array<MemberInfo, sizeof...(Thunks)> all_members(
        std::index_sequence<Place...> /*places*/) {
        return {member<Thunks>(Place)...};
    }
    static constexpr auto members = all_members(places);

    template <std::size_t... Place>
    static consteval auto all_slots(std::index_sequence<Place...> /*places*/) {
        return ObjectBase::vtable(Thunks::template slot<Place>()...);
    }
    static constexpr auto vtable = all_slots(places);

    static constexpr std::array<std::uint16_t, ids> first_members() {
        std::array<std::uint16_t, ids> result{};
        for (std::size_t place = declared.members.size(); place-- > 0;) {
            result[static_cast<std::size_t>(declared.members[place].id - 1)] =
                static_cast<std::uint16_t>(place);
        }
        return result;
    }
    static constexpr auto by_id = first_members();

    static constexpr std::array<std::uint16_t, ids> ids_in_order() {
        std::array<std::uint16_t, ids> result{};
        for (std::size_t index = 0; index < ids; ++index) {
            result[index] = static_cast<std::uint16_t>(index + 1);
        }
        const auto name = [](std::uint16_t id) {
            return std::wstring_view(declared.members[first_members()[id - 1U]].name);
        };
        std::sort(result.begin(), result.end(), [&](std::uint16_t left, std::uint16_t right) {
            const std::wstring_view a = name(left);
            const std::wstring_view b = name(right);
            return std::lexicographical_compare(
                a.begin(), a.end(), b.begin(), b.end(),
                [](wchar_t one, wchar_t other) { return to_upper(one) < to_upper(other); });
        });
        return result;
    }
    static constexpr auto by_name = ids_in_order();

    static constexpr std::wstring_view library_name_ = declared.identity.type_library;
    static constexpr std::wstring_view class_name_ = declared.identity.name;
    static constexpr auto prog_id =
        joined<library_name_.size() + 1 + class_name_.size() + 1>(library_name_, L".", class_name_);
    static constexpr auto interface_name = joined<1 + class_name_.size() + 1>(L"_", class_name_);
};

}  // namespace kovrel
