// The engine as a command, for tests and benchmarks:
//   zip_cli [-0 ... -9] [-t THREADS] [-u | -f] [-p] [-r] [-m] [-v] ARCHIVE FILE...
// -p keeps folder names. The exit status is the engine's return code.
#include <cstdlib>
#include <iostream>

#include "update.h"

namespace {

using kovrel::zip::Selection;
using kovrel::zip::UpdateEvents;
using kovrel::zip::UpdateOptions;

struct CommandLine {
    UpdateOptions options;
    UpdateEvents events;
    std::vector<std::string> names;  // the archive first
};

void take_switch(char letter, CommandLine& command) {
    UpdateOptions& options = command.options;
    switch (letter) {
        case 'u':
            options.selection = Selection::newer_or_new;
            break;
        case 'f':
            options.selection = Selection::newer;
            break;
        case 'p':
            options.drop_folder_names = false;
            options.folder_entries = true;
            break;
        case 'r':
            options.recurse = true;
            break;
        case 'm':
            options.move = true;
            break;
        case 'v':
            command.events.quiet = false;
            break;
        default:
            options.level = letter - '0';
    }
}

CommandLine parse(int count, char** values) {
    CommandLine command;
    command.events.message = [](std::string_view line) { std::cerr << line << '\n'; };
    for (int i = 1; i < count; ++i) {
        const std::string value = values[i];
        if (value == "-t" && i + 1 < count) {
            command.options.threads = static_cast<unsigned>(std::atoi(values[++i]));
        } else if (value.size() == 2 && value[0] == '-' && command.names.empty()) {
            take_switch(value[1], command);
        } else {
            command.names.push_back(value);
        }
    }
    return command;
}

}  // namespace

int main(int count, char** values) {
    const CommandLine command = parse(count, values);
    if (command.names.empty()) {
        std::cerr << "usage: zip_cli [-0..-9] [-t THREADS] [-u|-f] [-p] [-r] [-m] [-v] "
                     "ARCHIVE FILE...\n";
        return static_cast<int>(kovrel::zip::ZipCode::bad_parameters);
    }
    return static_cast<int>(kovrel::zip::update_archive(
        command.names.front(), {command.names.begin() + 1, command.names.end()}, command.options,
        command.events));
}
