// The one place where a failure inside the library becomes what a host sees.
#pragma once

#include <windows.h>
#include <oleauto.h>

#include <type_traits>

#include "runtime/failure.h"

namespace kovrel {

/// The exception in flight as a Failure: a Failure as it is, memory exhaustion 7, anything else 5.
[[nodiscard]] Failure current_failure() noexcept;

/// 0x800A0000 plus a positive number; a negative number as it is.
[[nodiscard]] HRESULT hresult_of(const Failure& failure) noexcept;

/// Leaves the failure as the thread's error object, for early-bound callers.
void set_error_object(const Failure& failure, const wchar_t* source,
                      const GUID& interface_id) noexcept;

/// Runs one call of a host's, given as a function and what it works on; no exception leaves it.
HRESULT run_at_boundary(const wchar_t* source, const GUID& interface_id, void (*body)(void*),
                        void* context) noexcept;

/// Runs one call of a host's that goes to no interface of the library's own. `source` is the ProgID
/// that the host sees in a failure.
template <class Body>
HRESULT boundary(const wchar_t* source, Body&& body) noexcept {
    return run_at_boundary(
        source, GUID_NULL,
        [](void* context) { (*static_cast<std::remove_reference_t<Body>*>(context))(); }, &body);
}

}  // namespace kovrel
