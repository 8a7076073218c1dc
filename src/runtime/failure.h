// Run-time failures: the one exception type of the library.
#pragma once

#include <cstdint>
#include <exception>
#include <memory>
#include <string>
#include <string_view>

namespace kovrel {

/// The failure numbers that the library raises: the published automation error numbers (the low
/// word of an HRESULT with facility "control", 0x800Axxxx).
enum class FailureNumber : std::int32_t {
    invalid_argument = 5,
    overflow = 6,
    out_of_memory = 7,
    subscript_out_of_range = 9,
    array_locked = 10,
    division_by_zero = 11,
    type_mismatch = 13,
    dll_load = 48,
    bad_file_name = 52,
    file_not_found = 53,
    device_io = 57,
    file_exists = 58,
    disk_full = 61,
    input_past_end = 62,
    device_unavailable = 68,
    permission_denied = 70,
    disk_not_ready = 71,
    path_file_access = 75,
    path_not_found = 76,
    object_not_set = 91,
    invalid_use_of_null = 94,
    invalid_file_format = 321,
    form_already_shown = 400,
    object_required = 424,
    cannot_create_object = 429,
    member_not_found = 438,
    action_not_supported = 445,
    named_arguments_not_supported = 446,
    locale_not_supported = 447,
    named_argument_not_found = 448,
    argument_not_optional = 449,
    wrong_argument_count = 450,
    not_a_collection = 451,
    dll_function_not_found = 453,
    variable_type_not_supported = 458,
    invalid_picture = 481,
    clipboard_unavailable = 521,
};

/// A run-time failure: a number and a description, as the user and the host see them.
/// Positive numbers are those of FailureNumber; negative ones are HRESULTs of a host's object.
class Failure final : public std::exception {
 public:
    /// With the description of its number.
    /// Allocates nothing, so that memory exhaustion itself can be reported.
    explicit Failure(FailureNumber number) noexcept;
    /// With a description of its own, from a host's object or the system.
    Failure(std::int32_t number, std::wstring description);

    [[nodiscard]] std::int32_t number() const noexcept { return number_; }
    [[nodiscard]] bool is(FailureNumber number) const noexcept {
        return number_ == static_cast<std::int32_t>(number);
    }
    /// Zero-terminated.
    [[nodiscard]] std::wstring_view description() const noexcept;
    [[nodiscard]] const char* what() const noexcept override { return "kovrel::Failure"; }

 private:
    std::int32_t number_;
    std::shared_ptr<const std::wstring> description_;  // absent: that of the number
};

/// The Spanish description of a failure number; empty for a number that has none.
[[nodiscard]] std::wstring_view failure_description(std::int32_t number) noexcept;

}  // namespace kovrel
