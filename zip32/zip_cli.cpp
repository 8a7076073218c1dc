// The engine as a command, for tests and benchmarks:
//   zip_cli [-0 ... -9] [-t THREADS] ARCHIVE FILE...
// The exit status is the engine's return code.
#include <cstdlib>
#include <iostream>

#include "update.h"

int main(int count, char** values) {
    kovrel::zip::UpdateOptions options;
    std::vector<std::string> names;  // the archive first
    for (int i = 1; i < count; ++i) {
        const std::string value = values[i];
        if (value == "-t" && i + 1 < count) {
            options.threads = static_cast<unsigned>(std::atoi(values[++i]));
        } else if (value.size() == 2 && value[0] == '-' && names.empty()) {
            options.level = value[1] - '0';
        } else {
            names.push_back(value);
        }
    }
    if (names.empty()) {
        std::cerr << "usage: zip_cli [-0..-9] [-t THREADS] ARCHIVE FILE...\n";
        return static_cast<int>(kovrel::zip::ZipCode::bad_parameters);
    }
    kovrel::zip::UpdateEvents events;
    events.message = [](std::string_view line) { std::cerr << line << '\n'; };
    return static_cast<int>(kovrel::zip::update_archive(
        names.front(), {names.begin() + 1, names.end()}, options, events));
}
