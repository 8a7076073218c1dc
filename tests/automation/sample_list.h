// A class of the tests' own that is a collection and has events.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "automation/class_info.h"
#include "automation/event_source.h"
#include "automation/native_type.h"

namespace kovrel::test {

extern const EventsInfo sample_events;

class SampleList {
 public:
    static const ClassInfo class_info;

    static constexpr DISPID adding = 1;

    [[nodiscard]] std::int32_t get_Count() const;
    [[nodiscard]] std::wstring Item(std::int32_t place) const;
    [[nodiscard]] ComPtr<IUnknown> get_NewEnum() const;
    /// Asks the sinks first, which may change the text or refuse it.
    bool Agrega(std::wstring_view texto);

    EventSource events{sample_events};

 private:
    std::vector<std::wstring> texts_;
};

}  // namespace kovrel::test
