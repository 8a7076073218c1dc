// What kovrel.dll asks of zip32.dll beyond the published entry points: archives with names in
// Unicode, what they hold, and what became of each entry. Plain records and virtual
// functions, so that nothing of either DLL's run-time library passes from one to the other. Texts
// are UTF-8 and end in a zero.
#pragma once

#include <cstdint>

namespace kovrel::zip {

/// An entry, as it stands in an archive, and what became of it.
struct ApiEntry {
    const char* name;
    const char* path;  ///< of its file or folder on the disk; empty where there is none
    const char* comment;
    std::uint64_t size;  ///< bytes
    std::uint64_t packed_size;
    /// UTC, 100 ns since the beginning of 1601; 0: known in local time alone.
    std::uint64_t modified;
    std::uint16_t local_date;  ///< as the ZIP format has them
    std::uint16_t local_time;
    std::uint32_t crc;
    std::uint16_t method;
    std::uint8_t is_folder;
    std::uint8_t is_encrypted;
    std::int32_t state;  ///< of EntryState
};

/// What an operation tells, on the thread that called it. Must not throw.
struct ApiListener {
    /// The bytes dealt with of all; true stops the operation.
    virtual bool __stdcall progress(const char* name, std::uint64_t done,
                                    std::uint64_t total) noexcept = 0;
    /// Of each entry; true stops the operation.
    virtual bool __stdcall entry(const ApiEntry& entry) noexcept = 0;
    /// Whether the existing file at the entry's path is replaced.
    virtual bool __stdcall replace(const ApiEntry& entry) noexcept = 0;
    /// The archive's own comment.
    virtual void __stdcall comment(const char* text) noexcept = 0;

 protected:
    ~ApiListener() = default;
};

struct ApiTexts {
    const char* const* first;
    std::uint32_t count;
};

/// See UpdateOptions.
struct ApiPack {
    ApiTexts names;
    ApiTexts exclusions;
    const char* base;
    const char* comment;  ///< null: the old archive's stays
    std::int32_t level;
    std::int32_t mode;  ///< 0: a new archive; into an old one: 1 all files, 2 newer or new, 3 newer
    std::uint8_t drop_folder_names;
    std::uint8_t recurse;
    std::uint8_t include_hidden;
};

/// See ExtractOptions.
struct ApiTake {
    ApiTexts patterns;
    ApiTexts exclusions;
    const char* folder;
    std::uint64_t most_bytes;
    std::uint32_t most_ratio;
    std::int32_t existing;  ///< of Existing
    std::uint8_t drop_folder_names;
};

}  // namespace kovrel::zip

extern "C" {

// Each returns a ZipCode.
int __stdcall KvPack(const char* archive, const kovrel::zip::ApiPack* what,
                     kovrel::zip::ApiListener* listener);
int __stdcall KvList(const char* archive, kovrel::zip::ApiListener* listener);
/// Of `what` the patterns and exclusions count.
int __stdcall KvTest(const char* archive, const kovrel::zip::ApiTake* what,
                     kovrel::zip::ApiListener* listener);
int __stdcall KvTake(const char* archive, const kovrel::zip::ApiTake* what,
                     kovrel::zip::ApiListener* listener);

}  // extern "C"
