// The files that the engine touches. Paths and names are UTF-8 everywhere (on POSIX systems the
// bytes that the system gives); one source file per system stands behind this header.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "bytes.h"
#include "times.h"

namespace kovrel::zip {

struct FileStatus {
    bool folder = false;
    bool hidden_or_system = false;
    std::uint64_t size = 0;  // bytes
    DosTime modified;        // local time
    /// As an entry keeps them: the DOS attributes in the low byte and, on POSIX systems, the mode
    /// in the high half.
    std::uint32_t attributes = 0;
};

/// What an entry made here says about its origin ("version made by"): 2.0 and Windows (10) or Unix
/// (3).
[[nodiscard]] std::uint16_t made_by_this_system() noexcept;

/// The status of a regular file or folder; nothing when there is none of that name (nor for
/// devices and pipes, which have no end to read up to).
[[nodiscard]] std::optional<FileStatus> file_status(const std::string& path);

/// The names in a folder, in byte order, without "." and ".."; empty when it cannot be read.
[[nodiscard]] std::vector<std::string> folder_names(const std::string& path);

/// Whether both paths lead to one existing file.
[[nodiscard]] bool is_same_file(const std::string& first, const std::string& second);

/// Whether an existing file may be replaced: not read-only for this user.
[[nodiscard]] bool is_replaceable(const std::string& path);

bool remove_file(const std::string& path) noexcept;

/// Where a path that is a link leads, whether or not there is a file; any other path is itself.
[[nodiscard]] std::string final_path(const std::string& path);

/// Removes a file unless some process has it open.
void remove_unheld_file(const std::string& path);

/// The form in which two names are one file: capitals on Windows, the name itself elsewhere.
[[nodiscard]] std::string name_key(const std::string& name);

/// An open file that is read only. Others may go on reading, writing and renaming it.
class InputFile {
 public:
    /// Throws ZipError cannot_open_file.
    explicit InputFile(const std::string& path);
    InputFile(InputFile&& other) noexcept;
    InputFile& operator=(InputFile&& other) = delete;
    ~InputFile();

    [[nodiscard]] std::uint64_t size() const;
    /// Fills `room` from `offset` unless the file ends before; the count of bytes read.
    /// Throws ZipError read_failed.
    std::size_t read_at(std::uint64_t offset, std::span<std::uint8_t> room) const;

 private:
    std::intptr_t handle_;
    std::string path_;
};

/// A file that is written beside its target under a name of its own and takes the target's place
/// only by replace_target(); gone at the end of its life otherwise. What a killed process has left
/// of its own goes when the next one is made in the folder: this one is held all its life.
///
/// What it replaces is kept but for the content: permissions, owner and attributes, as far as the
/// system lets this user give them. Until then nobody has more rights to it than to the target.
class NewFile {
 public:
    /// Throws ZipError cannot_create.
    explicit NewFile(const std::string& target);
    NewFile(const NewFile&) = delete;
    NewFile& operator=(const NewFile&) = delete;
    ~NewFile();

    /// Throws ZipError write_failed.
    void write_at(std::uint64_t offset, ByteView bytes);
    void set_size(std::uint64_t size);
    /// Puts the file on the disk and in the target's place, in one step for whoever looks.
    /// Throws ZipError write_failed or cannot_create; the target is then as it was.
    void replace_target();

 private:
    std::string target_;
    std::string path_;
    std::intptr_t handle_ = -1;
};

/// A name for a file under work, in the folder of `target`; another at each call.
[[nodiscard]] std::string temporary_name_beside(const std::string& target);

/// Removes the files of such names in the folder of `target` that no process works on any more.
void remove_abandoned_files_beside(const std::string& target);

}  // namespace kovrel::zip
