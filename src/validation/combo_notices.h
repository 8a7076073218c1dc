// What the user is told when the text of a list combo box is not in its list.
#pragma once

#include <string>

#include "runtime/notice.h"

namespace kovrel {

/// For a combo box with a list to choose from.
[[nodiscard]] Notice combo_needs_list_item(std::wstring title);
/// For a combo box whose list is empty.
[[nodiscard]] Notice combo_value_not_valid(std::wstring title);

}  // namespace kovrel
