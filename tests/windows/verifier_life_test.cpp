// The verifier: how it opens, its keys, how it closes.
#include <atomic>

#include "tests/support/early.h"
#include "tests/support/gui_objects.h"
#include "tests/windows/host_window.h"
#include "tests/windows/verifier_window.h"

namespace kovrel::test {
namespace {

TEST_F(Verifier, OpensEmptyWithTheHostsNameAsCaption) {
    open([](const Controls& controls) {
        EXPECT_EQ(text_of(controls.window), L"Gestión de cobros");
        EXPECT_EQ(text_of(controls.tax_id), L"");
        EXPECT_EQ(text_of(controls.account), L"");
        EXPECT_EQ(text_of(controls.copy_tax_id), L"&Copiar NIF");
        EXPECT_EQ(text_of(controls.copy_account), L"C&opiar cuenta");
        EXPECT_EQ(text_of(controls.close), L"C&errar");
        EXPECT_TRUE(find_control(controls.window, L"Button", L"Identificación fiscal"));
        EXPECT_TRUE(find_control(controls.window, L"Button", L"Código de Cuenta Bancaria"));
        controls.shows_marks("");
        controls.to_front();
        controls.leave();
    });
}

TEST_F(Verifier, WithoutAHostsNameTheCaptionIsEmpty) {
    put(general_.get(), L"AppOrigen", Variant(L""));
    open([](const Controls& controls) {
        EXPECT_EQ(text_of(controls.window), L"");
        controls.leave();
    });
}

TEST_F(Verifier, AShortValueDoesNotKeepTheWindowOpen) {
    const std::vector<std::function<void(const Controls&)>> ways{
        [](const Controls& controls) { click(controls.close); },
        [](const Controls&) { press_key(VK_ESCAPE); },
        [](const Controls&) { press_key('E', Modifier::alt); },
        [](const Controls& controls) { PostMessageW(controls.window, WM_CLOSE, 0, 0); },
    };
    for (const auto& close : ways) {
        open([&](const Controls& controls) {
            controls.to_front();
            controls.type(controls.tax_id, L"12", L"12");
            close(controls);
            EXPECT_TRUE(wait_until_closed(controls.window));
        });
    }
}

TEST_F(Verifier, EnterMovesToTheNextControl) {
    open([](const Controls& controls) {
        controls.to_front();
        controls.type(controls.tax_id, L"12345678Z", L"12345678Z");
        press_key(VK_RETURN);
        controls.has_focus(controls.copy_tax_id);
        controls.shows_marks("NIF aceptado");
        EXPECT_TRUE(IsWindowVisible(controls.window));
        controls.leave();
    });
}

TEST_F(Verifier, EnterPressesTheCloseButton) {
    open([](const Controls& controls) {
        controls.to_front();
        press_key(VK_TAB, Modifier::shift);
        controls.has_focus(controls.close);
        press_key(VK_RETURN);
        EXPECT_TRUE(wait_until_closed(controls.window));
    });
}

TEST_F(Verifier, AWrongValueIsReportedBeforeTheAccessKeyCloses) {
    open([](const Controls& controls) {
        controls.to_front();
        controls.type(controls.tax_id, L"12345678A", L"12345678A");
        press_key('E', Modifier::alt);
        EXPECT_EQ(answer_next_box(),
                  "48|Error en la letra del N.I.F.|La letra del N.I.F. 'A' es incorrecta y será "
                  "sustituida por la correcta: 'Z'|1");
        EXPECT_TRUE(wait_until_closed(controls.window));
    });
    open([](const Controls& controls) {
        controls.to_front();
        press_key('U', Modifier::alt);
        controls.type(controls.account, L"21000813620123456789", L"2100 0813 62 0123456789");
        press_key('E', Modifier::alt);
        EXPECT_EQ(answer_next_box(),
                  "48|Datos bancarios incorrectos|Datos bancarios incorrectos. Por favor revise el "
                  "'Código de Cuenta Cliente'\\r\\r          D.C. Correcto.......: 61|1");
        EXPECT_TRUE(wait_until_closed(controls.window));
    });
}

TEST_F(Verifier, DataEntryErrorsAreExplained) {
    open([](const Controls& controls) {
        const auto told = [&](WPARAM code) {
            constexpr UINT data_entry_error = WM_APP + 0x100;
            PostMessageW(controls.window, data_entry_error, code, 0);
            return answer_next_box();
        };
        controls.to_front();
        EXPECT_EQ(told(2279),
                  "64|kovrel|Introduzca el NIF correctamente (Ejemplo: \"09123456X\" o "
                  "\"X9123456Y\")|1");
        EXPECT_EQ(told(3314), "48|kovrel|El dato no puede quedar vacío.|1");
        controls.back_to_front();
        controls.has_focus(controls.tax_id);
        press_key('U', Modifier::alt);
        controls.has_focus(controls.account);
        EXPECT_EQ(told(2279), "64|kovrel|Introduzca el Código de Cuenta Bancaria correctamente.|1");
        EXPECT_EQ(told(3162), "48|kovrel|El dato no puede quedar vacío.|1");
        EXPECT_EQ(told(2113), "64|kovrel|Introduzca el dato correctamente.|1");
        constexpr UINT data_entry_error = WM_APP + 0x100;
        PostMessageW(controls.window, data_entry_error, 1, 0);
        controls.leave();
    });
}

TEST_F(Verifier, IsEmptyWhenOpenedAgain) {
    open([](const Controls& controls) {
        controls.to_front();
        controls.type(controls.tax_id, L"12345678Z", L"12345678Z");
        controls.leave();
    });
    put(general_.get(), L"AppOrigen", Variant(L"Otra"));
    open([](const Controls& controls) {
        EXPECT_EQ(text_of(controls.window), L"Otra");
        EXPECT_EQ(text_of(controls.tax_id), L"");
        controls.shows_marks("");
        controls.leave();
    });
}

TEST_F(Verifier, LeaksNothing) {
    const auto once = [&] { open([](const Controls& controls) { controls.leave(); }); };
    once();
    const GuiObjects before = gui_objects();
    for (int round = 0; round < 10; ++round) once();
    EXPECT_EQ(gui_objects(), before);
}

TEST_F(Verifier, IsModalAndGivesTheFocusBack) {
    const HostWindow first(L"Contratos");
    const HostWindow second(L"Pagadores");
    SetActiveWindow(first.window());
    SetFocus(first.field());
    open([&](const Controls& controls) {
        controls.to_front();
        EXPECT_FALSE(IsWindowEnabled(first.window()));
        EXPECT_FALSE(IsWindowEnabled(second.window()));
        controls.leave();
    });
    EXPECT_TRUE(IsWindowEnabled(first.window()));
    EXPECT_TRUE(IsWindowEnabled(second.window()));
    EXPECT_EQ(GetActiveWindow(), first.window());
    EXPECT_EQ(GetFocus(), first.field());
}

TEST_F(Verifier, ASecondCallWhileItIsOpenIsReported) {
    const HostCalls host;
    const auto other = create(L"Kovrel.clsFGen");
    put(other.get(), L"AppOrigen", Variant(L"Otra instancia"));
    std::atomic<bool> returned = false;
    open([&](const Controls& controls) {
        controls.to_front();
        controls.type(controls.tax_id, L"1234", L"1234");
        host.post([&] {
            const Outcome outcome = call(other.get(), L"LanzaVerificadorNIFyCCC");
            EXPECT_EQ(outcome.result, S_OK);
            EXPECT_EQ(outcome.value.vt, VT_EMPTY);
            returned = true;
        });
        EXPECT_EQ(answer_next_box(),
                  "16|kovrel|Error 400\\r (El formulario ya se muestra; no puede mostrarse de "
                  "forma modal) en procedimiento LanzaVerificadorNIFyCCC del Módulo de clase "
                  "clsFGen.|1");
        EXPECT_TRUE(wait_until([&] { return returned.load(); }));
        // The open window is not affected.
        EXPECT_EQ(text_of(controls.tax_id), L"1234");
        EXPECT_TRUE(IsWindowEnabled(controls.window));
        controls.leave();
    });
}

TEST_F(Verifier, EarlyBound) {
    using Launch = HRESULT(STDMETHODCALLTYPE*)(IDispatch*, VARIANT*);
    BoxWatcher windows({on_window({L"Kovrel.frmNIFCCC", {}, 0}, [](HWND window) {
        EXPECT_EQ(text_of(window), L"Gestión de cobros");
        PostMessageW(window, WM_CLOSE, 0, 0);
    })});
    VARIANT raw;
    VariantInit(&raw);
    EXPECT_EQ(early<Launch>(general_.get(), L"LanzaVerificadorNIFyCCC")(general_.get(), &raw),
              S_OK);
    EXPECT_EQ(raw.vt, VT_EMPTY);
}

}  // namespace
}  // namespace kovrel::test
