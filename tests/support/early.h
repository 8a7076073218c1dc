// Early-bound calls as compiled hosts make them: through the vtable entry that the type library
// names.
#pragma once

#include "tests/support/late.h"

namespace kovrel::test {

/// The side of a dual interface's description that has the vtable entries.
ComPtr<ITypeInfo> vtable_side_of(const ComPtr<ITypeInfo>& info);

/// The description of an instance's own interface, its vtable entries included.
ComPtr<ITypeInfo> interface_of(IDispatch* object);

/// The name of a type or of one of its members.
std::wstring name_of(ITypeInfo* info, MEMBERID member = MEMBERID_NIL);

/// Byte offset of a member's vtable entry; -1 where there is none.
std::ptrdiff_t vtable_offset(IDispatch* object, const std::wstring& member, INVOKEKIND kind);

/// The vtable entry of a member as the function type given; null where there is none.
template <class Function>
Function early(IDispatch* object, const std::wstring& member, INVOKEKIND kind = INVOKE_FUNC) {
    const std::ptrdiff_t offset = vtable_offset(object, member, kind);
    if (offset < 0) return nullptr;
    const char* const vtable = *reinterpret_cast<char**>(object);
    return *reinterpret_cast<const Function*>(vtable + offset);
}

}  // namespace kovrel::test
