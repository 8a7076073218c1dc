// Tests of BoxWatcher and the window driver, with the platform's own boxes and windows.
#include "tests/support/box_watcher.h"

#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

namespace kovrel::test {
namespace {

int show(const std::wstring& text, UINT style, const std::wstring& title = L"Título") {
    return MessageBoxW(nullptr, text.c_str(), title.c_str(), style);
}

std::vector<int> ids(const SeenBox& box) {
    std::vector<int> found;
    for (const BoxButton& button : box.buttons) found.push_back(button.id);
    return found;
}

TEST(BoxWatcher, ReadsTextTitleAndButtons) {
    BoxWatcher boxes({answer(IDOK)});
    EXPECT_EQ(show(L"La letra no es correcta.\rLínea dos, año €", MB_OK | MB_ICONEXCLAMATION),
              IDOK);
    ASSERT_EQ(boxes.seen().size(), 1u);
    const SeenBox box = boxes.seen()[0];
    EXPECT_EQ(box.text, L"La letra no es correcta.\rLínea dos, año €");
    EXPECT_EQ(box.title, L"Título");
    EXPECT_EQ(box.style, 48);
    ASSERT_EQ(ids(box), std::vector<int>{IDOK});
    EXPECT_EQ(box.buttons[0].caption, L"Aceptar");
    EXPECT_EQ(box.default_button, IDOK);
    EXPECT_EQ(box.pressed, IDOK);
}

TEST(BoxWatcher, ReadsEveryIconAndButtonSet) {
    for (const UINT icon : {0u, 16u, 32u, 48u, 64u}) {
        for (const UINT set : {0u, 1u, 2u, 3u, 4u, 5u, 6u}) {
            BoxWatcher boxes({answer(0)});
            show(L"x", icon | set);
            ASSERT_EQ(boxes.seen().size(), 1u);
            EXPECT_EQ(boxes.seen()[0].style, static_cast<int>(icon | set));
        }
    }
}

TEST(BoxWatcher, ReadsTheDefaultButton) {
    BoxWatcher boxes({answer(0), answer(0)});
    EXPECT_EQ(show(L"¿Sí?", MB_YESNO | MB_ICONQUESTION | MB_DEFBUTTON2), IDNO);
    EXPECT_EQ(show(L"¿Sí?", MB_YESNOCANCEL | MB_DEFBUTTON3), IDCANCEL);
    EXPECT_EQ(boxes.seen()[0].style, 36 + 256);
    EXPECT_EQ(boxes.seen()[1].style, 3 + 512);
}

TEST(BoxWatcher, AnswersInOrder) {
    BoxWatcher boxes({answer(IDNO), answer(IDYES), answer(IDCANCEL)});
    EXPECT_EQ(show(L"1", 36), IDNO);
    EXPECT_EQ(show(L"2", 36), IDYES);
    EXPECT_EQ(show(L"3", 33), IDCANCEL);
    EXPECT_EQ(boxes.seen().size(), 3u);
}

TEST(BoxWatcher, AnswersFromTheKeyboard) {
    BoxWatcher boxes({answer_key(VK_ESCAPE), answer_key(VK_RETURN)});
    EXPECT_EQ(show(L"Escape", 33), IDCANCEL);
    EXPECT_EQ(show(L"Intro", 33), IDOK);
}

TEST(BoxWatcher, ReadsAnEmptyTitle) {
    BoxWatcher boxes({answer(IDOK)});
    show(L"sin título", 64, L"");
    EXPECT_EQ(boxes.seen()[0].title, L"");
}

TEST(BoxWatcher, AnswersAnUnannouncedBoxAndFails) {
    EXPECT_NONFATAL_FAILURE(
        {
            BoxWatcher boxes;
            EXPECT_EQ(show(L"de más", 16), IDOK);
            EXPECT_EQ(boxes.seen().size(), 1u);
        },
        "was not announced: 16|");
}

TEST(BoxWatcher, FailsWhenAnAnnouncedBoxStaysAway) {
    EXPECT_NONFATAL_FAILURE({ BoxWatcher boxes({answer(IDOK)}); }, "1 boxes or windows were");
}

TEST(BoxWatcher, FailsOnAButtonThatIsNotThere) {
    EXPECT_NONFATAL_FAILURE(
        {
            BoxWatcher boxes({answer(IDYES)});
            show(L"x", 0);
        },
        "has no button 6");
}

TEST(BoxWatcher, ClosesAnUnannouncedWindowAfterTheLimitAndFails) {
    EXPECT_NONFATAL_FAILURE(
        {
            BoxWatcher boxes({}, Milliseconds{200});
            HWND const window = CreateWindowExW(0, L"STATIC", L"suelta", WS_POPUP | WS_VISIBLE, 0,
                                                0, 100, 100, nullptr, nullptr, nullptr, nullptr);
            EXPECT_TRUE(pump_until([&] { return !IsWindow(window) || !IsWindowVisible(window); }));
        },
        "stayed open: Static");
}

TEST(BoxWatcher, WritesOneLineABox) {
    SeenBox box;
    box.title = L"a\\b";
    box.text = L"uno\rdos\n|tres";
    box.style = 48;
    box.pressed = 1;
    EXPECT_EQ(as_line(box), L"48|a\\\\b|uno\\rdos\\n|tres|1");
}

// A dialog with two boxes for text, a check box and a button.
class Dialog {
 public:
    Dialog() {
        window_ = CreateWindowExW(WS_EX_CONTROLPARENT, L"#32770", L"Prueba",
                                  WS_OVERLAPPEDWINDOW | WS_VISIBLE, 40, 40, 400, 200, nullptr,
                                  nullptr, nullptr, nullptr);
        first_ = child(L"EDIT", L"uno", WS_BORDER, 10, 101);
        child(L"EDIT", L"dos", WS_BORDER, 40, 102);
        child(L"BUTTON", L"Marca", BS_AUTOCHECKBOX, 70, 103);
        child(L"BUTTON", L"Año", BS_PUSHBUTTON, 100, 104);
        SetFocus(first_);
    }
    ~Dialog() { DestroyWindow(window_); }
    Dialog(const Dialog&) = delete;
    Dialog& operator=(const Dialog&) = delete;

    HWND window() const { return window_; }
    HWND first() const { return first_; }

 private:
    HWND child(const wchar_t* name, const wchar_t* text, DWORD style, int top, int id) const {
        return CreateWindowExW(0, name, text, WS_CHILD | WS_VISIBLE | WS_TABSTOP | style, 10, top,
                               200, 24, window_, reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)),
                               nullptr, nullptr);
    }

    HWND window_ = nullptr;
    HWND first_ = nullptr;
};

TEST(WindowDriver, FindsControlsAndTheirOrder) {
    const Dialog dialog;
    EXPECT_EQ(wait_for_window({L"#32770", L"Prueba", GetCurrentProcessId()}), dialog.window());
    EXPECT_EQ(controls_of(dialog.window()).size(), 4u);
    EXPECT_EQ(find_control(dialog.window(), L"edit"), dialog.first());
    EXPECT_EQ(text_of(find_control(dialog.window(), L"Button", L"Año")), L"Año");
    EXPECT_EQ(find_control(dialog.window(), 105), nullptr);
    std::vector<int> order;
    for (HWND control : tab_order(dialog.window())) order.push_back(GetDlgCtrlID(control));
    EXPECT_EQ(order, (std::vector<int>{101, 102, 103, 104}));
}

TEST(WindowDriver, TypesIntoTheControlWithTheFocus) {
    const Dialog dialog;
    ASSERT_TRUE(bring_to_front(dialog.window()));
    SetFocus(dialog.first());
    SendMessageW(dialog.first(), EM_SETSEL, 0, -1);
    type_text(L"Añade 12,5 € Ü");
    EXPECT_TRUE(pump_until([&] { return text_of(dialog.first()) == L"Añade 12,5 € Ü"; }))
        << narrow(text_of(dialog.first()));
    EXPECT_EQ(focus_of(dialog.window()), dialog.first());
}

TEST(WindowDriver, ClicksAndResizes) {
    const Dialog dialog;
    ASSERT_TRUE(bring_to_front(dialog.window()));
    HWND const mark = find_control(dialog.window(), 103);
    click(mark);
    EXPECT_TRUE(pump_until([&] { return ask(mark, BM_GETCHECK) == BST_CHECKED; }));
    resize(dialog.window(), 500, 300);
    RECT bounds;
    GetWindowRect(dialog.window(), &bounds);
    EXPECT_EQ(bounds.right - bounds.left, 500);
    EXPECT_EQ(bounds.bottom - bounds.top, 300);
}

TEST(WindowDriver, WatcherWorksAWindow) {
    BoxWatcher boxes(
        {on_window({L"", L"Prueba", 0}, [](HWND window) { PostMessageW(window, WM_APP, 0, 0); })});
    const Dialog dialog;
    EXPECT_TRUE(boxes.wait());
}

}  // namespace
}  // namespace kovrel::test
