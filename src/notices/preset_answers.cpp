#include "notices/preset_answers.h"

#include <algorithm>

#include "runtime/failure.h"
#include "runtime/text.h"

namespace kovrel {
namespace {

/// The style in use with the same buttons. Failure 5 when there is none.
NoticeStyle buttons_of(std::int32_t style) {
    constexpr std::int32_t buttons = 0xF;
    for (const NoticeStyle known :
         {NoticeStyle::plain, NoticeStyle::ok_or_cancel, NoticeStyle::yes_or_no}) {
        if ((static_cast<std::int32_t>(known) & buttons) == (style & buttons)) return known;
    }
    throw Failure(FailureNumber::invalid_argument);
}

}  // namespace

void PresetAnswers::set(std::int32_t style, std::wstring_view text, Answer answer) {
    Announcement box;
    box.style = buttons_of(style);
    if (answer != Answer::none && !allows(box, answer)) {
        throw Failure(FailureNumber::invalid_argument);
    }
    std::erase_if(presets_, [&](const Preset& preset) {
        return preset.buttons == box.style && equal_without_case(preset.text, text);
    });
    if (answer != Answer::none) presets_.push_back({box.style, std::wstring(text), answer});
}

Answer PresetAnswers::answer_to(const Announcement& announcement) const {
    const Preset* best = nullptr;
    for (const Preset& preset : presets_) {
        const bool fits = allows(announcement, preset.answer) &&
                          contains_without_case(announcement.text, preset.text);
        if (fits && (best == nullptr || preset.text.size() >= best->text.size())) best = &preset;
    }
    return best != nullptr ? best->answer : default_answer(announcement);
}

}  // namespace kovrel
