// The verifier at the display's resolution and in its colours.
#include "tests/windows/display.h"
#include "tests/windows/kept_picture.h"
#include "tests/windows/verifier_window.h"

namespace kovrel::test {
namespace {

TEST(Display, HasTheResolutionThatItWasStartedFor) {
    HDC const screen = GetDC(nullptr);
    EXPECT_EQ(GetDeviceCaps(screen, LOGPIXELSY), resolution());
    ReleaseDC(nullptr, screen);
    EXPECT_EQ(on_screen(GetDesktopWindow()).bottom, 768);
}

void is_beside(HWND mark, HWND field) {
    const RECT left = on_screen(field);
    const RECT right = on_screen(mark);
    EXPECT_GT(right.left, left.right);
    EXPECT_LE(right.left - left.right, at_resolution(180));
    EXPECT_NEAR(left.top + left.bottom, right.top + right.bottom, 3);
}

TEST_F(Verifier, IsLegibleInEveryState) {
    open([](const Controls& controls) {
        HWND const window = controls.window;
        controls.to_front();
        is_whole(window);
        looks_as_kept(window, L"verifier_empty");
        controls.type(controls.tax_id, L"12345678z", L"12345678z");
        controls.shows_marks("NIF no aceptado");
        press_key(VK_TAB);
        controls.has_focus(controls.copy_tax_id);
        press_key(VK_TAB);
        controls.type(controls.account, L"21000813610123456789", L"2100 0813 61 0123456789");
        controls.shows_marks("NIF aceptado, Cuenta no aceptada");
        is_whole(window);
        is_legible(window);
        looks_as_kept(window, L"verifier_typed");
        press_key(VK_TAB);
        controls.shows_marks("NIF aceptado, Cuenta aceptada");
        is_legible(window);
        survives_being_covered(window, looks_as_kept(window, L"verifier_good"));
        controls.leave();
    });
}

TEST_F(Verifier, TheFieldsShowTheirTextInTheMiddle) {
    open([](const Controls& controls) {
        controls.to_front();
        controls.type(controls.tax_id, L"12345678Z", L"12345678Z");
        press_key(VK_TAB);
        controls.has_focus(controls.copy_tax_id);
        press_key(VK_TAB);
        controls.type(controls.account, L"2100", L"2100");
        is_in_the_middle(controls.tax_id);
        is_in_the_middle(controls.account);
        controls.leave();
    });
}

TEST_F(Verifier, TheMarksAreBesideTheirFields) {
    open([](const Controls& controls) {
        for (const wchar_t* const mark : {nif_ok, nif_no}) {
            is_beside(find_control(controls.window, L"Kovrel.PictureBox", mark), controls.tax_id);
        }
        for (const wchar_t* const mark : {ccc_ok, ccc_no}) {
            is_beside(find_control(controls.window, L"Kovrel.PictureBox", mark), controls.account);
        }
        controls.leave();
    });
}

}  // namespace
}  // namespace kovrel::test
