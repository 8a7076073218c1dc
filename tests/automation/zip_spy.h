// What a stand-in for zip32.dll is handed, byte by byte: it is written against the layout that the
// DLL publishes, not against this system's own description of it.
#pragma once

#include <cstdint>

namespace kovrel::test {

struct ZipSpyRecord {
    // What the test asks for: the answers of the three entry points, and whether the last one
    // leaves a file under the archive's name.
    int init_answer;
    int options_answer;
    int archive_answer;
    bool makes_archive;
    // Called, where there is one, with the DLL at work on an archive.
    void (*at_work)(void* context);
    void* context;

    // What was seen. The calls in their order: i, o, a.
    char calls[8];
    const void* callbacks[4];
    std::int32_t integers[27];
    std::uint8_t level;
    bool first_text_is_empty;  // there, and of no characters
    bool second_text_is_null;
    int count;
    char archive[512];
    char names[100][512];

    // What the callbacks answered, and whether they left the buffers that they were lent alone.
    int print_answers[3];  // to a line of none, 5 and 4,096 characters
    int password_answer;
    int comment_answer;
    int service_answer;
    bool buffers_are_untouched;
};

/// Exported by the stand-in as zip_spy_record; one for the process.
using GetZipSpyRecord = ZipSpyRecord* (*)();

}  // namespace kovrel::test
