// The progress window, driven as a busy host drives it, and the bar on a host's picture.
#include <chrono>
#include <gmock/gmock.h>
#include <iostream>
#include <thread>

#include "tests/automation/box_lines.h"
#include "tests/automation/late.h"
#include "tests/support/scripted_object.h"
#include "tests/windows/host_window.h"
#include "ui/picture_surface.h"

// After the platform's main header, which the headers above bring.
#include <psapi.h>

namespace kovrel::test {
namespace {

using testing::ElementsAre;
using testing::Gt;
using testing::IsEmpty;

constexpr const wchar_t* progress_class = L"Kovrel.frmBarraProgreso";
constexpr COLORREF white = RGB(255, 255, 255);

std::vector<HWND> progress_windows() {
    return top_level_windows({progress_class, {}, GetCurrentProcessId()});
}

HWND only_window() {
    const auto found = progress_windows();
    EXPECT_EQ(found.size(), 1U);
    return found.empty() ? nullptr : found.front();
}

HWND header_of(HWND window) {
    return GetParent(find_control(window, L"Static"));
}
HWND base_of(HWND window) {
    return GetParent(find_control(window, L"Button"));
}
HWND bar_of(HWND window) {
    for (const Control& control : controls_of(window)) {
        if (control.window_class == L"Kovrel.PictureBox" && control.window != header_of(window) &&
            control.window != base_of(window)) {
            return control.window;
        }
    }
    return nullptr;
}

RECT outer(HWND window) {
    RECT bounds{};
    GetWindowRect(window, &bounds);
    return bounds;
}
RECT inner(HWND window) {
    RECT bounds{};
    GetClientRect(window, &bounds);
    return bounds;
}
RECT bounds_in(HWND control, HWND parent) {
    RECT bounds = outer(control);
    MapWindowPoints(nullptr, parent, reinterpret_cast<POINT*>(&bounds), 2);
    return bounds;
}

/// Pixels of an area, row by row.
struct Pixels {
    int width = 0;
    int height = 0;
    std::vector<COLORREF> colors;

    [[nodiscard]] COLORREF at(int x, int y) const {
        return colors[static_cast<std::size_t>(y * width + x)];
    }
};

Pixels pixels_of(HDC context, int width, int height) {
    Pixels result{width, height, {}};
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) result.colors.push_back(GetPixel(context, x, y));
    }
    return result;
}

/// What the screen shows of the bar.
Pixels bar_pixels(HWND window) {
    HWND const bar = bar_of(window);
    HDC const context = GetDC(bar);
    const RECT size = inner(bar);
    Pixels result = pixels_of(context, size.right, size.bottom);
    ReleaseDC(bar, context);
    return result;
}

Pixels surface_pixels(const PictureObject& picture, int width, int height) {
    HDC const context = CreateCompatibleDC(nullptr);
    HGDIOBJ const previous = SelectObject(context, picture.surface->bitmap());
    Pixels result = pixels_of(context, width, height);
    SelectObject(context, previous);
    DeleteDC(context);
    return result;
}

std::size_t count(const Pixels& pixels, int left, int right, COLORREF color) {
    std::size_t result = 0;
    for (int y = 0; y < pixels.height; ++y) {
        for (int x = left; x < right; ++x) result += pixels.at(x, y) == color ? 1 : 0;
    }
    return result;
}

/// Lets the thread's windows have what waits for them.
void settle() {
    (void)pump_until([] { return true; });
}

/// A host's instance with its window open; everything is closed at the end.
class Progress : public testing::Test {
 protected:
    void TearDown() override {
        general_ = nullptr;
        EXPECT_THAT(progress_windows(), IsEmpty());
    }

    Outcome start(const std::vector<LateArgument>& arguments = {L"Facturación",
                                                                L"Generando recibos..."}) {
        Outcome outcome = call(general_.get(), L"BarraProgresoInicia", arguments);
        EXPECT_EQ(outcome.result, S_OK);
        settle();
        return outcome;
    }
    void update(std::int32_t percentage, const std::wstring& message = L"Generando recibos...") {
        EXPECT_EQ(call(general_.get(), L"BarraProgresoActualiza", {percentage, message}).result,
                  S_OK);
    }
    void finish() { EXPECT_EQ(call(general_.get(), L"BarraProgresoFinaliza").result, S_OK); }
    bool canceled() { return call(general_.get(), L"BarraProgresoCancelada").value.to_bool(); }

    ComPtr<IDispatch> general_ = create(L"Kovrel.clsFGen");
};

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
        EXPECT_NEAR(inner(window).bottom, areas + 80 / 15, 1);
        const RECT label = bounds_in(find_control(window, L"Static"), header_of(window));
        EXPECT_NEAR(label.top, 40 / 15, 1);
        EXPECT_EQ(label.left, 0);
        EXPECT_EQ(label.right, inner(header_of(window)).right);
        EXPECT_NEAR(inner(header_of(window)).bottom - label.bottom, 40 / 15, 1);
        const RECT cancel = bounds_in(find_control(window, L"Button"), base_of(window));
        EXPECT_NEAR(cancel.left, inner(base_of(window)).right - cancel.right, 1);
        return std::pair(outer(window).bottom - outer(window).top, base.bottom - base.top);
    };
    const auto [tall, base] = height_of(true);
    const auto [low, same_base] = height_of(false);
    EXPECT_EQ(base, same_base);
    EXPECT_EQ(tall - low, base);
}

TEST_F(Progress, SizesAndPlaceAreTwips) {
    start({L"Medidas", L"Texto", true, 1500, 9000, 1500, 3000});
    HWND const window = only_window();
    EXPECT_EQ(inner(header_of(window)).bottom, 100);
    EXPECT_EQ(outer(window).right - outer(window).left, 600);
    EXPECT_EQ(outer(window).top, 100);
    EXPECT_EQ(outer(window).left, 200);
}

TEST_F(Progress, ZeroIsTheScreensCornerAndMinusOneTheDesign) {
    start({L"Esquina", L"Texto", false, 0, 0, 0, 0});
    EXPECT_EQ(outer(only_window()).top, 0);
    EXPECT_EQ(outer(only_window()).left, 0);
    finish();
    start({L"Centro", L"Texto", false, 0, 0, -1, -1});
    const RECT design = outer(only_window());
    EXPECT_GT(design.top, 100);
    EXPECT_GT(design.left, 100);
    finish();
    start({L"Centro", L"Texto"});
    EXPECT_TRUE(EqualRect(&design, std::array{outer(only_window())}.data()));
    finish();
    start({L"Media", L"Texto", false, 0, 0, 0, -1});
    EXPECT_EQ(outer(only_window()).top, 0);
    EXPECT_EQ(outer(only_window()).left, design.left);
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
    update(50);
    finish();
    start({L"Negativa", L"Texto", true, least, least, 0, 0});
    EXPECT_EQ(inner(header_of(only_window())).bottom, 46);
    update(50);
}

TEST_F(Progress, TheBarAtEveryState) {
    start({L"Facturación", L"Generando los recibos de noviembre...", true});
    HWND const window = only_window();
    const COLORREF bar_color = GetSysColor(COLOR_HIGHLIGHT);
    for (const std::int32_t percentage : {0, 37, 50, 100}) {
        update(percentage, L"Generando los recibos de noviembre...");
        settle();
        const Pixels seen = bar_pixels(window);
        const int edge = static_cast<int>(std::lround(seen.width * percentage / 100.0));
        // Bar and text have one colour: there are only two in all.
        EXPECT_EQ(count(seen, 0, seen.width, bar_color) + count(seen, 0, seen.width, white),
                  seen.colors.size());
        for (const int y : {0, seen.height - 1}) {
            for (int x = 0; x < seen.width; ++x) {
                EXPECT_EQ(seen.at(x, y), x < edge ? bar_color : white) << percentage << ": " << x;
            }
        }
        EXPECT_TRUE(save_picture(
            window, picture_folder() / (L"progress_" + std::to_wstring(percentage) + L".png")));
    }
}

TEST_F(Progress, TheTextIsInvertedUnderTheBar) {
    const COLORREF color = RGB(0, 96, 32);
    start({L"Inversión", L"", false, 0, 0, -1, -1, static_cast<std::int32_t>(color)});
    HWND const window = only_window();
    update(50);
    settle();
    const Pixels half = bar_pixels(window);
    const int middle = half.width / 2;
    // White text on the bar, text of the bar's colour beside it.
    EXPECT_THAT(count(half, 0, middle, white), Gt(10U));
    EXPECT_THAT(count(half, middle, half.width, color), Gt(10U));
    EXPECT_EQ(count(half, 0, half.width, white) + count(half, 0, half.width, color),
              half.colors.size());
}

/// A host's picture: it passes everything on to a surface and can leave out the bar.
ComPtr<ScriptedObject> recording_picture(const PictureObject& target, bool with_bar) {
    auto picture = ScriptedObject::make();
    IDispatch* const to = target.object.get();
    for (const wchar_t* const name :
         {L"AutoRedraw", L"ScaleWidth", L"ScaleHeight", L"DrawMode", L"CurrentX", L"CurrentY"}) {
        picture->property(
            name, [to, name](const auto&) { return get(to, name).value; },
            [to, name](const auto& arguments) {
                EXPECT_EQ(put(to, name, arguments.at(0)).result, S_OK);
                return Variant();
            });
    }
    for (const wchar_t* const name :
         {L"Cls", L"TextWidth", L"TextHeight", L"Print", L"Line", L"Refresh"}) {
        if (!with_bar && name == std::wstring(L"Line")) {
            picture->method(name);
            continue;
        }
        picture->method(name, [to, name](const auto& arguments) {
            const Outcome outcome =
                call(to, name, std::vector<LateArgument>(arguments.begin(), arguments.end()));
            EXPECT_EQ(outcome.result, S_OK);
            return outcome.value;
        });
    }
    return picture;
}

PictureObject host_surface(COLORREF color = RGB(0, 0, 0)) {
    PictureObject picture = make_picture();
    picture.surface->resize(300, 24, Scale(96));
    LOGFONTW font = system_font(96);
    font.lfQuality = NONANTIALIASED_QUALITY;
    picture.surface->set_font(font);
    picture.surface->set_ForeColor(static_cast<std::int32_t>(color));
    return picture;
}

TEST_F(Progress, AHostsPictureIsDrawnPixelByPixelInverse) {
    for (const COLORREF color : {RGB(0, 0, 0), RGB(0, 96, 200), RGB(255, 128, 1)}) {
        for (const std::int32_t percentage : {0, 1, 37, 50, 99, 100, 101, 100000, -1, -50}) {
            const auto plain = host_surface(color);
            const auto barred = host_surface(color);
            call(general_.get(), L"BarraProgreso",
                 {Variant(recording_picture(plain, false).query<IDispatch>()), percentage});
            call(general_.get(), L"BarraProgreso",
                 {Variant(recording_picture(barred, true).query<IDispatch>()), percentage});
            const Pixels text = surface_pixels(plain, 300, 24);
            const Pixels seen = surface_pixels(barred, 300, 24);
            EXPECT_THAT(count(text, 0, 300, color), Gt(10U));
            const int edge = std::clamp(3 * percentage, 0, 300);
            for (int y = 0; y < 24; ++y) {
                for (int x = 0; x < 300; ++x) {
                    const COLORREF below = text.at(x, y);
                    const COLORREF inverse = ~(color ^ below) & 0xFFFFFF;
                    ASSERT_EQ(seen.at(x, y), x < edge ? inverse : below)
                        << percentage << "%: " << x << ", " << y;
                }
            }
        }
    }
}

Log expected_calls(const std::wstring& label, const std::wstring& right) {
    return {L"put ScaleWidth = 100",
            L"put DrawMode = 10",
            L"TextWidth(" + label + L")",
            L"put CurrentX = 40",
            L"get ScaleHeight",
            L"TextHeight(" + label + L")",
            L"put CurrentY = 80",
            L"Print(" + label + L")",
            L"get ScaleHeight",
            L"Line(36, 0, 0, " + right + L", 360, 0)",
            L"Refresh()"};
}

ComPtr<ScriptedObject> plain_picture(bool auto_redraw) {
    auto picture = ScriptedObject::make();
    picture->property(L"AutoRedraw", Variant(auto_redraw))
        .property(L"ScaleWidth", Variant(4500.0F))
        .property(L"ScaleHeight", Variant(360.0F))
        .property(L"DrawMode", Variant(std::int16_t{13}))
        .property(L"CurrentX", Variant(0.0F))
        .property(L"CurrentY", Variant(0.0F))
        .method(L"Cls")
        .method(L"TextWidth", [](const auto&) { return Variant(20.0F); })
        .method(L"TextHeight", [](const auto&) { return Variant(200.0F); })
        .method(L"Print")
        .method(L"Refresh");
    return picture;
}

TEST_F(Progress, AHostsPictureIsDrawnInTheStatedOrder) {
    for (const bool auto_redraw : {false, true}) {
        const auto picture = plain_picture(auto_redraw);
        std::vector<VARTYPE> types;
        picture->method(L"Line", [&](const auto& arguments) {
            for (const Variant& argument : arguments) types.push_back(argument.vt);
            return Variant();
        });
        call(general_.get(), L"BarraProgreso",
             {Variant(picture.query<IDispatch>()), std::int32_t{37}});
        Log expected = expected_calls(L"37%", L"37");
        expected.insert(expected.begin(), L"Cls()");
        if (!auto_redraw) expected.insert(expected.begin(), L"put AutoRedraw = Verdadero");
        expected.insert(expected.begin(), L"get AutoRedraw");
        EXPECT_EQ(picture->log(), expected);
        EXPECT_THAT(types, ElementsAre(VT_I2, VT_R4, VT_R4, VT_R4, VT_R4, VT_I4));
        EXPECT_TRUE(picture->value(L"AutoRedraw").to_bool());
    }
}

TEST_F(Progress, NoPictureAndAFailingPictureShowTheBox) {
    {
        BoxWatcher boxes({answer(IDOK)});
        EXPECT_EQ(
            call(general_.get(), L"BarraProgreso", {Variant(ComPtr<IDispatch>()), std::int32_t{5}})
                .result,
            S_OK);
        EXPECT_THAT(lines_of(boxes),
                    ElementsAre(narrow(L"16|kovrel|Error 91\\r (Variable de objeto o bloque With "
                                       L"no establecido) en procedimiento BarraProgreso del "
                                       L"Módulo de clase clsFGen.|1")));
    }
    const auto picture = plain_picture(true);
    picture->fails(L"Print", failure(380, L"Valor de propiedad no válido"));
    BoxWatcher boxes({answer(IDOK)});
    call(general_.get(), L"BarraProgreso", {Variant(picture.query<IDispatch>()), std::int32_t{5}});
    EXPECT_THAT(lines_of(boxes),
                ElementsAre(narrow(L"16|kovrel|Error 380\\r (Valor de propiedad no válido) en "
                                   L"procedimiento BarraProgreso del Módulo de clase clsFGen.|1")));
    EXPECT_EQ(picture->calls_of(L"Refresh()"), 0U);
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

/// Updates as a busy host, that never lets events run, until the user has canceled.
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
    // Updates that come too late go nowhere, and the wish is not forgotten.
    update(50);
    EXPECT_TRUE(canceled());
    EXPECT_THAT(progress_windows(), IsEmpty());
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

TEST_F(Progress, WithoutTheButtonNothingCancels) {
    start({L"Sin botón", L"Texto"});
    HWND const window = only_window();
    ask(window, WM_CLOSE);
    ask(window, WM_COMMAND, IDCANCEL);
    ask(window, WM_COMMAND, IDOK);
    EXPECT_TRUE(IsWindow(window));
    EXPECT_FALSE(canceled());
}

TEST_F(Progress, TheWindowIsPaintedWhileTheHostIsBusy) {
    start({L"Ocupado", L"Texto"});
    HWND const window = only_window();
    for (const std::int32_t percentage : {20, 60, 90}) {
        update(percentage);
        EXPECT_FALSE(GetUpdateRect(bar_of(window), nullptr, FALSE));
        const Pixels seen = bar_pixels(window);
        EXPECT_EQ(seen.at(seen.width * percentage / 100 - 2, 1), GetSysColor(COLOR_HIGHLIGHT));
        EXPECT_EQ(seen.at(seen.width * percentage / 100 + 2, 1), white);
    }
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
    // The key was the box's, not the button's that had the focus before.
    EXPECT_FALSE(canceled());
    EXPECT_TRUE(IsWindow(only_window()));
}

TEST_F(Progress, ASecondWindowReplacesTheFirstWithoutClosingIt) {
    start({L"Primera", L"Texto", true});
    HWND const first = only_window();
    start({L"Segunda", L"Texto", true});
    EXPECT_EQ(progress_windows().size(), 2U);
    EXPECT_TRUE(IsWindow(first));
    // Two windows that keep the focus do not fight for it.
    settle();
    // A cancel in the first is not the second's.
    ask(find_control(first, L"Button"), BM_CLICK);
    EXPECT_FALSE(canceled());
    HWND const second = only_window();
    EXPECT_EQ(text_of(second), L"Segunda");
    ask(find_control(second, L"Button"), BM_CLICK);
    EXPECT_TRUE(canceled());
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

TEST_F(Progress, TheWindowsGoWithTheInstance) {
    start({L"Primera", L"Texto"});
    start({L"Segunda", L"Texto"});
    EXPECT_EQ(progress_windows().size(), 2U);
    general_ = nullptr;
    EXPECT_THAT(progress_windows(), IsEmpty());
}

TEST_F(Progress, AThousandUpdatesLeaveNothingBehind) {
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
    const DWORD drawing = GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS);
    const DWORD windows = GetGuiResources(GetCurrentProcess(), GR_USEROBJECTS);
    const double memory = committed();
    const double each = thousand();
    std::cout << "an update: " << each << " us; memory grew by " << committed() - memory
              << " KB in 1,000\n";
    EXPECT_LE(GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS), drawing);
    EXPECT_LE(GetGuiResources(GetCurrentProcess(), GR_USEROBJECTS), windows);
    EXPECT_LT(committed() - memory, 512);
}

TEST_F(Progress, OpeningAndClosingLeavesNothingBehind) {
    const auto round = [&] {
        start({L"Vez", L"Texto", true});
        update(50);
        finish();
    };
    round();
    const DWORD drawing = GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS);
    const DWORD windows = GetGuiResources(GetCurrentProcess(), GR_USEROBJECTS);
    for (int count = 0; count < 20; ++count) round();
    EXPECT_LE(GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS), drawing);
    EXPECT_LE(GetGuiResources(GetCurrentProcess(), GR_USEROBJECTS), windows);
}

TEST_F(Progress, GrowsWithTheDisplaysResolution) {
    start({L"Facturación", L"Generando los recibos de noviembre...", true});
    HWND const window = only_window();
    const int bar_width = inner(bar_of(window)).right;
    const RECT now = outer(window);
    const RECT inside = inner(window);
    RECT next{now.left, now.top, 0, 0};
    next.right = now.left + (now.right - now.left - inside.right) + inside.right * 3 / 2;
    next.bottom = now.top + (now.bottom - now.top - inside.bottom) + inside.bottom * 3 / 2;
    ask(window, WM_DPICHANGED, MAKEWPARAM(144, 144), reinterpret_cast<LPARAM>(&next));
    update(50, L"Generando los recibos de noviembre...");
    settle();
    EXPECT_NEAR(inner(bar_of(window)).right, bar_width * 3 / 2, 2);
    const RECT cancel = bounds_in(find_control(window, L"Button"), base_of(window));
    EXPECT_NEAR(cancel.right - cancel.left, 174, 1);
    const Pixels seen = bar_pixels(window);
    EXPECT_EQ(seen.at(seen.width / 2 - 1, 0), GetSysColor(COLOR_HIGHLIGHT));
    EXPECT_EQ(seen.at(seen.width / 2, 0), white);
    EXPECT_TRUE(save_picture(window, picture_folder() / L"progress_144.png"));
}

}  // namespace
}  // namespace kovrel::test
