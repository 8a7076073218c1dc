// The files that the engine touches. Paths and names are UTF-8 everywhere (on POSIX systems the
// bytes that the system gives). file_access.cpp is portable; the sources named after a system hold
// what differs.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "bytes.h"
#include "times.h"

namespace kovrel::zip {

struct FileStatus {
    bool folder = false;
    bool hidden_or_system = false;
    std::uint64_t size = 0;  // bytes
    DosTime modified;        // local time
    Moment moment = 0;       // the same in UTC
    /// As an entry keeps them: the DOS attributes in the low byte and, on POSIX systems, the mode
    /// in the high half.
    std::uint32_t attributes = 0;
};

/// The "version made by" of new entries: 2.0, and Windows (10) or Unix (3).
[[nodiscard]] std::uint16_t made_by_this_system() noexcept;

/// The status of a regular file or folder; nothing when there is none of that name (nor for
/// devices and pipes, which have no end to read up to). Throws ZipError read_failed where the disk
/// fails, so that an existing file is not taken for none.
[[nodiscard]] std::optional<FileStatus> file_status(const std::string& path);

/// The names in a folder, in byte order, without "." and ".."; nothing when it cannot be read to
/// its end.
[[nodiscard]] std::optional<std::vector<std::string>> folder_names(const std::string& path);

/// Whether both paths lead to one existing file.
[[nodiscard]] bool is_same_file(const std::string& first, const std::string& second);

/// Whether an existing file may be replaced: not read-only for this user.
[[nodiscard]] bool is_replaceable(const std::string& path);

bool remove_file(const std::string& path) noexcept;

/// Where a path that is a link leads, whether or not there is a file; any other path is itself.
[[nodiscard]] std::string final_path(const std::string& path);

/// From the root or the drive on, the components "." and ".." possibly left.
[[nodiscard]] std::string absolute_path(const std::string& path);

/// Removes a file unless some process has it open.
void remove_unheld_file(const std::string& path);

/// Removes the temporary files in the folder of `target` that no process works on any more.
void remove_abandoned_files_beside(const std::string& target);

/// Equal for two names that the system takes for one file: in capitals on Windows, the name itself
/// elsewhere.
[[nodiscard]] std::string name_key(const std::string& name);

/// Owner of an open file. Its functions do not throw.
class OpenFile {
 public:
    /// The system's handle or descriptor; -1, which both return on failure, for none.
    explicit OpenFile(std::intptr_t handle = -1) noexcept : handle_(handle) {}
    OpenFile(OpenFile&& other) noexcept : handle_(std::exchange(other.handle_, -1)) {}
    OpenFile& operator=(OpenFile&& other) noexcept {
        std::swap(handle_, other.handle_);
        return *this;
    }
    ~OpenFile();

    explicit operator bool() const noexcept { return handle_ != -1; }
    [[nodiscard]] std::intptr_t handle() const noexcept { return handle_; }

    [[nodiscard]] std::optional<std::uint64_t> size() const noexcept;
    /// How many bytes one call of the system has read, 0 at the end; nothing when it fails.
    [[nodiscard]] std::optional<std::size_t> read_some(std::uint64_t offset,
                                                       std::span<std::uint8_t> room) const noexcept;
    /// How many bytes one call of the system has written; 0 when it fails.
    [[nodiscard]] std::size_t write_some(std::uint64_t offset, ByteView bytes) const noexcept;
    [[nodiscard]] bool set_size(std::uint64_t size) const noexcept;
    /// Waits until what was written is on the disk.
    [[nodiscard]] bool flush() const noexcept;

 private:
    std::intptr_t handle_;
};

/// Others may go on reading, writing and renaming the file.
[[nodiscard]] OpenFile open_for_reading(const std::string& path);

/// An open file to pack, or an existing archive.
class InputFile {
 public:
    /// Throws ZipError cannot_open_file.
    explicit InputFile(const std::string& path);

    /// Throws ZipError read_failed.
    [[nodiscard]] std::uint64_t size() const;
    /// Fills `room` from `offset` unless the file ends before; the count of bytes read.
    /// Throws ZipError read_failed.
    std::size_t read_at(std::uint64_t offset, std::span<std::uint8_t> room) const;

 private:
    OpenFile file_;
    std::string path_;
};

/// A file that is written beside its target under a name of its own and takes the target's place
/// only in replace_target(); removed at the end of its life otherwise. What a killed process has
/// left is removed when the next one is created in the folder; one in use is locked against that.
///
/// An archive gets its target's permissions, owner and attributes, as far as the system lets this
/// user set them. Until then nobody has more rights to it than to the target. A file that is taken
/// out gets the entry's.
class NewFile {
 public:
    /// An archive. Throws ZipError cannot_create.
    explicit NewFile(const std::string& target);
    /// One of many files that are taken out: with these permissions, less what the user's mask
    /// takes away (on Windows, read-only without the owner's to write), whatever its target has. It
    /// is not flushed to the disk, and abandoned files are the caller's to remove. Throws ZipError
    /// cannot_create.
    NewFile(const std::string& target, std::uint16_t permissions);
    NewFile(const NewFile&) = delete;
    NewFile& operator=(const NewFile&) = delete;
    ~NewFile();

    /// Throws ZipError write_failed.
    void write_at(std::uint64_t offset, ByteView bytes);
    void set_size(std::uint64_t size);
    /// When it was last modified, once it has its place; as far as the system takes the moment.
    void set_modified(Moment modified) noexcept { modified_ = modified; }
    /// Puts the file in the target's place in one step; an archive is on the disk before.
    /// Throws ZipError write_failed or cannot_create; the target is then as it was.
    void replace_target();

 private:
    void create_beside_target();

    // Implemented for each system.
    /// Creates path_; false when there is such a file. On any other failure file_ stays empty.
    [[nodiscard]] bool create();
    void set_status() noexcept;
    [[nodiscard]] bool rename_to_target();

    std::string target_;
    std::optional<std::uint16_t> permissions_;  // nothing: those of the target
    std::optional<Moment> modified_;
    std::string path_;
    OpenFile file_;
};

}  // namespace kovrel::zip
