// The bar of the progress window, pixel by pixel, and the bar on a host's picture.
#include <array>
#include <cmath>

#include "tests/support/scripted_object.h"
#include "tests/windows/progress_window.h"
#include "ui/picture_surface.h"

namespace kovrel::test {
namespace {

using testing::ElementsAre;
using testing::Gt;

Pixels surface_pixels(const PictureObject& picture, int width, int height) {
    return pixels_of(picture.surface->context(), width, height);
}

std::size_t count(const Pixels& pixels, int left, int right, COLORREF color) {
    std::size_t result = 0;
    for (int y = 0; y < pixels.height; ++y) {
        for (int x = left; x < right; ++x) result += pixels.at(x, y) == color ? 1 : 0;
    }
    return result;
}

TEST_F(Progress, TheBarAtEveryPercentage) {
    start({L"Facturación", L"Generando los recibos de noviembre...", true});
    HWND const window = only_window();
    const COLORREF bar_color = usual_bar_color();
    for (const std::int32_t percentage : {0, 37, 50, 100}) {
        update(percentage, L"Generando los recibos de noviembre...");
        settle();
        const Pixels seen = bar_pixels(window);
        const int edge = static_cast<int>(std::lround(seen.width * percentage / 100.0));
        // Bar and text have the same colour, so there are two colours in all.
        EXPECT_EQ(count(seen, 0, seen.width, bar_color) + count(seen, 0, seen.width, white),
                  seen.colors.size());
        for (const int y : {0, seen.height - 1}) {
            for (int x = 0; x < seen.width; ++x) {
                EXPECT_EQ(seen.at(x, y), x < edge ? bar_color : white) << percentage << ": " << x;
            }
        }
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

/// A host's picture, which forwards all calls to a surface and can skip the bar.
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

TEST_F(Progress, AHostsPictureShowsTheTextInvertedPixelByPixel) {
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

TEST_F(Progress, AHostsPictureIsCalledInOrder) {
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

TEST_F(Progress, TheWindowIsPaintedWhileTheHostIsBusy) {
    start({L"Ocupado", L"Texto"});
    HWND const window = only_window();
    for (const std::int32_t percentage : {20, 60, 90}) {
        update(percentage);
        EXPECT_FALSE(GetUpdateRect(bar_of(window), nullptr, FALSE));
        const Pixels seen = bar_pixels(window);
        EXPECT_EQ(seen.at(seen.width * percentage / 100 - 2, 1), usual_bar_color());
        EXPECT_EQ(seen.at(seen.width * percentage / 100 + 2, 1), white);
    }
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
    update(50, L"Generando los recibos de noviembre...");
    ask(window, WM_DPICHANGED, MAKEWPARAM(144, 144), reinterpret_cast<LPARAM>(&next));
    settle();
    EXPECT_NEAR(inner(bar_of(window)).right, 1.5 * bar_width, 2);
    const RECT cancel = bounds_in(find_control(window, L"Button"), base_of(window));
    EXPECT_NEAR(cancel.right - cancel.left, 174, 1);
    // At once, and after the next update.
    const Pixels seen = bar_pixels(window);
    EXPECT_EQ(seen.at(seen.width / 2 - 1, 0), usual_bar_color());
    EXPECT_EQ(seen.at(seen.width / 2, 0), white);
    update(50, L"Generando los recibos de noviembre...");
    settle();
    EXPECT_EQ(bar_pixels(window).colors, seen.colors);
}

}  // namespace
}  // namespace kovrel::test
