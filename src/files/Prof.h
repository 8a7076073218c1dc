// Module Prof: the system's folder browser, for clsProfile.BrowseForFolder.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace kovrel::Prof {

/// Lets the user pick a folder, beginning at `initial_folder`; empty when the user cancels.
/// `owner` is a window handle, or 0. Failure 5 when what was picked has no path.
[[nodiscard]] std::wstring browse_for_folder(std::int32_t owner, std::wstring_view prompt,
                                             std::wstring_view initial_folder);

}  // namespace kovrel::Prof
