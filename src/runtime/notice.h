// The content of one message box, as rules return it.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace kovrel {

/// The message box styles in use: the Windows message box type values.
enum class NoticeStyle : std::int32_t {
    plain = 0,          ///< no icon, OK
    critical = 16,      ///< stop icon, OK
    ok_or_cancel = 33,  ///< question icon, OK and Cancel
    yes_or_no = 36,     ///< question icon, Yes and No
    exclamation = 48,   ///< exclamation icon, OK
    information = 64,   ///< information icon, OK
};

/// One message box. Line breaks in the text are a carriage return alone.
struct Notice {
    std::wstring text;
    NoticeStyle style = NoticeStyle::exclamation;
    /// Absent: the library's application title. Present but empty: an empty title.
    std::optional<std::wstring> title;
    std::int32_t failure = 0;  ///< the number of the failure that it tells; 0: none

    bool operator==(const Notice&) const = default;
};

}  // namespace kovrel
