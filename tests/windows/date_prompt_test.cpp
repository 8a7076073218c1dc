// The date prompt: a question, a date field and one button.
#include "tests/windows/date_prompt.h"

#include <array>

#include "tests/support/box_lines.h"

namespace kovrel::test {
namespace {

TEST_F(DatePrompt, ProposesTodayAndWritesItBack) {
    Variant proposed(Date{0});
    const double today = now_day();
    const double chosen = ask_date(
        [](HWND window) {
            EXPECT_EQ(text_of(window), L"Fecha");
            EXPECT_TRUE(find_control(window, L"Static", L"¿En qué fecha se cobró el recibo?"));
            EXPECT_TRUE(find_control(window, L"Static", L"Fecha:"));
            EXPECT_EQ(text_of(accept_button(window)), L"Aceptar");
            const auto style = GetWindowLongW(accept_button(window), GWL_STYLE);
            EXPECT_NE(style & BS_ICON, 0);
            EXPECT_NE(ask(accept_button(window), BM_GETIMAGE, IMAGE_ICON), 0);
            press_ok(window);
        },
        {L"¿En qué fecha se cobró el recibo?", L"Fecha", LateArgument::variable(proposed)});
    EXPECT_EQ(chosen, today);
    EXPECT_EQ(proposed.to_date(), Date{today});
}

TEST_F(DatePrompt, OnlyTheQuestionIsNeeded) {
    EXPECT_EQ(ask_date(
                  [](HWND window) {
                      EXPECT_EQ(text_of(window), L"Fecha");
                      press_ok(window);
                  },
                  {L"¿Fecha?"}),
              now_day());
}

TEST_F(DatePrompt, ShowsTheHostsCaptionAndProposedDate) {
    Variant proposed(Date{day(1999, 12, 31)});
    EXPECT_EQ(
        ask_date(
            [](HWND window) {
                EXPECT_EQ(text_of(window), L"Baja del contrato");
                press_ok(window);
            },
            {L"Escriba la fecha de baja", L"Baja del contrato", LateArgument::variable(proposed)}),
        day(1999, 12, 31));
    EXPECT_EQ(proposed.to_date(), Date{day(1999, 12, 31)});
}

TEST_F(DatePrompt, KeepsTheTimeOfAProposedDate) {
    const double chosen =
        ask_date(press_ok, {L"¿Cuándo?", L"Fecha", Variant(Date{day(2024, 2, 29) + 0.75})});
    EXPECT_EQ(chosen, day(2024, 2, 29) + 0.75);
}

TEST_F(DatePrompt, AnEmptyCaptionStaysEmpty) {
    ask_date(
        [](HWND window) {
            EXPECT_EQ(text_of(window), L"");
            press_ok(window);
        },
        {L"¿Fecha?", L""});
}

TEST_F(DatePrompt, TheKeyboardAloneIsEnough) {
    EXPECT_EQ(ask_date(
                  [](HWND window) {
                      come_to_front(window);
                      EXPECT_EQ(tab_order(window),
                                (std::vector<HWND>{date_field(window), accept_button(window)}));
                      // Typing begins in the day.
                      type_text(L"15");
                      press_key(VK_RIGHT);
                      type_text(L"08");
                      press_key(VK_RIGHT);
                      type_text(L"2023");
                      press_key(VK_RETURN);
                  },
                  {L"¿Fecha de alta?", L"Alta", Variant(Date{day(2020, 1, 1)})}),
              day(2023, 8, 15));
}

/// Whether a tooltip of the window is on the screen.
bool shows_tooltip(HWND window) {
    HWND tips = nullptr;
    while ((tips = FindWindowExW(nullptr, tips, TOOLTIPS_CLASSW, nullptr)) != nullptr) {
        if (GetWindow(tips, GW_OWNER) == window && IsWindowVisible(tips)) return true;
    }
    return false;
}

TEST_F(DatePrompt, TheButtonHasATooltip) {
    ask_date(
        [](HWND window) {
            come_to_front(window);
            RECT button{};
            GetWindowRect(accept_button(window), &button);
            EXPECT_FALSE(shows_tooltip(window));
            // The mouse moves over the button once.
            SetCursorPos(button.right - 1, button.top - 10);
            SetCursorPos((button.left + button.right) / 2, (button.top + button.bottom) / 2);
            EXPECT_TRUE(wait_until([&] { return shows_tooltip(window); }));
            SetCursorPos(0, 0);
            press_ok(window);
        },
        {L"¿Fecha?"});
}

TEST_F(DatePrompt, AnEmptyFieldIsAskedForAgain) {
    const double chosen = [&] {
        HWND asked = nullptr;
        BoxWatcher windows({on_window(prompt, [&](HWND window) {
            asked = window;
            set_field(window, {}, GDT_NONE);
            press_ok(window);
            HWND const box = wait_for_window({L"#32770", L"kovrel", 0});
            EXPECT_NE(box, nullptr);
            std::optional<SeenBox> seen;
            EXPECT_TRUE(wait_until([&] { return (seen = read_box(box)).has_value(); }));
            if (!seen) return;
            EXPECT_EQ(as_line(*seen), L"48|kovrel|Por favor, escriba una fecha correctamente|0");
            EXPECT_TRUE(answer_box(box, *seen, {IDOK, 0}));
            EXPECT_TRUE(IsWindowVisible(window));
            EXPECT_TRUE(wait_until([&] { return focus_of(window) == date_field(window); }));
            set_field(window, {2025, 3, 0, 9, 0, 0, 0, 0});
            press_ok(window);
        })});
        return result_of(call(dates_.get(), L"PideFecha", {L"¿Fecha?"}));
    }();
    EXPECT_EQ(chosen, day(2025, 3, 9));
}

TEST_F(DatePrompt, DayZeroCannotBeChosen) {
    EXPECT_EQ(ask_date(
                  [](HWND window) {
                      set_field(window, {1899, 12, 0, 30, 0, 0, 0, 0});
                      press_ok(window);
                      HWND const box = wait_for_window({L"#32770", L"kovrel", 0});
                      std::optional<SeenBox> seen;
                      EXPECT_TRUE(wait_until([&] { return (seen = read_box(box)).has_value(); }));
                      EXPECT_TRUE(seen && answer_box(box, *seen, {IDOK, 0}));
                      set_field(window, {1899, 12, 0, 31, 0, 0, 0, 0});
                      press_ok(window);
                  },
                  {L"¿Fecha?"}),
              1);
}

TEST_F(DatePrompt, OnlyTheButtonClosesIt) {
    ask_date(
        [](HWND window) {
            EXPECT_EQ(GetWindowLongW(window, GWL_STYLE) & WS_SYSMENU, 0);
            come_to_front(window);
            ask(window, WM_SYSKEYDOWN, VK_F4, 1L << 29);
            ask(window, WM_CLOSE);
            ask(window, WM_SYSCOMMAND, SC_CLOSE);
            EXPECT_TRUE(IsWindowVisible(window));
            press_key(VK_ESCAPE);
            press_key(VK_TAB);
            EXPECT_TRUE(wait_until([&] { return focus_of(window) == accept_button(window); }));
            press_key(VK_SPACE);
        },
        {L"¿Fecha?"});
}

std::wstring shown_date(HWND window) {
    return text_of(date_field(window));
}

TEST_F(DatePrompt, ShowsDayAndMonthWithTwoDigits) {
    const auto shown = [&] {
        std::wstring text;
        ask_date(
            [&](HWND window) {
                text = shown_date(window);
                press_ok(window);
            },
            {L"¿Fecha?", L"Fecha", Variant(Date{day(2024, 3, 5)})});
        return text;
    };
    EXPECT_EQ(shown(), L"05/03/2024");
    std::array<wchar_t, 80> usual{};
    GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SSHORTDATE, usual.data(),
                   static_cast<int>(usual.size()));
    ASSERT_TRUE(SetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SSHORTDATE, L"d/M/yyyy"));
    EXPECT_EQ(shown(), L"05/03/2024");
    SetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SSHORTDATE, usual.data());
}

}  // namespace
}  // namespace kovrel::test
