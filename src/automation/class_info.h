// What a class declaration becomes: the one table that the vtable, late binding, the type library,
// registration and the reference page are made from.
#pragma once

#include <windows.h>
#include <oleauto.h>

#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "automation/variant.h"

namespace kovrel {

struct ClassInfo;
class LateCall;

/// A named 32-bit constant type of the type library.
struct EnumInfo {
    struct Value {
        const wchar_t* name;
        std::int32_t value;
        const wchar_t* help;
    };
    const wchar_t* name;
    const wchar_t* help;
    GUID id;
    std::vector<Value> values;
};

/// A record of the type library with one field: a fixed array of texts.
struct RecordInfo {
    const wchar_t* name;
    const wchar_t* help;
    GUID id;
    const wchar_t* field;
    std::uint32_t size;  ///< number of texts, indexed from 0
};

/// The type of a parameter or result, as the type library spells it.
struct TypeRef {
    VARTYPE type = VT_VOID;  ///< VT_USERDEFINED with one of the following
    const EnumInfo* enumeration = nullptr;
    const RecordInfo* record = nullptr;
    const ClassInfo& (*instance_of)() = nullptr;  ///< the dual interface of another class
    bool picture = false;                         ///< the platform's IPictureDisp
};

struct ParameterInfo {
    const wchar_t* name = nullptr;
    TypeRef type;
    bool by_reference = false;
    bool written_back = false;  ///< by reference and possibly changed by the member
    bool optional = false;
    /// The default that the type library declares and an early-binding compiler passes.
    std::optional<Variant> declared_default = std::nullopt;
    /// What an argument counts as that reaches the library as missing.
    Variant when_missing = Variant();
};

enum class MemberKind : std::uint8_t { method, property_get, property_put, property_put_object };

using Slot = void (*)();  // a function of any type; each is cast back to its own before a call

struct MemberInfo {
    const wchar_t* name = nullptr;
    const wchar_t* help = nullptr;
    DISPID id = 0;
    MemberKind kind = MemberKind::method;
    std::vector<ParameterInfo> parameters;
    TypeRef result;
    Slot slot = nullptr;  ///< early-bound entry of the vtable
    Slot call = nullptr;  ///< calls the member function itself
    /// Late-bound entry: what the late call holds crosses to and from `call`.
    void (*late)(void* implementation, Slot call, LateCall& late_call) = nullptr;
};

enum class Instancing : std::uint8_t {
    creatable,
    global,  ///< also an application object: its members can be called without an instance
};

struct ClassInfo {
    const wchar_t* name = nullptr;
    const wchar_t* help = nullptr;
    Instancing instancing = Instancing::creatable;
    GUID class_id{};
    GUID interface_id{};
    std::wstring prog_id;
    std::wstring interface_name;
    std::deque<MemberInfo> members;  ///< in interface order: vtable slot 7 onwards
    std::vector<Slot> vtable;
    /// A new instance with one reference; failures are thrown.
    IDispatch* (*create)() = nullptr;
    void (*destroy)(void* object) noexcept = nullptr;

    /// The members behind one late-bound id.
    struct Accessors {
        const MemberInfo* method = nullptr;
        const MemberInfo* get = nullptr;
        const MemberInfo* put = nullptr;
        const MemberInfo* put_object = nullptr;

        [[nodiscard]] const MemberInfo* any() const noexcept;
    };
    std::vector<Accessors> by_id;  ///< index: id - 1

    /// The late-bound id of a name, without regard to case; DISPID_UNKNOWN when there is none.
    [[nodiscard]] DISPID find(std::wstring_view member) const;
    /// The ids of a member's name and of names of its parameters, as IDispatch hands them out:
    /// DISPID_UNKNOWN for each unknown name, and then DISP_E_UNKNOWNNAME.
    HRESULT find_ids(LPOLESTR* names, UINT count, DISPID* ids) const;
    [[nodiscard]] const Accessors* accessors(DISPID id) const noexcept;

    /// Completes the indexes once every member is declared.
    void index_members();

 private:
    std::vector<std::pair<std::wstring, DISPID>> by_name_;  // sorted, in capitals
};

/// The type library as a whole.
struct LibraryInfo {
    const wchar_t* name;
    const wchar_t* help;
    GUID id;
    WORD major;
    WORD minor;
    std::vector<const ClassInfo*> classes;
    std::vector<const EnumInfo*> enumerations;
    std::vector<const RecordInfo*> records;
};

}  // namespace kovrel
