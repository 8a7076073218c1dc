// What the user is asked and told when a folder that does not exist may be created.
#pragma once

#include <string>
#include <string_view>

#include "runtime/notice.h"

namespace kovrel {

/// The question before a folder is created; any answer but OK leaves it missing.
[[nodiscard]] Notice ask_to_create_folder(std::wstring title, std::wstring_view folder);
[[nodiscard]] Notice folder_created(std::wstring title);
[[nodiscard]] Notice folder_not_created(std::wstring title);

}  // namespace kovrel
