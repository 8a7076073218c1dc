// The verifier for tests: its controls, boxes and tooltips, and the clipboard.
#pragma once

#include <windows.h>

#include <functional>
#include <gtest/gtest.h>
#include <string>
#include <utility>

#include "tests/support/box_lines.h"
#include "tests/support/late.h"

namespace kovrel::test {

inline constexpr const wchar_t* nif_ok = L"NIF aceptado";
inline constexpr const wchar_t* nif_no = L"NIF no aceptado";
inline constexpr const wchar_t* ccc_ok = L"Cuenta aceptada";
inline constexpr const wchar_t* ccc_no = L"Cuenta no aceptada";

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
        back_to_front();
        has_focus(tax_id);
    }
    // Needed after a box, when the window manager may leave no window active.
    void back_to_front() const { EXPECT_TRUE(bring_to_front(window)); }
    void has_focus(HWND control) const {
        EXPECT_TRUE(wait_until([&] { return focus_of(window) == control; }))
            << "the focus is in \"" << narrow(text_of(focus_of(window))) << "\", not in \""
            << narrow(text_of(control)) << '"';
    }
    // Types and waits until the field shows it.
    void type(HWND field, const wchar_t* keys, const wchar_t* shown) const {
        has_focus(field);
        type_text(keys);
        EXPECT_TRUE(wait_until([&] { return text_of(field) == shown; })) << narrow(text_of(field));
    }
    // Waits until the clicks up to now have been handled: keys come after them. The field has the
    // focus before and after, and room for a digit.
    void after_clicks(HWND field) const {
        const std::wstring shown = text_of(field);
        press_key(VK_END);
        type(field, L"5", (shown + L'5').c_str());
        press_key(VK_BACK);
        EXPECT_TRUE(wait_until([&] { return text_of(field) == shown; })) << narrow(text_of(field));
        has_focus(field);
    }
    void shows_marks(const std::string& expected) const {
        EXPECT_TRUE(wait_until([&] { return marks() == expected; })) << marks();
    }
    // The first selected character and the one after the last.
    [[nodiscard]] std::pair<int, int> selection_of(HWND field) const {
        const auto selection = static_cast<DWORD>(ask(field, EM_GETSEL));
        return {LOWORD(selection), HIWORD(selection)};
    }
    void leave() const { PostMessageW(close, BM_CLICK, 0, 0); }

    HWND window;
    HWND tax_id = nullptr;
    HWND copy_tax_id = nullptr;
    HWND account = nullptr;
    HWND copy_account = nullptr;
    HWND close = nullptr;
};

// Waits for a box, answers it and returns it as a line.
std::string answer_next_box();

void set_clipboard(const wchar_t* text);
std::wstring clipboard();
// Waits for a copy and compares it. The clipboard is opened only once something new is there: until
// then the window could not open it.
bool clipboard_becomes(const wchar_t* text);

// Empty: none.
std::wstring tooltip_of(HWND window, HWND control);

class Verifier : public testing::Test {
 protected:
    Verifier() { put(general_.get(), L"AppOrigen", Variant(L"Gestión de cobros")); }

    void open(const std::function<void(const Controls&)>& work) {
        const WindowQuery verifier{L"Kovrel.frmNIFCCC", {}, 0};
        BoxWatcher windows({on_window(verifier, [&](HWND window) { work(Controls(window)); })});
        const Outcome outcome = call(general_.get(), L"LanzaVerificadorNIFyCCC");
        EXPECT_EQ(outcome.result, S_OK);
        EXPECT_EQ(outcome.value.vt, VT_EMPTY);
    }

    ComPtr<IDispatch> general_ = create(L"Kovrel.clsFGen");
};

}  // namespace kovrel::test
