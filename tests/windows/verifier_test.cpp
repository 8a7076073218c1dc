// The verifier, worked with real keys and the real clipboard.
#include <windows.h>
#include <commctrl.h>

#include <array>
#include <cstring>
#include <cwchar>
#include <functional>
#include <gtest/gtest.h>

#include "tests/automation/box_lines.h"
#include "tests/automation/late.h"

namespace kovrel::test {
namespace {

const WindowQuery verifier{L"Kovrel.frmNIFCCC", {}, 0};

constexpr const wchar_t* nif_ok = L"NIF aceptado";
constexpr const wchar_t* nif_no = L"NIF no aceptado";
constexpr const wchar_t* ccc_ok = L"Cuenta aceptada";
constexpr const wchar_t* ccc_no = L"Cuenta no aceptada";

// The controls in the order in which Tab visits them.
struct Controls {
    explicit Controls(HWND opened) : window(opened) {
        const std::vector<HWND> order = tab_order(window);
        EXPECT_EQ(order.size(), 5U);
        if (order.size() != 5) return;
        tax_id = order[0];
        copy_tax_id = order[1];
        account = order[2];
        copy_account = order[3];
        close = order[4];
    }

    [[nodiscard]] bool shows(const wchar_t* mark) const {
        HWND const found = find_control(window, L"Kovrel.PictureBox", mark);
        return found != nullptr && IsWindowVisible(found);
    }
    [[nodiscard]] std::string marks() const {
        std::string shown;
        for (const wchar_t* mark : {nif_ok, nif_no, ccc_ok, ccc_no}) {
            if (shows(mark)) shown += (shown.empty() ? "" : ", ") + narrow(mark);
        }
        return shown;
    }
    void to_front() const {
        EXPECT_TRUE(bring_to_front(window));
        has_focus(tax_id);
    }
    void has_focus(HWND control) const {
        EXPECT_TRUE(wait_until([&] { return focus_of(window) == control; }));
    }
    // Types and waits until the field shows it.
    void type(HWND field, const wchar_t* keys, const wchar_t* shown) const {
        has_focus(field);
        type_text(keys);
        EXPECT_TRUE(wait_until([&] { return text_of(field) == shown; })) << narrow(text_of(field));
    }
    void shows_marks(const std::string& expected) const {
        EXPECT_TRUE(wait_until([&] { return marks() == expected; })) << marks();
    }
    // All that the window has been sent so far has been dealt with.
    void settle() const {
        ask(window, WM_NULL);
        ask(window, WM_NULL);
    }
    void leave() const { PostMessageW(close, BM_CLICK, 0, 0); }

    HWND window;
    HWND tax_id = nullptr;
    HWND copy_tax_id = nullptr;
    HWND account = nullptr;
    HWND copy_account = nullptr;
    HWND close = nullptr;
};

// Waits for a box, answers it and gives it as a line.
std::string answer_next_box() {
    HWND const box = wait_for_window({L"#32770", {}, 0});
    EXPECT_NE(box, nullptr);
    std::optional<SeenBox> seen;
    EXPECT_TRUE(wait_until([&] { return (seen = read_box(box)).has_value(); }));
    if (!seen) return {};
    EXPECT_TRUE(answer_box(box, *seen, {IDOK, 0}));
    return narrow(as_line(*seen));
}

void set_clipboard(const wchar_t* text) {
    ASSERT_TRUE(wait_until([] { return OpenClipboard(nullptr) != FALSE; }));
    EmptyClipboard();
    const std::size_t size = (std::wcslen(text) + 1) * sizeof(wchar_t);
    HGLOBAL const memory = GlobalAlloc(GMEM_MOVEABLE, size);
    std::memcpy(GlobalLock(memory), text, size);
    GlobalUnlock(memory);
    SetClipboardData(CF_UNICODETEXT, memory);
    CloseClipboard();
}

std::wstring clipboard() {
    std::wstring text;
    EXPECT_TRUE(wait_until([] { return OpenClipboard(nullptr) != FALSE; }));
    if (HANDLE const data = GetClipboardData(CF_UNICODETEXT)) {
        text = static_cast<const wchar_t*>(GlobalLock(data));
        GlobalUnlock(data);
    }
    CloseClipboard();
    return text;
}

std::wstring tooltip_of(HWND window, HWND control) {
    HWND tips = nullptr;
    while ((tips = FindWindowExW(nullptr, tips, TOOLTIPS_CLASSW, nullptr)) != nullptr) {
        if (GetWindow(tips, GW_OWNER) != window) continue;
        std::array<wchar_t, 300> text{};
        TTTOOLINFOW tool{};
        tool.cbSize = TTTOOLINFOW_V1_SIZE;
        tool.uFlags = TTF_IDISHWND;
        tool.hwnd = window;
        tool.uId = reinterpret_cast<UINT_PTR>(control);
        tool.lpszText = text.data();
        SendMessageW(tips, TTM_GETTEXTW, text.size(), reinterpret_cast<LPARAM>(&tool));
        if (text[0] != L'\0') return text.data();
    }
    return {};
}

class Verifier : public testing::Test {
 protected:
    Verifier() { put(general_.get(), L"AppOrigen", Variant(L"Gestión de cobros")); }

    void open(const std::function<void(const Controls&)>& work) {
        BoxWatcher windows({on_window(verifier, [&](HWND window) { work(Controls(window)); })});
        const Outcome outcome = call(general_.get(), L"LanzaVerificadorNIFyCCC");
        EXPECT_EQ(outcome.result, S_OK);
        EXPECT_EQ(outcome.value.vt, VT_EMPTY);
    }

    ComPtr<IDispatch> general_ = create(L"Kovrel.clsFGen");
};

TEST_F(Verifier, OpensEmptyUnderTheHostsName) {
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
        EXPECT_TRUE(save_picture(controls.window, picture_folder() / L"verifier_empty.png"));
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

TEST_F(Verifier, GoodValuesAreAccepted) {
    open([](const Controls& controls) {
        controls.to_front();
        controls.type(controls.tax_id, L"12345678z", L"12345678z");
        controls.shows_marks("NIF no aceptado");
        press_key(VK_TAB);
        controls.shows_marks("NIF aceptado");
        EXPECT_EQ(text_of(controls.tax_id), L"12345678Z");
        controls.has_focus(controls.copy_tax_id);
        press_key(VK_TAB);
        controls.type(controls.account, L"21000813610123456789", L"2100 0813 61 0123456789");
        controls.shows_marks("NIF aceptado, Cuenta no aceptada");
        press_key(VK_TAB);
        controls.shows_marks("NIF aceptado, Cuenta aceptada");
        EXPECT_TRUE(save_picture(controls.window, picture_folder() / L"verifier_good.png"));
        controls.leave();
    });
}

TEST_F(Verifier, AWrongLetterIsToldAndCorrected) {
    open([](const Controls& controls) {
        controls.to_front();
        controls.type(controls.tax_id, L"12345678A", L"12345678A");
        press_key(VK_TAB);
        EXPECT_EQ(answer_next_box(),
                  "48|Error en la letra del N.I.F.|La letra del N.I.F. 'A' es incorrecta y será "
                  "sustituida por la correcta: 'Z'|1");
        controls.shows_marks("NIF aceptado");
        EXPECT_EQ(text_of(controls.tax_id), L"12345678Z");
        controls.leave();
    });
}

TEST_F(Verifier, ARejectedCompanyIsEmptiedAndMarkedAsAccepted) {
    open([](const Controls& controls) {
        controls.to_front();
        controls.type(controls.tax_id, L"A28015866", L"A28015866");
        press_key(VK_TAB);
        EXPECT_EQ(answer_next_box(),
                  "16|ATENCIÓN|El último número no corresponde a un CIF correcto.|1");
        EXPECT_TRUE(wait_until([&] { return text_of(controls.tax_id).empty(); }));
        controls.shows_marks("NIF aceptado");
        controls.leave();
    });
}

TEST_F(Verifier, AWrongAccountNamesTheRightDigits) {
    open([](const Controls& controls) {
        controls.to_front();
        controls.type(controls.tax_id, L"1234", L"1234");
        controls.shows_marks("NIF no aceptado");
        for (int strokes = 0; strokes < 4; ++strokes) press_key(VK_BACK);
        EXPECT_TRUE(wait_until([&] { return text_of(controls.tax_id).empty(); }));
        press_key(VK_TAB);
        controls.shows_marks("");
        press_key(VK_TAB);
        controls.type(controls.account, L"21000813620123456789", L"2100 0813 62 0123456789");
        press_key(VK_TAB);
        EXPECT_EQ(answer_next_box(),
                  "48|Datos bancarios incorrectos|Datos bancarios incorrectos. Por favor revise el "
                  "'Código de Cuenta Cliente'\\r\\r          D.C. Correcto.......: 61|1");
        controls.shows_marks("Cuenta no aceptada");
        controls.has_focus(controls.copy_account);
        EXPECT_EQ(text_of(controls.account), L"2100 0813 62 0123456789");
        EXPECT_TRUE(save_picture(controls.window, picture_folder() / L"verifier_bad.png"));
        controls.leave();
    });
}

TEST_F(Verifier, ShortValuesKeepTheFocusInSilence) {
    open([](const Controls& controls) {
        controls.to_front();
        controls.type(controls.tax_id, L"1234", L"1234");
        press_key(VK_TAB);
        controls.shows_marks("");
        controls.has_focus(controls.tax_id);
        EXPECT_EQ(text_of(controls.tax_id), L"1234");
        // The rest makes it right.
        press_key(VK_END);
        controls.type(controls.tax_id, L"5678Z", L"12345678Z");
        press_key(VK_TAB);
        controls.has_focus(controls.copy_tax_id);
        press_key(VK_TAB);
        controls.type(controls.account, L"21000", L"2100 0");
        press_key(VK_TAB);
        controls.shows_marks("NIF aceptado");
        controls.has_focus(controls.account);
        press_key(VK_TAB, Modifier::shift);
        controls.settle();
        controls.has_focus(controls.account);
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

TEST_F(Verifier, TheFieldsTakeOnlyWhatTheyAreFor) {
    open([](const Controls& controls) {
        controls.to_front();
        controls.type(controls.tax_id, L"b-12 34.56x789", L"b123456x7");
        press_key(VK_BACK);
        EXPECT_TRUE(wait_until([&] { return text_of(controls.tax_id) == L"b123456x"; }));
        ask(controls.tax_id, EM_SETSEL, 0, -1);
        controls.type(controls.tax_id, L"x1234567l", L"x1234567l");
        press_key(VK_TAB);
        press_key(VK_TAB);
        controls.type(controls.account, L"2100a0813", L"2100 0813");
        // Over the separator from both sides.
        ask(controls.account, EM_SETSEL, 5, 5);
        press_key(VK_BACK);
        EXPECT_TRUE(wait_until([&] { return text_of(controls.account) == L"2100 813"; }))
            << narrow(text_of(controls.account));
        controls.leave();
    });
}

TEST_F(Verifier, PastedTextIsGrouped) {
    set_clipboard(L"ES 2100-0813-61-0123456789 y más");
    open([](const Controls& controls) {
        controls.to_front();
        press_key('U', Modifier::alt);
        controls.has_focus(controls.account);
        press_key('V', Modifier::control);
        EXPECT_TRUE(wait_until([&] {
            return text_of(controls.account) == L"2100 0813 61 0123456789";
        })) << narrow(text_of(controls.account));
        press_key('N', Modifier::alt);
        controls.shows_marks("Cuenta aceptada");
        controls.has_focus(controls.tax_id);
        controls.leave();
    });
}

TEST_F(Verifier, CopiesToTheClipboard) {
    set_clipboard(L"antes");
    open([](const Controls& controls) {
        controls.to_front();
        controls.type(controls.tax_id, L"12345678Z", L"12345678Z");
        click(controls.copy_tax_id);
        EXPECT_TRUE(wait_until([] { return clipboard() == L"12345678Z"; }));
        controls.has_focus(controls.tax_id);
        press_key(VK_TAB);
        press_key(VK_TAB);
        controls.type(controls.account, L"21000813610123456789", L"2100 0813 61 0123456789");
        press_key('O', Modifier::alt);
        EXPECT_TRUE(wait_until([] { return clipboard() == L"2100 0813 61 0123456789"; }));
        controls.has_focus(controls.account);
        const auto selection = static_cast<DWORD>(ask(controls.account, EM_GETSEL));
        EXPECT_EQ(LOWORD(selection), 0);
        EXPECT_EQ(HIWORD(selection), 23);
        controls.leave();
    });
}

TEST_F(Verifier, NothingToCopyIsToldAndTheClipboardStays) {
    set_clipboard(L"antes");
    open([](const Controls& controls) {
        controls.to_front();
        click(controls.copy_tax_id);
        EXPECT_EQ(answer_next_box(), "64|Dato incorrecto o falta|Escriba el NIF|1");
        controls.has_focus(controls.tax_id);
        click(controls.copy_account);
        EXPECT_EQ(answer_next_box(),
                  "64|Dato incorrecto o falta|Escriba el Código de la Cuenta Bancaria (20 "
                  "dígitos)|1");
        controls.has_focus(controls.account);
        EXPECT_EQ(clipboard(), L"antes");
        controls.leave();
    });
}

TEST_F(Verifier, AShortValueIsNotCopied) {
    set_clipboard(L"antes");
    open([](const Controls& controls) {
        controls.to_front();
        controls.type(controls.tax_id, L"1234", L"1234");
        press_key('C', Modifier::alt);
        controls.shows_marks("");
        controls.has_focus(controls.tax_id);
        EXPECT_EQ(clipboard(), L"antes");
        controls.leave();
    });
}

TEST_F(Verifier, EnterGoesOnToTheNextField) {
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

TEST_F(Verifier, TheKindOfTaxIdIsInTheTooltip) {
    open([](const Controls& controls) {
        controls.to_front();
        controls.type(controls.tax_id, L"A28015865", L"A28015865");
        press_key(VK_TAB);
        controls.shows_marks("NIF aceptado");
        EXPECT_EQ(tooltip_of(controls.window, controls.tax_id), L"A - Sociedad Anónima");
        controls.leave();
    });
}

TEST_F(Verifier, DataEntryErrorsAreExplained) {
    open([](const Controls& controls) {
        controls.to_front();
        constexpr UINT data_entry_error = WM_APP + 0x100;
        PostMessageW(controls.window, data_entry_error, 2279, 0);
        EXPECT_EQ(answer_next_box(),
                  "64|kovrel|Introduzca el NIF correctamente (Ejemplo: \"09123456X\" o "
                  "\"X9123456Y\")|1");
        PostMessageW(controls.window, data_entry_error, 3314, 0);
        EXPECT_EQ(answer_next_box(), "48|kovrel|El dato no puede quedar vacío.|1");
        PostMessageW(controls.window, data_entry_error, 1, 0);
        controls.leave();
    });
}

TEST_F(Verifier, TheNextTimeItIsEmptyAgain) {
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

TEST_F(Verifier, LeavesNothingBehind) {
    const auto once = [&] { open([](const Controls& controls) { controls.leave(); }); };
    once();
    const DWORD before = GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS);
    const DWORD windows_before = GetGuiResources(GetCurrentProcess(), GR_USEROBJECTS);
    for (int round = 0; round < 10; ++round) once();
    EXPECT_LE(GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS), before);
    EXPECT_LE(GetGuiResources(GetCurrentProcess(), GR_USEROBJECTS), windows_before);
}

}  // namespace
}  // namespace kovrel::test
