// Works the windows that an example opens, as the example says the user does:
//
//     window_worker STEPS SECONDS
//
// STEPS has one UTF-8 line a window, "title|action", in this order; an action is Aceptar, Cancelar
// or cerrar. The exit code is 0 when every window has appeared and closed, else 1.
#include <windows.h>

#include <cstdio>
#include <fstream>
#include <map>
#include <string>

#include "dates/frmFECHA1.h"
#include "messages/frmDialogo.h"
#include "progress/frmBarraProgreso.h"
#include "services/text_encoding.h"
#include "taxid/frmNIFCCC.h"
#include "tests/support/window_driver.h"

namespace {

using kovrel::test::Milliseconds;

/// The button that closes each of the library's windows.
const std::map<std::wstring, int> closing_buttons{
    {L"Kovrel.frmDialogo", kovrel::frmDialogo::OKButton},
    {L"Kovrel.frmFECHA1", kovrel::frmFECHA1::cmdOK},
    {L"Kovrel.frmBarraProgreso", kovrel::frmBarraProgreso::cmdCancel},
    {L"Kovrel.frmNIFCCC", kovrel::frmNIFCCC::cmdOK},
};

/// True for the library's windows and the system's dialogs, all of which have more than the text
/// and buttons of a message box. Those are box_answerer's, and may have the same title.
bool is_no_message_box(HWND window) {
    return kovrel::test::class_of(window) != L"#32770" ||
           kovrel::test::find_control(window, L"Edit") != nullptr ||
           kovrel::test::find_control(window, L"SysTreeView32") != nullptr;
}

/// Waits for a window with the title that is not a message box.
HWND wait_for(const std::wstring& title, Milliseconds limit) {
    HWND found = nullptr;
    kovrel::test::wait_until(
        [&] {
            for (HWND window : kovrel::test::top_level_windows({{}, title, 0})) {
                if (is_no_message_box(window)) found = window;
            }
            return found != nullptr;
        },
        limit);
    return found;
}

/// False when the window cannot be closed that way.
bool work(HWND window, const std::string& action) {
    if (action == "cerrar") return PostMessageW(window, WM_CLOSE, 0, 0) != FALSE;
    const auto own = closing_buttons.find(kovrel::test::class_of(window));
    if (own != closing_buttons.end()) {
        HWND const button = kovrel::test::find_control(window, own->second);
        return button != nullptr && PostMessageW(button, BM_CLICK, 0, 0) != FALSE;
    }
    const WPARAM button = action == "Aceptar" ? IDOK : IDCANCEL;
    return PostMessageW(window, WM_COMMAND, button, 0) != FALSE;
}

}  // namespace

int main(int count, char** arguments) {
    if (count != 3) {
        std::fputs("usage: window_worker STEPS SECONDS\n", stderr);
        return 2;
    }
    std::ifstream steps(arguments[1]);
    const Milliseconds limit{1000 * std::stoi(arguments[2])};
    for (std::string line; std::getline(steps, line);) {
        const std::size_t bar = line.rfind('|');
        const std::string title = line.substr(0, bar);
        HWND const window = wait_for(kovrel::from_utf8(title), limit);
        if (window == nullptr) {
            std::fprintf(stderr, "the window \"%s\" has not come\n", title.c_str());
            return 1;
        }
        if (!work(window, line.substr(bar + 1)) ||
            !kovrel::test::wait_until_closed(window, limit)) {
            std::fprintf(stderr, "the window \"%s\" does not close\n", title.c_str());
            return 1;
        }
    }
    return 0;
}
