// Packing: files put into a new archive, or into an existing one whose other entries stay as they
// are. The container format is our own code, over zlib, rather than a library's, so that one file
// is deflated on several threads into the same bytes as on one, kept entries are copied as they
// stand, and the old archive stays whole until the new one takes its place.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "entry_state.h"
#include "records.h"
#include "zip_error.h"

namespace kovrel::zip {

/// Which of the files go in.
enum class Selection {
    all,           // every one; an entry of the same name is replaced
    newer_or_new,  // those without an entry, and those newer than theirs
    newer,         // only those newer than their entry
};

struct UpdateOptions {
    int level = 6;         // 0 stores; 1 fastest to 9 smallest
    unsigned threads = 0;  // 0: one for each of the machine's cores
    Selection selection = Selection::all;
    bool drop_folder_names = true;  // entries get only the last component of the path
    bool recurse = false;           // folders among the names are packed with their contents
    bool include_hidden = false;    // hidden and system files found by recursion too
    bool follow_links = true;       // links found by recursion too
    bool folder_entries = false;    // folders get entries (never with dropped names)
    bool move = false;              // files are deleted once the archive is complete
    bool drop_prefix = false;       // bytes before the first entry are left out
    bool afresh = false;            // nothing of an existing archive stays
    bool zoned_times = false;       // entries get their time in UTC too
    std::string root;               // the folder that relative names start from
    /// Entries get their path below this folder; an empty one stands for that of each name. Names
    /// may then hold wildcards in their last component, which with `recurse` are looked for in the
    /// folders below too.
    std::optional<std::string> base;
    std::vector<std::string> exclusions;  // see NamePatterns; of entries' names
    std::optional<std::string> comment;   // the archive's own, UTF-8; nothing: the old one stays
};

/// Called on the thread of update_archive(); each function may be empty.
struct UpdateEvents {
    /// One line for each warning, error and, unless `quiet`, entry; English, UTF-8.
    std::function<void(std::string_view line)> message;
    /// While files are packed: the name of the entry, and the bytes of all files that are packed
    /// and to pack. True stops the update.
    std::function<bool(std::string_view name, std::uint64_t done, std::uint64_t total)> progress;
    /// After each entry, which came from the file at `path`. True stops the update.
    std::function<bool(const CentralEntry& entry, const std::string& path)> entry_done;
    /// A name or a file from which no entry came.
    std::function<void(const std::string& path, EntryState why)> left_out;
    bool quiet = true;

    void tell(const std::string& line) const {
        if (message) message(line);
    }
    void warn(const std::string& line, const std::string& path, EntryState why) const {
        tell("warning: " + line + path);
        if (left_out) left_out(path, why);
    }
};

/// Packs the files of those names (UTF-8 paths) into the archive at `archive_path`; the name is
/// taken as it is, without adding an extension.
///
/// - The archive is written to a temporary file beside its target, which it replaces only when
///   complete: with any return code, the target is either the old archive, untouched, or the new
///   one. Only a killed process leaves its temporary file (zi and eight hexadecimal digits, .tmp),
///   until the next update in that folder.
/// - The new archive keeps the old one's permissions, owner and attributes. Where the path is a
///   link, the archive that it leads to is replaced, not the link.
/// - An archive whose comment holds another end record is refused: programs disagree about which
///   of them counts.
/// - Its bytes depend on the files, the old archive, the options and the system's time zone, never
///   on the number of threads.
/// - A file replaces the entry of exactly its name; without one, the first whose name is the same
///   to the system (on Windows, in any capitals). Of several entries of the replaced name one
///   remains; entries that differ from it in capitals stay.
/// - A name of no file is a warning; no file at all is nothing_to_do. A file that cannot be opened
///   is left out (the entries of its name stay), and the complete archive's return code is
///   cannot_open_file.
/// - With a base: a name outside it is bad_parameters, as is a comment longer than 65,535 bytes.
/// - Two files of the same entry name are bad_parameters before anything is written; one file named
///   twice is packed once. The archive is never packed into itself.
/// - An existing file of no bytes is replaced as if there were none.
///
/// Throws nothing.
[[nodiscard]] ZipCode update_archive(const std::string& archive_path,
                                     const std::vector<std::string>& names,
                                     const UpdateOptions& options, const UpdateEvents& events);

}  // namespace kovrel::zip
