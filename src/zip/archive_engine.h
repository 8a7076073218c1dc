// The archive engine in zip32.dll: archives packed, listed, tested and taken out, with what became
// of each entry.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "zip32/entry_state.h"

namespace kovrel {

/// An entry of an archive, or a file that was to become one.
struct ArchiveEntry {
    std::wstring name;  ///< with "/" between folders
    std::wstring path;  ///< of its file or folder on the disk; empty where there is none
    std::wstring comment;
    std::uint64_t size = 0;  ///< bytes
    std::uint64_t packed_size = 0;
    double modified = 0;  ///< local: days since 30 December 1899
    std::uint32_t crc = 0;
    std::uint16_t method = 0;
    bool is_folder = false;
    bool is_encrypted = false;
    zip::EntryState state = zip::EntryState::done;
};

struct ArchiveReport {
    std::vector<ArchiveEntry> entries;
    std::wstring comment;      ///< the archive's own
    bool was_stopped = false;  ///< by the events
};

struct ArchiveEvents {
    /// True stops. `name` is that of the entry at work; the counts are bytes.
    std::function<bool(std::wstring_view name, std::uint64_t done, std::uint64_t total)> progress;
    /// Whether the existing file is replaced.
    std::function<bool(std::wstring_view path)> replace;
};

enum class PackMode : std::int32_t {
    afresh = 0,   ///< a new archive, which replaces an old one
    add = 1,      ///< all files, beside the old entries of other names
    update = 2,   ///< files without an entry, or newer than theirs
    refresh = 3,  ///< only files newer than their entry
};

struct PackRequest {
    std::vector<std::wstring> names;  ///< files, folders and patterns
    std::vector<std::wstring> exclusions;
    std::wstring base;  ///< the folder that names in the archive begin below; empty: each one's own
    std::wstring comment;  ///< empty: the old archive's stays
    std::int32_t level = 6;
    PackMode mode = PackMode::afresh;
    bool drop_folder_names = false;
    bool recurse = true;
    bool include_hidden = true;
};

enum class ExistingFiles : std::int32_t { keep = 0, replace = 1, replace_older = 2, ask = 3 };

struct TakeRequest {
    std::vector<std::wstring> patterns;  ///< none: everything
    std::vector<std::wstring> exclusions;
    std::wstring folder;
    std::uint64_t most_bytes = 0;
    std::uint32_t most_ratio = 0;
    ExistingFiles existing = ExistingFiles::keep;
    bool drop_folder_names = false;
};

/// All of these: failure 53 for an archive that is not there, 321 for one that is not valid, 57 for
/// one that cannot be read, 75 for one that cannot be opened, 7; 48, 53 and 453 for zip32.dll. What
/// the events throw.
///
/// Packs into an archive, which is the old one until the new one is whole. Failure 53 when there is
/// no file to pack, 5 for a name outside the base or two files of one name, 75 for an archive that
/// cannot be written, 61 for a full disk.
[[nodiscard]] ArchiveReport pack_archive(const std::wstring& archive, const PackRequest& request,
                                         const ArchiveEvents& events);
[[nodiscard]] ArchiveReport list_archive(const std::wstring& archive);
/// Of the request its patterns and exclusions count.
[[nodiscard]] ArchiveReport test_archive(const std::wstring& archive, const TakeRequest& request,
                                         const ArchiveEvents& events);
/// Failure 6 for an archive past the limits, 61 for a full disk, 75 for a folder that cannot be
/// made.
[[nodiscard]] ArchiveReport take_archive(const std::wstring& archive, const TakeRequest& request,
                                         const ArchiveEvents& events);

}  // namespace kovrel
