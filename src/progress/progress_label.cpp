#include "progress/progress_label.h"

#include "runtime/text.h"

namespace kovrel {

std::wstring progress_label(std::int32_t percentage) {
    return (percentage == 0 ? std::wstring() : decimal_text(percentage)) + L"%";
}

}  // namespace kovrel
