// The interface of zip32.dll: three entry points as the published zip library has them, so that
// callers written for either DLL can use it.
//
// Order of calls: ZpInit, ZpSetOptions, ZpArchive; what the first two are given holds until they
// are called again. One thread at a time; callbacks come on the thread of ZpArchive.
#pragma once

#include <cstddef>
#include <cstdint>

extern "C" {

/// Takes a line of text (warnings and errors; each entry too unless quiet) in the ANSI code page.
/// `text` is a buffer of 4,097 bytes, filled with zeros after the line, which ends in a line feed;
/// `length` is the line's. The result is ignored.
using ZpPrint = int(__stdcall*)(char* text, unsigned long length);
/// Never called: nothing is encrypted.
using ZpPassword = int(__stdcall*)(char* room, int size, const char* prompt, const char* name);
/// Never called: no comments are written. (Callers also disagree on how many parameters it has.)
using ZpComment = int(__stdcall*)(char* text);
/// After each entry: its name in the ANSI code page and its file's size, modulo 2^32. Any result
/// but 0 stops the update with return code 9.
using ZpService = int(__stdcall*)(const char* name, unsigned long size);

/// The callbacks; any of them may be null.
struct ZpCallbacks {
    ZpPrint print;
    ZpPassword password;
    ZpComment comment;
    ZpService service;
};

/// The option record: 120 bytes in 32 bits. Positions count from 1. "Ignored": the value makes no
/// difference. "Refused": ZpArchive returns 16 (bad parameters), since the archive would not be the
/// one asked for.
struct ZpOptions {
    std::int32_t suffixes;           // 1: ignored (by the published library too)
    std::int32_t encrypt;            // 2: refused
    std::int32_t system_files;       // 3: hidden and system files too, where folders are searched
    std::int32_t volume_label;       // 4: ignored
    std::int32_t extra_attributes;   // 5: ignored: entries get no extra attributes
    std::int32_t no_folder_entries;  // 6: folders get no entries of their own
    std::int32_t exclude_by_date;    // 7: refused
    std::int32_t include_by_date;    // 8: refused
    std::int32_t verbose;            // 9: ignored: there is one level of detail
    std::int32_t quiet;              // 10: no line for each entry
    std::int32_t crlf_to_lf;         // 11: refused
    std::int32_t lf_to_crlf;         // 12: refused
    std::int32_t junk_folders;       // 13: entries get the file's name without its folders
    std::int32_t recurse;            // 14: 1: folders with their contents; 2 (patterns): refused
    std::int32_t grow;               // 15: ignored: existing archives are always added to
    std::int32_t dos_names;          // 16: refused
    std::int32_t move;               // 17: files are deleted once the archive is complete
    std::int32_t delete_entries;     // 18: refused
    std::int32_t update;             // 19: only files without an entry or newer than theirs
    std::int32_t freshen;            // 20: only files newer than their entry
    std::int32_t junk_prefix;        // 21: the program of a self-extracting archive is left out
    std::int32_t latest_time;        // 22: ignored: the archive's time is that of its creation
    std::int32_t comment;            // 23: ignored: comments of old entries stay
    std::int32_t adjust_offsets;     // 24: ignored: offsets always count the bytes before
    std::int32_t privileges;         // 25: ignored
    std::int32_t encryption;         // 26: ignored (a capability, set by the library)
    std::int32_t repair;             // 27: refused
    std::uint8_t level;              // '0' (store) to '9'; 0 means the default, '6'; others refused
    const char* date;                // for positions 7 and 8: ignored
    const char* root_folder;         // ANSI; where relative names start; may be null or empty
};

#if defined(_WIN32) && !defined(_WIN64)
static_assert(sizeof(ZpOptions) == 120 && offsetof(ZpOptions, level) == 108 &&
              offsetof(ZpOptions, date) == 112 && offsetof(ZpOptions, root_folder) == 116);
#endif

/// 1, or 0 when `callbacks` is null.
int __stdcall ZpInit(const ZpCallbacks* callbacks);

/// 1, or 0 when `options` is null. Texts are copied. Before the first call every option is 0.
int __stdcall ZpSetOptions(const ZpOptions* options);

/// Packs `count` files into `archive`. `names` points to at least `count` pointers to names; all
/// texts are in the ANSI code page. Names are taken as they are: no wildcards, no extension added.
/// Returns one of the codes of zip_error.h.
int __stdcall ZpArchive(int count, const char* archive, const char* const* names);

}  // extern "C"
