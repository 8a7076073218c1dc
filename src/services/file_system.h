// Files and folders as the members work with them: directory listings, new folders, whole-file
// reads and writes. Paths may be longer than 260 characters and hold any character. What goes wrong
// is a Failure: 53 no such file, 76 no such path, 75 access denied or already there, 70 in use,
// 61 disk full, 68 no such drive, 71 drive not ready, 52 a name that cannot be one, 57 anything
// else.
#pragma once

#include <windows.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "runtime/owned.h"

namespace kovrel {

/// Which entries a directory listing has. Hidden and system entries are never listed.
enum class Listing { files, files_and_folders };

/// The name of the first entry that a path names or matches with wildcards (`*`, `?`); empty when
/// there is none. A path that ends in a separator stands for everything in its folder, including
/// the folder itself (".") even at the root of an empty drive; an empty path for everything in the
/// current folder.
[[nodiscard]] std::wstring first_listed(const std::wstring& path, Listing listing);

/// Creates one folder; its parent must be there.
void create_folder(const std::wstring& path);

void delete_file(const std::wstring& path);

/// An open file.
class BinaryFile {
 public:
    /// An existing file, for reading; others may go on reading and writing it.
    [[nodiscard]] static BinaryFile open(const std::wstring& path);
    /// A file for writing, empty whether or not it was there before.
    [[nodiscard]] static BinaryFile create(const std::wstring& path);

    [[nodiscard]] std::uint64_t size() const;
    /// The number of bytes read: fewer than asked for at the end of the file only.
    std::size_t read(void* bytes, std::size_t count);
    void write(const void* bytes, std::size_t count);
    void close() noexcept { handle_.reset(); }

 private:
    explicit BinaryFile(HANDLE handle) noexcept : handle_(handle) {}
    Owned<HANDLE, &CloseHandle> handle_;
};

}  // namespace kovrel
