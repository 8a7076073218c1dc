// The counting of drawing objects and windows itself: it would find a leak.
#include "tests/support/gui_objects.h"

#include <windows.h>

#include <gtest/gtest.h>

namespace kovrel::test {
namespace {

TEST(GuiObjectsCount, ADrawingObjectMoreIsSeen) {
    DeleteObject(CreateSolidBrush(0));  // the first one brings the system's own
    const GuiObjects before = gui_objects();
    HBRUSH const brush = CreateSolidBrush(RGB(1, 2, 3));
    HFONT const font = CreateFontW(12, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, L"Arial");
    EXPECT_EQ(gui_objects(), (GuiObjects{before.drawing + 2, before.windows}));
    DeleteObject(font);
    DeleteObject(brush);
    EXPECT_EQ(gui_objects(), before);
}

TEST(GuiObjectsCount, AHiddenWindowAndItsControlsAreSeen) {
    const GuiObjects before = gui_objects();
    HWND const window = CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 10, 10, nullptr, nullptr,
                                        nullptr, nullptr);
    CreateWindowExW(0, L"STATIC", L"", WS_CHILD, 0, 0, 5, 5, window, nullptr, nullptr, nullptr);
    EXPECT_GE(gui_objects().windows, before.windows + 2);
    DestroyWindow(window);
    EXPECT_LE(gui_objects().windows, before.windows + 1);
}

}  // namespace
}  // namespace kovrel::test
