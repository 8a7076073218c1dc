#include "tests/robustness/unattended.h"

#include <commctrl.h>
#include <commdlg.h>
#include <shlobj.h>

#include <atomic>
#include <cstring>
#include <mutex>
#include <string>
#include <utility>

#include "dates/frmFECHA1.h"
#include "messages/frmDialogo.h"
#include "taxid/frmNIFCCC.h"
#include "tests/robustness/own_library.h"
#include "tests/robustness/random.h"
#include "tests/support/import_patch.h"
#include "tests/support/window_driver.h"

namespace kovrel::test {
namespace {

std::atomic<long> boxes_shown{0};
std::atomic<long> steps_made{0};
std::mutex text_guard;
std::wstring last_text;

struct ThreadState {
    Random random{1};
    std::function<void()> event;
    std::function<void()> look;
    std::string browsed_from;
    HWND worked = nullptr;
    int steps = 0;  // so far in the window
    bool hasty = false;
    DWORD clock = 0;
};

// Never freed, so that no thread needs a destructor.
ThreadState& state() {
    static const DWORD slot = TlsAlloc();
    auto* own = static_cast<ThreadState*>(TlsGetValue(slot));
    if (own == nullptr) {
        own = new ThreadState;
        TlsSetValue(slot, own);
    }
    return *own;
}

void let_event_happen() {
    if (state().event) std::exchange(state().event, nullptr)();
}

BOOL CALLBACK collect_own(HWND window, LPARAM list) {
    if (IsWindowVisible(window) && class_of(window).starts_with(L"Kovrel.")) {
        reinterpret_cast<std::vector<HWND>*>(list)->push_back(window);
    }
    return TRUE;
}

bool is_modal_class(HWND window) {
    const std::wstring name = class_of(window);
    return name == frmDialogo::window_class || name == frmNIFCCC::window_class ||
           name == frmFECHA1::window_class;
}

/// Closes the window.
void close(HWND window) {
    if (class_of(window) == frmFECHA1::window_class) {
        SYSTEMTIME now{};
        ::GetLocalTime(&now);
        SendMessageW(GetDlgItem(window, frmFECHA1::DTP_FECHA), DTM_SETSYSTEMTIME, GDT_VALID,
                     reinterpret_cast<LPARAM>(&now));
        PostMessageW(window, WM_COMMAND, frmFECHA1::cmdOK, 0);
    } else {
        PostMessageW(window, WM_CLOSE, 0, 0);
    }
}

/// One random action of a user.
void disturb(HWND window, Random& random) {
    HWND const focus = GetFocus() != nullptr ? GetFocus() : window;
    switch (random.below(7)) {
        case 0:
            PostMessageW(window, WM_COMMAND, 100 + random.below(20), 0);
            break;
        case 1:
            PostMessageW(focus, WM_CHAR, 32 + random.below(220), 1);
            break;
        case 2:
            PostMessageW(focus, WM_KEYDOWN, random.one_in(2) ? VK_TAB : VK_RETURN, 1);
            break;
        case 3:
            SetWindowPos(window, nullptr, 0, 0, static_cast<int>(random.below(900)),
                         static_cast<int>(random.below(700)), SWP_NOMOVE | SWP_NOZORDER);
            PostMessageW(window, WM_NULL, 0, 0);
            break;
        case 4:
            PostMessageW(focus, WM_KEYDOWN, VK_ESCAPE, 1);
            break;
        case 5:
            PostMessageW(focus, random.one_in(2) ? WM_PASTE : WM_CUT, 0, 0);
            break;
        default:
            PostMessageW(window, WM_SYSCOLORCHANGE, 0, 0);
            break;
    }
}

/// Works the active modal window; closes it after a few steps.
void work_windows() {
    constexpr int most_steps = 6;
    for (HWND window : own_windows()) {
        if (!is_modal_class(window) || !IsWindowEnabled(window)) continue;
        ThreadState& own = state();
        if (std::exchange(own.worked, window) != window) own.steps = 0;
        ++steps_made;
        if (own.hasty || ++own.steps > most_steps || own.random.one_in(3)) {
            close(window);
        } else {
            disturb(window, own.random);
        }
        return;
    }
}

BOOL WINAPI peek_message(MSG* message, HWND window, UINT first, UINT last, UINT remove) {
    if (state().look) state().look();
    let_event_happen();
    work_windows();
    return PeekMessageW(message, window, first, last, remove);
}

int WINAPI message_box(HWND /*owner*/, LPCWSTR text, LPCWSTR title, UINT style) {
    ++boxes_shown;
    let_event_happen();
    // Reads both texts completely, as a box would.
    if (std::wcslen(text) + std::wcslen(title) == 0) return 0;
    {
        const std::scoped_lock lock(text_guard);
        constexpr std::size_t enough = 200;
        last_text.assign(text, wcsnlen(text, enough));
    }
    Random& random = state().random;
    switch (style & MB_TYPEMASK) {
        case MB_OKCANCEL:
            return random.one_in(2) ? IDOK : IDCANCEL;
        case MB_YESNO:
            return random.one_in(2) ? IDYES : IDNO;
        default:
            return IDOK;
    }
}

BOOL WINAPI beep(UINT /*style*/) {
    return TRUE;
}

UINT WINAPI send_input(UINT count, INPUT* /*inputs*/, int /*size*/) {
    return count;
}

BOOL WINAPI open_dialog(OPENFILENAMEA* record) {
    let_event_happen();
    Random& random = state().random;
    if (random.one_in(2)) return FALSE;
    std::memset(record->lpstrFile, 'x', random.below(record->nMaxFile));
    std::memset(record->lpstrFileTitle, 0, random.below(record->nMaxFileTitle));
    return TRUE;
}

LRESULT CALLBACK note_selection(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    if (message != BFFM_SETSELECTIONA) return DefWindowProcW(window, message, wparam, lparam);
    state().browsed_from = reinterpret_cast<const char*>(lparam);
    return 0;
}

LPITEMIDLIST WINAPI browse(BROWSEINFOA* record) {
    let_event_happen();
    HWND const browser =
        CreateWindowW(L"STATIC", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
    SetWindowLongPtrW(browser, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&note_selection));
    if (state().look) state().look();
    record->lpfn(browser, BFFM_INITIALIZED, 0, record->lParam);
    DestroyWindow(browser);
    if (state().random.one_in(2)) return nullptr;
    LPITEMIDLIST item = nullptr;
    SHGetSpecialFolderLocation(nullptr, CSIDL_WINDOWS, &item);
    return item;
}

/// Each call advances the clock by a twentieth of a second, within the same day.
void WINAPI local_time(SYSTEMTIME* time) {
    ::GetLocalTime(time);
    const DWORD now = state().clock++;
    time->wHour = static_cast<WORD>(now / 72'000 % 23);
    time->wMinute = static_cast<WORD>(now / 1'200 % 60);
    time->wSecond = static_cast<WORD>(now / 20 % 60);
    time->wMilliseconds = static_cast<WORD>(now % 20 * 50);
}

}  // namespace

struct Unattended::Patches {
    template <class Function>
    static ImportPatch patch(const char* name, Function* function) {
        return {L"kovrel.dll", name, reinterpret_cast<void*>(function)};
    }

    ImportPatch box = patch("MessageBoxW", &message_box);
    ImportPatch beeps = patch("MessageBeep", &beep);
    ImportPatch keys = patch("SendInput", &send_input);
    ImportPatch peek = patch("PeekMessageW", &peek_message);
    ImportPatch open = patch("GetOpenFileNameA", &open_dialog);
    ImportPatch folder = patch("SHBrowseForFolderA", &browse);
    ImportPatch clock = patch("GetLocalTime", &local_time);
};

Unattended::Unattended() {
    (void)OwnLibrary::get();
    patches_ = std::make_unique<Patches>();
    if (!patches_->box.in_place() || !patches_->peek.in_place() || !patches_->open.in_place() ||
        !patches_->folder.in_place() || !patches_->clock.in_place()) {
        std::abort();
    }
}

Unattended::~Unattended() = default;

void Unattended::set_seed(std::uint64_t seed) {
    state().random = Random(seed);
}

void Unattended::close_at_once() {
    state().hasty = true;
}

long Unattended::boxes() {
    return boxes_shown;
}

std::wstring Unattended::last_box() {
    const std::scoped_lock lock(text_guard);
    return last_text;
}

long Unattended::window_steps() {
    return steps_made;
}

void Unattended::on_next_event(std::function<void()> event) {
    state().event = std::move(event);
}

std::string Unattended::browsed_from() {
    return state().browsed_from;
}

void Unattended::on_every_look(std::function<void()> action) {
    state().look = std::move(action);
}

std::vector<HWND> own_windows() {
    std::vector<HWND> windows;
    EnumThreadWindows(GetCurrentThreadId(), &collect_own, reinterpret_cast<LPARAM>(&windows));
    return windows;
}

}  // namespace kovrel::test
