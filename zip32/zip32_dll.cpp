// zip32.dll's entry points: from plain parameters and records to the engine's own types.
#include <windows.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <optional>
#include <string>
#include <vector>

#include "services/text_encoding.h"
#include "stay_loaded.h"
#include "update.h"
#include "zip32.h"

namespace kovrel::zip {
namespace {

constexpr std::size_t print_buffer_size = 4097;
constexpr std::size_t longest_root = 1024;

// What ZpInit and ZpSetOptions were given last. Plain data, so that loading the DLL runs no code.
struct Settings {
    ZpCallbacks callbacks;
    ZpOptions options;
    std::array<char, longest_root> root;
};
Settings settings;

bool is_refused(const ZpOptions& o) {
    const bool is_level = o.level == 0 || (o.level >= '0' && o.level <= '9');
    return !is_level || o.encrypt != 0 || o.exclude_by_date != 0 || o.include_by_date != 0 ||
           o.crlf_to_lf != 0 || o.lf_to_crlf != 0 || o.recurse > 1 || o.dos_names != 0 ||
           o.delete_entries != 0 || o.repair != 0;
}

std::optional<UpdateOptions> engine_options(const ZpOptions& given) {
    if (is_refused(given)) return std::nullopt;
    UpdateOptions options;
    if (given.level != 0) options.level = given.level - '0';
    options.selection = given.freshen != 0  ? Selection::newer
                        : given.update != 0 ? Selection::newer_or_new
                                            : Selection::all;
    options.drop_folder_names = given.junk_folders != 0;
    options.recurse = given.recurse != 0;
    options.include_hidden = given.system_files != 0;
    options.folder_entries = given.no_folder_entries == 0;
    options.move = given.move != 0;
    options.drop_prefix = given.junk_prefix != 0;
    options.root = to_utf8(from_ansi(settings.root.data()));
    return options;
}

void print(std::string_view line) {
    const ZpPrint callback = settings.callbacks.print;
    if (callback == nullptr) return;
    std::array<char, print_buffer_size> buffer{};
    const std::string text = to_ansi(from_utf8(line));
    const std::size_t length = std::min(text.size(), buffer.size() - 2);
    std::memcpy(buffer.data(), text.data(), length);
    buffer[length] = '\n';
    callback(buffer.data(), static_cast<unsigned long>(length + 1));
}

bool entry_done(const CentralEntry& entry) {
    const ZpService callback = settings.callbacks.service;
    return callback != nullptr && callback(to_ansi(from_utf8(entry.name)).c_str(),
                                           static_cast<unsigned long>(entry.size)) != 0;
}

ZipCode archive_files(int count, const char* archive, const char* const* names) {
    if (archive == nullptr || count < 0 || (count > 0 && names == nullptr)) {
        return ZipCode::bad_parameters;
    }
    const std::optional<UpdateOptions> options = engine_options(settings.options);
    if (!options) {
        print("error: options that this library does not honour");
        return ZipCode::bad_parameters;
    }
    std::vector<std::string> paths;
    for (int i = 0; i < count; ++i) {
        if (names[i] != nullptr && names[i][0] != '\0') {
            paths.push_back(to_utf8(from_ansi(names[i])));
        }
    }
    UpdateEvents events;
    events.message = print;
    events.entry_done = [](const CentralEntry& entry, const std::string&) {
        return entry_done(entry);
    };
    events.quiet = settings.options.quiet != 0;
    return update_archive(to_utf8(from_ansi(archive)), paths, *options, events);
}

}  // namespace
}  // namespace kovrel::zip

extern "C" int __stdcall ZpInit(const ZpCallbacks* callbacks) {
    if (callbacks == nullptr) return 0;
    kovrel::zip::settings.callbacks = *callbacks;
    return 1;
}

extern "C" int __stdcall ZpSetOptions(const ZpOptions* options) {
    using kovrel::zip::settings;
    if (options == nullptr) return 0;
    settings.options = *options;
    settings.options.date = nullptr;
    settings.options.root_folder = nullptr;
    settings.root.fill('\0');
    if (options->root_folder != nullptr) {
        const std::size_t length = strnlen(options->root_folder, settings.root.size() - 1);
        std::memcpy(settings.root.data(), options->root_folder, length);
    }
    return 1;
}

extern "C" int __stdcall ZpArchive(int count, const char* archive, const char* const* names) {
    kovrel::zip::stay_loaded();
    try {
        return static_cast<int>(kovrel::zip::archive_files(count, archive, names));
    } catch (const std::bad_alloc&) {
        return static_cast<int>(kovrel::zip::ZipCode::out_of_memory);
    } catch (...) {
        return static_cast<int>(kovrel::zip::ZipCode::internal_error);
    }
}
