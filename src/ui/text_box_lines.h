// Texts for multi-line text boxes.
#pragma once

#include <string>
#include <string_view>

namespace kovrel {

/// Every line break (CR, LF or CR LF) as CR LF; a zero character, at which the box would end the
/// text, as a blank.
[[nodiscard]] std::wstring text_box_lines(std::wstring_view text);

}  // namespace kovrel
