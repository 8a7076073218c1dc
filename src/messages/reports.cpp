#include "messages/reports.h"

#include <utility>

#include "files/path_text.h"
#include "runtime/text.h"

namespace kovrel {

Notice database_error_report(std::wstring title, std::wstring_view introduction,
                             const std::vector<DatabaseError>& errors, std::int32_t count) {
    std::wstring text(introduction);
    text += L"\r\rNº Errores: " + decimal_text(count);
    for (const auto& error : errors) {
        text += L"\r\t" + decimal_text(error.number) + L" - " + error.description;
    }
    return {std::move(text), NoticeStyle::critical, std::move(title)};
}

std::wstring version_text(std::int16_t major, std::int16_t minor, std::int16_t revision) {
    return decimal_text(major) + L'.' + decimal_text(minor) + L'.' + decimal_text(revision);
}

std::wstring identification_text(std::wstring_view title, std::wstring_view version,
                                 std::wstring_view folder, std::wstring_view file_name) {
    return concat(
        {title, L" - Versión: ", version, L" (", add_backslash(folder), file_name, L".dll)"});
}

}  // namespace kovrel
