// Tests of gui_objects: leaks are counted.
#include "tests/support/gui_objects.h"

#include <windows.h>

#include <gtest/gtest.h>

namespace kovrel::test {
namespace {

TEST(GuiObjectsCount, CountsDrawingObjects) {
    (void)gui_objects();  // the first use brings the system's own
    DeleteObject(CreateSolidBrush(0));
    const GuiObjects before = gui_objects();
    if (before.drawing == 0) GTEST_SKIP() << "drawing objects cannot be counted here";
    HBRUSH const one = CreateSolidBrush(RGB(1, 2, 3));
    HBRUSH const another = CreateSolidBrush(RGB(4, 5, 6));
    EXPECT_EQ(gui_objects().drawing, before.drawing + 2);
    DeleteObject(another);
    DeleteObject(one);
    EXPECT_EQ(gui_objects(), before);
}

TEST(GuiObjectsCount, CountsHiddenWindowsAndTheirControls) {
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
