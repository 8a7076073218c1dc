#include "zip/archive_engine.h"

#include <windows.h>
#include <oleauto.h>

#include <algorithm>
#include <exception>
#include <string>
#include <utility>

#include "services/dynamic_library.h"
#include "services/text_encoding.h"
#include "zip/zip_library.h"
#include "zip32/archive_api.h"
#include "zip32/zip_error.h"

namespace kovrel {
namespace {

using zip::ApiEntry;
using zip::ZipCode;

/// Texts as the engine takes them.
class Texts {
 public:
    explicit Texts(const std::vector<std::wstring>& texts) {
        for (const std::wstring& text : texts) bytes_.push_back(to_utf8(text));
        for (const std::string& text : bytes_) pointers_.push_back(text.c_str());
    }

    [[nodiscard]] zip::ApiTexts list() const {
        return {pointers_.data(), static_cast<std::uint32_t>(pointers_.size())};
    }

 private:
    std::vector<std::string> bytes_;
    std::vector<const char*> pointers_;
};

/// The engine puts "/" before what it adds to a path.
std::wstring path_of(const char* text) {
    std::wstring path = from_utf8(text);
    std::ranges::replace(path, L'/', L'\\');
    return path;
}

/// In the user's time zone; 0, the beginning of the calendar, for what is no date.
double local_days(const ApiEntry& entry) {
    double days = 0;
    if (entry.modified == 0) {
        DosDateTimeToVariantTime(entry.local_date, entry.local_time, &days);
        return days;
    }
    const FILETIME moment{static_cast<DWORD>(entry.modified),
                          static_cast<DWORD>(entry.modified >> 32)};
    SYSTEMTIME universal{};
    SYSTEMTIME local{};
    if (FileTimeToSystemTime(&moment, &universal) &&
        SystemTimeToTzSpecificLocalTime(nullptr, &universal, &local)) {
        SystemTimeToVariantTime(&local, &days);
    }
    return days;
}

ArchiveEntry entry_of(const ApiEntry& given) {
    ArchiveEntry entry;
    entry.name = from_utf8(given.name);
    entry.path = path_of(given.path);
    entry.comment = from_utf8(given.comment);
    entry.size = given.size;
    entry.packed_size = given.packed_size;
    entry.modified = local_days(given);
    entry.crc = given.crc;
    entry.method = given.method;
    entry.is_folder = given.is_folder != 0;
    entry.is_encrypted = given.is_encrypted != 0;
    entry.state = static_cast<zip::EntryState>(given.state);
    return entry;
}

/// Collects the report. No exception may pass through the engine, which is another DLL: it is kept
/// and thrown when the engine has stopped.
class Collector final : public zip::ApiListener {
 public:
    explicit Collector(const ArchiveEvents& events) : events_(events) {}

    bool __stdcall progress(const char* name, std::uint64_t done,
                            std::uint64_t total) noexcept override {
        return stops(
            [&] { return events_.progress && events_.progress(from_utf8(name), done, total); });
    }
    bool __stdcall entry(const ApiEntry& given) noexcept override {
        return stops([&] {
            report_.entries.push_back(entry_of(given));
            return false;
        });
    }
    bool __stdcall replace(const ApiEntry& given) noexcept override {
        bool replaced = false;
        stops([&] {
            replaced = !failure_ && events_.replace && events_.replace(path_of(given.path));
            return false;
        });
        return replaced;
    }
    void __stdcall comment(const char* text) noexcept override {
        stops([&] {
            report_.comment = from_utf8(text);
            return false;
        });
    }

    [[nodiscard]] ArchiveReport finish(ZipCode code, const std::wstring& archive);

 private:
    template <class Body>
    bool stops(const Body& body) noexcept {
        try {
            return failure_ || body();
        } catch (...) {
            failure_ = std::current_exception();
            return true;
        }
    }

    const ArchiveEvents& events_;
    ArchiveReport report_;
    std::exception_ptr failure_;
};

FailureNumber number_of(ZipCode code) {
    switch (code) {
        case ZipCode::unexpected_end:
        case ZipCode::bad_archive:
            return FailureNumber::invalid_file_format;
        case ZipCode::out_of_memory:
            return FailureNumber::out_of_memory;
        case ZipCode::nothing_to_do:
        case ZipCode::missing_archive:
            return FailureNumber::file_not_found;
        case ZipCode::read_failed:
            return FailureNumber::device_io;
        case ZipCode::write_failed:
            return FailureNumber::disk_full;
        case ZipCode::cannot_create:
        case ZipCode::cannot_open_file:
            return FailureNumber::path_file_access;
        case ZipCode::over_limit:
        case ZipCode::entry_too_large:
            return FailureNumber::overflow;
        default:
            return FailureNumber::invalid_argument;
    }
}

ArchiveReport Collector::finish(ZipCode code, const std::wstring& archive) {
    if (failure_) std::rethrow_exception(failure_);
    if (code == ZipCode::aborted) {
        report_.was_stopped = true;
    } else if (code != ZipCode::ok && code != ZipCode::incomplete) {
        // These are of one file or entry, which is told first.
        const bool is_of_one = code == ZipCode::nothing_to_do ||
                               code == ZipCode::cannot_open_file || code == ZipCode::over_limit;
        throw failure_over(number_of(code), is_of_one && !report_.entries.empty()
                                                ? report_.entries.front().name
                                                : archive);
    }
    return std::move(report_);
}

/// run(path, collector) calls one of the engine's functions.
template <class Function, class Run>
ArchiveReport call_engine(const char* name, const std::wstring& archive,
                          const ArchiveEvents& events, const Run& run) {
    const ZipLibrary library;
    const auto function = reinterpret_cast<Function>(library.function(name));
    Collector collector(events);
    const int code = run(function, to_utf8(archive), collector);
    return collector.finish(static_cast<ZipCode>(code), archive);
}

ArchiveReport call_with(const char* name, const std::wstring& archive, const TakeRequest& request,
                        const ArchiveEvents& events) {
    const Texts patterns(request.patterns);
    const Texts exclusions(request.exclusions);
    const std::string folder = to_utf8(request.folder);
    const zip::ApiTake what{patterns.list(),          exclusions.list(),
                            folder.c_str(),           request.most_bytes,
                            request.most_ratio,       static_cast<std::int32_t>(request.existing),
                            request.drop_folder_names};
    return call_engine<decltype(&KvTake)>(
        name, archive, events, [&](auto function, const std::string& path, Collector& collector) {
            return function(path.c_str(), &what, &collector);
        });
}

}  // namespace

ArchiveReport pack_archive(const std::wstring& archive, const PackRequest& request,
                           const ArchiveEvents& events) {
    const Texts names(request.names);
    const Texts exclusions(request.exclusions);
    const std::string base = to_utf8(request.base);
    const std::string comment = to_utf8(request.comment);
    const zip::ApiPack what{names.list(),
                            exclusions.list(),
                            base.c_str(),
                            comment.empty() ? nullptr : comment.c_str(),
                            request.level,
                            static_cast<std::int32_t>(request.mode),
                            request.drop_folder_names,
                            request.recurse,
                            request.include_hidden};
    return call_engine<decltype(&KvPack)>(
        "KvPack", archive, events,
        [&](auto function, const std::string& path, Collector& collector) {
            return function(path.c_str(), &what, &collector);
        });
}

ArchiveReport list_archive(const std::wstring& archive) {
    return call_engine<decltype(&KvList)>(
        "KvList", archive, {}, [](auto function, const std::string& path, Collector& collector) {
            return function(path.c_str(), &collector);
        });
}

ArchiveReport test_archive(const std::wstring& archive, const TakeRequest& request,
                           const ArchiveEvents& events) {
    return call_with("KvTest", archive, request, events);
}

ArchiveReport take_archive(const std::wstring& archive, const TakeRequest& request,
                           const ArchiveEvents& events) {
    return call_with("KvTake", archive, request, events);
}

}  // namespace kovrel
