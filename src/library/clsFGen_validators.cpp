// clsFGen: field validators. The result is true when the field is wrong; by then the user has been
// told and the focus is back on the field.
#include <optional>

#include "library/clsFGen.h"
#include "runtime/text.h"
#include "services/guarded.h"
#include "services/message_box.h"
#include "validation/combo_notices.h"

namespace kovrel {
namespace {

/// The text of an empty date field with an input mask.
constexpr std::wstring_view empty_date_mask = L"__/__/____";

std::wstring text_in(const HostObject& control) {
    return control.default_value().to_text_or_empty();
}

/// The name that the user knows the field by.
Variant name_of(const HostObject& control) {
    return Variant(control.get(L"Tag").to_text());
}

void focus(const HostObject& control) {
    control.call(L"SetFocus");
}

/// Ignores the failure of a field that is hidden or disabled.
void try_focus(const HostObject& control) {
    attempt([&] { focus(control); });
}

/// Compares the field's date with that of the other field, or with a date given directly; absent
/// when either is no date.
std::optional<std::partial_ordering> order_of_dates(const HostObject& field, const Variant& other) {
    const Variant date = field.default_value();
    const Variant other_date = other.is_object() ? HostObject(other).default_value() : other;
    if (!date.is_date() || !other_date.is_date()) return std::nullopt;
    return date.to_date() <=> other_date.to_date();
}

/// Posts a key to the thread's active window. Where it has none, the foreground window gets it.
void send_key(WORD key) {
    HWND target = GetFocus() != nullptr ? GetFocus() : GetActiveWindow();
    if (target != nullptr) {
        constexpr LPARAM once = 1;
        constexpr auto released = static_cast<LPARAM>(0xC0000000);
        const LPARAM scan_code = static_cast<LPARAM>(MapVirtualKeyW(key, MAPVK_VK_TO_VSC)) << 16;
        PostMessageW(target, WM_KEYDOWN, key, scan_code | once);
        PostMessageW(target, WM_KEYUP, key, scan_code | once | released);
        return;
    }
    INPUT strokes[2]{};
    for (INPUT& stroke : strokes) {
        stroke.type = INPUT_KEYBOARD;
        stroke.ki.wVk = key;
    }
    strokes[1].ki.dwFlags = KEYEVENTF_KEYUP;
    SendInput(2, strokes, sizeof(INPUT));
}

}  // namespace

bool clsFGen::Requerido(const ComPtr<IDispatch>& Obj) {
    return guarded<bool>({L") en procedimiento Requerido del Módulo de clase clsFGen."},
                         [&](bool& failed) {
                             const HostObject field(Obj);
                             if (!trim(text_in(field)).empty()) return;
                             messages().call(L"MsjDatoNoVacio", {name_of(field)});
                             focus(field);
                             failed = true;
                         });
}

bool clsFGen::LongitudExacta(const ComPtr<IDispatch>& Obj, const bool& PermitirLenCero,
                             const std::int16_t& IntSumaLen) {
    return guarded<bool>(
        {L") en procedimiento LongitudExacta del Módulo de clase clsFGen."}, [&](bool& failed) {
            const HostObject field(Obj);
            const std::size_t length = text_in(field).size();
            if (length == 0) {
                if (PermitirLenCero) return;
                messages().call(L"MsjDatoNoVacio", {name_of(field)});
            } else {
                const double expected = field.get(L"MaxLength").to_double();
                if (expected == static_cast<double>(length) + IntSumaLen) return;
                messages().call(L"MsjEscribaElDatoCorrectamente", {name_of(field)});
            }
            try_focus(field);
            failed = true;
        });
}

bool clsFGen::FechaCorrecta(const ComPtr<IDispatch>& Obj, const bool& PermitirLenCero) {
    return guarded<bool>({L") en procedimiento FechaCorrecta del Módulo de clase clsFGen."},
                         [&](bool& failed) {
                             const HostObject field(Obj);
                             const Variant value = field.default_value();
                             const std::wstring text = value.to_text_or_empty();
                             if (text.empty() || text == empty_date_mask) {
                                 if (PermitirLenCero) return;
                                 messages().call(L"MsjDatoNoVacio", {name_of(field)});
                                 try_focus(field);
                             } else {
                                 if (value.is_date()) return;
                                 messages().call(L"MsjFechaIncorrecta");
                                 focus(field);
                             }
                             failed = true;
                         });
}

bool clsFGen::has_wrong_order(const ComPtr<IDispatch>& Obj, const Variant& other,
                              bool (*is_right)(std::partial_ordering) noexcept,
                              std::wstring_view message) {
    const HostObject field(Obj);
    const auto order = order_of_dates(field, other);
    if (!order || is_right(*order)) return false;
    messages().call(message, {name_of(field), name_of(HostObject(other))});
    focus(field);
    return true;
}

bool clsFGen::FechaMayorQue(const ComPtr<IDispatch>& Obj, const Variant& ObjFechaMenor) {
    return guarded<bool>(
        {L") en procedimiento FechaMayorQue del Módulo de clase clsFGen."}, [&](bool& failed) {
            failed = has_wrong_order(Obj, ObjFechaMenor, &std::is_gt, L"MsjFechaMayorQue");
        });
}

bool clsFGen::FechaMayorIgualQue(const ComPtr<IDispatch>& Obj, const Variant& ObjFechaMenor) {
    return guarded<bool>(
        {L") en procedimiento FechaMayorIgualQue del Módulo de clase clsFGen."}, [&](bool& failed) {
            failed = has_wrong_order(Obj, ObjFechaMenor, &std::is_gteq, L"MsjFechaMayorIgualQue");
        });
}

bool clsFGen::FechaMenorQue(const ComPtr<IDispatch>& Obj, const Variant& ObjFechaMayor) {
    return guarded<bool>(
        {L") en procedimiento FechaMenorQue del Módulo de clase clsFGen."}, [&](bool& failed) {
            failed = has_wrong_order(Obj, ObjFechaMayor, &std::is_lt, L"MsjFechaMenorQue");
        });
}

bool clsFGen::FechaMenorIgualQue(const ComPtr<IDispatch>& Obj, const Variant& ObjFechaMayor) {
    return guarded<bool>(
        {L") en procedimiento FechaMenorIgualQue del Módulo de clase clsFGen."}, [&](bool& failed) {
            failed = has_wrong_order(Obj, ObjFechaMayor, &std::is_lteq, L"MsjFechaMenorIgualQue");
        });
}

bool clsFGen::ValidateComboALista(const ComPtr<IDispatch>& Cmb, const bool& BoRequerido) {
    return guarded<bool>({L") en procedimiento ValidateComboALista del Módulo de clase clsFGen."},
                         [&](bool& failed) {
                             if (BoRequerido) {
                                 failed = Requerido(Cmb);
                                 if (failed) return;
                             }
                             const HostObject combo(Cmb);
                             if (!BoRequerido) {
                                 // A combo box whose text is not in its list may have a null for
                                 // its value: whether it is empty is then for its text to say.
                                 const Variant value = combo.default_value();
                                 if (!value.is_null() && value.to_text_or_empty().empty()) return;
                             }
                             if (combo.get(L"Text").to_text_or_empty().empty()) return;
                             const Variant chosen = Nz(combo.default_value(), Variant(L""));
                             if (!chosen.to_text_or_empty().empty()) return;
                             failed = true;
                             if (combo.get(L"ListCount").to_double() > 0) {
                                 show(combo_needs_list_item(name_));
                                 focus(combo);
                                 combo.call(L"DropDown");
                             } else {
                                 show(combo_value_not_valid(name_));
                             }
                         });
}

bool clsFGen::ValidateDataComboALista(const ComPtr<IDispatch>& DtCmb, const bool& BoRequerido) {
    return guarded<bool>(
        {L") en procedimiento ValidateDataComboALista del Módulo de clase clsFGen."},
        [&](bool& failed) {
            if (BoRequerido) {
                failed = Requerido(DtCmb);
                if (failed) return;
            }
            const HostObject combo(DtCmb);
            if (!BoRequerido && text_in(combo).empty()) return;
            if (combo.get(L"MatchedWithList").to_bool()) return;
            messages().call(L"MsjElegirElementoDeLista");
            focus(combo);
            if (!attempt([&] { combo.call(L"DropDown"); })) send_key(VK_F4);
            failed = true;
        });
}

}  // namespace kovrel
