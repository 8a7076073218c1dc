// The progress members in every way of calling, their failures, and hosts that exit with the window
// open.
#include <array>
#include <thread>

#include "tests/support/every_way.h"
#include "tests/support/import_patch.h"
#include "tests/windows/progress_window.h"

namespace kovrel::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST_F(Progress, EveryWayOfCallingItDoesTheSame) {
    for (const Way way : every_way) {
        SCOPED_TRACE(name_of(way));
        BoxWatcher no_box;
        const auto done = [&](const wchar_t* member, std::vector<Variant> arguments = {}) {
            Answer answer = call_in(way, general_.get(), member, std::move(arguments));
            EXPECT_EQ(answer.result, S_OK);
            EXPECT_TRUE(answer.value.is_empty());
            settle();
            return answer;
        };
        done(L"BarraProgresoInicia",
             {Variant(L"Recibos"), Variant(L"Se generan"), Variant(true),
              Variant(std::int32_t{1500}), Variant(std::int32_t{9000}), Variant(std::int32_t{1500}),
              Variant(std::int32_t{3000}), Variant(std::int32_t{RGB(0, 96, 32)})});
        HWND const window = only_window();
        EXPECT_EQ(text_of(window), L"Recibos");
        EXPECT_EQ(text_of(find_control(window, L"Static")), L"Se generan");
        EXPECT_TRUE(IsWindowVisible(base_of(window)));
        EXPECT_EQ(inner(header_of(window)).bottom, 100);
        has_width(window, 600);
        is_at(window, 200, 100);
        const Answer updated =
            done(L"BarraProgresoActualiza", {Variant(std::int32_t{50}), Variant(L"Otro")});
        EXPECT_EQ(shown(updated.arguments.at(0)), "entero32 50");
        EXPECT_EQ(shown(updated.arguments.at(1)), "texto Otro");
        EXPECT_EQ(text_of(find_control(window, L"Static")), L"Otro");
        const Pixels seen = bar_pixels(window);
        EXPECT_EQ(seen.at(seen.width / 2 - 1, 0), RGB(0, 96, 32));
        EXPECT_EQ(seen.at(seen.width / 2, 0), white);
        // An omitted message clears the line.
        done(L"BarraProgresoActualiza", {Variant(std::int32_t{60})});
        EXPECT_EQ(text_of(find_control(window, L"Static")), L"");
        const Answer canceled = call_in(way, general_.get(), L"BarraProgresoCancelada");
        EXPECT_EQ(shown(canceled.value), "booleano Falso");
        done(L"BarraProgresoFinaliza");
        EXPECT_THAT(progress_windows(), IsEmpty());
        // Omitted sizes keep their design values.
        done(L"BarraProgresoInicia", {Variant(L"Recibos"), Variant(L"Se generan")});
        EXPECT_FALSE(IsWindowVisible(base_of(only_window())));
        EXPECT_EQ(inner(header_of(only_window())).bottom, 46);
        done(L"BarraProgresoFinaliza");
    }
}

HFONT WINAPI no_font(const LOGFONTW* /*description*/) {
    return nullptr;
}

HBITMAP WINAPI no_bitmap(HDC /*context*/, const BITMAPINFO* /*form*/, UINT /*usage*/,
                         void** /*bits*/, HANDLE /*section*/, DWORD /*offset*/) {
    return nullptr;
}

TEST_F(Progress, AWindowThatCannotBeMadeIsReported) {
    const std::array<std::pair<const char*, void*>, 2> failing{
        std::pair{"CreateFontIndirectW", reinterpret_cast<void*>(&no_font)},
        std::pair{"CreateDIBSection", reinterpret_cast<void*>(&no_bitmap)}};
    for (const auto& [function, replacement] : failing) {
        {
            const ImportPatch patch(L"kovrel.dll", function, replacement);
            ASSERT_TRUE(patch.in_place());
            BoxWatcher boxes({answer(IDOK)});
            EXPECT_EQ(call(general_.get(), L"BarraProgresoInicia", {L"Caption", L"Texto"}).result,
                      S_OK);
            EXPECT_THAT(lines_of(boxes),
                        ElementsAre("16|kovrel|Error 7\\r (Memoria insuficiente) en procedimiento "
                                    "BarraProgresoInicia del Módulo de clase clsFGen.|1"))
                << function;
        }
        EXPECT_THAT(progress_windows(), IsEmpty());
        BoxWatcher no_box;
        finish();
        start();
        update(50);
        EXPECT_EQ(text_of(only_window()), L"Facturación");
        finish();
    }
}

TEST_F(Progress, TheWindowOutlivesTheEndOfItsThreadsApartment) {
    std::thread host([] {
        ASSERT_EQ(CoInitialize(nullptr), S_OK);
        auto general = create(L"Kovrel.clsFGen");
        EXPECT_EQ(call(general.get(), L"BarraProgresoInicia", {L"Fin", L"Texto", true}).result,
                  S_OK);
        settle();
        EXPECT_EQ(progress_windows().size(), 1U);
        CoUninitialize();
        settle();
        EXPECT_EQ(progress_windows().size(), 1U);
        general = nullptr;
        EXPECT_THAT(progress_windows(), IsEmpty());
    });
    host.join();
}

}  // namespace
}  // namespace kovrel::test
