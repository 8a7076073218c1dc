// The engine as a command, for tests and benchmarks. The exit status is the engine's return code.
#include <cstdlib>
#include <iomanip>
#include <iostream>
#include <optional>
#include <span>
#include <sstream>

#include "extraction.h"
#include "names.h"
#include "update.h"

namespace kovrel::zip {
namespace {

constexpr const char* usage =
    "usage: zip_cli pack [-0..-9] [-t THREADS] ARCHIVE FILE...\n"
    "       zip_cli pack -r [-b BASE] [-x PATTERN]... [-m new|add|update|refresh] [-c COMMENT]\n"
    "                    [-j] [--flat] [--no-hidden] [--stop BYTES] [-0..-9] [-t THREADS] ARCHIVE\n"
    "                    FILE...\n"
    "       zip_cli list ARCHIVE\n"
    "       zip_cli comment ARCHIVE\n"
    "       zip_cli test ARCHIVE [PATTERN...]\n"
    "       zip_cli take [-o keep|replace|older|ask] [-x PATTERN]... [-j] [--bytes N] [--ratio N]\n"
    "                    [--stop BYTES] [-t THREADS] ARCHIVE FOLDER [PATTERN...]\n"
    "-j drops folder names, --flat leaves out what is in folders, --stop cancels after so many "
    "bytes;\n"
    "asked, a line that begins with y replaces the file.\n";

using Words = std::vector<std::string>;

ZipCode show_usage() {
    std::cerr << usage;
    return ZipCode::bad_parameters;
}

/// The words of a command line that are not switches, which come first.
class CommandLine {
 public:
    explicit CommandLine(Words words) : words_(std::move(words)) {}

    /// The next switch; empty when none is left.
    std::string next_switch() {
        return next_ < words_.size() && words_[next_].starts_with('-') ? words_[next_++] : "";
    }
    /// The word after a switch.
    std::string value() { return next_ < words_.size() ? words_[next_++] : ""; }
    std::uint64_t number() { return std::strtoull(value().c_str(), nullptr, 10); }
    [[nodiscard]] Words rest() const {
        return {words_.begin() + static_cast<std::ptrdiff_t>(next_), words_.end()};
    }

 private:
    Words words_;
    std::size_t next_ = 0;
};

Words after(const Words& words, std::size_t count) {
    return {words.begin() + static_cast<std::ptrdiff_t>(count), words.end()};
}

// One line, whatever the name is.
std::string printable(std::string_view text) {
    std::ostringstream line;
    for (const std::uint8_t byte : as_bytes(text)) {
        if (byte < 0x20 || byte == 0x7F || byte == '\\') {
            line << "\\x" << std::hex << std::setw(2) << std::setfill('0') << int{byte};
        } else {
            line << static_cast<char>(byte);
        }
    }
    return line.str();
}

std::string_view state_text(EntryState state) {
    constexpr std::string_view texts[] = {
        "done",           "left out",      "kept existing",  "not newer",      "declined",
        "bad name",       "reserved name", "through a link", "link",           "encrypted",
        "unknown method", "contradicting", "damaged",        "wrong checksum", "name twice",
        "cannot create",  "write failed",  "read failed",    "cannot open",    "over a limit"};
    return texts[static_cast<std::size_t>(state)];
}

// "2024-02-29T12:00:00" in the archive's local time, or a UTC moment in seconds since 1970.
std::string time_text(const Entry& entry) {
    std::ostringstream text;
    if (entry.modified) {
        text << '@' << static_cast<std::int64_t>(*entry.modified / moments_per_second) - unix_epoch;
        return text.str();
    }
    const std::optional<LocalTime> local = from_dos_time(entry.local_modified);
    if (!local) return "-";
    const auto two = [&text](char before, int value) { text << before << std::setw(2) << value; };
    text << std::setfill('0') << local->year;
    two('-', local->month);
    two('-', local->day);
    two('T', local->hour);
    two(':', local->minute);
    two(':', local->second);
    return text.str();
}

std::string flags_text(const Entry& entry) {
    std::string flags;
    if (entry.folder) flags += 'd';
    if (entry.link) flags += 'l';
    if (entry.encrypted) flags += 'e';
    return flags.empty() ? "-" : flags;
}

ZipCode tell(ZipCode code, const std::string& why) {
    if (!why.empty()) std::cerr << "error: " << printable(why) << '\n';
    return code;
}

// Cancels after so many bytes; 0: never.
auto stop_after(std::uint64_t bytes) {
    return [bytes](std::string_view, std::uint64_t done, std::uint64_t) {
        return bytes != 0 && done >= bytes;
    };
}

ExtractEvents printing_events() {
    ExtractEvents events;
    events.replace = [](const Entry&, const std::string& path) {
        std::cerr << "replace " << printable(path) << "? ";
        std::string answer;
        return std::getline(std::cin, answer) && answer.starts_with('y');
    };
    events.entry_done = [](const Entry& entry, EntryState state, const std::string&) {
        std::cout << state_text(state) << '\t' << printable(entry.name) << '\n';
        return false;
    };
    return events;
}

// Folders with what is in them, as clsFArchivo packs them.
void pack_folders(UpdateOptions& options) {
    options.base = "";
    options.drop_folder_names = false;
    options.recurse = true;
    options.include_hidden = true;
    options.follow_links = false;
    options.folder_entries = true;
    options.zoned_times = true;
}

bool set_mode(UpdateOptions& options, const std::string& mode) {
    if (mode != "new" && mode != "add" && mode != "update" && mode != "refresh") return false;
    options.afresh = mode == "new";
    options.selection = mode == "update"    ? Selection::newer_or_new
                        : mode == "refresh" ? Selection::newer
                                            : Selection::all;
    return true;
}

ZipCode pack(CommandLine line) {
    UpdateOptions options;
    UpdateEvents events;
    for (std::string given; !(given = line.next_switch()).empty();) {
        if (given == "-t") {
            options.threads = static_cast<unsigned>(line.number());
        } else if (given == "-r") {
            pack_folders(options);
        } else if (given == "-b") {
            options.base = line.value();
        } else if (given == "-x") {
            options.exclusions.push_back(line.value());
        } else if (given == "-m") {
            if (!set_mode(options, line.value())) return show_usage();
        } else if (given == "-c") {
            options.comment = line.value();
        } else if (given == "-j") {
            options.drop_folder_names = true;
        } else if (given == "--flat") {
            options.recurse = false;
        } else if (given == "--no-hidden") {
            options.include_hidden = false;
        } else if (given == "--stop") {
            events.progress = stop_after(line.number());
        } else if (given.size() == 2) {
            options.level = given[1] - '0';
        } else {
            return show_usage();
        }
    }
    const Words words = line.rest();
    if (words.empty()) return show_usage();
    events.message = [](std::string_view text) { std::cerr << text << '\n'; };
    return update_archive(words.front(), after(words, 1), options, events);
}

ZipCode list(CommandLine line) {
    const Words words = line.rest();
    if (words.size() != 1) return show_usage();
    try {
        const ArchiveReader archive(words.front());
        for (const Entry& entry : list_entries(archive)) {
            std::cout << printable(entry.name) << '\t' << entry.size << '\t' << entry.packed_size
                      << '\t' << entry.method << '\t' << std::hex << std::setw(8)
                      << std::setfill('0') << entry.crc << std::dec << '\t' << time_text(entry)
                      << '\t' << flags_text(entry) << '\n';
        }
        return ZipCode::ok;
    } catch (const ZipError& error) {
        return tell(error.code(), error.what());
    }
}

ZipCode comment(CommandLine line) {
    const Words words = line.rest();
    if (words.size() != 1) return show_usage();
    try {
        std::cout << printable(archive_comment_utf8(ArchiveReader(words.front()).comment()))
                  << '\n';
        return ZipCode::ok;
    } catch (const ZipError& error) {
        return tell(error.code(), error.what());
    }
}

ZipCode test(CommandLine line) {
    const Words words = line.rest();
    if (words.empty()) return show_usage();
    std::string why;
    const ZipCode code = test_archive(words.front(), after(words, 1), {}, printing_events(), why);
    return tell(code, why);
}

std::optional<Existing> existing_named(const std::string& name) {
    if (name == "keep") return Existing::keep;
    if (name == "replace") return Existing::replace;
    if (name == "older") return Existing::replace_older;
    if (name == "ask") return Existing::ask;
    return std::nullopt;
}

ZipCode take(CommandLine line) {
    ExtractOptions options;
    ExtractEvents events = printing_events();
    for (std::string given; !(given = line.next_switch()).empty();) {
        if (given == "-o") {
            const std::optional<Existing> existing = existing_named(line.value());
            if (!existing) return show_usage();
            options.existing = *existing;
        } else if (given == "-x") {
            options.exclusions.push_back(line.value());
        } else if (given == "-j") {
            options.drop_folder_names = true;
        } else if (given == "--bytes") {
            options.most_bytes = line.number();
        } else if (given == "--ratio") {
            options.most_ratio = static_cast<std::uint32_t>(line.number());
        } else if (given == "--stop") {
            events.progress = stop_after(line.number());
        } else if (given == "-t") {
            options.threads = static_cast<unsigned>(line.number());
        } else {
            return show_usage();
        }
    }
    const Words words = line.rest();
    if (words.size() < 2) return show_usage();
    options.folder = words[1];
    options.patterns = after(words, 2);
    std::string why;
    const ZipCode code = extract_archive(words.front(), options, events, why);
    return tell(code, why);
}

}  // namespace
}  // namespace kovrel::zip

int main(int count, char** values) {
    using namespace kovrel::zip;
    std::ios::sync_with_stdio(false);
    const Words words(values + 1, values + count);
    if (words.empty()) return static_cast<int>(show_usage());
    const std::string& verb = words.front();
    const CommandLine line(after(words, 1));
    return static_cast<int>(verb == "pack"      ? pack(line)
                            : verb == "list"    ? list(line)
                            : verb == "comment" ? comment(line)
                            : verb == "test"    ? test(line)
                            : verb == "take"    ? take(line)
                                                : show_usage());
}
