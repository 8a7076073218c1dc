#include "files/path_text.h"

#include <algorithm>

#include "runtime/failure.h"

namespace kovrel {
namespace {

/// Concatenates the pieces that `walk` passes to its argument. It runs twice, first to measure, so
/// that a result beyond the limit fails before anything is copied.
template <typename Walk>
std::wstring collect(const Walk& walk) {
    std::size_t size = 0;
    walk([&size](std::wstring_view piece) {
        if (piece.size() > longest_text - size) throw Failure(FailureNumber::out_of_memory);
        size += piece.size();
    });
    std::wstring result;
    result.reserve(size);
    walk([&result](std::wstring_view piece) { result += piece; });
    return result;
}

std::wstring remove_occurrences(std::wstring_view text, std::wstring_view searched) {
    std::wstring result;
    while (!text.empty()) {
        if (text.starts_with(searched)) {
            text.remove_prefix(searched.size());
            if (text.empty()) break;
        }
        result.push_back(text.front());
        text.remove_prefix(1);
    }
    return result;
}

std::wstring replace_occurrences(std::wstring_view text, std::wstring_view searched,
                                 std::wstring_view replacement) {
    if (replacement.find(searched) != std::wstring_view::npos) {
        // The replacement contains the text searched for: the first one would grow without end.
        if (text.find(searched) == std::wstring_view::npos) return std::wstring(text);
        throw Failure(FailureNumber::out_of_memory);
    }
    // What remains to be searched is a tail of the last replacement and the rest of the text. No
    // occurrence lies within that tail alone, so each one consumes part of the rest and the loop
    // ends.
    return collect([&](const auto& put) {
        std::wstring_view rest = text;
        std::wstring_view replaced;
        while (!replaced.empty() || !rest.empty()) {
            const auto of_replaced = replaced.substr(0, searched.size());
            if (searched.starts_with(of_replaced) &&
                rest.starts_with(searched.substr(of_replaced.size()))) {
                rest.remove_prefix(searched.size() - of_replaced.size());
                // Only the last characters of the replacement can begin the next occurrence.
                const auto settled =
                    replacement.size() - std::min(replacement.size(), searched.size() - 1);
                put(replacement.substr(0, settled));
                replaced = replacement.substr(settled);
                continue;
            }
            auto& next = replaced.empty() ? rest : replaced;
            put(next.substr(0, 1));
            next.remove_prefix(1);
        }
    });
}

std::wstring clean_buffer(std::wstring_view text, std::wstring_view searched,
                          std::wstring_view replacement) {
    text = text.substr(0, text.find_last_not_of(L'\0') + 1);
    // The search goes on at the replacement, in front of the rest of the occurrence: another one
    // that begins there comes back after every replacement.
    std::wstring met(replacement);
    met += searched.substr(1);
    if (met.find(searched) < replacement.size() && text.find(searched) != std::wstring_view::npos) {
        throw Failure(FailureNumber::out_of_memory);
    }
    return collect([&](const auto& put) {
        std::wstring_view rest = text;
        for (auto found = rest.find(searched); found != std::wstring_view::npos;
             found = rest.find(searched)) {
            put(rest.substr(0, found));
            put(replacement);
            rest.remove_prefix(found + 1);
        }
        put(rest);
    });
}

}  // namespace

std::wstring add_backslash(std::wstring_view path) {
    std::wstring result(path);
    if (!path.empty() && path.back() != L'\\') result.push_back(L'\\');
    return result;
}

std::wstring remove_backslash(std::wstring_view path) {
    return std::wstring(path.ends_with(L'\\') ? path.substr(0, path.size() - 1) : path);
}

PathParts split_path(std::wstring_view path) {
    PathParts parts;
    const auto dot = path.rfind(L'.');
    if (dot != std::wstring_view::npos) parts.extension = path.substr(dot + 1);
    if (parts.extension.empty()) parts.extension = L"*";
    const auto backslash = path.rfind(L'\\');
    if (backslash == std::wstring_view::npos) {
        parts.name = path;
    } else {
        parts.folder = path.substr(0, backslash);
        parts.name = path.substr(backslash + 1);
    }
    return parts;
}

std::wstring folder_of_listed(std::wstring_view path, std::size_t name_length) {
    if (name_length > path.size()) throw Failure(FailureNumber::invalid_argument);
    return add_backslash(path.substr(0, path.size() - name_length));
}

std::wstring replace_text(std::wstring_view text, std::wstring_view searched,
                          std::optional<std::wstring_view> replacement) {
    if (searched.empty()) return std::wstring(text);
    if (searched.front() == L'\0') return clean_buffer(text, searched, replacement.value_or(L""));
    return replacement ? replace_occurrences(text, searched, *replacement)
                       : remove_occurrences(text, searched);
}

}  // namespace kovrel
