// Texts as the checks read them: in capitals and without separators.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace kovrel {

/// The characters of a normal text, with those that are digits (0 to 9) and letters (A to Z) noted.
/// Up to 64; Ñ is neither.
class Characters {
 public:
    constexpr Characters(std::wstring_view text, std::uint64_t digits,
                         std::uint64_t letters) noexcept
        : text_(text), digits_(digits), letters_(letters) {}

    [[nodiscard]] constexpr std::wstring_view view() const noexcept { return text_; }
    [[nodiscard]] constexpr std::size_t size() const noexcept { return text_.size(); }
    [[nodiscard]] constexpr wchar_t operator[](std::size_t index) const noexcept {
        return text_[index];
    }
    /// The value of the digit at an index.
    [[nodiscard]] constexpr unsigned digit(std::size_t index) const noexcept {
        return static_cast<unsigned>(text_[index] - L'0');
    }

    /// Whether there are digits, or letters, at all the positions whose bits are set.
    [[nodiscard]] constexpr bool have_digits(std::uint64_t positions) const noexcept {
        return (positions & ~digits_) == 0;
    }
    [[nodiscard]] constexpr bool have_letters(std::uint64_t positions) const noexcept {
        return (positions & ~letters_) == 0;
    }
    [[nodiscard]] constexpr bool are_digits(std::size_t first, std::size_t count) const noexcept {
        return have_digits(positions(first, count));
    }
    [[nodiscard]] constexpr bool are_letters(std::size_t first, std::size_t count) const noexcept {
        return have_letters(positions(first, count));
    }
    [[nodiscard]] constexpr bool are_all_digits() const noexcept { return are_digits(0, size()); }
    /// Whether all are digits or letters.
    [[nodiscard]] constexpr bool are_all_plain() const noexcept {
        return (positions(0, size()) & ~(digits_ | letters_)) == 0;
    }

    /// Whether the first two characters are the country of Spain.
    [[nodiscard]] constexpr bool are_spanish() const noexcept {
        return size() >= 2 && text_[0] == L'E' && text_[1] == L'S';
    }

    /// What follows the first `count` characters, of which there are as many.
    [[nodiscard]] constexpr Characters from(std::size_t count) const noexcept {
        return {text_.substr(count), digits_ >> count, letters_ >> count};
    }

    [[nodiscard]] static constexpr std::uint64_t positions(std::size_t first,
                                                           std::size_t count) noexcept {
        return (count < 64 ? (std::uint64_t{1} << count) - 1 : ~std::uint64_t{0}) << first;
    }

 private:
    std::wstring_view text_;
    std::uint64_t digits_;
    std::uint64_t letters_;
};

/// A text, read once, in a place of its own. Longer than any identifier is too long to be read.
class NormalText {
 public:
    explicit NormalText(std::wstring_view text) noexcept;

    [[nodiscard]] bool empty() const noexcept { return size_ == 0 && !has_others_; }
    /// Whether there is a character other than ASCII letters and digits, Ñ and separators.
    [[nodiscard]] bool has_others() const noexcept { return has_others_; }
    [[nodiscard]] bool is_too_long() const noexcept { return is_too_long_; }
    /// What was read, up to the first of the others and to the capacity.
    [[nodiscard]] Characters characters() const noexcept {
        return {{characters_.data(), size_}, digits_, letters_};
    }

 private:
    static constexpr std::size_t capacity = 64;

    std::array<wchar_t, capacity> characters_;  // only what was read has a value
    std::size_t size_ = 0;
    std::uint64_t digits_ = 0;
    std::uint64_t letters_ = 0;
    bool has_others_ = false;
    bool is_too_long_ = false;
};

/// The whole text in capitals and without separators; other characters stay as they are.
[[nodiscard]] std::wstring without_separators(std::wstring_view text);

}  // namespace kovrel
