// Checks identifiers, for comparison with other programs. Each line of the input, in UTF-8, is the
// number of a kind, a tab and a text; each line of the output the number of its fault. With the
// argument --registry it prints the registry of IBANs instead.
#include <cstdint>
#include <iostream>
#include <string>
#include <string_view>

#include "identifiers/iban_registry.h"
#include "identifiers/identifier.h"

namespace {

std::wstring from_utf8(std::string_view bytes) {
    std::wstring text;
    for (std::size_t i = 0; i < bytes.size();) {
        const auto lead = static_cast<std::uint8_t>(bytes[i]);
        const std::size_t length = lead < 0x80 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
        std::uint32_t code = length == 1 ? lead : lead & (0x7FU >> length);
        for (std::size_t next = i + 1; next < i + length && next < bytes.size(); ++next) {
            code = code << 6 | (static_cast<std::uint8_t>(bytes[next]) & 0x3FU);
        }
        text += static_cast<wchar_t>(code);
        i += length;
    }
    return text;
}

}  // namespace

int main(int count, char** arguments) {
    using namespace kovrel;
    std::ios::sync_with_stdio(false);
    if (count > 1 && std::string_view(arguments[1]) == "--registry") {
        for (const auto& country : iban_registry()) {
            std::cout << std::string(country.country.begin(), country.country.end()) << ' '
                      << country.structure << '\n';
        }
        return 0;
    }
    for (std::string line; std::getline(std::cin, line);) {
        const auto tab = line.find('\t');
        const auto kind = static_cast<Identifier>(std::stoi(line.substr(0, tab)));
        const auto text = from_utf8(std::string_view(line).substr(tab + 1));
        std::cout << static_cast<int>(identifier_fault(kind, text)) << '\n';
    }
    return 0;
}
