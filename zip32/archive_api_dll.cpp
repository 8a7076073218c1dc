// The entry points of zip32.dll for kovrel.dll: from plain records to the engine's own types.
#include <windows.h>

#include <algorithm>
#include <new>
#include <string>
#include <vector>

#include "archive_api.h"
#include "extraction.h"
#include "listing.h"
#include "names.h"
#include "stay_loaded.h"
#include "update.h"

namespace kovrel::zip {
namespace {

std::vector<std::string> texts_of(const ApiTexts& texts) {
    return {texts.first, texts.first + texts.count};
}

/// Valid as long as the entry and the path are.
ApiEntry as_api(const Entry& entry, EntryState state, const std::string& path) {
    ApiEntry result{};
    result.name = entry.name.c_str();
    result.path = path.c_str();
    result.comment = entry.comment.c_str();
    result.size = entry.size;
    result.packed_size = entry.packed_size;
    result.modified = entry.modified.value_or(0);
    result.local_date = entry.local_modified.date;
    result.local_time = entry.local_modified.time;
    result.crc = entry.crc;
    result.method = entry.method;
    result.is_folder = entry.folder;
    result.is_encrypted = entry.encrypted;
    result.state = static_cast<std::int32_t>(state);
    return result;
}

/// What the host does meanwhile may change the current folder.
std::vector<std::string> absolute_paths(const ApiTexts& paths) {
    std::vector<std::string> result;
    for (const std::string& path : texts_of(paths)) result.push_back(absolute_path(path));
    return result;
}

/// Nothing that is thrown leaves the DLL.
template <class Body>
int guarded(const char* archive, const Body& body) noexcept {
    stay_loaded();
    try {
        return static_cast<int>(body(absolute_path(archive)));
    } catch (const ZipError& error) {
        return static_cast<int>(error.code());
    } catch (const std::bad_alloc&) {
        return static_cast<int>(ZipCode::out_of_memory);
    } catch (...) {
        return static_cast<int>(ZipCode::internal_error);
    }
}

UpdateOptions options_of(const ApiPack& what) {
    UpdateOptions options;
    options.level = what.level;
    options.selection = what.mode == 2   ? Selection::newer_or_new
                        : what.mode == 3 ? Selection::newer
                                         : Selection::all;
    options.afresh = what.mode == 0;
    options.drop_folder_names = what.drop_folder_names != 0;
    options.recurse = what.recurse != 0;
    options.include_hidden = what.include_hidden != 0;
    options.follow_links = false;
    options.folder_entries = true;
    options.zoned_times = true;
    // Relative to the folder that is current now.
    options.base = *what.base == '\0' ? std::string() : absolute_path(what.base);
    options.exclusions = texts_of(what.exclusions);
    if (what.comment != nullptr) options.comment = what.comment;
    return options;
}

ZipCode pack(const std::string& archive, const ApiPack& what, ApiListener& listener) {
    const UpdateOptions options = options_of(what);
    bool any_packed = false;
    bool any_failed = false;
    bool any_not_wanted = false;
    UpdateEvents events;
    events.progress = [&](std::string_view name, std::uint64_t done, std::uint64_t total) {
        return listener.progress(std::string(name).c_str(), done, total);
    };
    events.entry_done = [&](const CentralEntry& entry, const std::string& path) {
        any_packed = true;
        return listener.entry(as_api(entry_of({.central = entry}), EntryState::done, path));
    };
    events.left_out = [&](const std::string& path, EntryState why) {
        (is_as_asked(why) ? any_not_wanted : any_failed) = true;
        Entry entry;
        entry.name = path;
        std::ranges::replace(entry.name, '/', '\\');
        listener.entry(as_api(entry, why, path));
    };
    const ZipCode code = update_archive(archive, absolute_paths(what.names), options, events);
    // The archive is complete without the files that could not be opened.
    if (code == ZipCode::cannot_open_file && any_packed) return ZipCode::incomplete;
    // It is up to date.
    const bool only_newer = options.selection != Selection::all;
    if (code == ZipCode::nothing_to_do && only_newer && any_not_wanted) return ZipCode::ok;
    return code == ZipCode::ok && any_failed ? ZipCode::incomplete : code;
}

ExtractEvents events_for(ApiListener& listener) {
    ExtractEvents events;
    events.progress = [&](std::string_view name, std::uint64_t done, std::uint64_t total) {
        return listener.progress(std::string(name).c_str(), done, total);
    };
    events.replace = [&](const Entry& entry, const std::string& path) {
        return listener.replace(as_api(entry, EntryState::done, path));
    };
    events.entry_done = [&](const Entry& entry, EntryState state, const std::string& path) {
        return listener.entry(as_api(entry, state, path));
    };
    return events;
}

ZipCode list(const std::string& archive, ApiListener& listener) {
    const ArchiveReader reader(archive);
    listener.comment(archive_comment_utf8(reader.comment()).c_str());
    for (const Entry& entry : list_entries(reader)) {
        if (listener.entry(as_api(entry, EntryState::done, std::string()))) {
            return ZipCode::aborted;
        }
    }
    return ZipCode::ok;
}

ZipCode test(const std::string& archive, const ApiTake& what, ApiListener& listener) {
    std::string why;
    return test_archive(archive, texts_of(what.patterns), texts_of(what.exclusions),
                        events_for(listener), why);
}

ZipCode take(const std::string& archive, const ApiTake& what, ApiListener& listener) {
    ExtractOptions options;
    options.folder = absolute_path(what.folder);
    options.patterns = texts_of(what.patterns);
    options.exclusions = texts_of(what.exclusions);
    options.existing = static_cast<Existing>(what.existing);
    options.drop_folder_names = what.drop_folder_names != 0;
    options.most_bytes = what.most_bytes;
    options.most_ratio = what.most_ratio;
    std::string why;
    return extract_archive(archive, options, events_for(listener), why);
}

/// Reads an archive; packing makes one that is missing.
template <class Body>
int reading(const char* archive, const Body& body) noexcept {
    return guarded(archive, [&](const std::string& path) {
        return file_status(path) ? body(path) : ZipCode::missing_archive;
    });
}

}  // namespace

void stay_loaded() noexcept {
    HMODULE module = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_PIN,
                       reinterpret_cast<LPCWSTR>(&stay_loaded), &module);
}

}  // namespace kovrel::zip

extern "C" int __stdcall KvPack(const char* archive, const kovrel::zip::ApiPack* what,
                                kovrel::zip::ApiListener* listener) {
    using namespace kovrel::zip;
    return guarded(archive, [&](const std::string& path) { return pack(path, *what, *listener); });
}

extern "C" int __stdcall KvList(const char* archive, kovrel::zip::ApiListener* listener) {
    using namespace kovrel::zip;
    return reading(archive, [&](const std::string& path) { return list(path, *listener); });
}

extern "C" int __stdcall KvTest(const char* archive, const kovrel::zip::ApiTake* what,
                                kovrel::zip::ApiListener* listener) {
    using namespace kovrel::zip;
    return reading(archive, [&](const std::string& path) { return test(path, *what, *listener); });
}

extern "C" int __stdcall KvTake(const char* archive, const kovrel::zip::ApiTake* what,
                                kovrel::zip::ApiListener* listener) {
    using namespace kovrel::zip;
    return reading(archive, [&](const std::string& path) { return take(path, *what, *listener); });
}
