// Takes any bytes out as an archive, into a folder that has a file, a folder and a link. Nothing
// beside the folder changes, nothing goes through the link, and what is told as done is there.
#include <cstdint>
#include <cstdlib>

#include "extraction.h"
#include "tests/zip/test_folder.h"

namespace {

using namespace kovrel::zip;

constexpr std::uint64_t most_bytes = std::uint64_t{1} << 20;

void require(bool condition) {
    if (!condition) std::abort();
}

bool is_answer(ZipCode code) {
    return code == ZipCode::ok || code == ZipCode::incomplete || code == ZipCode::bad_archive ||
           code == ZipCode::unexpected_end || code == ZipCode::over_limit;
}

void check_tree(const std::filesystem::path& top) {
    std::uint64_t bytes = 0;
    for (const auto& found : std::filesystem::recursive_directory_iterator(top)) {
        if (found.is_regular_file() && !found.is_symlink()) bytes += found.file_size();
        // The only link is the one that was there.
        require(!found.is_symlink() || found.path() == top / "enlace");
    }
    require(bytes <= most_bytes + 5);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const kovrel::zip::test::TestFolder folder;
    static const std::string outside = folder.write("otra/testigo", "intacto");
    const std::filesystem::path top = kovrel::zip::test::from_utf8(folder / "fuera");
    std::filesystem::remove_all(top);
    folder.write("fuera/carpeta/a", "viejo");
    std::filesystem::create_directory_symlink("../otra", top / "enlace");
    folder.write("a.zip", {reinterpret_cast<const char*>(data), size});

    ExtractOptions options;
    options.folder = folder / "fuera";
    options.threads = 1;
    options.most_bytes = most_bytes;
    options.existing = size % 2 == 0 ? Existing::replace : Existing::keep;
    options.drop_folder_names = size % 5 == 0;
    ExtractEvents events;
    events.entry_done = [&](const Entry& entry, EntryState state, const std::string& path) {
        if (state != EntryState::done || path.empty()) return false;
        require(path.starts_with(options.folder + "/"));
        const std::filesystem::path made = kovrel::zip::test::from_utf8(path);
        require(entry.folder ? std::filesystem::is_directory(made)
                             : std::filesystem::file_size(made) == entry.size);
        return false;
    };
    std::string why;
    require(is_answer(extract_archive(folder / "a.zip", options, events, why)));
    require(folder.count() == 3);
    require(folder.read("otra/testigo") == "intacto");
    require(std::distance(std::filesystem::directory_iterator(top.parent_path() / "otra"), {}) ==
            1);
    check_tree(top);
    return 0;
}
