#include "tests/windows/kept_picture.h"

#include <cstdlib>

#include "tests/windows/display.h"

namespace kovrel::test {
namespace {

constexpr int polls_at_rest = 20;

/// The client area: the frame is the window manager's.
Picture inside_of(HWND window) {
    RECT bounds{};
    GetClientRect(window, &bounds);
    MapWindowPoints(window, nullptr, reinterpret_cast<POINT*>(&bounds), 2);
    return picture_of_screen(bounds);
}

std::filesystem::path file_of(const std::filesystem::path& folder, const std::wstring& name) {
    return folder / (std::to_wstring(resolution()) + L"." + colours()) / (name + L".png");
}

/// Once it no longer changes.
Picture settled_inside_of(HWND window) {
    Picture seen;
    int still = 0;
    EXPECT_TRUE(wait_for(window, [&] {
        Picture now = inside_of(window);
        still = now == seen ? still + 1 : 0;
        seen = std::move(now);
        return still >= polls_at_rest;
    }));
    return seen;
}

Picture looks_like(HWND window, const Picture& expected, const std::wstring& name) {
    // A button under the mouse is drawn in another colour.
    SetCursorPos(0, 0);
    Picture seen;
    std::string unlike;
    const bool alike = wait_for(window, [&] {
        Picture now = inside_of(window);
        const bool still = now == seen;
        if (!still) unlike = difference(expected, now);
        seen = std::move(now);
        return still && unlike.empty();
    });
    if (alike) return seen;
    const auto file = file_of(KOVREL_SEEN_PICTURES, name);
    EXPECT_TRUE(write_picture(seen, file));
    EXPECT_TRUE(write_picture(marked_difference(expected, seen),
                              file_of(KOVREL_SEEN_PICTURES, name + L"_marked")));
    ADD_FAILURE() << unlike << ": see " << narrow(file.wstring());
    return seen;
}

}  // namespace

Picture looks_as_kept(HWND window, const std::wstring& name) {
    const auto file = file_of(KOVREL_KEPT_PICTURES, name);
    if (std::getenv("KOVREL_WRITE_PICTURES") != nullptr) {
        SetCursorPos(0, 0);
        Picture seen = settled_inside_of(window);
        EXPECT_TRUE(write_picture(seen, file));
        return seen;
    }
    const auto expected = read_picture(file);
    EXPECT_TRUE(expected) << "no picture " << narrow(file.wstring());
    return looks_like(window, expected.value_or(Picture{}), name);
}

void looks_as_before(HWND window, const Picture& before) {
    looks_like(window, before, L"as_before");
}

void survives_being_covered(HWND window, const Picture& before) {
    const RECT screen = on_screen(GetDesktopWindow());
    HWND const cover = CreateWindowExW(WS_EX_TOPMOST | WS_EX_TOOLWINDOW | WS_EX_NOACTIVATE,
                                       L"Static", L"", WS_POPUP, 0, 0, screen.right, screen.bottom,
                                       nullptr, nullptr, nullptr, nullptr);
    // Never active: the progress window would come before it.
    ShowWindow(cover, SW_SHOWNOACTIVATE);
    UpdateWindow(cover);
    // Of one colour all over.
    EXPECT_TRUE(pump_until([&] {
        const Picture seen = inside_of(window);
        return std::count(seen.pixels.begin(), seen.pixels.end(), seen.pixels.front()) ==
               std::ssize(seen.pixels);
    }));
    DestroyWindow(cover);
    looks_as_before(window, before);
}

}  // namespace kovrel::test
