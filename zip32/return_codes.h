// What the archive engine answers: the return codes that the zip library's interface publishes,
// by number. Callers of zip32.dll get them as the plain integers.
#pragma once

#include <cstdint>

namespace kovrel::zip {

enum class ZipCode : std::int32_t {
    ok = 0,               // ZE_OK: the archive is complete
    unexpected_end = 2,   // ZE_EOF: the existing archive ends before its contents do
    bad_archive = 3,      // ZE_FORM: the existing archive's structure is not valid
    out_of_memory = 4,    // ZE_MEM: not enough memory
    internal_error = 5,   // ZE_LOGIC: a fault of the engine's own, or of a callback
    entry_too_large = 6,  // ZE_BIG: a file outgrew, while it was read, what its entry can hold
    bad_comment = 7,      // ZE_NOTE: not valid comment (never answered: no comment is taken)
    test_failed = 8,      // ZE_TEST: the archive's own test failed (never answered: no such test)
    aborted = 9,          // ZE_ABORT: the service callback asked to stop
    temporary_file =
        10,  // ZE_TEMP: the file under work failed (never answered: 14 or 15 says which way)
    read_failed = 11,       // ZE_READ: an open file could not be read to its end
    nothing_to_do = 12,     // ZE_NONE: no file to pack (none found, or none newer)
    missing_archive = 13,   // ZE_NAME: no archive where one is needed (never answered: it is made)
    write_failed = 14,      // ZE_WRITE: writing failed, for instance on a full disk
    cannot_create = 15,     // ZE_CREAT: the archive cannot be created or replaced
    bad_parameters = 16,    // ZE_PARMS: wrong parameters, and two files of the same name
    cannot_open_file = 18,  // ZE_OPEN: some file, or the existing archive, could not be opened
};

}  // namespace kovrel::zip
