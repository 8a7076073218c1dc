// What became of one entry that was to be packed, tested or taken out.
#pragma once

namespace kovrel::zip {

enum class EntryState {
    done,            // packed, found whole, or taken out
    left_out,        // not among the entries that the patterns ask for
    kept_existing,   // a file of its name was there and stays
    not_newer,       // the file of its name is not older, and stays
    declined,        // the caller chose to keep the file of its name
    bad_name,        // its name leads out of the folder, or cannot be a file's
    reserved_name,   // its name is that of a device
    through_link,    // a folder on its way is a link
    link,            // a symbolic link: those are never made
    encrypted,       // its data is encrypted
    unknown_method,  // its data is neither stored nor deflated
    contradicting,   // its own header and the central directory disagree
    damaged,         // its data cannot be unpacked, or has another size than the directory says
    wrong_checksum,  // its data is not what was packed
    over_limit,      // it unpacks to more than the limits allow
    name_twice,      // an entry before it leads to the same file
    cannot_create,   // its file or folder cannot be created or replaced
    write_failed,    // its file could not be written, for instance on a full disk
    read_failed,     // the archive, or the file to pack, could not be read
    cannot_open,     // the file to pack could not be opened
};

/// Whether nothing went wrong: the entry was dealt with as the caller asked.
[[nodiscard]] constexpr bool is_as_asked(EntryState state) noexcept {
    return state <= EntryState::declined;
}

}  // namespace kovrel::zip
