// The answers that a host gives beforehand to questions that nobody sees.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "runtime/announcement.h"

namespace kovrel {

class PresetAnswers {
 public:
    /// For boxes with the buttons of the style, whose icon does not matter, and with this text in
    /// theirs, without regard to case; an empty one is in every text. Answer::none takes an answer
    /// back. Failure 5 for an answer that the buttons do not allow.
    void set(std::int32_t style, std::wstring_view text, Answer answer);

    /// The answer with the longest text that fits, of several the latest; without one the answer of
    /// the default button.
    [[nodiscard]] Answer answer_to(const Announcement& announcement) const;

 private:
    struct Preset {
        NoticeStyle buttons;
        std::wstring text;
        Answer answer;
    };

    std::vector<Preset> presets_;
};

}  // namespace kovrel
