// clsFGen's field validators on a form with real controls, into which the user types.
#include <windows.h>
#include <commctrl.h>

#include "tests/automation/validators.h"

namespace kovrel::test {
namespace {

class HostFields : public Validators {
 protected:
    /// Types into a field and waits until it shows the text. Keys typed while the window manager is
    /// still moving the focus to the form are lost, so typing is repeated.
    void type(const HostControl& field, const std::wstring& text, const std::wstring& shown) {
        const std::wstring before = field.text();
        bool arrived = false;
        for (int attempts = 0; attempts < 5 && !arrived; ++attempts) {
            ASSERT_TRUE(bring_to_front(form_.window()));
            field.set_text(before);
            SetFocus(field.window);
            press_key(VK_END);
            type_text(text);
            arrived = pump_until([&] { return field.text() == shown; }, Milliseconds{4000});
        }
        EXPECT_TRUE(arrived) << narrow(field.text());
    }
    static Variant argument(const HostControl& field) {
        return Variant(ComPtr<IDispatch>(field.dispatch()));
    }
    /// After a box has closed the window manager may leave no window with the focus, so the form is
    /// activated first.
    void expect_focus(const HostControl& field) {
        EXPECT_TRUE(bring_to_front(form_.window()));
        EXPECT_TRUE(pump_until([&] { return GetFocus() == field.window; }))
            << "the focus is on " << narrow(class_of(GetFocus()));
    }

    HostForm form_{L"Clientes"};
};

TEST_F(HostFields, TheFocusGoesBackToAnEmptyField) {
    const HostControl name = form_.add_text(L"Nombre");
    const HostControl post_code = form_.add_text(L"Código postal", 5);
    type(post_code, L"2800", L"2800");
    expect_boxes(L"Requerido", {argument(name)}, {empty_box(L"Nombre")});
    expect_focus(name);
    type(name, L"Ana", L"Ana");
    expect_pass(L"Requerido", {argument(name)});
    expect_boxes(L"LongitudExacta", {argument(post_code), false}, {wrong_box(L"Código postal")});
    expect_focus(post_code);
    type(post_code, L"15", L"28001");  // the control itself takes no more
    expect_pass(L"LongitudExacta", {argument(post_code), false});
}

TEST_F(HostFields, ADisabledFieldTakesNoFocus) {
    const HostControl name = form_.add_text(L"Nombre");
    EnableWindow(name.window, FALSE);
    expect_boxes(L"Requerido", {argument(name)},
                 {empty_box(L"Nombre"), failure_line(no_focus, L"Requerido")}, false);
    expect_boxes(L"LongitudExacta", {argument(name)}, {empty_box(L"Nombre")});
}

TEST_F(HostFields, DatesOfRealFields) {
    const HostControl masked = form_.add_masked_date(L"fecha de alta");
    const HostControl picker = form_.add_date_picker(L"fecha de baja");
    SYSTEMTIME day{};
    day.wYear = 2024;
    day.wMonth = 2;
    day.wDay = 29;
    SendMessageW(picker.window, DTM_SETSYSTEMTIME, GDT_VALID, reinterpret_cast<LPARAM>(&day));
    expect_boxes(L"FechaCorrecta", {argument(masked)}, {empty_box(L"fecha de alta")});
    expect_focus(masked);
    masked.set_text(L"");
    type(masked, L"01/03/2024", L"01/03/2024");
    expect_pass(L"FechaCorrecta", {argument(masked)});
    expect_pass(L"FechaCorrecta", {argument(picker)});
    expect_boxes(L"FechaMayorQue", {argument(picker), argument(masked)},
                 {narrow(L"48|Gestión|La fecha de baja debe ser posterior a la fecha de alta.|1")});
    expect_focus(picker);
    SendMessageW(picker.window, DTM_SETSYSTEMTIME, GDT_NONE, reinterpret_cast<LPARAM>(&day));
    expect_pass(L"FechaMayorQue", {argument(picker), argument(masked)});
}

TEST_F(HostFields, ARealComboBoxOpensItsList) {
    const HostControl combo = form_.add_combo(L"Provincia", {L"Álava", L"León", L"Zamora"});
    const HostControl none = form_.add_combo(L"Municipio", {});
    type(combo, L"Len", L"Len");
    expect_boxes(L"ValidateComboALista", {argument(combo)}, {list_box});
    EXPECT_TRUE(combo.is_dropped_down());
    EXPECT_EQ(GetParent(GetFocus()), combo.window);
    SendMessageW(combo.window, CB_SHOWDROPDOWN, FALSE, 0);
    combo.set_text(L"León");
    expect_pass(L"ValidateComboALista", {argument(combo), true});
    expect_pass(L"ValidateDataComboALista", {argument(combo), true});
    none.set_text(L"x");
    expect_boxes(L"ValidateComboALista", {argument(none)}, {value_box});
    EXPECT_FALSE(none.is_dropped_down());
}

/// Counts how often the lists of a form's combo boxes open. Looking at the list is not enough: it
/// closes when the window manager moves the focus once more, as it may after a box.
class OpenedLists {
 public:
    explicit OpenedLists(HWND form) : form_(form) {
        SetWindowSubclass(form, &watch, 1, reinterpret_cast<DWORD_PTR>(&count));
    }
    OpenedLists(const OpenedLists&) = delete;
    OpenedLists& operator=(const OpenedLists&) = delete;
    ~OpenedLists() { RemoveWindowSubclass(form_, &watch, 1); }

    int count = 0;

 private:
    static LRESULT CALLBACK watch(HWND form, UINT message, WPARAM wparam, LPARAM lparam,
                                  UINT_PTR /*id*/, DWORD_PTR count) {
        if (message == WM_COMMAND && HIWORD(wparam) == CBN_DROPDOWN) {
            ++*reinterpret_cast<int*>(count);
        }
        return DefSubclassProc(form, message, wparam, lparam);
    }

    HWND form_;
};

TEST_F(HostFields, AComboBoxWithoutDropDownIsOpenedWithF4) {
    const HostControl combo = form_.add_combo(L"Provincia", {L"Álava", L"León"});
    combo.object->property(L"Value", Variant(L"Len")).default_member(L"Value");
    combo.object->remove(L"DropDown");
    type(combo, L"Len", L"Len");
    const OpenedLists opened(form_.window());
    expect_boxes(L"ValidateDataComboALista", {argument(combo)}, {choose_box});
    EXPECT_TRUE(pump_until([&] { return opened.count > 0; }));
    EXPECT_EQ(opened.count, 1);
}

}  // namespace
}  // namespace kovrel::test
