#include "dbimages/image_field.h"

#include <utility>

#include "files/path_text.h"
#include "runtime/number_format.h"
#include "runtime/text.h"

namespace kovrel {
namespace {

constexpr std::int64_t chunk_size = 1024;

}  // namespace

std::wstring record_location(std::wstring_view text, std::int64_t position, std::int64_t count) {
    std::wstring result(text);
    result += decimal_text(position);
    result += L" de ";
    result += decimal_text(count);
    return result;
}

ChunkPlan storing_chunks(std::int64_t length) noexcept {
    return {length % chunk_size + 1, length / chunk_size, chunk_size + 1};
}

ChunkPlan reading_chunks(std::int64_t length) noexcept {
    return {length % chunk_size, length / chunk_size, chunk_size};
}

std::wstring temporary_file_name(std::wstring_view folder, double random) {
    constexpr double names = 1'000'000;
    std::wstring name = folder.empty() ? std::wstring(L"\\") : add_backslash(folder);
    name += format_number(random * names, patterns::eight_digits, L'.');
    name += L".tmp";
    return name;
}

Notice picture_failure(std::int32_t number, std::wstring_view description) {
    std::wstring text = L"ERROR  ";
    text += decimal_text(number);
    text += L": ";
    text += description;
    return {std::move(text), NoticeStyle::plain, {}};
}

}  // namespace kovrel
