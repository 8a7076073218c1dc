// A window object shared by its users while any of them holds it, one per thread since a window
// belongs to the thread that created it.
#pragma once

#include <memory>

#include "automation/per_thread.h"

namespace kovrel {

template <class Form>
class SharedWindow {
 public:
    [[nodiscard]] static std::shared_ptr<Form> get() {
        if (auto window = windows_.get().lock()) return window;
        std::shared_ptr<Form> window(new Form, &forget);
        windows_.set(window);
        return window;
    }

 private:
    /// Also erases this thread's entry.
    static void forget(Form* window) noexcept {
        if (windows_.get().expired()) windows_.clear();
        delete window;
    }

    inline static constinit PerThread<std::weak_ptr<Form>> windows_;
};

}  // namespace kovrel
