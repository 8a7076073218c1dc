// Translates failures inside the library into the HRESULT and error object that a host sees.
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

/// Runs one call from a host; no exception leaves it. One function for all calls keeps the catch
/// block out of the templates.
HRESULT run_at_boundary(const wchar_t* source, const GUID& interface_id, void (*body)(void*),
                        void* context) noexcept;

/// The same for calls through a standard interface (class factory, registration). `source` is the
/// ProgID that the host sees in a failure.
template <class Body>
HRESULT boundary(const wchar_t* source, Body&& body) noexcept {
    return run_at_boundary(
        source, GUID_NULL,
        [](void* context) { (*static_cast<std::remove_reference_t<Body>*>(context))(); }, &body);
}

}  // namespace kovrel
