#include "files/Prof.h"

#include <windows.h>
#include <shlobj.h>

#include <algorithm>
#include <array>
#include <memory>
#include <new>
#include <string>
#include <utility>

#include "automation/floating_point.h"
#include "automation/per_thread.h"
#include "runtime/failure.h"
#include "services/text_encoding.h"
#include "ui/modal_scope.h"

namespace kovrel::Prof {
namespace {

using PathBuffer = std::array<char, MAX_PATH>;

PathBuffer blank_buffer() {
    PathBuffer buffer{};
    buffer.fill(' ');
    return buffer;
}

struct ReleaseItem {
    void operator()(ITEMIDLIST* item) const noexcept { CoTaskMemFree(item); }
};

/// Where the browser opens, in the system code page: set by each browse for its callback, which is
/// passed nothing.
constinit PerThread<std::string> initial_folders;

struct InitialFolder {
    explicit InitialFolder(std::string folder) { initial_folders.set(std::move(folder)); }
    InitialFolder(const InitialFolder&) = delete;
    InitialFolder& operator=(const InitialFolder&) = delete;
    ~InitialFolder() { initial_folders.clear(); }
};

int CALLBACK on_browser_message(HWND browser, UINT message, LPARAM parameter,
                                LPARAM /*data*/) noexcept {
    if (message == BFFM_INITIALIZED) {
        try {
            const std::string folder = initial_folders.get();
            SendMessageA(browser, BFFM_SETSELECTIONA, TRUE,
                         reinterpret_cast<LPARAM>(folder.c_str()));
        } catch (const std::bad_alloc&) {
            // The browser opens where it likes.
            return 0;
        }
    } else if (message == BFFM_SELCHANGED) {
        PathBuffer path = blank_buffer();
        if (SHGetPathFromIDListA(reinterpret_cast<const ITEMIDLIST*>(parameter), path.data())) {
            SendMessageA(browser, BFFM_SETSTATUSTEXTA, 0, reinterpret_cast<LPARAM>(path.data()));
        }
    }
    return 0;
}

/// Modal to the whole thread, whatever owner the host has given it.
ITEMIDLIST* run_dialog(BROWSEINFOA& record) {
    const ModalScope scope(ModalScope::NextDialog{record.hwndOwner});
    const HostFloatingPoint host;
    return SHBrowseForFolderA(&record);
}

/// The system writes letters that resemble them for those that the code page lacks, which would be
/// another folder's path.
void put_question_marks(const ITEMIDLIST* item, PathBuffer& path) {
    std::array<wchar_t, MAX_PATH> real{};
    if (!SHGetPathFromIDListW(item, real.data())) return;
    const std::string bytes = to_ansi(real.data());
    const bool is_same_but_for_them =
        bytes.size() < path.size() && path[bytes.size()] == '\0' &&
        std::equal(bytes.begin(), bytes.end(), path.begin(),
                   [](char exact, char given) { return exact == given || exact == '?'; });
    if (is_same_but_for_them) std::copy(bytes.begin(), bytes.end(), path.begin());
}

}  // namespace

std::wstring browse_for_folder(std::int32_t owner, std::wstring_view prompt,
                               std::wstring_view initial_folder) {
    const InitialFolder folder(to_ansi(initial_folder));
    const std::string title = to_ansi(prompt);
    BROWSEINFOA record{};
    // Window handles fit in 32 bits, and grow to 64 with their sign.
    record.hwndOwner = reinterpret_cast<HWND>(static_cast<std::intptr_t>(owner));
    record.lpszTitle = title.c_str();
    record.ulFlags = BIF_RETURNONLYFSDIRS;
    record.lpfn = &on_browser_message;
    const std::unique_ptr<ITEMIDLIST, ReleaseItem> item(run_dialog(record));
    if (!item) return {};
    PathBuffer path = blank_buffer();
    const bool has_path = SHGetPathFromIDListA(item.get(), path.data()) != FALSE;
    const auto* const end = std::find(path.begin(), path.end(), '\0');
    if (!has_path || end == path.end()) throw Failure(FailureNumber::invalid_argument);
    put_question_marks(item.get(), path);
    return from_ansi({path.data(), static_cast<std::size_t>(end - path.data())});
}

}  // namespace kovrel::Prof
