// The extra fields of an entry: a sequence of (16-bit id, 16-bit length, data).
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace kovrel::zip {

/// The data of the first field with that id; empty when there is none or the sequence is broken
/// before it.
[[nodiscard]] std::string_view find_extra_field(std::string_view extra, std::uint16_t id) noexcept;

/// The sequence without its fields of that id; a broken tail is kept as it is.
[[nodiscard]] std::string without_extra_field(std::string_view extra, std::uint16_t id);

}  // namespace kovrel::zip
