// No window of the library is ever behind its host: their owners, and how they come to the front.
#include <array>
#include <atomic>
#include <functional>
#include <string>
#include <thread>

#include "runtime/calendar.h"
#include "tests/windows/open_windows.h"
#include "tests/windows/progress_window.h"

namespace kovrel::test {
namespace {

/// A modal window of the library: how it is opened and closed.
struct Modal {
    const wchar_t* window_class;
    std::function<void()> open;
    int closing_button;

    void leave(HWND window) const {
        PostMessageW(find_control(window, closing_button), BM_CLICK, 0, 0);
    }
    void show(const std::function<void(HWND)>& work) const {
        BoxWatcher windows({on_window({window_class, {}, 0}, [&](HWND window) {
            work(window);
            leave(window);
        })});
        open();
    }
};

const Modal verifier{L"Kovrel.frmNIFCCC",
                     [] {
                         const auto general = create(L"Kovrel.clsFGen");
                         put(general.get(), L"AppOrigen", Variant(L"Cobros"));
                         EXPECT_EQ(call(general.get(), L"LanzaVerificadorNIFyCCC").result, S_OK);
                     },
                     114};
const Modal prompt{L"Kovrel.frmFECHA1",
                   [] {
                       const auto dates = create(L"Kovrel.clsFFechas");
                       const double proposed = day_count({2024, 3, 5});
                       const Outcome outcome =
                           call(dates.get(), L"PideFecha",
                                {L"¿Fecha?", L"Fecha", Variant(Date{proposed})});
                       EXPECT_EQ(outcome.result, S_OK);
                       EXPECT_EQ(outcome.value.vt, VT_DATE);
                       EXPECT_EQ(outcome.value.date, proposed);
                   },
                   104};
const Modal dialog{
    L"Kovrel.frmDialogo",
    [] {
        const auto messages = create(L"Kovrel.clsMensajes");
        EXPECT_EQ(call(messages.get(), L"MsgFormA", {L"Aviso", L"Texto"}).result, S_OK);
    },
    103};

TEST(Owner, IsTheHostsActiveWindow) {
    const HostWindow first(L"Contratos");
    const HostWindow second(L"Pagadores");
    for (const HostWindow* active : {&first, &second}) {
        SetActiveWindow(active->window());
        for (const Modal* modal : {&verifier, &prompt}) {
            modal->show([&](HWND window) { EXPECT_EQ(owner_of(window), active->window()); });
            EXPECT_EQ(GetActiveWindow(), active->window());
        }
        dialog.show([](HWND window) { EXPECT_EQ(owner_of(window), nullptr); });
    }
}

TEST(Owner, IsNeverAWindowOfAnotherThread) {
    const HostCalls calls;
    HWND foreign = nullptr;
    std::atomic<bool> ready = false;
    std::atomic<bool> done = false;
    std::thread other([&] {
        const HostWindow host(L"De otro hilo");
        foreign = host.window();
        ready = true;
        EXPECT_TRUE(pump_until([&] { return done.load(); }, Milliseconds{60'000}));
    });
    ASSERT_TRUE(wait_until([&] { return ready.load(); }));
    const DWORD thread = GetWindowThreadProcessId(foreign, nullptr);
    ASSERT_TRUE(AttachThreadInput(GetCurrentThreadId(), thread, TRUE));
    SetActiveWindow(foreign);
    EXPECT_EQ(GetActiveWindow(), foreign);
    for (const Modal* modal : {&verifier, &prompt}) {
        modal->show([&](HWND window) { EXPECT_EQ(owner_of(window), nullptr); });
    }
    AttachThreadInput(GetCurrentThreadId(), thread, FALSE);
    done = true;
    other.join();
}

TEST(Owner, IsAWindowOfTheCallingThread) {
    const auto ask = [](const wchar_t* title, const Modal& modal) {
        ASSERT_EQ(CoInitialize(nullptr), S_OK);
        {
            const HostWindow host(title);
            HWND shown = nullptr;
            std::thread user([&] {
                shown = wait_for_window({modal.window_class, {}, GetCurrentProcessId()});
                EXPECT_EQ(GetWindowThreadProcessId(shown, nullptr),
                          GetWindowThreadProcessId(host.window(), nullptr));
                HWND const owner = owner_of(shown);
                EXPECT_TRUE(owner == nullptr || owner == host.window()) << narrow(text_of(owner));
                EXPECT_FALSE(IsWindowEnabled(host.window()));
                modal.leave(shown);
            });
            modal.open();
            user.join();
            EXPECT_TRUE(IsWindowEnabled(host.window()));
        }
        CoUninitialize();
    };
    std::thread first(ask, L"Uno", verifier);
    std::thread second(ask, L"Dos", prompt);
    first.join();
    second.join();
}

TEST(Owner, IsNeverTheProgressWindow) {
    const auto general = create(L"Kovrel.clsFGen");
    call(general.get(), L"BarraProgresoInicia", {L"Facturación", L"Texto", true});
    HWND const progress = only_window();
    EXPECT_TRUE(pump_until([&] { return GetActiveWindow() == progress; }));
    for (const Modal* modal : {&verifier, &prompt}) {
        modal->show([&](HWND window) {
            EXPECT_EQ(owner_of(window), nullptr);
            EXPECT_FALSE(IsWindowEnabled(progress));
        });
        EXPECT_TRUE(IsWindowEnabled(progress));
    }
    call(general.get(), L"BarraProgresoFinaliza");
}

TEST(Owner, CanBeDestroyedWithoutDestroyingTheModalWindow) {
    const HostCalls host;
    const HostWindow stays(L"Principal");
    for (const Modal* modal : {&verifier, &prompt, &dialog}) {
        const HostWindow main(L"Contratos");
        // A form owned by the main window, as hosts have them.
        const HostWindow form(L"Contrato", main.window());
        for (HWND destroyed : {form.window(), main.window()}) {
            SetActiveWindow(destroyed == form.window() ? form.window() : main.window());
            modal->show([&](HWND window) {
                const bool owned = modal != &dialog;
                EXPECT_EQ(owner_of(window), owned ? destroyed : nullptr);
                host.post([=] { DestroyWindow(destroyed); });
                EXPECT_TRUE(wait_until_closed(destroyed));
                EXPECT_TRUE(IsWindowVisible(window));
                EXPECT_EQ(owner_of(window), nullptr);
                EXPECT_FALSE(IsWindowEnabled(stays.window()));
            });
            EXPECT_TRUE(IsWindowEnabled(stays.window()));
        }
    }
}

TEST(Owner, CanLoseItsOwnOwnerWithoutDestroyingTheModalWindow) {
    const HostCalls host;
    for (const Modal* modal : {&verifier, &prompt}) {
        const HostWindow main(L"Contratos");
        const HostWindow form(L"Contrato", main.window());
        SetActiveWindow(form.window());
        modal->show([&](HWND window) {
            EXPECT_EQ(owner_of(window), form.window());
            host.post([&] { DestroyWindow(main.window()); });
            EXPECT_TRUE(wait_until_closed(main.window()));
            EXPECT_TRUE(IsWindowVisible(window));
        });
    }
}

TEST(Owner, CanBeMinimisedWithoutHidingTheModalWindow) {
    const HostCalls calls;
    const HostWindow host(L"Contratos");
    for (const Modal* modal : {&verifier, &prompt}) {
        SetActiveWindow(host.window());
        modal->show([&](HWND window) {
            for (const bool minimised : {true, false}) {
                calls.post([&, minimised] { minimise(host.window(), minimised); });
                EXPECT_TRUE(
                    wait_until([&] { return (IsIconic(host.window()) != FALSE) == minimised; }));
                ask(window, WM_NULL);
                EXPECT_TRUE(IsWindowVisible(window));
                EXPECT_FALSE(IsWindowEnabled(host.window()));
            }
        });
        EXPECT_TRUE(IsWindowEnabled(host.window()));
    }
}

TEST(InFront, IsAModalWindowWhateverHostWindowComesForward) {
    const HostCalls calls;
    const HostWindow first(L"Contratos");
    const HostWindow second(L"Pagadores");
    for (const Modal* modal : {&verifier, &prompt, &dialog}) {
        SetActiveWindow(first.window());
        modal->show([&](HWND window) {
            EXPECT_TRUE(bring_to_front(window));
            for (HWND host : {first.window(), second.window()}) {
                activate(host);
                comes_before(window, host);
                // Raised by the host without activating it.
                calls.post([=] {
                    SetWindowPos(host, HWND_TOP, 0, 0, 0, 0,
                                 SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
                });
                comes_before(window, host);
                // Made topmost; not for the owner of the window, whose order Wine does not
                // change.
                if (owner_of(window) == host) continue;
                calls.post([=] {
                    SetWindowPos(host, HWND_TOPMOST, 0, 0, 0, 0,
                                 SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
                });
                EXPECT_TRUE(wait_until(
                    [&] { return (GetWindowLongW(host, GWL_EXSTYLE) & WS_EX_TOPMOST) != 0; }));
                comes_before(window, host);
            }
        });
        for (HWND host : {first.window(), second.window()}) {
            SetWindowPos(host, HWND_NOTOPMOST, 0, 0, 0, 0,
                         SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
        }
    }
}

TEST(InFront, IsAWindowOpenedOverAHostThatIsAlwaysOnTop) {
    const HostWindow host(L"Contratos");
    SetWindowPos(host.window(), HWND_TOPMOST, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
    for (const Modal* modal : {&verifier, &prompt, &dialog}) {
        SetActiveWindow(host.window());
        modal->show([&](HWND window) {
            EXPECT_TRUE(wait_until([&] { return is_above(window, host.window()); }));
        });
    }
}

TEST_F(Progress, ComesForwardWithItsHost) {
    const HostWindow host(L"Contratos");
    start({L"Recibos", L"Texto", true});
    HWND const window = only_window();
    EXPECT_TRUE(pump_until([&] { return GetActiveWindow() == window; }));
    std::atomic<bool> done = false;
    std::thread user([&] {
        // Switches to a window of another thread, and back to the host as the taskbar does.
        const HostWindow elsewhere(L"Otro trabajo");
        EXPECT_TRUE(bring_to_front(elsewhere.window()));
        activate(host.window());
        EXPECT_TRUE(pump_until([&] {
            return is_above(window, host.window()) && GetForegroundWindow() == window;
        })) << is_above(window, host.window())
            << narrow(text_of(GetForegroundWindow()));
        done = true;
    });
    EXPECT_TRUE(pump_until([&] { return done.load(); }));
    user.join();
}

TEST_F(Progress, ComesForwardOnceTheHostsBoxIsClosed) {
    const HostWindow host(L"Contratos");
    start({L"Recibos", L"Texto", true});
    HWND const window = only_window();
    EXPECT_TRUE(pump_until([&] { return GetActiveWindow() == window; }));
    {
        BoxWatcher boxes({answer(IDOK)});
        MessageBoxW(host.window(), L"¿Continuar?", L"Host", MB_OK);
    }
    EXPECT_TRUE(
        pump_until([&] { return GetActiveWindow() == window && is_above(window, host.window()); }));
}

TEST_F(Progress, TheFormItWasStartedFromMayBeClosed) {
    {
        const HostWindow form(L"Contrato");
        SetActiveWindow(form.window());
        start({L"Recibos", L"Texto", true});
        EXPECT_EQ(owner_of(only_window()), nullptr);
    }
    update(50);
    EXPECT_TRUE(IsWindowVisible(only_window()));
}

}  // namespace
}  // namespace kovrel::test
