// Path texts and text replacement: always a result, or out of memory at once.
#include "files/path_text.h"
#include "runtime/failure.h"
#include "tests/fuzz/fuzz_text.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace kovrel;
    fuzz::Texts texts(data, size);
    const bool has_replacement = texts.byte() % 2 != 0;
    const auto text = texts.until('\n');
    const auto searched = texts.until('\n');
    const auto replacement = texts.until('\n');

    const auto parts = split_path(text);
    const bool has_backslash = text.find(L'\\') != std::wstring::npos;
    fuzz::require(parts.folder + (has_backslash ? L"\\" : L"") + parts.name == text);
    fuzz::require(!parts.extension.empty());
    const auto folder = add_backslash(text);
    fuzz::require(text.empty() ? folder.empty() : folder.back() == L'\\');
    fuzz::require(text.ends_with(L'\\') || remove_backslash(folder) == text);

    try {
        const auto result = replace_text(text, searched, {});
        fuzz::require(result.size() <= text.size());
        if (!has_replacement) return 0;
        const auto replaced = replace_text(text, searched, replacement);
        if (replacement.empty() && !searched.empty() && searched.size() == 1) {
            fuzz::require(replaced.find(searched) == std::wstring::npos);
        }
    } catch (const Failure& failure) {
        fuzz::require(failure.number() == 7 && has_replacement && !replacement.empty());
    }
    return 0;
}
