#include "automation/type_library.h"

#include "automation/boundary.h"
#include "automation/module.h"

namespace kovrel {
namespace {

ITypeLib* load_own_library() {
    ITypeLib* library = nullptr;
    const HRESULT loaded = LoadTypeLibEx(own_module_path().c_str(), REGKIND_NONE, &library);
    if (FAILED(loaded)) throw Failure(loaded, {});
    return library;
}

}  // namespace

HRESULT own_type_info(const GUID& id, ITypeInfo** result) noexcept {
    *result = nullptr;
    try {
        // Loaded once and kept: hosts ask again for every object that they look at.
        static ITypeLib* const library = load_own_library();
        return library->GetTypeInfoOfGuid(id, result);
    } catch (...) {
        return hresult_of(current_failure());
    }
}

}  // namespace kovrel
