// A text as a text box of several lines takes it.
#pragma once

#include <string>
#include <string_view>

namespace kovrel {

/// Every line break (carriage return, line feed, or both in that order) as carriage return and line
/// feed; a zero character, at which the box would end the text, as a blank.
[[nodiscard]] std::wstring text_box_lines(std::wstring_view text);

}  // namespace kovrel
