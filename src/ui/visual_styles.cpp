#include "ui/visual_styles.h"

#include "automation/module.h"

namespace kovrel {
namespace {

/// One context serves the process for as long as the library is in it.
HANDLE own_context() {
    static HANDLE const context = [] {
        const std::wstring path = own_module_path();
        ACTCTXW description{};
        description.cbSize = sizeof description;
        description.dwFlags = ACTCTX_FLAG_HMODULE_VALID | ACTCTX_FLAG_RESOURCE_NAME_VALID;
        description.hModule = own_module();
        description.lpResourceName = MAKEINTRESOURCEW(2);
        description.lpSource = path.c_str();
        return CreateActCtxW(&description);
    }();
    return context;
}

}  // namespace

VisualStyles::VisualStyles() {
    HANDLE const context = own_context();
    active_ = context != INVALID_HANDLE_VALUE && ActivateActCtx(context, &cookie_) != FALSE;
}

VisualStyles::~VisualStyles() {
    if (active_) DeactivateActCtx(0, cookie_);
}

}  // namespace kovrel
