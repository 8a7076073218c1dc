// What became of one entry that was to be packed, tested or taken out.
#pragma once

#include <cstdint>

namespace kovrel::zip {

/// The numbers are published: they never change.
enum class EntryState : std::int32_t {
    done = 0,             // packed, found whole, or taken out
    left_out = 1,         // not asked for: by patterns, by the mode, or the archive itself
    kept_existing = 2,    // a file of its name was there and stays
    not_newer = 3,        // the file of its name is not older, and stays
    declined = 4,         // the caller chose to keep the file of its name
    bad_name = 5,         // its name leads out of the folder, or cannot be a file's
    reserved_name = 6,    // its name is that of a device
    through_link = 7,     // a folder on its way is a link
    link = 8,             // a symbolic link: those are never made
    encrypted = 9,        // its data is encrypted
    unknown_method = 10,  // its data is neither stored nor deflated
    contradicting = 11,   // its own header and the central directory disagree
    damaged = 12,  // its data cannot be unpacked, or has another size than the directory says
    wrong_checksum = 13,  // its data is not what was packed
    name_twice = 14,      // an entry before it leads to the same file
    cannot_create = 15,   // its file or folder cannot be created or replaced
    write_failed = 16,    // its file could not be written, for instance on a full disk
    read_failed = 17,     // the archive, or the file to pack, could not be read
    cannot_open = 18,     // the file to pack could not be opened
    over_limit = 19,      // it unpacks to more than the limits allow
};

/// Whether nothing went wrong: the entry was dealt with as the caller asked.
[[nodiscard]] constexpr bool is_as_asked(EntryState state) noexcept {
    return state <= EntryState::declined;
}

}  // namespace kovrel::zip
