// Any bytes as an archive: it is refused, or each entry is listed and read. What is given is never
// more than the archive says, and what counts as done has the checksum.
#include <cstdint>
#include <cstdlib>
#include <zlib.h>

#include "entry_reader.h"
#include "listing.h"
#include "target_name.h"
#include "tests/zip/test_folder.h"
#include "zip_error.h"

namespace {

using namespace kovrel::zip;

// A few bytes may unpack into a thousand times as many, of each of many entries.
constexpr std::uint64_t enough = std::uint64_t{4} << 20;

void require(bool condition) {
    if (!condition) std::abort();
}

struct Enough {};

void read_entries(const ArchiveReader& archive) {
    static EntryReader reader;
    std::uint64_t read = 0;
    for (const OldEntry& entry : archive.entries()) {
        std::uint64_t given = 0;
        uLong crc = crc32(0, nullptr, 0);
        const auto sink = [&](ByteView piece) {
            given += piece.size();
            require(given <= entry.central.size);
            crc = crc32(crc, piece.data(), static_cast<uInt>(piece.size()));
            if (read + given > enough) throw Enough();
        };
        const EntryState state = reader.read(archive, entry, sink);
        read += given;
        require(state != EntryState::done ||
                (given == entry.central.size && crc == entry.central.crc));
    }
}

// A path that is given has neither a beginning nor a component that leads elsewhere.
void check_path(const std::string& path) {
    require(!path.starts_with('/') && !path.ends_with('/'));
    require(("/" + path + "/").find("/../") == std::string::npos);
    require(("/" + path + "/").find("/./") == std::string::npos);
    require(path.find("//") == std::string::npos && path.find('\0') == std::string::npos);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const kovrel::zip::test::TestFolder folder;
    folder.write("a.zip", {reinterpret_cast<const char*>(data), size});
    try {
        const ArchiveReader archive(folder / "a.zip");
        for (const Entry& entry : list_entries(archive)) {
            check_path(target_name(entry.name, PathStyle::posix).path);
            const std::string on_windows = target_name(entry.name, PathStyle::windows).path;
            check_path(on_windows);
            require(on_windows.find_first_of(":\\") == std::string::npos);
        }
        read_entries(archive);
    } catch (const ZipError& error) {
        require(error.code() == ZipCode::bad_archive || error.code() == ZipCode::unexpected_end);
    } catch (const Enough&) {
    }
    return 0;
}
