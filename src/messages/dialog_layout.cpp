#include "messages/dialog_layout.h"

#include <algorithm>

namespace kovrel {

DialogTextSize dialog_text_size(float inner_width, float inner_height, float strip_height) {
    return {inner_width, std::max(inner_height - strip_height, 0.0F)};
}

float dialog_button_left(float strip_width, float button_width) {
    return std::max(strip_width / 2 - button_width / 2, 0.0F);
}

}  // namespace kovrel
