// The icon that the user knows the host by.
#include "ui/gdi.h"

namespace kovrel {
namespace {

HICON own_icon(HWND window, WPARAM kind, int of_class) noexcept {
    const LRESULT set = SendMessageW(window, WM_GETICON, kind, 0);
    return reinterpret_cast<HICON>(
        set != 0 ? set : static_cast<LRESULT>(GetClassLongPtrW(window, of_class)));
}

/// The other size, which the system then scales, is better than none.
HICON icon_of(HWND window, bool large) noexcept {
    for (HWND next = window; next != nullptr; next = GetWindow(next, GW_OWNER)) {
        for (const bool size : {large, !large}) {
            HICON const found = size ? own_icon(next, ICON_BIG, GCLP_HICON)
                                     : own_icon(next, ICON_SMALL, GCLP_HICONSM);
            if (found != nullptr) return found;
        }
    }
    return nullptr;
}

struct ProgramIcon {
    int width;
    int height;
    HICON found = nullptr;
};

BOOL CALLBACK load_first(HMODULE program, const wchar_t* /*type*/, wchar_t* name,
                         LONG_PTR parameter) noexcept {
    auto* const icon = reinterpret_cast<ProgramIcon*>(parameter);
    icon->found = static_cast<HICON>(
        LoadImageW(program, name, IMAGE_ICON, icon->width, icon->height, LR_DEFAULTCOLOR));
    return icon->found == nullptr ? TRUE : FALSE;
}

}  // namespace

Icon host_icon(HWND window, bool large, int dots_per_inch) noexcept {
    // The host may change its own while the window is open.
    if (HICON const shown = icon_of(window, large)) return Icon(CopyIcon(shown));
    ProgramIcon icon{system_metric(large ? SM_CXICON : SM_CXSMICON, dots_per_inch),
                     system_metric(large ? SM_CYICON : SM_CYSMICON, dots_per_inch)};
    EnumResourceNamesW(GetModuleHandleW(nullptr), RT_GROUP_ICON, &load_first,
                       reinterpret_cast<LONG_PTR>(&icon));
    return Icon(icon.found);
}

}  // namespace kovrel
