// What the verifier window tells the user besides the results of its checks.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "runtime/notice.h"

namespace kovrel {

/// Nothing to copy: the field is empty.
[[nodiscard]] Notice tax_id_to_copy_missing();
[[nodiscard]] Notice account_to_copy_missing();

/// The message for a data-entry error code of a data-bound form; none for any code but 2113 (a
/// value that does not fit the field), 2279 (one that does not fit the mask), 3162 and 3314 (a
/// value that is missing). `active_control` is the name of the control that has the focus.
[[nodiscard]] std::optional<Notice> data_entry_notice(std::int32_t code,
                                                      std::wstring_view active_control);

}  // namespace kovrel
