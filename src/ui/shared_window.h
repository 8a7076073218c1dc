// A window that everybody shares while anybody holds it: one for each thread, since a window
// belongs to the thread that made it.
#pragma once

#include <memory>

#include "automation/per_thread.h"

namespace kovrel {

template <class Form>
class SharedWindow {
 public:
    /// The thread's own; a new one when nobody holds it.
    [[nodiscard]] static std::shared_ptr<Form> get() {
        if (auto window = windows_.get().lock()) return window;
        std::shared_ptr<Form> window(new Form, &forget);
        windows_.set(window);
        return window;
    }

 private:
    /// Nothing of a window stays behind it.
    static void forget(Form* window) noexcept {
        if (windows_.get().expired()) windows_.clear();
        delete window;
    }

    inline static constinit PerThread<std::weak_ptr<Form>> windows_;
};

}  // namespace kovrel
