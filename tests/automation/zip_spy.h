// What a replacement for zip32.dll records of its arguments. It is written against the published
// layout of the DLL, independently of the declarations in zip32/.
#pragma once

#include <cstdint>

namespace kovrel::test {

struct ZipSpyRecord {
    // Set by the test: the results of the three entry points, and whether the last one makes a file
    // with the archive's name.
    int init_answer;
    int options_answer;
    int archive_answer;
    bool makes_archive;
    // Called, if set, while the DLL is working on an archive.
    void (*at_work)(void* context);
    void* context;

    // Recorded. The calls in their order: i (init), o (options), a (archive).
    char calls[8];
    const void* callbacks[4];
    std::int32_t integers[27];
    std::uint8_t level;
    bool first_text_is_empty;  // not null, but without characters
    bool second_text_is_null;
    int count;
    char archive[512];
    char names[100][512];

    // The results of the callbacks, and whether they left their buffers unchanged.
    int print_answers[3];  // for lines of 0, 5 and 4,096 characters
    int password_answer;
    int comment_answer;
    int service_answer;
    bool buffers_are_untouched;
};

/// Exported by the stand-in as zip_spy_record; one for the process.
using GetZipSpyRecord = ZipSpyRecord* (*)();

}  // namespace kovrel::test
