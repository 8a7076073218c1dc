#include "extra_fields.h"

#include "bytes.h"

namespace kovrel::zip {
namespace {

constexpr std::size_t field_header = 4;

// The whole field at the front, header included; empty when none is complete.
std::string_view front_field(std::string_view extra) {
    if (extra.size() < field_header) {
        return {};
    }
    const ByteView bytes(reinterpret_cast<const std::uint8_t*>(extra.data()), extra.size());
    const std::size_t length = field_header + load16(bytes, 2);
    return length > extra.size() ? std::string_view() : extra.substr(0, length);
}

std::uint16_t field_id(std::string_view field) {
    return load16({reinterpret_cast<const std::uint8_t*>(field.data()), field.size()}, 0);
}

}  // namespace

std::string_view find_extra_field(std::string_view extra, std::uint16_t id) noexcept {
    while (true) {
        const std::string_view field = front_field(extra);
        if (field.empty()) {
            return {};
        }
        if (field_id(field) == id) {
            return field.substr(field_header);
        }
        extra.remove_prefix(field.size());
    }
}

std::string without_extra_field(std::string_view extra, std::uint16_t id) {
    std::string kept;
    while (true) {
        const std::string_view field = front_field(extra);
        if (field.empty()) {
            return kept.append(extra);
        }
        if (field_id(field) != id) {
            kept.append(field);
        }
        extra.remove_prefix(field.size());
    }
}

}  // namespace kovrel::zip
