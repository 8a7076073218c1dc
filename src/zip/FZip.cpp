#include "zip/FZip.h"

#include <windows.h>

#include <atomic>
#include <cstddef>
#include <vector>

#include "files/path_text.h"
#include "runtime/failure.h"
#include "services/clock.h"
#include "services/file_system.h"
#include "services/guarded.h"
#include "services/message_box.h"
#include "services/text_encoding.h"
#include "zip/zip_library.h"
#include "zip/zip_notices.h"

namespace kovrel::FZip {
namespace {

/// The DLL's messages are not shown.
int __stdcall on_message(char* /*text*/, unsigned long /*length*/) {
    return 0;
}

/// Nothing is encrypted.
int __stdcall on_password(char* /*room*/, int /*size*/, const char* /*prompt*/,
                          const char* /*name*/) {
    return 0;
}

/// Used for comments (none is written) and for the progress of each entry (continue).
int __stdcall on_comment(const char* /*text*/, unsigned long /*length*/) {
    return 0;
}

ZpCallbacks callbacks() {
    ZpCallbacks result{};
    result.print = &on_message;
    result.password = &on_password;
    // The published prototype differs in its parameters; without comments it is never called.
    result.comment = reinterpret_cast<ZpComment>(reinterpret_cast<void (*)()>(&on_comment));
    result.service = &on_comment;
    return result;
}

ZpOptions options() {
    ZpOptions result{};
    result.no_folder_entries = 1;
    result.verbose = 1;
    result.quiet = 1;
    result.junk_folders = 1;
    result.date = "";
    return result;
}

SRWLOCK library_lock = SRWLOCK_INIT;
std::atomic<DWORD> library_user{0};

/// The zip library has process-wide state, so calls from several apartments are serialised. A
/// nested call on the same thread would deadlock and fails with 70 instead.
class LibraryTurn {
 public:
    LibraryTurn() {
        if (library_user == GetCurrentThreadId()) throw Failure(FailureNumber::permission_denied);
        AcquireSRWLockExclusive(&library_lock);
        library_user = GetCurrentThreadId();
    }
    LibraryTurn(const LibraryTurn&) = delete;
    LibraryTurn& operator=(const LibraryTurn&) = delete;
    ~LibraryTurn() {
        library_user = 0;
        ReleaseSRWLockExclusive(&library_lock);
    }
};

/// The DLL's return codes are ignored: the caller checks whether the archive exists.
void pack(const std::wstring& archive, std::span<const std::wstring> names, std::size_t count) {
    const std::string path = to_ansi(archive);
    std::vector<std::string> texts(names.size());
    std::vector<const char*> list(names.size());
    for (std::size_t index = 0; index < list.size(); ++index) {
        texts[index] = to_ansi(names[index]);
        list[index] = texts[index].c_str();
    }
    // The DLL keeps pointers to these: it must be unloaded before they are destroyed.
    const ZpCallbacks record = callbacks();
    const ZpOptions choices = options();
    const ZipLibrary library;
    const LibraryTurn turn;
    library.init(&record);
    library.set_options(&choices);
    library.archive(static_cast<int>(count), path.c_str(), list.data());
}

std::wstring path_in(const std::wstring& folder, const std::wstring& file_name) {
    return add_backslash(folder) + file_name;
}

bool file_exists(const std::wstring& path) {
    return !first_listed(path, Listing::files).empty();
}

}  // namespace

std::wstring GenerarZipA(const std::wstring& file_name, const std::wstring& folder,
                         std::span<const std::wstring> names, const std::wstring& title) {
    return guarded<std::wstring>(
        {L") en procedimiento GenerarZipA del Módulo fZip."}, [&](std::wstring& result) {
            if (file_name.empty()) {
                show(archive_needs_a_name());
                return;
            }
            if (!folder.empty() && first_listed(folder, Listing::files_and_folders).empty()) {
                show(output_folder_missing(title, folder));
                return;
            }
            const std::wstring path = path_in(folder, file_name);
            if (file_exists(path)) show(archive_will_be_replaced(title));
            const std::size_t count = count_file_names(names);
            if (count == 0) {
                show(no_files_to_archive(title));
                return;
            }
            pack(path, names, count);
            wait_with_hourglass(0.5F);
            if (file_exists(path)) result = path;
        });
}

}  // namespace kovrel::FZip
