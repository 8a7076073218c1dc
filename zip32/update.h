// The engine's one operation: files packed into a new archive, or into an existing one whose other
// entries stay as they are.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "return_codes.h"

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
    bool drop_folder_names = true;  // entries get the last component of the path alone
    bool recurse = false;           // a folder among the names brings what it holds
    bool include_hidden = false;    // hidden and system files found by recursion too
    bool folder_entries = false;    // folders get entries (never with dropped names)
    bool move = false;              // files are deleted once the archive is complete
    bool drop_prefix = false;       // bytes before the first entry are left out
    std::string root;               // the folder that relative names start from
};

/// Who listens. Both are called on the thread of update_archive(); either may be empty.
struct UpdateEvents {
    /// One line for each warning, error and (not `quiet`) entry; English, UTF-8.
    std::function<void(std::string_view line)> message;
    /// After each entry: its name (UTF-8) and its file's size. True stops everything.
    std::function<bool(std::string_view name, std::uint64_t size)> entry_done;
    bool quiet = true;
};

/// Packs the files of those names (UTF-8 paths) into the archive at `archive_path`; the name is
/// taken as it is, without adding an extension.
///
/// - The archive is written beside its target and takes its place only when complete. Whatever the
///   answer, the target is either the old archive, untouched, or the new one. Only a process that
///   is killed leaves its working file (zi and eight digits, .tmp) beside it, until the next update
///   in that folder.
/// - A new archive keeps what it replaces was but for the content: permissions, owner, attributes.
///   Where the path is a link, the archive that it leads to is replaced, not the link.
/// - An archive whose comment holds the end record of another one is refused: programs do not agree
///   about which of them it is.
/// - Its bytes depend on the files, the old archive, the options and the system's time zone, never
///   on the number of threads.
/// - A file replaces the entry of exactly its name, failing that the first whose name is the same
///   file's to the system (on Windows, whatever the capitals). Of several entries of the name that
///   is replaced one remains; entries that differ from it in capitals stay.
/// - A name that leads to no file is a warning; no file at all is nothing_to_do. A file that
///   cannot be opened is left out (the entries of its name stay) and the answer, with the archive
///   complete, is cannot_open_file.
/// - Two files of the same entry name are bad_parameters before anything is written; one file named
///   twice is packed once. The archive itself is never packed into itself.
/// - An existing file of no bytes is written over as if there were none.
///
/// Every ZipCode that is not said there to be never answered can be; nothing is thrown.
[[nodiscard]] ZipCode update_archive(const std::string& archive_path,
                                     const std::vector<std::string>& names,
                                     const UpdateOptions& options, const UpdateEvents& events);

}  // namespace kovrel::zip
