// The enumerations that hosts go through: the values of a collection with "For Each", the
// connection points of an object, the sinks of one.
#pragma once

#include <windows.h>
#include <oleauto.h>

#include <algorithm>
#include <memory>
#include <new>
#include <utility>
#include <vector>

#include "automation/com_ptr.h"
#include "automation/object.h"
#include "automation/single_interface.h"
#include "automation/variant.h"

namespace kovrel {

/// Goes through elements as they were when it was made: what is added or removed meanwhile changes
/// nothing for it. `Traits` has Interface, the enumeration's interface; Raw, what it hands out;
/// Held, what an element is kept as; copy(held, raw), an HRESULT; and clear(raw).
template <class Traits>
class Enumerator final : public SingleInterface<typename Traits::Interface> {
 public:
    using Interface = typename Traits::Interface;
    using Raw = typename Traits::Raw;
    using Elements = std::vector<typename Traits::Held>;

    /// Failures are thrown.
    [[nodiscard]] static ComPtr<Interface> over(Elements elements) {
        auto shared = std::make_shared<const Elements>(std::move(elements));
        return ComPtr<Interface>::attach(new Enumerator(std::move(shared), 0));
    }

    HRESULT STDMETHODCALLTYPE Next(ULONG wanted, Raw* given, ULONG* count) override {
        if (count != nullptr) *count = 0;
        if (given == nullptr || (count == nullptr && wanted > 1)) return E_POINTER;
        ULONG done = 0;
        for (; done < wanted && next_ + done < elements_->size(); ++done) {
            const HRESULT copied = Traits::copy((*elements_)[next_ + done], given[done]);
            if (SUCCEEDED(copied)) continue;
            while (done-- > 0) Traits::clear(given[done]);
            return copied;
        }
        next_ += done;
        if (count != nullptr) *count = done;
        return done == wanted ? S_OK : S_FALSE;
    }

    HRESULT STDMETHODCALLTYPE Skip(ULONG count) override {
        const std::size_t left = elements_->size() - next_;
        next_ += std::min<std::size_t>(count, left);
        return count <= left ? S_OK : S_FALSE;
    }

    HRESULT STDMETHODCALLTYPE Reset() override {
        next_ = 0;
        return S_OK;
    }

    HRESULT STDMETHODCALLTYPE Clone(Interface** result) override {
        if (result == nullptr) return E_POINTER;
        *result = new (std::nothrow) Enumerator(elements_, next_);
        return *result != nullptr ? S_OK : E_OUTOFMEMORY;
    }

 private:
    Enumerator(std::shared_ptr<const Elements> elements, std::size_t next) noexcept
        : elements_(std::move(elements)), next_(next) {}
    ~Enumerator() override = default;

    const LiveObject counted_;
    const std::shared_ptr<const Elements> elements_;  ///< shared with its clones
    std::size_t next_;
};

/// What a collection's _NewEnum gives. Failures are thrown.
[[nodiscard]] ComPtr<IUnknown> enumeration_of(std::vector<Variant> values);

}  // namespace kovrel
