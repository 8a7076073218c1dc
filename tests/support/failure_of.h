// The number of the failure that an action ends with, 0 when it ends well.
#pragma once

#include <cstdint>

#include "runtime/failure.h"

namespace kovrel {

template <class Action>
std::int32_t failure_of(Action action) {
    try {
        static_cast<void>(action());
    } catch (const Failure& failure) {
        return failure.number();
    }
    return 0;
}

}  // namespace kovrel
