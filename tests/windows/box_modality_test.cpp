// A box or a dialog is modal to the whole thread, as the library's windows are.
#include <algorithm>
#include <atomic>
#include <functional>
#include <string>
#include <thread>

#include "tests/windows/open_windows.h"
#include "tests/windows/progress_window.h"

namespace kovrel::test {
namespace {

constexpr const wchar_t* host_name = L"Facturación";

/// Shows a question of the catalogue while another thread works it; returns the answer.
std::int32_t ask_question(const std::function<void(OpenBox&)>& user) {
    const auto messages = create(L"Kovrel.clsMensajes");
    put(messages.get(), L"AppOrigen", Variant(host_name));
    std::thread hands([&] {
        OpenBox open = wait_for_box(host_name);
        EXPECT_EQ(open.box.text, L"¿Desea editar la facturación generada?");
        user(open);
    });
    const Outcome outcome = call(messages.get(), L"MsjFact_DeseaEditarFacturacion");
    hands.join();
    EXPECT_EQ(outcome.result, S_OK);
    return outcome.value.to_int32();
}

TEST(Box, IsModalToEveryWindowOfItsThread) {
    const HostWindow first(L"Contratos");
    const HostWindow second(L"Pagadores");
    const HostWindow third(L"Cerrada por su programa");
    EnableWindow(third.window(), FALSE);
    SetActiveWindow(first.window());
    SetFocus(first.field());
    EXPECT_EQ(ask_question([&](OpenBox& open) {
                  EXPECT_EQ(owner_of(open.window), first.window());
                  for (const HostWindow* host : {&first, &second, &third}) {
                      EXPECT_FALSE(IsWindowEnabled(host->window()))
                          << narrow(text_of(host->window()));
                  }
                  activate(second.window());
                  comes_before(open.window, second.window());
                  open.answer(IDYES);
              }),
              IDYES);
    EXPECT_TRUE(IsWindowEnabled(first.window()));
    EXPECT_TRUE(IsWindowEnabled(second.window()));
    EXPECT_FALSE(IsWindowEnabled(third.window()));
    EXPECT_EQ(GetActiveWindow(), first.window());
    EXPECT_EQ(GetFocus(), first.field());
}

TEST_F(Progress, IsDisabledUnderABoxAndMayBeClosedByItsHost) {
    const HostCalls calls;
    const HostWindow host(L"Contratos");
    start({L"Recibos", L"Texto", true});
    HWND const window = only_window();
    EXPECT_TRUE(pump_until([&] { return GetActiveWindow() == window; }));
    EXPECT_EQ(ask_question([&](OpenBox& open) {
                  EXPECT_NE(owner_of(open.window), window);
                  EXPECT_FALSE(IsWindowEnabled(window));
                  EXPECT_FALSE(IsWindowEnabled(host.window()));
                  // As from a timer of the host.
                  calls.post([&] { finish(); });
                  EXPECT_TRUE(wait_until_closed(window));
                  EXPECT_TRUE(IsWindowVisible(open.window));
                  open.answer(IDNO);
              }),
              IDNO);
    EXPECT_TRUE(IsWindowEnabled(host.window()));
}

TEST_F(Progress, HasTheKeyboardAgainAfterABox) {
    const HostWindow host(L"Contratos");
    start({L"Recibos", L"Texto", true});
    HWND const window = only_window();
    EXPECT_TRUE(pump_until([&] { return GetActiveWindow() == window; }));
    EXPECT_EQ(ask_question([](OpenBox& open) { open.answer(IDYES); }), IDYES);
    EXPECT_TRUE(IsWindowEnabled(window));
    EXPECT_EQ(GetActiveWindow(), window);
    EXPECT_EQ(GetFocus(), find_control(window, L"Button"));
    EXPECT_FALSE(canceled());
}

TEST(Box, OutlivesItsDestroyedOwner) {
    const HostCalls calls;
    const HostWindow stays(L"Principal");
    const HostWindow main(L"Contratos");
    const HostWindow form(L"Contrato", main.window());
    SetActiveWindow(form.window());
    EXPECT_EQ(ask_question([&](OpenBox& open) {
                  EXPECT_EQ(owner_of(open.window), form.window());
                  calls.post([&] { DestroyWindow(main.window()); });
                  EXPECT_TRUE(wait_until_closed(main.window()));
                  EXPECT_TRUE(IsWindowVisible(open.window));
                  EXPECT_FALSE(IsWindowEnabled(stays.window()));
                  open.answer(IDYES);
              }),
              IDYES);
    EXPECT_TRUE(IsWindowEnabled(stays.window()));
}

TEST(Box, StaysModalWhenMinimisedWithItsOwner) {
    const HostCalls calls;
    const HostWindow owner(L"Contratos");
    const HostWindow other(L"Pagadores");
    SetActiveWindow(owner.window());
    EXPECT_EQ(ask_question([&](OpenBox& open) {
                  for (const bool minimised : {true, false}) {
                      calls.post([&, minimised] { minimise(owner.window(), minimised); });
                      EXPECT_TRUE(wait_until(
                          [&] { return (IsIconic(owner.window()) != FALSE) == minimised; }));
                      ask(open.window, WM_NULL);
                      EXPECT_FALSE(IsWindowEnabled(other.window()));
                  }
                  EXPECT_TRUE(wait_until([&] { return IsWindowVisible(open.window) != FALSE; }));
                  open.answer(IDNO);
              }),
              IDNO);
    EXPECT_TRUE(IsWindowEnabled(other.window()));
}

TEST(Box, AQuestionDestroyedByTheHostIsAskedAgain) {
    const HostCalls calls;
    const HostWindow host(L"Contratos");
    SetActiveWindow(host.window());
    EXPECT_EQ(ask_question([&](OpenBox& open) {
                  calls.post([&] { DestroyWindow(open.window); });
                  EXPECT_TRUE(wait_until_closed(open.window));
                  OpenBox again = wait_for_box(host_name);
                  EXPECT_EQ(again.box.text, open.box.text);
                  EXPECT_FALSE(IsWindowEnabled(host.window()));
                  again.answer(IDNO);
              }),
              IDNO);
    EXPECT_TRUE(IsWindowEnabled(host.window()));
}

TEST(Box, AQuitMessageReachesTheHostAfterTheAnswer) {
    const DWORD thread = GetCurrentThreadId();
    EXPECT_EQ(ask_question([&](OpenBox& open) {
                  PostThreadMessageW(thread, WM_QUIT, 7, 0);
                  // The quit message may close the box; the question is then asked again.
                  EXPECT_TRUE(wait_until([&] {
                      ask(open.window, WM_NULL);
                      return !IsWindow(open.window);
                  }));
                  wait_for_box(host_name).answer(IDYES);
              }),
              IDYES);
    MSG message{};
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) && message.message != WM_QUIT) {
    }
    EXPECT_EQ(message.message, static_cast<UINT>(WM_QUIT));
    EXPECT_EQ(message.wParam, 7U);
}

TEST(Box, TheHostStaysDisabledWhenTheWindowBelowIsDestroyed) {
    const HostCalls calls;
    const HostWindow host(L"Contratos");
    SetActiveWindow(host.window());
    const auto general = create(L"Kovrel.clsFGen");
    put(general.get(), L"AppOrigen", Variant(L"Cobros"));
    std::thread user([&] {
        HWND const verifier = wait_for_window({L"Kovrel.frmNIFCCC", {}, 0});
        HWND const copy = find_control(verifier, L"Button", L"&Copiar NIF");
        PostMessageW(copy, BM_CLICK, 0, 0);
        OpenBox open = wait_for_box(L"Dato incorrecto o falta");
        EXPECT_EQ(owner_of(open.window), verifier);
        EXPECT_FALSE(IsWindowEnabled(verifier));
        EXPECT_FALSE(IsWindowEnabled(host.window()));
        calls.post([&] { DestroyWindow(verifier); });
        EXPECT_TRUE(wait_until_closed(verifier));
        EXPECT_TRUE(IsWindowVisible(open.window));
        EXPECT_FALSE(IsWindowEnabled(host.window()));
        open.answer(IDOK);
    });
    EXPECT_EQ(call(general.get(), L"LanzaVerificadorNIFyCCC").result, S_OK);
    user.join();
    EXPECT_TRUE(IsWindowEnabled(host.window()));
    EXPECT_EQ(GetActiveWindow(), host.window());
}

/// A system dialog without an owner.
void expect_modal_dialog(const HostWindow& first, const HostWindow& second,
                         const std::function<void()>& open) {
    SetActiveWindow(first.window());
    const auto before = top_level_windows({L"#32770", {}, GetCurrentProcessId()});
    std::thread user([&] {
        HWND dialog = nullptr;
        EXPECT_TRUE(wait_until([&] {
            for (HWND window : top_level_windows({L"#32770", {}, GetCurrentProcessId()})) {
                if (std::find(before.begin(), before.end(), window) == before.end()) {
                    dialog = window;
                }
            }
            return dialog != nullptr;
        }));
        EXPECT_FALSE(IsWindowEnabled(first.window()));
        EXPECT_FALSE(IsWindowEnabled(second.window()));
        activate(second.window());
        comes_before(dialog, second.window());
        EXPECT_TRUE(wait_until([&] {
            PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
            return !IsWindowVisible(dialog);
        }));
    });
    open();
    user.join();
    EXPECT_TRUE(IsWindowEnabled(first.window()));
    EXPECT_TRUE(IsWindowEnabled(second.window()));
    EXPECT_EQ(GetActiveWindow(), first.window());
}

TEST(SystemDialog, IsModalToEveryWindowOfItsThread) {
    const HostWindow first(L"Contratos");
    const HostWindow second(L"Pagadores");
    const auto files = create(L"Kovrel.cgsFileOpR");
    for (HWND owner : {HWND{}, first.window()}) {
        expect_modal_dialog(first, second, [&] {
            put(files.get(), L"hWnd",
                Variant(static_cast<std::int32_t>(reinterpret_cast<std::intptr_t>(owner))));
            put(files.get(), L"DialogTitle", Variant(L"Elija una carta"));
            EXPECT_FALSE(call(files.get(), L"ShowOpen").value.to_bool());
        });
        const auto profile = create(L"Kovrel.clsProfile");
        expect_modal_dialog(first, second, [&] {
            EXPECT_EQ(call(profile.get(), L"BrowseForFolder",
                           {static_cast<std::int32_t>(reinterpret_cast<std::intptr_t>(owner)),
                            L"Carpeta", L"C:\\windows"})
                          .value.to_text(),
                      L"");
        });
    }
}

}  // namespace
}  // namespace kovrel::test
