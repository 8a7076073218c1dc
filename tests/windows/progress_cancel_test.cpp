// Canceling in the progress window, and the focus, while the host is busy or waits.
#include <chrono>
#include <thread>

#include "tests/windows/host_window.h"
#include "tests/windows/progress_window.h"

namespace kovrel::test {
namespace {

/// Updates without dispatching messages, as a busy host, until the user has canceled.
template <class Update>
int update_until(const Update& update, const std::function<bool()>& ended) {
    const auto limit = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    int rounds = 0;
    while (!ended() && std::chrono::steady_clock::now() < limit) {
        update(++rounds % 101);
        Sleep(1);
    }
    return rounds;
}

TEST_F(Progress, TheMouseCancelsWhileTheHostIsBusy) {
    start({L"Con ratón", L"Texto", true});
    HWND const window = only_window();
    HWND const button = find_control(window, L"Button");
    std::thread user([&] {
        bring_to_front(window);
        click(button);
    });
    update_until([&](int percentage) { update(percentage); }, [&] { return canceled(); });
    user.join();
    EXPECT_TRUE(canceled());
    EXPECT_FALSE(IsWindow(window));
    // Later updates are ignored, and the cancel remains set.
    update(50);
    EXPECT_TRUE(canceled());
    EXPECT_THAT(progress_windows(), testing::IsEmpty());
    finish();
    EXPECT_FALSE(canceled());
}

TEST_F(Progress, TheKeyboardCancelsWhileTheHostIsBusy) {
    for (const WORD key : std::initializer_list<WORD>{VK_SPACE, VK_RETURN, VK_ESCAPE}) {
        start({L"Con teclado", L"Texto", true});
        HWND const window = only_window();
        std::thread user([&] {
            bring_to_front(window);
            press_key(key);
        });
        update_until([&](int percentage) { update(percentage); }, [&] { return canceled(); });
        user.join();
        EXPECT_TRUE(canceled()) << key;
        finish();
    }
}

TEST_F(Progress, TheKeyboardCancelsWhileTheHostWaits) {
    for (const WORD key : std::initializer_list<WORD>{VK_SPACE, VK_RETURN, VK_ESCAPE}) {
        start({L"En espera", L"Texto", true});
        HWND const window = only_window();
        EXPECT_EQ(focus_of(window), find_control(window, L"Button"));
        std::thread user([&] {
            bring_to_front(window);
            press_key(key);
        });
        EXPECT_TRUE(pump_until([&] { return canceled(); })) << key;
        user.join();
        finish();
    }
}

TEST_F(Progress, CannotBeCanceledWithoutTheButton) {
    start({L"Sin botón", L"Texto"});
    HWND const window = only_window();
    ask(window, WM_CLOSE);
    ask(window, WM_COMMAND, IDCANCEL);
    ask(window, WM_COMMAND, IDOK);
    EXPECT_TRUE(IsWindow(window));
    EXPECT_FALSE(canceled());
}

TEST_F(Progress, KeepsTheFocusAmongTheHostsWindows) {
    const HostWindow host(L"Contratos");
    start({L"Foco", L"Texto", true});
    HWND const window = only_window();
    EXPECT_TRUE(pump_until([&] { return GetActiveWindow() == window; }));
    SetActiveWindow(host.window());
    EXPECT_TRUE(pump_until([&] { return GetActiveWindow() == window; }));
    SetFocus(host.field());
    update(10);
    EXPECT_EQ(GetActiveWindow(), window);
    EXPECT_EQ(GetFocus(), find_control(window, L"Button"));
}

TEST_F(Progress, LeavesTheFocusToTheHostsBoxes) {
    const HostWindow host(L"Contratos");
    start({L"Foco", L"Texto", true});
    BoxWatcher boxes({answer_key(VK_RETURN)});
    MessageBoxW(host.window(), L"¿Continuar?", L"Host", MB_OK);
    ASSERT_EQ(boxes.seen().size(), 1U);
    EXPECT_EQ(boxes.seen()[0].text, L"¿Continuar?");
    // The key went to the box, not to the button that had the focus before.
    EXPECT_FALSE(canceled());
    EXPECT_TRUE(IsWindow(only_window()));
}

TEST_F(Progress, ASecondWindowReplacesTheFirstWithoutClosingIt) {
    start({L"Primera", L"Texto", true});
    HWND const first = only_window();
    start({L"Segunda", L"Texto", true});
    EXPECT_EQ(progress_windows().size(), 2U);
    EXPECT_TRUE(IsWindow(first));
    // Two windows that keep the focus do not loop.
    settle();
    // Canceling in the first does not cancel the second.
    ask(find_control(first, L"Button"), BM_CLICK);
    EXPECT_FALSE(canceled());
    HWND const second = only_window();
    EXPECT_EQ(text_of(second), L"Segunda");
    ask(find_control(second, L"Button"), BM_CLICK);
    EXPECT_TRUE(canceled());
}

}  // namespace
}  // namespace kovrel::test
