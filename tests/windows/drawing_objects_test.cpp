// GDI objects of the windows: device contexts are released with their original font, and bitmaps
// are created with their pixels.
#include <atomic>

#include "tests/support/import_patch.h"
#include "tests/windows/progress_window.h"
#include "tests/windows/verifier_window.h"

namespace kovrel::test {
namespace {

std::atomic<int> released;
std::atomic<int> with_foreign_font;

int WINAPI watched_release(HWND window, HDC context) {
    ++released;
    if (GetCurrentObject(context, OBJ_FONT) != GetStockObject(SYSTEM_FONT)) ++with_foreign_font;
    return ReleaseDC(window, context);
}

std::atomic<int> created;
std::atomic<int> without_pixels;

HBITMAP WINAPI watched_bitmap(int width, int height, UINT planes, UINT bits, const void* pixels) {
    ++created;
    if (pixels == nullptr) ++without_pixels;
    return CreateBitmap(width, height, planes, bits, pixels);
}

/// Opens each window of the library and closes it again.
void every_window(IDispatch* general) {
    call(general, L"BarraProgresoInicia", {L"Facturación", L"Recibos", true});
    call(general, L"BarraProgresoActualiza", {std::int32_t{50}, L"Recibos"});
    call(general, L"BarraProgresoFinaliza");
    const auto close_by = [](const wchar_t* window_class, const wchar_t* button) {
        return on_window({window_class, {}, 0}, [button](HWND window) {
            PostMessageW(find_control(window, L"Button", button), BM_CLICK, 0, 0);
        });
    };
    BoxWatcher windows({close_by(L"Kovrel.frmFECHA1", L"Aceptar"),
                        close_by(L"Kovrel.frmDialogo", L"Aceptar"),
                        close_by(L"Kovrel.frmNIFCCC", L"C&errar")});
    call(create(L"Kovrel.clsFFechas").get(), L"PideFecha", {L"¿Fecha?"});
    call(create(L"Kovrel.clsMensajes").get(), L"MsgFormA", {L"Aviso", L"Texto"});
    call(general, L"LanzaVerificadorNIFyCCC");
}

TEST(DrawingObjects, AContextIsReleasedWithItsOriginalFont) {
    const auto general = create(L"Kovrel.clsFGen");
    released = with_foreign_font = 0;
    const ImportPatch patch(L"kovrel.dll", "ReleaseDC", reinterpret_cast<void*>(&watched_release));
    ASSERT_TRUE(patch.in_place());
    every_window(general.get());
    EXPECT_GT(released, 0);
    EXPECT_EQ(with_foreign_font, 0);
}

TEST(DrawingObjects, ABitmapIsCreatedWithItsPixels) {
    const auto general = create(L"Kovrel.clsFGen");
    created = without_pixels = 0;
    const ImportPatch patch(L"kovrel.dll", "CreateBitmap",
                            reinterpret_cast<void*>(&watched_bitmap));
    ASSERT_TRUE(patch.in_place());
    every_window(general.get());
    EXPECT_GT(created, 0);
    EXPECT_EQ(without_pixels, 0);
}

}  // namespace
}  // namespace kovrel::test
