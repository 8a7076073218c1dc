// The date prompt: how it is modal, calls while it is open, and values that it refuses.
#include <atomic>

#include "tests/support/box_lines.h"
#include "tests/support/early.h"
#include "tests/support/gui_objects.h"
#include "tests/windows/date_prompt.h"
#include "tests/windows/host_window.h"

namespace kovrel::test {
namespace {

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
