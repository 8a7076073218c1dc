// What a class declaration becomes: the tables that the vtable, late binding, the type library,
// registration and the reference page are made from. They are read-only data: a host may call an
// object after DLL_PROCESS_DETACH, when anything with a destructor would be gone.
#pragma once

#include <windows.h>
#include <oleauto.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace kovrel {

struct ClassInfo;
class EventSource;
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
    std::span<const Value> values;
    bool has_macros = false;  ///< flags that the platform's headers define as macros
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
    const ClassInfo* instance_of = nullptr;  ///< the dual interface of another class
    bool picture = false;                    ///< the platform's IPictureDisp
};

struct ParameterInfo {
    const wchar_t* name;
    const TypeRef& type;
    bool by_reference;
    bool written_back;  ///< by reference and possibly changed by the member
    bool optional;
    /// The default that the type library declares and an early-binding compiler passes; null: none.
    const VARIANT* declared_default;
    /// The value of an argument that arrives as missing.
    const VARIANT& when_missing;
};

enum class MemberKind : std::uint8_t { method, property_get, property_put, property_put_object };

struct MemberInfo {
    const wchar_t* name;
    const wchar_t* help;
    DISPID id;
    MemberKind kind;
    std::span<const ParameterInfo> parameters;
    const TypeRef& result;
    /// Late-bound entry: converts the arguments, calls the member and writes back.
    void (*late)(void* implementation, LateCall& late_call);
};

enum class Instancing : std::uint8_t {
    creatable,
    global,  ///< also an application object: its members can be called without an instance
    given,   ///< only by members of other classes
};

/// What a class calls hosts with: the methods of a dispatch interface that their sinks implement.
struct EventsInfo {
    struct Event {
        const wchar_t* name;
        const wchar_t* help;
        DISPID id;
        std::span<const ParameterInfo> parameters;
    };
    const wchar_t* name;
    const wchar_t* help;
    GUID id;
    std::span<const Event> events;
};

struct ClassInfo {
    const wchar_t* name;
    const wchar_t* help;
    Instancing instancing;
    GUID class_id;
    GUID interface_id;
    const wchar_t* prog_id;
    const wchar_t* interface_name;
    std::span<const MemberInfo> members;  ///< in interface order: vtable slot 7 onwards
    const void* vtable;
    /// A new instance with one reference; failures are thrown.
    IDispatch* (*create)();
    void (*destroy)(void* object) noexcept;
    DISPID default_member;     ///< published as DISPID_VALUE; DISPID_UNKNOWN: none
    DISPID enumeration;        ///< published as DISPID_NEWENUM; DISPID_UNKNOWN: none
    const EventsInfo* events;  ///< null: none
    /// Of an instance of a class with events.
    EventSource& (*event_source)(void* implementation);
    std::span<const std::uint16_t> by_id;    ///< index: id - 1; the id's first member
    std::span<const std::uint16_t> by_name;  ///< ids in the order of their names in capitals

    /// The members behind one late-bound id, at most one of each kind.
    class Accessors {
     public:
        /// Null when there is none of this kind.
        [[nodiscard]] const MemberInfo* operator[](MemberKind kind) const noexcept {
            return members_[static_cast<std::size_t>(kind)];
        }
        [[nodiscard]] const MemberInfo* any() const noexcept;
        void add(const MemberInfo& member) noexcept {
            members_[static_cast<std::size_t>(member.kind)] = &member;
        }

     private:
        std::array<const MemberInfo*, 4> members_{};
    };

    /// The late-bound id of a name, without regard to case; DISPID_UNKNOWN when there is none.
    [[nodiscard]] DISPID find(std::wstring_view member) const;
    /// The ids of a member's name and of names of its parameters, as IDispatch hands them out:
    /// DISPID_UNKNOWN for each unknown name, and then DISP_E_UNKNOWNNAME.
    HRESULT find_ids(LPOLESTR* names, UINT count, DISPID* ids) const;
    /// The id by which hosts know a member.
    [[nodiscard]] DISPID published(DISPID id) const noexcept {
        if (id == default_member) return DISPID_VALUE;
        return id == enumeration ? DISPID_NEWENUM : id;
    }
    /// The member's own id for one of the system's.
    [[nodiscard]] DISPID of_published(DISPID id) const noexcept {
        if (id == DISPID_VALUE) return default_member;
        return id == DISPID_NEWENUM ? enumeration : DISPID_UNKNOWN;
    }
    /// By published id; all null for an unknown one.
    [[nodiscard]] Accessors accessors(DISPID id) const noexcept;
};

/// The type library as a whole.
struct LibraryInfo {
    const wchar_t* name;
    const wchar_t* help;
    GUID id;
    WORD major;
    WORD minor;
    std::span<const ClassInfo* const> classes;
    std::span<const EnumInfo* const> enumerations;
    std::span<const RecordInfo* const> records;
};

}  // namespace kovrel
