// Owner of a handle that a function of the system gives up: std::unique_ptr with that function.
#pragma once

#include <memory>
#include <type_traits>

namespace kovrel {

template <auto release>
struct Release {
    template <class Handle>
    void operator()(Handle handle) const noexcept {
        release(handle);
    }
};

/// Owned<HICON, &DestroyIcon>. Null owns nothing.
template <class Handle, auto release>
using Owned = std::unique_ptr<std::remove_pointer_t<Handle>, Release<release>>;

}  // namespace kovrel
