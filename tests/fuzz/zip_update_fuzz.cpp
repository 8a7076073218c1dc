// Updates any bytes as an archive with one file. Either a return code says what is wrong and the
// bytes stay, or every entry that could be read before can still be read, byte for byte.
#include <cstdint>
#include <cstdlib>
#include <map>

#include "tests/zip/plain_reader.h"
#include "tests/zip/test_folder.h"
#include "update.h"

namespace {

using kovrel::zip::UpdateOptions;
using kovrel::zip::ZipCode;
using kovrel::zip::test::PlainEntry;

void require(bool condition) {
    if (!condition) {
        std::abort();
    }
}

bool is_answer_to_a_bad_archive(ZipCode code) {
    return code == ZipCode::bad_archive || code == ZipCode::unexpected_end ||
           code == ZipCode::entry_too_large;
}

// How many entries of each name and contents can be read.
std::map<std::pair<std::string, std::string>, int> readable(const std::string& archive) {
    std::map<std::pair<std::string, std::string>, int> found;
    for (const PlainEntry& entry : kovrel::zip::test::read_plain(archive)) {
        if (entry.readable && entry.name != "nuevo") {
            ++found[{entry.name, entry.data}];
        }
    }
    return found;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const kovrel::zip::test::TestFolder folder;
    static const std::string added = folder.write("nuevo", "datos del fichero nuevo");
    const std::string old(reinterpret_cast<const char*>(data), size);
    folder.write("a.zip", old);

    UpdateOptions options;
    options.threads = 1;
    const ZipCode code = kovrel::zip::update_archive(folder / "a.zip", {added}, options, {});
    const std::string now = folder.read("a.zip");
    require(folder.count() == 2);
    if (code != ZipCode::ok) {
        require(is_answer_to_a_bad_archive(code) && now == old);
        return 0;
    }
    const auto before = readable(old);
    const auto after = readable(now);
    for (const auto& [entry, count] : before) {
        const auto found = after.find(entry);
        require(found != after.end() && found->second >= count);
    }
    bool is_in = false;
    for (const PlainEntry& entry : kovrel::zip::test::read_plain(now)) {
        is_in = is_in || (entry.name == "nuevo" && entry.readable);
    }
    require(is_in);
    return 0;
}
