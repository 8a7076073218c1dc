// The folders, links and times that taking out asks of the system. Paths are UTF-8, and no function
// follows a link in the last component.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "times.h"

namespace kovrel::zip {

enum class PathKind { nothing, file, folder, link, other };

struct PathState {
    PathKind kind = PathKind::nothing;
    Moment modified = 0;  // UTC; of a file or a folder
};

/// What is there. What cannot be examined is `other`. On Windows junctions are links too.
[[nodiscard]] PathState path_state(const std::string& path);

/// Makes one folder with those permissions, less what the user's mask takes away; false when there
/// is something of that name or it cannot be made.
[[nodiscard]] bool make_folder(const std::string& path, std::uint16_t permissions);

/// As far as the system lets this user.
void set_folder_time(const std::string& path, Moment modified);

/// The moment of a local time in the system's time zone; nothing for what is no date and time.
[[nodiscard]] std::optional<Moment> moment_of_dos_time(const DosTime& local);

}  // namespace kovrel::zip
