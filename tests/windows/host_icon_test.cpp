// The windows show the host's icon.
#include <array>
#include <functional>

#include "tests/support/late.h"
#include "tests/windows/display.h"
#include "tests/windows/host_window.h"

namespace kovrel::test {
namespace {

constexpr int side = 16;

/// An icon of one colour.
class PlainIcon {
 public:
    explicit PlainIcon(Color color) {
        const std::array<std::uint8_t, std::size_t{side} * 2> opaque{};
        std::array<std::uint32_t, std::size_t{side} * side> pixels{};
        pixels.fill(0xFF000000U | (color & 0xFFU) << 16U | (color & 0xFF00U) |
                    (color >> 16U & 0xFFU));
        ICONINFO description{TRUE, 0, 0, CreateBitmap(side, side, 1, 1, opaque.data()),
                             CreateBitmap(side, side, 1, 32, pixels.data())};
        icon_ = CreateIconIndirect(&description);
        DeleteObject(description.hbmMask);
        DeleteObject(description.hbmColor);
    }
    PlainIcon(const PlainIcon&) = delete;
    PlainIcon& operator=(const PlainIcon&) = delete;
    ~PlainIcon() { DestroyIcon(icon_); }
    [[nodiscard]] HICON get() const { return icon_; }
    [[nodiscard]] LPARAM parameter() const { return reinterpret_cast<LPARAM>(icon_); }

 private:
    HICON icon_;
};

constexpr Color red = RGB(255, 0, 0);
constexpr Color green = RGB(0, 255, 0);
constexpr Color blue = RGB(0, 0, 255);

/// The colour of a window's icon; none when it has no icon.
std::string icon_color(HWND window, WPARAM kind) {
    const auto icon = reinterpret_cast<HICON>(ask(window, WM_GETICON, kind));
    if (icon == nullptr) return "none";
    const Color color = picture_of(icon, side, white_color).at(side / 2, side / 2);
    return color == red ? "red" : color == green ? "green" : color == blue ? "blue" : "other";
}

/// Waits, since a busy window does not answer at once.
void has_icon(HWND window, WPARAM kind, const std::string& color) {
    std::string seen;
    EXPECT_TRUE(wait_until([&] { return (seen = icon_color(window, kind)) == color; })) << seen;
}

using Work = std::function<void(HWND)>;

/// Opens each window of the library in turn, with the host's window active or without one.
void in_every_window(HWND host, const Work& work) {
    const auto activate = [host] { EXPECT_TRUE(host == nullptr || bring_to_front(host)); };
    const auto modal = [&](const wchar_t* window_class, const wchar_t* prog_id,
                           const wchar_t* member, const std::vector<LateArgument>& arguments) {
        SCOPED_TRACE(narrow(window_class));
        activate();
        const auto object = create(prog_id);
        BoxWatcher windows({on_window({window_class, {}, 0}, [&](HWND window) {
            work(window);
            const wchar_t* const button =
                find_control(window, L"Button", L"C&errar") != nullptr ? L"C&errar" : L"Aceptar";
            PostMessageW(find_control(window, L"Button", button), BM_CLICK, 0, 0);
        })});
        EXPECT_EQ(call(object.get(), member, arguments).result, S_OK);
    };
    modal(L"Kovrel.frmDialogo", L"Kovrel.clsMensajes", L"MsgFormA", {L"Aviso", L"Texto"});
    modal(L"Kovrel.frmFECHA1", L"Kovrel.clsFFechas", L"PideFecha", {L"¿Fecha?"});
    modal(L"Kovrel.frmNIFCCC", L"Kovrel.clsFGen", L"LanzaVerificadorNIFyCCC", {});
    SCOPED_TRACE("frmBarraProgreso");
    activate();
    const auto general = create(L"Kovrel.clsFGen");
    call(general.get(), L"BarraProgresoInicia", {L"Facturación", L"Recibos"});
    const auto found = top_level_windows({L"Kovrel.frmBarraProgreso", {}, GetCurrentProcessId()});
    ASSERT_EQ(found.size(), 1U);
    work(found.front());
    call(general.get(), L"BarraProgresoFinaliza");
}

void every_window_has(HWND host, const std::string& large, const std::string& small) {
    in_every_window(host, [&](HWND window) {
        has_icon(window, ICON_BIG, large);
        has_icon(window, ICON_SMALL, small);
    });
}

TEST(HostIcon, IsTheIconOfTheHostsWindow) {
    const PlainIcon large(red);
    const PlainIcon small(green);
    const HostWindow host(L"Contratos");
    SendMessageW(host.window(), WM_SETICON, ICON_BIG, large.parameter());
    SendMessageW(host.window(), WM_SETICON, ICON_SMALL, small.parameter());
    every_window_has(host.window(), "red", "green");
    // A single icon is used in both sizes.
    SendMessageW(host.window(), WM_SETICON, ICON_SMALL, 0);
    every_window_has(host.window(), "red", "red");
}

TEST(HostIcon, OtherwiseThatOfItsOwner) {
    const PlainIcon icon(blue);
    const HostWindow owner(L"Contratos");
    SendMessageW(owner.window(), WM_SETICON, ICON_BIG, icon.parameter());
    HWND const owned = CreateWindowExW(0, L"#32770", L"Filtro", WS_POPUP | WS_CAPTION | WS_VISIBLE,
                                       50, 50, 200, 100, owner.window(), nullptr, nullptr, nullptr);
    every_window_has(owned, "blue", "blue");
    DestroyWindow(owned);
}

TEST(HostIcon, OtherwiseThatOfTheWindowClass) {
    const PlainIcon icon(green);
    WNDCLASSEXW form{};
    form.cbSize = sizeof form;
    form.lpfnWndProc = &DefWindowProcW;
    form.hInstance = GetModuleHandleW(nullptr);
    form.hIcon = icon.get();
    form.lpszClassName = L"FormWithAnIcon";
    ASSERT_NE(RegisterClassExW(&form), 0);
    HWND const host =
        CreateWindowExW(0, form.lpszClassName, L"Recibos", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 20, 20,
                        300, 200, nullptr, nullptr, form.hInstance, nullptr);
    every_window_has(host, "green", "green");
    DestroyWindow(host);
    UnregisterClassW(form.lpszClassName, form.hInstance);
}

TEST(HostIcon, OtherwiseTheFirstOfTheProgram) {
    // Without a window, and with one that has no icon.
    every_window_has(nullptr, "blue", "blue");
    const HostWindow host(L"Contratos");
    every_window_has(host.window(), "blue", "blue");
}

TEST(HostIcon, StaysWhenTheHostChangesItsOwn) {
    const HostWindow host(L"Contratos");
    const auto general = create(L"Kovrel.clsFGen");
    {
        const PlainIcon icon(red);
        SendMessageW(host.window(), WM_SETICON, ICON_BIG, icon.parameter());
        EXPECT_TRUE(bring_to_front(host.window()));
        call(general.get(), L"BarraProgresoInicia", {L"Facturación", L"Recibos"});
        SendMessageW(host.window(), WM_SETICON, ICON_BIG, 0);
    }
    const auto found = top_level_windows({L"Kovrel.frmBarraProgreso", {}, GetCurrentProcessId()});
    ASSERT_EQ(found.size(), 1U);
    has_icon(found.front(), ICON_BIG, "red");
    call(general.get(), L"BarraProgresoFinaliza");
}

}  // namespace
}  // namespace kovrel::test
