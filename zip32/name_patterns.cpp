#include "name_patterns.h"

#include <algorithm>
#include <cstdint>

#include "file_access.h"

namespace kovrel::zip {
namespace {

bool continues_character(char byte) {
    return (static_cast<std::uint8_t>(byte) & 0xC0) == 0x80;
}

// One step of a pattern: what it takes, and how many bytes of the pattern it is.
struct Step {
    explicit Step(std::string_view pattern)
        : any(pattern.front() == '*'),
          across_folders(pattern.starts_with("**")),
          length(across_folders ? 2 : 1) {}

    bool any;
    bool across_folders;
    std::size_t length;
};

// Follows all ways through the pattern at once, so that no pattern takes longer than the product of
// both lengths: reached[i] says whether the name up to here can match the first i bytes of it.
bool matches(std::string_view pattern, std::string_view name) {
    std::vector<bool> reached(pattern.size() + 1);
    std::vector<bool> next(reached.size());
    const auto skip_empty_runs = [&](std::vector<bool>& places) {
        for (std::size_t i = 0; i < pattern.size(); ++i) {
            if (!places[i] || pattern[i] != '*') continue;
            places[i + Step(pattern.substr(i)).length] = true;
        }
    };
    reached[0] = true;
    skip_empty_runs(reached);
    for (std::size_t at = 0; at < name.size(); ++at) {
        std::fill(next.begin(), next.end(), false);
        for (std::size_t i = 0; i < pattern.size(); ++i) {
            if (!reached[i]) continue;
            const Step step(pattern.substr(i));
            if (step.any) {
                if (name[at] != '/' || step.across_folders) next[i] = true;
            } else if (pattern[i] == '?' ? name[at] != '/' : pattern[i] == name[at]) {
                // "?" stays until the whole character has been taken.
                const bool whole = pattern[i] != '?' || at + 1 == name.size() ||
                                   !continues_character(name[at + 1]);
                next[whole ? i + 1 : i] = true;
            }
        }
        skip_empty_runs(next);
        reached.swap(next);
    }
    return reached.back();
}

}  // namespace

NamePatterns::NamePatterns(const std::vector<std::string>& patterns, PathStyle style) {
    for (std::string pattern : patterns) {
        if (style == PathStyle::windows) std::replace(pattern.begin(), pattern.end(), '\\', '/');
        while (pattern.ends_with('/')) pattern.pop_back();
        if (!pattern.empty()) patterns_.push_back(name_key(pattern));
    }
}

bool NamePatterns::match(std::string_view name) const {
    const std::string key = name_key(std::string(name));
    for (std::size_t end = key.find('/'); end != std::string::npos; end = key.find('/', end + 1)) {
        if (match_one(std::string_view(key).substr(0, end))) return true;
    }
    return match_one(key);
}

bool NamePatterns::match_one(std::string_view key) const {
    const std::string_view last = key.substr(key.find_last_of('/') + 1);
    return std::any_of(patterns_.begin(), patterns_.end(), [&](const std::string& pattern) {
        const bool whole = pattern.find('/') != std::string::npos;
        return matches(pattern, whole ? key : last);
    });
}

bool is_pattern(std::string_view text) noexcept {
    return text.find_first_of("*?") != std::string_view::npos;
}

}  // namespace kovrel::zip
