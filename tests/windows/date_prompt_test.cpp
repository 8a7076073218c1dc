// The date prompt: a question, a date field and one button.
#include <windows.h>
#include <commctrl.h>

#include <array>
#include <atomic>
#include <functional>
#include <gtest/gtest.h>

#include "runtime/calendar.h"
#include "tests/support/box_lines.h"
#include "tests/support/early.h"
#include "tests/support/gui_objects.h"
#include "tests/windows/host_window.h"

namespace kovrel::test {
namespace {

constexpr const wchar_t* prompt_class = L"Kovrel.frmFECHA1";

const WindowQuery prompt{prompt_class, {}, 0};

HWND date_field(HWND window) {
    return find_control(window, DATETIMEPICK_CLASSW);
}
// The date field may contain buttons.
HWND ok_button(HWND window) {
    return find_control(window, 104);
}
void press_ok(HWND window) {
    PostMessageW(ok_button(window), BM_CLICK, 0, 0);
}

void set_field(HWND window, const SYSTEMTIME& value, WPARAM state = GDT_VALID) {
    EXPECT_NE(ask(date_field(window), DTM_SETSYSTEMTIME, state, reinterpret_cast<LPARAM>(&value)),
              0);
}

double day(int year, int month, int day_of_month) {
    return day_count({year, month, day_of_month});
}

double now_day() {
    SYSTEMTIME now{};
    GetLocalTime(&now);
    return day(now.wYear, now.wMonth, now.wDay);
}

class DatePrompt : public testing::Test {
 protected:
    double result_of(const Outcome& outcome) {
        EXPECT_EQ(outcome.result, S_OK);
        EXPECT_EQ(outcome.value.vt, VT_DATE);
        return outcome.value.date;
    }
    double ask_date(const std::function<void(HWND)>& work,
                    const std::vector<LateArgument>& arguments) {
        BoxWatcher windows({on_window(prompt, work)});
        return result_of(call(dates_.get(), L"PideFecha", arguments));
    }

    ComPtr<IDispatch> dates_ = create(L"Kovrel.clsFFechas");
};

// Activates the window and waits until its date field has the focus.
void come_to_front(HWND window) {
    EXPECT_TRUE(bring_to_front(window));
    EXPECT_TRUE(wait_until([&] { return focus_of(window) == date_field(window); }));
}

TEST_F(DatePrompt, ProposesTodayAndWritesItBack) {
    Variant proposed(Date{0});
    const double today = now_day();
    const double chosen = ask_date(
        [](HWND window) {
            EXPECT_EQ(text_of(window), L"Fecha");
            EXPECT_TRUE(find_control(window, L"Static", L"¿En qué fecha se cobró el recibo?"));
            EXPECT_TRUE(find_control(window, L"Static", L"Fecha:"));
            EXPECT_EQ(text_of(ok_button(window)), L"Aceptar");
            const auto style = GetWindowLongW(ok_button(window), GWL_STYLE);
            EXPECT_NE(style & BS_ICON, 0);
            EXPECT_NE(ask(ok_button(window), BM_GETIMAGE, IMAGE_ICON), 0);
            EXPECT_TRUE(save_picture(window, picture_folder() / L"date_prompt.png"));
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
                                (std::vector<HWND>{date_field(window), ok_button(window)}));
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
            EXPECT_TRUE(save_picture(window, picture_folder() / L"date_prompt_empty.png"));
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
            EXPECT_TRUE(wait_until([&] { return focus_of(window) == ok_button(window); }));
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

TEST_F(DatePrompt, IsModalAndGivesTheFocusBack) {
    const HostWindow first(L"Contratos");
    const HostWindow second(L"Pagadores");
    SetActiveWindow(first.window());
    SetFocus(first.field());
    ask_date(
        [&](HWND window) {
            come_to_front(window);
            EXPECT_FALSE(IsWindowEnabled(first.window()));
            EXPECT_FALSE(IsWindowEnabled(second.window()));
            press_ok(window);
        },
        {L"¿Fecha?"});
    EXPECT_TRUE(IsWindowEnabled(first.window()));
    EXPECT_TRUE(IsWindowEnabled(second.window()));
    EXPECT_EQ(GetActiveWindow(), first.window());
    EXPECT_EQ(GetFocus(), first.field());
}

std::atomic<int> ticks;

void CALLBACK tick(HWND /*window*/, UINT /*message*/, UINT_PTR /*timer*/, DWORD /*time*/) {
    ++ticks;
}

TEST_F(DatePrompt, AHiddenPromptStillWaitsForTheDate) {
    ticks = 0;
    const UINT_PTR timer = SetTimer(nullptr, 0, 10, &tick);
    const HostWindow host(L"Contratos");
    std::atomic<bool> returned = false;
    BoxWatcher windows({on_window(prompt, [&](HWND window) {
        ShowWindow(window, SW_HIDE);
        EXPECT_TRUE(wait_until([&] { return IsWindowEnabled(host.window()) != FALSE; }));
        // The host's events are dispatched.
        const int now = ticks;
        EXPECT_TRUE(wait_until([&] { return ticks > now + 20; }));
        EXPECT_FALSE(returned);
        EXPECT_TRUE(IsWindow(window));
        press_ok(window);
        EXPECT_TRUE(wait_until([&] { return returned.load(); }));
    })});
    const Outcome outcome =
        call(dates_.get(), L"PideFecha", {L"¿Fecha?", L"Fecha", Variant(Date{day(2024, 3, 5)})});
    returned = true;
    KillTimer(nullptr, timer);
    EXPECT_EQ(result_of(outcome), day(2024, 3, 5));
}

TEST_F(DatePrompt, ASecondCallWhileItIsOpenIsReported) {
    const HostCalls host;
    const auto other = create(L"Kovrel.clsFFechas");
    std::atomic<bool> returned = false;
    const double chosen = ask_date(
        [&](HWND window) {
            host.post([&] {
                EXPECT_EQ(result_of(call(other.get(), L"PideFecha", {L"¿Otra fecha?"})), 0);
                returned = true;
            });
            HWND const box = wait_for_window({L"#32770", L"kovrel", 0});
            std::optional<SeenBox> seen;
            EXPECT_TRUE(wait_until([&] { return (seen = read_box(box)).has_value(); }));
            if (!seen) return;
            EXPECT_EQ(narrow(as_line(*seen)),
                      "16|kovrel|Error 400\\r (El formulario ya se muestra; no puede mostrarse de "
                      "forma modal) en procedimiento PideFecha del Módulo de clase clsFFechas.|0");
            EXPECT_TRUE(answer_box(box, *seen, {IDOK, 0}));
            EXPECT_TRUE(wait_until([&] { return returned.load(); }));
            EXPECT_TRUE(IsWindowVisible(window));
            EXPECT_TRUE(IsWindowEnabled(window));
            set_field(window, {2025, 3, 0, 9, 0, 0, 0, 0});
            press_ok(window);
        },
        {L"¿Fecha?"});
    EXPECT_EQ(chosen, day(2025, 3, 9));
}

TEST_F(DatePrompt, TwoCallsInARow) {
    ask_date(press_ok, {L"Primera pregunta", L"Una", Variant(Date{day(2001, 1, 1)})});
    EXPECT_EQ(ask_date(
                  [](HWND window) {
                      EXPECT_EQ(text_of(window), L"Fecha");
                      EXPECT_TRUE(find_control(window, L"Static", L"Segunda pregunta"));
                      press_ok(window);
                  },
                  {L"Segunda pregunta"}),
              now_day());
}

TEST_F(DatePrompt, ALongQuestionIsShownWhole) {
    std::wstring question;
    for (int part = 0; part < 6; ++part) {
        question += L"El recibo se devolvió y se ha vuelto a presentar al cobro. ";
    }
    question += L"& ¿en qué fecha?";
    ask_date(
        [&](HWND window) {
            HWND const label = find_control(window, L"Static", question);
            RECT bounds{};
            GetClientRect(label, &bounds);
            EXPECT_GT(bounds.bottom, 60);
            EXPECT_TRUE(save_picture(window, picture_folder() / L"date_prompt_long.png"));
            press_ok(window);
        },
        {question, L"Fecha de cobro"});
}

TEST_F(DatePrompt, ADateThatTheFieldCannotShowIsReported) {
    for (const double impossible : {day(1600, 12, 31), day(100, 1, 1), 5e6, -1e9}) {
        BoxWatcher boxes({answer(IDOK)});
        const Outcome outcome =
            call(dates_.get(), L"PideFecha", {L"¿Fecha?", L"Fecha", Variant(Date{impossible})});
        EXPECT_EQ(result_of(outcome), 0);
        EXPECT_EQ(lines_of(boxes),
                  Lines{"16|kovrel|Error 5\\r (Llamada a procedimiento o argumento no válidos) en "
                        "procedimiento PideFecha del Módulo de clase clsFFechas.|1"});
    }
    EXPECT_TRUE(top_level_windows(prompt).empty());
    // The next call is not affected.
    EXPECT_EQ(ask_date(press_ok, {L"¿Fecha?"}), now_day());
}

TEST_F(DatePrompt, EarlyBound) {
    using Ask = HRESULT(STDMETHODCALLTYPE*)(IDispatch*, BSTR*, BSTR*, DATE*, DATE*);
    BoxWatcher windows({on_window(prompt, press_ok)});
    Bstr question(L"¿Fecha?");
    Bstr caption(L"Entrega");
    BSTR raw_question = question.get();
    BSTR raw_caption = caption.get();
    DATE proposed = 0;
    DATE chosen = 0;
    EXPECT_EQ(early<Ask>(dates_.get(), L"PideFecha")(dates_.get(), &raw_question, &raw_caption,
                                                     &proposed, &chosen),
              S_OK);
    EXPECT_EQ(chosen, now_day());
    EXPECT_EQ(proposed, now_day());
}

TEST_F(DatePrompt, LeaksNothing) {
    const auto once = [&] { ask_date(press_ok, {L"¿Fecha?"}); };
    once();
    const GuiObjects before = gui_objects();
    for (int round = 0; round < 10; ++round) once();
    EXPECT_EQ(gui_objects(), before);
}

}  // namespace
}  // namespace kovrel::test
