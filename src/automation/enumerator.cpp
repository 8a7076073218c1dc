#include "automation/enumerator.h"

namespace kovrel {
namespace {

struct VariantTraits {
    using Interface = IEnumVARIANT;
    using Raw = VARIANT;
    using Held = Variant;

    static HRESULT copy(const Variant& held, VARIANT& raw) noexcept {
        raw.vt = VT_EMPTY;
        return VariantCopy(&raw, const_cast<Variant*>(&held));
    }
    static void clear(VARIANT& raw) noexcept { VariantClear(&raw); }
};

}  // namespace

ComPtr<IUnknown> enumeration_of(std::vector<Variant> values) {
    return Enumerator<VariantTraits>::over(std::move(values)).query<IUnknown>();
}

}  // namespace kovrel
