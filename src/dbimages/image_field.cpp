#include "dbimages/image_field.h"

#include "files/path_text.h"
#include "runtime/number_format.h"
#include "runtime/text.h"

namespace kovrel {
namespace {

constexpr std::int64_t chunk_size = 1024;

}  // namespace

std::wstring record_location(std::wstring_view text, std::int64_t position, std::int64_t count) {
    return concat({text, decimal_text(position), L" de ", decimal_text(count)});
}

ChunkPlan storing_chunks(std::int64_t length) noexcept {
    return {length % chunk_size + 1, length / chunk_size, chunk_size + 1};
}

ChunkPlan reading_chunks(std::int64_t length) noexcept {
    return {length % chunk_size, length / chunk_size, chunk_size};
}

std::wstring temporary_file_name(std::wstring_view folder, double random) {
    constexpr double names = 1'000'000;
    return (folder.empty() ? std::wstring(L"\\") : add_backslash(folder)) +
           format_number(random * names, patterns::eight_digits, L'.') + L".tmp";
}

Notice picture_failure(std::int32_t number, std::wstring_view description) {
    return {L"ERROR  " + decimal_text(number) + L": " + std::wstring(description),
            NoticeStyle::plain,
            {},
            number};
}

}  // namespace kovrel
