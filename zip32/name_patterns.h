// Which entries a list of patterns means.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "names.h"

namespace kovrel::zip {

/// Patterns over names whose components stand between "/", in UTF-8: "?" is any one character but
/// "/", "*" any number of them, "**" any number of characters with "/" among them. A pattern
/// without "/" is compared with the last component alone, any other one with the whole name.
/// Capitals count where they count to the system.
class NamePatterns {
 public:
    /// In patterns for Windows "\" is "/" too. Empty patterns mean nothing.
    explicit NamePatterns(const std::vector<std::string>& patterns,
                          PathStyle style = native_path_style);

    [[nodiscard]] bool empty() const noexcept { return patterns_.empty(); }
    /// Whether a pattern matches the name, or that of a folder in which it lies.
    [[nodiscard]] bool match(std::string_view name) const;

 private:
    [[nodiscard]] bool match_one(std::string_view key) const;

    std::vector<std::string> patterns_;
};

/// Whether "*" or "?" stands in the text.
[[nodiscard]] bool is_pattern(std::string_view text) noexcept;

}  // namespace kovrel::zip
