// From the names given by the caller to the files that will be packed, each under its entry name.
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

/// In the order of the names; what a folder holds follows it, in byte order of the names there.
/// Names that lead nowhere are told to `events`. Throws ZipError bad_parameters when two different
/// files would have the same entry name, or a name is too long for an archive.
[[nodiscard]] std::vector<Input> collect_inputs(const std::string& archive_path,
                                                const std::vector<std::string>& names,
                                                const UpdateOptions& options,
                                                const UpdateEvents& events);

}  // namespace kovrel::zip
