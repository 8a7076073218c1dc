// The progress window: opening and closing, texts and layout.
#include <array>
#include <chrono>
#include <iostream>
#include <limits>

#include "tests/support/gui_objects.h"
#include "tests/windows/progress_window.h"

// After the platform's main header, which the headers above bring.
#include <psapi.h>

namespace kovrel::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST_F(Progress, OpensWithItsTextsAndCloses) {
    start();
    HWND const window = only_window();
    EXPECT_EQ(text_of(window), L"Facturación");
    EXPECT_EQ(text_of(find_control(window, L"Static")), L"Generando recibos...");
    EXPECT_EQ(GetWindow(window, GW_OWNER), nullptr);
    EXPECT_TRUE(IsWindowEnabled(window));
    EXPECT_FALSE(canceled());
    finish();
    EXPECT_THAT(progress_windows(), IsEmpty());
    finish();
    EXPECT_FALSE(canceled());
}

TEST_F(Progress, EmptyTextsKeepTheDesign) {
    start({L"", L""});
    HWND const window = only_window();
    EXPECT_EQ(text_of(window), L" Progreso del proceso...");
    EXPECT_EQ(text_of(find_control(window, L"Static")), L"");
}

TEST_F(Progress, TheAreasAreStackedAndTheWindowFitsThem) {
    // 40 and 80 twips in whole pixels.
    constexpr int margin = 40 / 15;
    constexpr int two_margins = 80 / 15;
    const auto height_of = [](bool button) {
        const auto general = create(L"Kovrel.clsFGen");
        call(general.get(), L"BarraProgresoInicia", {L"Alturas", L"Texto", button});
        settle();
        HWND const window = only_window();
        const RECT header = bounds_in(header_of(window), window);
        const RECT bar = bounds_in(bar_of(window), window);
        const RECT base = bounds_in(base_of(window), window);
        EXPECT_EQ(IsWindowVisible(base_of(window)) != FALSE, button);
        EXPECT_EQ(header.top, 0);
        EXPECT_EQ(bar.top, header.bottom);
        EXPECT_EQ(base.top, bar.bottom);
        const LONG areas = button ? base.bottom : bar.bottom;
        EXPECT_NEAR(inner(window).bottom, areas + two_margins, 1);
        const RECT label = bounds_in(find_control(window, L"Static"), header_of(window));
        EXPECT_NEAR(label.top, margin, 1);
        EXPECT_EQ(label.left, 0);
        EXPECT_EQ(label.right, inner(header_of(window)).right);
        EXPECT_NEAR(inner(header_of(window)).bottom - label.bottom, margin, 1);
        const RECT cancel = bounds_in(find_control(window, L"Button"), base_of(window));
        EXPECT_NEAR(cancel.left, inner(base_of(window)).right - cancel.right, 1);
        return std::pair(outer(window).bottom - outer(window).top, base.bottom - base.top);
    };
    const auto [tall, base] = height_of(true);
    const auto [low, same_base] = height_of(false);
    EXPECT_EQ(base, same_base);
    EXPECT_EQ(tall - low, base);
}

TEST_F(Progress, SizesAndPositionAreInTwips) {
    start({L"Medidas", L"Texto", true, 1500, 9000, 1500, 3000});
    HWND const window = only_window();
    EXPECT_EQ(inner(header_of(window)).bottom, 100);
    has_width(window, 600);
    is_at(window, 200, 100);
}

TEST_F(Progress, TheAreasKeepTheirPositionsWhenTheWindowIsResized) {
    const auto areas = [](HWND window) {
        std::vector<std::array<LONG, 4>> places;
        for (HWND const area : {header_of(window), bar_of(window), base_of(window)}) {
            const RECT bounds = bounds_in(area, window);
            places.push_back({bounds.left, bounds.top, bounds.right, bounds.bottom});
        }
        return places;
    };
    start({L"Recibos", L"Texto", true});
    HWND const window = only_window();
    const auto design = areas(window);
    for (const auto& [width, height] :
         std::initializer_list<std::pair<int, int>>{{900, 700}, {200, 60}, {500, 300}}) {
        resize(window, width, height);
        settle();
        EXPECT_EQ(areas(window), design) << width << " by " << height;
    }
    finish();
    // The host's width sets only the width of the window.
    for (const std::int32_t width : {3000, 12000}) {
        start({L"Recibos", L"Texto", true, 0, width});
        EXPECT_EQ(areas(only_window()), design) << width;
        finish();
    }
}

TEST_F(Progress, PositionZeroIsTheCornerAndMinusOneTheDefault) {
    start({L"Esquina", L"Texto", false, 0, 0, 0, 0});
    is_at(only_window(), 0, 0);
    const RECT bounds = outer(only_window());
    const int left = (GetSystemMetrics(SM_CXSCREEN) - (bounds.right - bounds.left)) / 2;
    const int top = (GetSystemMetrics(SM_CYSCREEN) - (bounds.bottom - bounds.top)) / 2;
    finish();
    start({L"Centro", L"Texto", false, 0, 0, -1, -1});
    is_at(only_window(), left, top);
    finish();
    start({L"Centro", L"Texto"});
    is_at(only_window(), left, top);
    finish();
    start({L"Media", L"Texto", false, 0, 0, 0, -1});
    is_at(only_window(), left, 0);
}

TEST_F(Progress, ALowHeaderHasALabelWithoutHeight) {
    for (const std::int32_t height : {1, 15, 45, 79, 80}) {
        start({L"Baja", L"Texto", false, height});
        EXPECT_LE(inner(find_control(only_window(), L"Static")).bottom, 0) << height;
        finish();
    }
}

TEST_F(Progress, ImpossibleSizesAreCut) {
    constexpr std::int32_t most = std::numeric_limits<std::int32_t>::max();
    constexpr std::int32_t least = std::numeric_limits<std::int32_t>::min();
    start({L"Enorme", L"Texto", true, most, most, 0, 0});
    EXPECT_GT(inner(header_of(only_window())).bottom, 1000);
    EXPECT_GT(outer(only_window()).right, 1000);
    update(50);
    finish();
    start({L"Negativa", L"Texto", true, least, least, 0, 0});
    EXPECT_EQ(inner(header_of(only_window())).bottom, 46);
    update(50);
}

TEST_F(Progress, AnUpdateBeforeTheStartShowsTheBox) {
    for (int round = 0; round < 2; ++round) {
        BoxWatcher boxes({answer(IDOK)});
        EXPECT_EQ(call(general_.get(), L"BarraProgresoActualiza", {std::int32_t{5}}).result, S_OK);
        EXPECT_THAT(lines_of(boxes),
                    ElementsAre(narrow(L"16|kovrel|Error 91\\r (Variable de objeto o bloque With "
                                       L"no establecido) en procedimiento BarraProgresoActualiza "
                                       L"del Módulo de clase clsFGen.|1")));
        // The same after the end.
        start();
        finish();
    }
}

TEST_F(Progress, AnOmittedMessageClearsTheLine) {
    start();
    EXPECT_EQ(call(general_.get(), L"BarraProgresoActualiza", {std::int32_t{40}}).result, S_OK);
    EXPECT_EQ(text_of(find_control(only_window(), L"Static")), L"");
    update(41, L"Otra cosa");
    EXPECT_EQ(text_of(find_control(only_window(), L"Static")), L"Otra cosa");
}

TEST_F(Progress, EveryInstanceHasItsOwnWindow) {
    const auto other = create(L"Kovrel.clsFGen");
    start({L"Una", L"Texto"});
    call(other.get(), L"BarraProgresoInicia", {L"Otra", L"Texto"});
    EXPECT_EQ(progress_windows().size(), 2U);
    finish();
    EXPECT_EQ(text_of(only_window()), L"Otra");
    call(other.get(), L"BarraProgresoFinaliza");
}

TEST_F(Progress, TheWindowsAreClosedWithTheInstance) {
    start({L"Primera", L"Texto"});
    start({L"Segunda", L"Texto"});
    EXPECT_EQ(progress_windows().size(), 2U);
    general_ = nullptr;
    EXPECT_THAT(progress_windows(), IsEmpty());
}

TEST_F(Progress, AThousandUpdatesLeakNothing) {
    start({L"Mil", L"Texto", true});
    const auto thousand = [&] {
        const auto begin = std::chrono::steady_clock::now();
        for (std::int32_t round = 0; round < 1000; ++round) {
            update(round / 10, L"Recibo " + std::to_wstring(round));
        }
        const std::chrono::duration<double, std::micro> spent =
            std::chrono::steady_clock::now() - begin;
        return spent.count() / 1000;
    };
    const auto committed = [] {
        PROCESS_MEMORY_COUNTERS counters{};
        GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters);
        return static_cast<double>(counters.PagefileUsage) / 1024;
    };
    thousand();
    const GuiObjects before = gui_objects();
    const double memory = committed();
    const double each = thousand();
    std::cout << "an update: " << each << " us; memory grew by " << committed() - memory
              << " KB in 1,000\n";
    EXPECT_EQ(gui_objects(), before);
    EXPECT_LT(committed() - memory, 512);
}

TEST_F(Progress, OpeningAndClosingLeaksNothing) {
    const auto round = [&] {
        start({L"Vez", L"Texto", true});
        update(50);
        finish();
    };
    round();
    const GuiObjects before = gui_objects();
    for (int count = 0; count < 20; ++count) round();
    EXPECT_EQ(gui_objects(), before);
}

}  // namespace
}  // namespace kovrel::test
