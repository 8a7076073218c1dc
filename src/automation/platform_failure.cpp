#include "automation/platform_failure.h"

#include <array>
#include <string_view>
#include <utility>

#include "runtime/failure.h"
#include "runtime/owned.h"
#include "runtime/text.h"

namespace kovrel {
namespace {

struct Meaning {
    HRESULT code;
    FailureNumber number;
};

constexpr std::array meanings{
    Meaning{E_INVALIDARG, FailureNumber::invalid_argument},
    Meaning{DISP_E_OVERFLOW, FailureNumber::overflow},
    Meaning{E_OUTOFMEMORY, FailureNumber::out_of_memory},
    Meaning{STG_E_INSUFFICIENTMEMORY, FailureNumber::out_of_memory},
    Meaning{DISP_E_BADINDEX, FailureNumber::subscript_out_of_range},
    Meaning{DISP_E_ARRAYISLOCKED, FailureNumber::array_locked},
    Meaning{DISP_E_DIVBYZERO, FailureNumber::division_by_zero},
    Meaning{DISP_E_TYPEMISMATCH, FailureNumber::type_mismatch},
    Meaning{STG_E_FILENOTFOUND, FailureNumber::file_not_found},
    Meaning{STG_E_FILEALREADYEXISTS, FailureNumber::file_exists},
    Meaning{STG_E_MEDIUMFULL, FailureNumber::disk_full},
    Meaning{E_ACCESSDENIED, FailureNumber::permission_denied},
    Meaning{STG_E_ACCESSDENIED, FailureNumber::permission_denied},
    Meaning{STG_E_SHAREVIOLATION, FailureNumber::permission_denied},
    Meaning{STG_E_LOCKVIOLATION, FailureNumber::permission_denied},
    Meaning{STG_E_DISKISWRITEPROTECTED, FailureNumber::permission_denied},
    Meaning{STG_E_PATHNOTFOUND, FailureNumber::path_not_found},
    Meaning{REGDB_E_CLASSNOTREG, FailureNumber::cannot_create_object},
    Meaning{DISP_E_UNKNOWNNAME, FailureNumber::member_not_found},
    Meaning{DISP_E_MEMBERNOTFOUND, FailureNumber::member_not_found},
    Meaning{DISP_E_UNKNOWNINTERFACE, FailureNumber::member_not_found},
    Meaning{E_NOTIMPL, FailureNumber::action_not_supported},
    Meaning{DISP_E_NONAMEDARGS, FailureNumber::named_arguments_not_supported},
    Meaning{DISP_E_UNKNOWNLCID, FailureNumber::locale_not_supported},
    Meaning{DISP_E_PARAMNOTFOUND, FailureNumber::named_argument_not_found},
    Meaning{DISP_E_PARAMNOTOPTIONAL, FailureNumber::argument_not_optional},
    Meaning{DISP_E_BADPARAMCOUNT, FailureNumber::wrong_argument_count},
    Meaning{DISP_E_NOTACOLLECTION, FailureNumber::not_a_collection},
    Meaning{DISP_E_BADVARTYPE, FailureNumber::variable_type_not_supported},
};

/// The system's own text for a code, without its closing line break.
std::wstring system_text(HRESULT code) {
    wchar_t* text = nullptr;
    const DWORD length = FormatMessageW(
        FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS,
        nullptr, static_cast<DWORD>(code), 0, reinterpret_cast<wchar_t*>(&text), 0, nullptr);
    const Owned<wchar_t*, &LocalFree> owner(text);
    const std::wstring_view description(text == nullptr ? L"" : text, length);
    return std::wstring(description.substr(0, description.find_last_not_of(L"\r\n") + 1));
}

}  // namespace

std::int32_t failure_number(HRESULT code) noexcept {
    if (code < 0 && HRESULT_FACILITY(code) == FACILITY_CONTROL && HRESULT_CODE(code) != 0) {
        return HRESULT_CODE(code);
    }
    for (const Meaning& meaning : meanings) {
        if (meaning.code == code) return static_cast<std::int32_t>(meaning.number);
    }
    return code;
}

void throw_platform_failure(HRESULT code, std::wstring description) {
    const std::int32_t number = failure_number(code);
    if (!description.empty()) throw Failure(number, std::move(description));
    if (number < 0) throw Failure(number, system_text(code));
    throw Failure(static_cast<FailureNumber>(number));
}

std::wstring misfit_description(HRESULT code, const wchar_t* member, const wchar_t* parameter) {
    std::wstring_view reason = failure_description(failure_number(code));
    if (reason.empty()) {
        reason = failure_description(static_cast<std::int32_t>(FailureNumber::invalid_argument));
    }
    if (member == nullptr) return std::wstring(reason);
    if (parameter == nullptr) return concat({reason, L": ", member});
    return concat({reason, L": argumento ", parameter, L" de ", member});
}

}  // namespace kovrel
