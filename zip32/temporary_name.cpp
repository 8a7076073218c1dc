#include <array>
#include <random>

#include "file_access.h"
#include "names.h"

namespace kovrel::zip {

std::string temporary_name_beside(const std::string& target) {
    static constexpr std::string_view digits = "0123456789abcdef";
    std::random_device random;
    const std::string own = last_component(target, native_path_style);
    std::string name = target.substr(0, target.size() - own.size()) + "zi";
    for (unsigned value = random(), i = 0; i < 8; ++i, value >>= 4) {
        name.push_back(digits[value & 0xF]);
    }
    return name + ".tmp";
}

}  // namespace kovrel::zip
