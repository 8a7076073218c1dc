// From the call that opens a window to its first whole picture, against the system's message box:
// window_bench kovrel.dll
#include <windows.h>
#include <oleauto.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <thread>
#include <vector>

#include "automation/bstr.h"
#include "bench/server.h"
#include "kovrel.h"

namespace {

using kovrel::Bstr;
using kovrel::bench::object_of;
using Clock = std::chrono::steady_clock;

constexpr int rounds = 15;
constexpr auto patience = std::chrono::seconds(20);

[[noreturn]] void give_up(const char* why) {
    std::fprintf(stderr, "window_bench: %s\n", why);
    std::exit(1);
}

/// The visible top-level window of a thread, or null.
HWND window_of(DWORD thread) {
    HWND found = nullptr;
    EnumThreadWindows(
        thread,
        [](HWND window, LPARAM result) -> BOOL {
            if (IsWindowVisible(window) == FALSE) return TRUE;
            *reinterpret_cast<HWND*>(result) = window;
            return FALSE;
        },
        reinterpret_cast<LPARAM>(&found));
    return found;
}

/// Whether neither the window nor any of its controls has a part still to be painted.
bool is_painted(HWND window) {
    if (GetUpdateRect(window, nullptr, FALSE) != FALSE) return false;
    bool painted = true;
    EnumChildWindows(
        window,
        [](HWND child, LPARAM result) -> BOOL {
            const bool waits =
                IsWindowVisible(child) != FALSE && GetUpdateRect(child, nullptr, FALSE) != FALSE;
            if (waits) *reinterpret_cast<bool*>(result) = false;
            return waits ? FALSE : TRUE;
        },
        reinterpret_cast<LPARAM>(&painted));
    return painted;
}

/// Waits on a thread of its own until the window of another is painted, and then closes it.
class Watcher {
 public:
    explicit Watcher(void (*close)(HWND))
        : thread_([this, close, watched = GetCurrentThreadId()] {
              const auto limit = Clock::now() + patience;
              HWND window = nullptr;
              while ((window = window_of(watched)) == nullptr || !is_painted(window)) {
                  if (Clock::now() > limit) give_up("no window");
                  Sleep(1);
              }
              painted_ = Clock::now();
              close(window);
          }) {}
    /// When the window was painted.
    Clock::time_point painted() {
        thread_.join();
        return painted_;
    }

 private:
    Clock::time_point painted_;
    std::thread thread_;
};

/// Dispatches messages, as a host does, until the thread's window is gone.
void run_until_closed() {
    MSG message;
    while (window_of(GetCurrentThreadId()) != nullptr && GetMessageW(&message, nullptr, 0, 0) > 0) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

void close(HWND window) {
    PostMessageW(window, WM_CLOSE, 0, 0);
}

void press_button(HWND window) {
    PostMessageW(FindWindowExW(window, nullptr, L"Button", nullptr), BM_CLICK, 0, 0);
}

class Opening {
 public:
    Opening(const char* name, void (*closes)(HWND), void (*opens)(const wchar_t*))
        : name_(name), close_(closes), open_(opens) {}

    void once(const wchar_t* library) {
        Watcher watcher(close_);
        const auto start = Clock::now();
        open_(library);
        const std::chrono::duration<double, std::milli> spent = watcher.painted() - start;
        milliseconds_.push_back(spent.count());
    }

    void print() {
        const auto middle = milliseconds_.begin() + rounds / 2;
        std::nth_element(milliseconds_.begin(), middle, milliseconds_.end());
        std::printf("%s: %.1f ms\n", name_, *middle);
    }

 private:
    const char* name_;
    void (*close_)(HWND);
    void (*open_)(const wchar_t* library);
    std::vector<double> milliseconds_;
};

void open_box(const wchar_t* /*library*/) {
    MessageBoxW(nullptr, L"No hay datos para el periodo indicado.", L"Recibos",
                MB_OK | MB_ICONINFORMATION);
}

void open_verifier(const wchar_t* library) {
    VARIANT result{};
    object_of<Kovrel::_clsFGen>(library, Kovrel::CLSID_clsFGen)->LanzaVerificadorNIFyCCC(&result);
    run_until_closed();
}

void open_progress(const wchar_t* library) {
    const Bstr caption(L"Recibos");
    const Bstr message(L"Se generan los recibos del periodo");
    const auto general = object_of<Kovrel::_clsFGen>(library, Kovrel::CLSID_clsFGen);
    general->BarraProgresoInicia(caption.get(), message.get(), VARIANT_TRUE, -1, -1, -1, -1, -1);
    run_until_closed();
    general->BarraProgresoFinaliza();
}

void open_dialog(const wchar_t* library) {
    const Bstr caption(L"Recibos");
    const Bstr message(L"Recibo 1: falta la cuenta.\r\nRecibo 7: falta el titular.");
    BSTR caption_text = caption.get();
    BSTR message_text = message.get();
    VARIANT_BOOL fixed = VARIANT_TRUE;
    object_of<Kovrel::_clsMensajes>(library, Kovrel::CLSID_clsMensajes)
        ->MsgFormA(&caption_text, &message_text, &fixed);
}

void open_date_prompt(const wchar_t* library) {
    const Bstr question(L"Fecha de los recibos");
    const Bstr caption(L"Recibos");
    BSTR question_text = question.get();
    BSTR caption_text = caption.get();
    DATE proposed = 45'000;
    DATE chosen = 0;
    object_of<Kovrel::_clsFFechas>(library, Kovrel::CLSID_clsFFechas)
        ->PideFecha(&question_text, &caption_text, &proposed, &chosen);
}

}  // namespace

int wmain(int count, wchar_t** arguments) {
    if (count != 2) give_up("the path of kovrel.dll is missing");
    OleInitialize(nullptr);
    Opening openings[]{{"message box", &press_button, &open_box},
                       {"verifier", &close, &open_verifier},
                       {"progress", &close, &open_progress},
                       {"dialog", &close, &open_dialog},
                       {"date prompt", &press_button, &open_date_prompt}};
    for (int round = 0; round < rounds; ++round) {
        for (Opening& opening : openings) opening.once(arguments[1]);
    }
    for (Opening& opening : openings) opening.print();
    return 0;
}
