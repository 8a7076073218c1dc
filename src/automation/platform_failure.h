// Maps the platform's HRESULTs to run-time failures.
#pragma once

#include <windows.h>
#include <oleauto.h>

#include <cstdint>
#include <string>

namespace kovrel {

/// The failure's number as hosts and users know it: that of the published automation errors where
/// there is one for the code (13 for a type mismatch, 450 for a wrong number of arguments…), or
/// else the code itself, which is negative.
[[nodiscard]] std::int32_t failure_number(HRESULT code) noexcept;

/// Throws the Failure for an HRESULT of a host's object or the system. An empty description stands
/// for that of its number, or the system's message.
[[noreturn]] void throw_platform_failure(HRESULT code, std::wstring description = {});

/// Describes why a call does not match its member: the failure's description with the names of the
/// member and of the parameter at fault; null where there is none.
[[nodiscard]] std::wstring misfit_description(HRESULT code, const wchar_t* member,
                                              const wchar_t* parameter);

}  // namespace kovrel
