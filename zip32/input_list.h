// The files to pack, each with its entry name, from the names that the caller gives.
#pragma once

#include <string>
#include <vector>

#include "file_access.h"
#include "update.h"

namespace kovrel::zip {

struct Input {
    std::string path;
    std::string name;  // of its entry; a folder's ends in "/"
    FileStatus status;
};

/// In the order of the names; a folder's contents follow it, in byte order of the names there.
/// Names of no file are reported to `events`. Throws ZipError bad_parameters when two different
/// files would have the same entry name, or a name is too long for an archive.
[[nodiscard]] std::vector<Input> collect_inputs(const std::string& archive_path,
                                                const std::vector<std::string>& names,
                                                const UpdateOptions& options,
                                                const UpdateEvents& events);

}  // namespace kovrel::zip
