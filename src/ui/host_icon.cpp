// The host's icon.
#include "ui/gdi.h"

namespace kovrel {
namespace {

/// Falls back to the other size, which the system scales.
HICON icon_of(HWND window, bool large) noexcept {
    for (HWND next = window; next != nullptr; next = GetWindow(next, GW_OWNER)) {
        for (const bool big : {large, !large}) {
            auto found = static_cast<ULONG_PTR>(
                SendMessageW(next, WM_GETICON, big ? ICON_BIG : ICON_SMALL, 0));
            if (found == 0) found = GetClassLongPtrW(next, big ? GCLP_HICON : GCLP_HICONSM);
            if (found != 0) return reinterpret_cast<HICON>(found);
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
    // A copy: the host may destroy its own while the window is open.
    if (HICON const shown = icon_of(window, large)) return Icon(CopyIcon(shown));
    ProgramIcon icon{system_metric(large ? SM_CXICON : SM_CXSMICON, dots_per_inch),
                     system_metric(large ? SM_CYICON : SM_CYSMICON, dots_per_inch)};
    EnumResourceNamesW(GetModuleHandleW(nullptr), RT_GROUP_ICON, &load_first,
                       reinterpret_cast<LONG_PTR>(&icon));
    return Icon(icon.found);
}

}  // namespace kovrel
