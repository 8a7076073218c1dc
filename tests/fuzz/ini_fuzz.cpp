// Values read from buffers that the system fills, and the cleaning of such buffers, compared with a
// straightforward implementation.
#include <optional>

#include "files/ini_file.h"
#include "files/path_text.h"
#include "runtime/failure.h"
#include "tests/fuzz/fuzz_text.h"

namespace {

/// The cleaning character by character; none where it does not end.
std::optional<std::wstring> cleaned_plainly(std::wstring text, const std::wstring& searched,
                                            const std::wstring& replacement) {
    while (!text.empty() && text.back() == L'\0') text.pop_back();
    const std::size_t turns = text.size() + 1;
    std::size_t position = 0;
    for (std::size_t turn = 0;; ++turn) {
        position = text.find(searched, position);
        if (position == std::wstring::npos) return text;
        if (turn == turns) return std::nullopt;
        text.replace(position, 1, replacement);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace kovrel;
    fuzz::Texts texts(data, size);
    const std::size_t count = texts.byte();
    const auto otherwise = texts.until('\n');
    const auto searched = L'\0' + texts.until('\n');
    const auto replacement = texts.until('\n');
    const auto buffer = texts.until('\n').substr(0, ini_buffer_size);

    const auto value = ini_value(buffer, count, otherwise);
    fuzz::require(count == 0 ? value == otherwise : value == buffer.substr(0, count));

    const auto plain = cleaned_plainly(buffer, searched, replacement);
    try {
        const auto cleaned = replace_text(buffer, searched, replacement);
        fuzz::require(plain == cleaned);
        if (replacement.empty()) fuzz::require(cleaned == replace_text(buffer, searched, {}));
    } catch (const Failure& failure) {
        fuzz::require(failure.number() == 7 && !plain);
    }
    return 0;
}
