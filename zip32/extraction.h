// Entries taken out of an archive into a folder, or only tested.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "entry_state.h"
#include "listing.h"
#include "zip_error.h"

namespace kovrel::zip {

/// What happens to an existing file of an entry's name.
enum class Existing {
    keep,
    replace,
    replace_older,  // only one that was last modified before the entry
    ask,            // as ExtractEvents::replace says; without that function it is kept
};

struct ExtractOptions {
    std::string folder;                   // made when missing
    std::vector<std::string> patterns;    // what is taken out (see NamePatterns); none: everything
    std::vector<std::string> exclusions;  // what is not, even so
    Existing existing = Existing::keep;
    bool drop_folder_names = false;                     // all files go into the folder itself
    std::uint64_t most_bytes = std::uint64_t{4} << 30;  // unpacked, in all
    std::uint32_t most_ratio = 250;  // unpacked to packed bytes, of entries larger than 1 MiB
    unsigned threads = 0;            // 0: one for each of the machine's cores
};

/// Called on the thread of the operation; each may be empty.
struct ExtractEvents {
    /// After each entry, and ten times a second within a long one: the entry, and the bytes dealt
    /// with of all that are unpacked. True stops.
    std::function<bool(std::string_view name, std::uint64_t done, std::uint64_t total)> progress;
    /// For Existing::ask: whether the file at `path` is replaced.
    std::function<bool(const Entry&, const std::string& path)> replace;
    /// Of every entry, in the archive's order; `path` is that of its file or folder, empty where
    /// the name leads to none. True stops.
    std::function<bool(const Entry&, EntryState, const std::string& path)> entry_done;
};

/// Takes entries out of an archive.
///
/// - The limits hold for what the archive says of the entries asked for, before anything is written
///   (over_limit); no entry gives more bytes than the archive says of it.
/// - Each file is written beside its target under a name of its own (zi and eight hexadecimal
///   digits, .tmp), and gets the target's name when it is whole and its checksum right. A killed
///   process leaves at most such temporary files, until something is next taken out into the same
///   folder.
/// - No path leads out of the folder, nor through a link below it; a link of a file's name is
///   replaced, not followed. Links in the archive are left out. (Nobody else is expected to put
///   links into the folder meanwhile.)
/// - Files and the folders that are made get the entries' times, the permissions for the owner, the
///   group and others as far as the user's mask allows, and on Windows the attribute read-only.
/// - What goes wrong with an entry is its state, and the others are taken out; the return code is
///   then incomplete. Only a file that cannot be written to its end stops the whole (write_failed).
/// - Patterns that match no entry are nothing_to_do; an event that stops, aborted.
/// - It takes 16 MB at most, and memory in proportion to the central directory.
///
/// `why` is an English text for any code but ok and incomplete. Throws nothing.
[[nodiscard]] ZipCode extract_archive(const std::string& archive, const ExtractOptions& options,
                                      const ExtractEvents& events, std::string& why);

/// Unpacks the entries, as ExtractOptions' patterns and exclusions choose them, and compares them
/// with their checksums. No limits, since nothing is kept; the codes are those of taking out.
[[nodiscard]] ZipCode test_archive(const std::string& archive,
                                   const std::vector<std::string>& patterns,
                                   const std::vector<std::string>& exclusions,
                                   const ExtractEvents& events, std::string& why);

}  // namespace kovrel::zip
