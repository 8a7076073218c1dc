// Writes SQL literals, for databases to read. Each line of the input is a dialect's number, the
// kind of the value and the value, with blanks between them; each line of the output the literal in
// UTF-8, in hexadecimal digits, or "!" and the number of the failure. Texts are in UTF-16, in
// hexadecimal digits; doubles are their bits.
#include <bit>
#include <cstdint>
#include <iostream>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "runtime/exact_number.h"
#include "runtime/failure.h"
#include "sql/characters.h"
#include "sql/pattern.h"
#include "sql/quoted_name.h"
#include "sql/text_literal.h"
#include "sql/value_literal.h"

namespace {

using namespace kovrel;

/// Numbers of `digits` hexadecimal digits each.
template <class Text>
Text units_of(const std::string& digits, std::size_t width) {
    Text units;
    for (std::size_t i = 0; i < digits.size(); i += width) {
        units.push_back(static_cast<typename Text::value_type>(
            std::stoul(digits.substr(i, width), nullptr, 16)));
    }
    return units;
}

double double_in(const std::string& bits) {
    return std::bit_cast<double>(static_cast<std::uint64_t>(std::stoull(bits, nullptr, 16)));
}

std::wstring literal_of(Dialect dialect, const std::string& kind, std::istream& values) {
    std::string value;
    values >> value;
    const auto text = [&] { return units_of<std::wstring>(value, 4); };
    if (kind == "text") return text_literal(dialect, text());
    if (kind == "name") return quoted_name(dialect, text());
    if (kind == "prefix") return like_clause(dialect, escaped_pattern(dialect, text()) + L"%");
    if (kind == "bytes") {
        return bytes_literal(dialect, units_of<std::vector<std::uint8_t>>(value, 2));
    }
    if (kind == "double") return number_literal(dialect, exact_number(double_in(value)));
    if (kind == "day") return date_literal(dialect, double_in(value));
    if (kind == "moment") return date_time_literal(dialect, double_in(value));
    if (kind == "boolean") return boolean_literal(dialect, value == "1");
    // A decimal: its sign, its highest 32 bits, its lowest 64 and its scale.
    ScaledInteger number{.negative = value == "-"};
    values >> number.high >> number.low >> number.scale;
    return number_literal(dialect, exact_number(number));
}

}  // namespace

int main() {
    std::ios::sync_with_stdio(false);
    for (std::string line; std::getline(std::cin, line);) {
        std::istringstream words(line);
        int dialect = 0;
        std::string kind;
        words >> dialect >> kind;
        try {
            const auto bytes = utf8_of(literal_of(static_cast<Dialect>(dialect), kind, words));
            const auto digits = hexadecimal(bytes.data(), bytes.size());
            std::cout << std::string(digits.begin(), digits.end()) << '\n';
        } catch (const Failure& failure) {
            std::cout << '!' << failure.number() << '\n';
        }
    }
    return 0;
}
