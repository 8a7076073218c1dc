#include <random>
#include <string_view>

#include "file_access.h"
#include "names.h"

namespace kovrel::zip {
namespace {

constexpr std::string_view first_letters = "zi";
constexpr std::string_view digits = "0123456789abcdef";
constexpr std::size_t digit_count = 8;
constexpr std::string_view extension = ".tmp";

bool is_temporary_name(std::string_view name) {
    if (name.size() != first_letters.size() + digit_count + extension.size() ||
        !name.starts_with(first_letters) || !name.ends_with(extension)) {
        return false;
    }
    const std::string_view number = name.substr(first_letters.size(), digit_count);
    return number.find_first_not_of(digits) == std::string_view::npos;
}

}  // namespace

std::string temporary_name_beside(const std::string& target) {
    std::random_device random;
    std::string name = folder_of(target, native_path_style).append(first_letters);
    unsigned value = random();
    for (std::size_t i = 0; i < digit_count; ++i, value >>= 4) {
        name.push_back(digits[value & 0xF]);
    }
    return name.append(extension);
}

void remove_abandoned_files_beside(const std::string& target) {
    const std::string folder = folder_of(target, native_path_style);
    // "." after a drive alone is its current folder, after anything else the folder itself.
    for (const std::string& name : folder_names(folder + '.')) {
        if (is_temporary_name(name)) {
            remove_unheld_file(folder + name);
        }
    }
}

}  // namespace kovrel::zip
