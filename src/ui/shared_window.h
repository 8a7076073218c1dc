// A window object shared by its users while any of them holds it, one per thread since a window
// belongs to the thread that created it.
#pragma once

#include <memory>

#include "automation/thread_slot.h"

namespace kovrel {

template <class Form>
class SharedWindow {
 public:
    [[nodiscard]] static std::shared_ptr<Form> get() {
        std::weak_ptr<Form>* const shared = windows_.get();
        auto window = shared == nullptr ? nullptr : shared->lock();
        if (window) return window;
        window.reset(new Form, &forget);
        auto made = std::make_unique<std::weak_ptr<Form>>(window);
        windows_.set(made.get());
        if (windows_.get() == made.get()) static_cast<void>(made.release());
        return window;
    }

 private:
    /// Also erases this thread's entry.
    static void forget(Form* window) noexcept {
        std::weak_ptr<Form>* const shared = windows_.get();
        if (shared != nullptr && shared->expired()) {
            windows_.set(nullptr);
            delete shared;
        }
        delete window;
    }

    inline static constinit ThreadSlot<std::weak_ptr<Form>> windows_;
};

}  // namespace kovrel
