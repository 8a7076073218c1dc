// Input masks: which characters a field takes, how many, and where it shows separators.
#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "runtime/text.h"

namespace kovrel {

/// A masked field holds its bare characters and shows them with separators between the groups.
class Mask {
 public:
    enum class Accepts { digits, letters_and_digits };

    /// The sizes of the groups. The separator must not be a character that the mask accepts.
    Mask(Accepts accepted, std::vector<std::size_t> groups, wchar_t separator = L' ')
        : accepted_(accepted), groups_(std::move(groups)), separator_(separator) {
        for (const std::size_t group : groups_) size_ += group;
    }

    /// Characters of a complete field, without the separators.
    [[nodiscard]] std::size_t size() const noexcept { return size_; }
    [[nodiscard]] wchar_t separator() const noexcept { return separator_; }

    /// Digits and unaccented letters, as tax ids and account codes have them.
    [[nodiscard]] bool accepts(wchar_t character) const noexcept {
        if (is_digit(character)) return true;
        return accepted_ == Accepts::letters_and_digits &&
               ((character >= L'A' && character <= L'Z') ||
                (character >= L'a' && character <= L'z'));
    }

    /// The accepted characters of a text, up to the size of the field.
    [[nodiscard]] std::wstring bare(std::wstring_view text) const {
        std::wstring result;
        for (const wchar_t character : text) {
            if (result.size() < size_ && accepts(character)) result.push_back(character);
        }
        return result;
    }

    /// The accepted characters of a text, grouped.
    [[nodiscard]] std::wstring shown(std::wstring_view text) const {
        const std::wstring characters = bare(text);
        std::wstring result;
        std::size_t begin = 0;
        for (const std::size_t group : groups_) {
            if (begin >= characters.size()) break;
            if (begin > 0) result.push_back(separator_);
            result += characters.substr(begin, group);
            begin += group;
        }
        return result;
    }

    /// The caret position in the shown text behind that many bare characters.
    [[nodiscard]] std::size_t shown_position(std::wstring_view shown_text,
                                             std::size_t bare_count) const noexcept {
        std::size_t position = 0;
        while (bare_count > 0 && position < shown_text.size()) {
            if (accepts(shown_text[position])) --bare_count;
            ++position;
        }
        return position;
    }

 private:
    Accepts accepted_;
    std::vector<std::size_t> groups_;
    wchar_t separator_;
    std::size_t size_ = 0;
};

}  // namespace kovrel
