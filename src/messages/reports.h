// The report of a database connection's errors, and the texts that tell the library's version.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "runtime/notice.h"

namespace kovrel {

/// One error of a connection's collection.
struct DatabaseError {
    std::int32_t number = 0;
    std::wstring description;
};

/// The text that introduces the report of a connection with errors.
inline constexpr std::wstring_view database_access_errors =
    L"Errores al acceder a la Base de Datos.";

/// The report of a collection. `count` is the collection's own, read again after its errors were:
/// it is shown even where it differs from the number of errors given.
[[nodiscard]] Notice database_error_report(std::wstring title, std::wstring_view introduction,
                                           const std::vector<DatabaseError>& errors,
                                           std::int32_t count);

/// Major, minor and revision between points, without leading zeros.
[[nodiscard]] std::wstring version_text(std::int16_t major, std::int16_t minor,
                                        std::int16_t revision);

/// The library's title, version, folder and file name in one line. `file_name` has no extension.
[[nodiscard]] std::wstring identification_text(std::wstring_view title, std::wstring_view version,
                                               std::wstring_view folder,
                                               std::wstring_view file_name);

}  // namespace kovrel
