#include "files/Prof.h"

#include <windows.h>
#include <shlobj.h>

#include <algorithm>
#include <array>
#include <string>

#include "automation/floating_point.h"
#include "automation/thread_slot.h"
#include "runtime/failure.h"
#include "runtime/owned.h"
#include "services/announcer.h"
#include "services/dynamic_library.h"
#include "services/guarded.h"
#include "services/modal_scope.h"
#include "services/text_encoding.h"

namespace kovrel::Prof {
namespace {

using PathBuffer = std::array<char, MAX_PATH>;

PathBuffer blank_buffer() {
    PathBuffer buffer{};
    buffer.fill(' ');
    return buffer;
}

template <class Function>
Function* shell_function(const char* name) {
    return system_function<Function>(L"shell32.dll", name);
}

bool path_of(const ITEMIDLIST* item, PathBuffer& path) {
    return shell_function<decltype(SHGetPathFromIDListA)>("SHGetPathFromIDListA")(item,
                                                                                  path.data());
}

/// Where the browser opens, in the system code page: set around each browse for its callback, to
/// which the record passes nothing.
constinit ThreadSlot<const char> initial_folder_of_browse;

int CALLBACK on_browser_message(HWND browser, UINT message, LPARAM parameter,
                                LPARAM /*data*/) noexcept {
    const char* const folder = initial_folder_of_browse.get();  // null without a free slot
    if (message == BFFM_INITIALIZED && folder != nullptr) {
        SendMessageA(browser, BFFM_SETSELECTIONA, TRUE, reinterpret_cast<LPARAM>(folder));
    } else if (message == BFFM_SELCHANGED) {
        attempt([&] {
            PathBuffer path = blank_buffer();
            if (!path_of(reinterpret_cast<const ITEMIDLIST*>(parameter), path)) return;
            SendMessageA(browser, BFFM_SETSTATUSTEXTA, 0, reinterpret_cast<LPARAM>(path.data()));
        });
    }
    return 0;
}

/// Modal to the whole thread, whatever its owner.
ITEMIDLIST* run_dialog(BROWSEINFOA& record) {
    auto* const browse = shell_function<decltype(SHBrowseForFolderA)>("SHBrowseForFolderA");
    const ModalScope scope(ModalScope::NextDialog{record.hwndOwner});
    const HostFloatingPoint host;
    return browse(&record);
}

/// The system replaces characters that the code page lacks by similar ones (best fit), which could
/// be the path of another folder: puts question marks instead.
void put_question_marks(const ITEMIDLIST* item, PathBuffer& path) {
    std::array<wchar_t, MAX_PATH> real{};
    auto* const wide_path_of =
        shell_function<decltype(SHGetPathFromIDListW)>("SHGetPathFromIDListW");
    if (!wide_path_of(item, real.data())) return;
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
    const std::string folder = to_ansi(initial_folder);
    const std::string title = to_ansi(prompt);
    BROWSEINFOA record{};
    // Window handles are 32 bits wide and sign-extended to 64.
    record.hwndOwner = reinterpret_cast<HWND>(static_cast<std::intptr_t>(owner));
    record.lpszTitle = title.c_str();
    record.ulFlags = BIF_RETURNONLYFSDIRS;
    record.lpfn = &on_browser_message;
    ITEMIDLIST* chosen = nullptr;
    announce(announcement_of_window({}, prompt), [&] {
        // Not before: a listener may browse too.
        initial_folder_of_browse.set(folder.c_str());
        chosen = run_dialog(record);
        initial_folder_of_browse.set(nullptr);
        return chosen != nullptr ? Answer::ok : Answer::cancel;
    });
    const Owned<ITEMIDLIST*, &CoTaskMemFree> item(chosen);
    if (!item) return {};
    PathBuffer path = blank_buffer();
    const bool has_path = path_of(item.get(), path);
    const auto* const end = std::find(path.begin(), path.end(), '\0');
    if (!has_path || end == path.end()) throw Failure(FailureNumber::invalid_argument);
    put_question_marks(item.get(), path);
    return from_ansi({path.data(), static_cast<std::size_t>(end - path.data())});
}

}  // namespace kovrel::Prof
