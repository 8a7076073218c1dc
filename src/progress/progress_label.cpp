#include "progress/progress_label.h"

namespace kovrel {

std::wstring progress_label(std::int32_t percentage) {
    return (percentage == 0 ? std::wstring() : std::to_wstring(percentage)) + L"%";
}

}  // namespace kovrel
