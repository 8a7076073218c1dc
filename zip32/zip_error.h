// The engine's return codes and the exception by which a step of the engine gives up. Codes below
// 100 are those that the zip library's interface publishes; the others are the engine's own, of
// what that interface does not do, and ZpArchive never returns them.
#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>

namespace kovrel::zip {

enum class ZipCode : std::int32_t {
    ok = 0,                 // ZE_OK: the archive is complete
    unexpected_end = 2,     // ZE_EOF: the existing archive ends before its contents do
    bad_archive = 3,        // ZE_FORM: the existing archive's structure is not valid
    out_of_memory = 4,      // ZE_MEM: not enough memory
    internal_error = 5,     // ZE_LOGIC: a fault of the engine's own, or of a callback
    entry_too_large = 6,    // ZE_BIG: a file outgrew, while it was read, what its entry can hold
    bad_comment = 7,        // ZE_NOTE: never returned: too long a comment is 16
    test_failed = 8,        // ZE_TEST: never returned: incomplete says it
    aborted = 9,            // ZE_ABORT: the service callback asked to stop
    temporary_file = 10,    // ZE_TEMP: never returned: 14 or 15 say more
    read_failed = 11,       // ZE_READ: an open file could not be read to its end
    nothing_to_do = 12,     // ZE_NONE: no file to pack (none found, or none newer)
    missing_archive = 13,   // ZE_NAME: the archive to read is not there; a new one is created
    write_failed = 14,      // ZE_WRITE: writing failed, for instance on a full disk
    cannot_create = 15,     // ZE_CREAT: the archive cannot be created or replaced
    bad_parameters = 16,    // ZE_PARMS: wrong parameters, or two files of the same name
    cannot_open_file = 18,  // ZE_OPEN: a file, or the existing archive, could not be opened
    over_limit = 100,       // the archive unpacks to more than the limits allow; nothing is written
    incomplete = 101,       // some entries are not right or could not be taken out
};

/// The return code, and an English text for the print callback.
class ZipError final : public std::runtime_error {
 public:
    ZipError(ZipCode code, const std::string& text) : std::runtime_error(text), code_(code) {}

    [[nodiscard]] ZipCode code() const noexcept { return code_; }

 private:
    ZipCode code_;
};

}  // namespace kovrel::zip
