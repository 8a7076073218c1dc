// Lists, tests and takes out each of many archives that may hold anything:
//   hostile_batch WORK_FOLDER ARCHIVE...
// Each is taken out into a folder "out" of the work folder, which holds nothing else but "canary".
// What must never happen ends the program with the archive's name; it tells its largest memory.
#include <chrono>
#include <iostream>
#include <map>
#include <sys/resource.h>

#include "extraction.h"
#include "tests/zip/test_folder.h"

namespace {

using namespace kovrel::zip;

constexpr std::uint64_t most_bytes = std::uint64_t{8} << 20;
constexpr auto longest = std::chrono::seconds(10);

std::string current;

void require(bool condition, const char* text) {
    if (condition) return;
    std::cerr << current << ": " << text << '\n';
    std::_Exit(1);
}

bool is_answer(ZipCode code) {
    switch (code) {
        case ZipCode::ok:
        case ZipCode::incomplete:
        case ZipCode::bad_archive:
        case ZipCode::unexpected_end:
        case ZipCode::over_limit:
            return true;
        default:
            return false;
    }
}

ZipCode list(const std::string& archive, std::size_t& count) {
    try {
        count = list_entries(ArchiveReader(archive)).size();
        return ZipCode::ok;
    } catch (const ZipError& error) {
        return error.code();
    }
}

ZipCode take(const std::string& archive, const std::string& folder, unsigned threads,
             std::size_t& count) {
    ExtractOptions options;
    options.folder = folder;
    options.threads = threads;
    options.most_bytes = most_bytes;
    options.existing = Existing::replace;
    ExtractEvents events;
    events.entry_done = [&](const Entry&, EntryState, const std::string& path) {
        require(path.empty() || path.starts_with(folder + "/"), "a path outside the folder");
        ++count;
        return false;
    };
    events.progress = [](std::string_view, std::uint64_t done, std::uint64_t total) {
        require(done <= total, "more bytes than the archive says");
        return false;
    };
    std::string why;
    return extract_archive(archive, options, events, why);
}

// Nothing but whole files and folders in the folder, within the limit, and nothing new beside it.
void check_tree(const std::filesystem::path& work) {
    std::uint64_t bytes = 0;
    for (const auto& found : std::filesystem::directory_iterator(work)) {
        const std::string name = found.path().filename();
        require(name == "out" || name == "canary", "something beside the folder");
    }
    if (!std::filesystem::exists(work / "out")) return;
    for (const auto& found : std::filesystem::recursive_directory_iterator(work / "out")) {
        require(!found.is_symlink() && (found.is_regular_file() || found.is_directory()),
                "neither a file nor a folder");
        require(found.path().extension() != ".tmp", "a temporary file is left");
        if (found.is_regular_file()) bytes += found.file_size();
    }
    require(bytes <= most_bytes, "more bytes than the limit");
}

void run(const std::string& archive, const std::filesystem::path& work, unsigned threads,
         std::map<int, int>& codes) {
    current = archive;
    const auto start = std::chrono::steady_clock::now();
    std::size_t listed = 0;
    std::size_t taken = 0;
    std::string why;
    const ZipCode list_code = list(archive, listed);
    const ZipCode test_code = test_archive(archive, {}, {}, {}, why);
    const ZipCode take_code = take(archive, (work / "out").string(), threads, taken);
    require(is_answer(list_code) && is_answer(test_code) && is_answer(take_code), "its code");
    require((list_code == ZipCode::ok) ==
                (test_code == ZipCode::ok || test_code == ZipCode::incomplete),
            "listed but not tested, or the reverse");
    require(take_code == ZipCode::over_limit || list_code != ZipCode::ok || taken == listed,
            "not every entry is told of");
    check_tree(work);
    std::filesystem::remove_all(work / "out");
    require(std::chrono::steady_clock::now() - start < longest, "too long");
    ++codes[static_cast<int>(take_code)];
}

}  // namespace

int main(int count, char** values) {
    const std::filesystem::path work = values[1];
    std::map<int, int> codes;
    for (int i = 2; i < count; ++i) {
        run(values[i], work, static_cast<unsigned>(1 + i % 2), codes);
    }
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    std::cout << usage.ru_maxrss;
    for (const auto& [code, times] : codes) std::cout << ' ' << code << '=' << times;
    std::cout << '\n';
    return 0;
}
