// The platform's failure codes and the run-time failures that they stand for, in both directions.
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

/// Throws what a host's object failed with; without a description of its own it has that of its
/// number, or the system's.
[[noreturn]] void throw_platform_failure(HRESULT code, std::wstring description = {});

/// Why a call does not fit its member: the failure's description with the names of the member and,
/// where one of its parameters is at fault, of that; null for a name that is not known.
[[nodiscard]] std::wstring misfit_description(HRESULT code, const wchar_t* member,
                                              const wchar_t* parameter);

}  // namespace kovrel
