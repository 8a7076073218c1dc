#include "extraction.h"

#include <algorithm>
#include <new>
#include <thread>
#include <unordered_set>

#include "entry_run.h"
#include "file_access.h"
#include "folder_access.h"
#include "name_patterns.h"
#include "target_folders.h"
#include "target_name.h"

namespace kovrel::zip {
namespace {

// More threads than this only wait for the disk; each takes half a megabyte.
constexpr unsigned most_threads = 16;
constexpr std::uint64_t ratio_counts_from = std::uint64_t{1} << 20;

unsigned thread_count(unsigned wanted) {
    return std::clamp(wanted != 0 ? wanted : std::thread::hardware_concurrency(), 1U, most_threads);
}

/// Which entries the caller asks for.
class Choice {
 public:
    Choice(const std::vector<std::string>& patterns, const std::vector<std::string>& exclusions)
        : wanted_(patterns), unwanted_(exclusions), everything_(patterns.empty()) {}

    // By where the entry leads, so that "a//b" and "a/b" are one name.
    [[nodiscard]] bool takes(const std::string& name, const TargetName& target) const {
        const std::string& compared = target.path.empty() ? name : target.path;
        return (everything_ || wanted_.match(compared)) && !unwanted_.match(compared);
    }
    [[nodiscard]] bool everything() const noexcept { return everything_; }

 private:
    NamePatterns wanted_;
    NamePatterns unwanted_;
    bool everything_;
};

/// What is known of an entry before anything is read or written.
struct Plan {
    EntryState state = EntryState::done;
    std::string path;         // relative to the chosen folder
    std::uint64_t bytes = 0;  // to unpack into a file
    bool file = false;
};

void require_match(const std::vector<Plan>& plans, const Choice& choice) {
    const auto is_asked_for = [](const Plan& plan) { return plan.state != EntryState::left_out; };
    if (!choice.everything() && std::none_of(plans.begin(), plans.end(), is_asked_for)) {
        throw ZipError(ZipCode::nothing_to_do, "no entry of such a name");
    }
}

std::unique_ptr<EntryJob> job_of(const OldEntry& source, EntryState state) {
    auto job = std::make_unique<EntryJob>();
    job->source = &source;
    job->entry = entry_of(source);
    job->state = state;
    return job;
}

class Extraction {
 public:
    Extraction(const std::string& archive, const ExtractOptions& options,
               const ExtractEvents& events)
        : options_(options),
          events_(events),
          choice_(options.patterns, options.exclusions),
          folders_(options.folder),
          archive_(archive) {}

    ZipCode run() {
        if (options_.folder.empty()) throw ZipError(ZipCode::bad_parameters, "no folder");
        std::vector<Plan> plans;
        plans.reserve(archive_.entries().size());
        for (const OldEntry& entry : archive_.entries())
            plans.push_back(plan(entry_of(entry), entry));
        require_match(plans, choice_);
        const std::uint64_t total = check_limits(plans);
        if (folders_.make("") != EntryState::done) {
            throw ZipError(ZipCode::cannot_create, "could not create: " + options_.folder);
        }
        const ZipCode code = take_all(plans, total);
        folders_.set_times();
        return code;
    }

 private:
    Plan plan(const Entry& entry, const OldEntry& source) {
        TargetName target = target_name(entry.name);
        if (!choice_.takes(entry.name, target)) return {EntryState::left_out, {}};
        // "./" is the chosen folder itself.
        if (target.fault == NameFault::empty && entry.name.ends_with('/')) return {};
        if (target.fault == NameFault::reserved) return {EntryState::reserved_name, {}};
        if (target.fault != NameFault::none) return {EntryState::bad_name, {}};
        if (options_.drop_folder_names) target.path = last_component(target.path, PathStyle::posix);
        if (entry.link) return {EntryState::link, std::move(target.path)};
        if (entry.folder) return plan_folder(std::move(target.path), entry);
        if (const EntryState state = readable_state(source.central); state != EntryState::done) {
            return {state, std::move(target.path)};
        }
        if (!names_.insert(name_key(target.path)).second) {
            return {EntryState::name_twice, std::move(target.path)};
        }
        return {EntryState::done, std::move(target.path), entry.size, true};
    }

    Plan plan_folder(std::string path, const Entry& entry) {
        if (options_.drop_folder_names) return {EntryState::left_out, {}};
        folders_.describe(path, entry);
        return {EntryState::done, std::move(path)};
    }

    // The bytes to unpack. What lies over a limit is not taken out in part either.
    std::uint64_t check_limits(const std::vector<Plan>& plans) const {
        const std::uint64_t most_ratio = std::max<std::uint64_t>(options_.most_ratio, 1);
        std::uint64_t total = 0;
        for (std::size_t i = 0; i < plans.size(); ++i) {
            const std::uint64_t bytes = plans[i].bytes;
            if (bytes > options_.most_bytes - total) {
                refuse(i, plans[i], "the archive unpacks to more bytes than the limit");
            }
            total += bytes;
            if (bytes > ratio_counts_from &&
                bytes / most_ratio > archive_.entries()[i].central.packed_size) {
                refuse(i, plans[i], "an entry unpacks to more times its bytes than the limit");
            }
        }
        return total;
    }

    [[noreturn]] void refuse(std::size_t index, const Plan& plan, const std::string& why) const {
        const Entry entry = entry_of(archive_.entries()[index]);
        if (events_.entry_done) {
            events_.entry_done(entry, EntryState::over_limit, folders_.full_path(plan.path));
        }
        throw ZipError(ZipCode::over_limit, why + ": " + entry.name);
    }

    ZipCode take_all(const std::vector<Plan>& plans, std::uint64_t total) {
        EntryRun run(thread_count(options_.threads), events_, total,
                     [this](EntryReader& reader, EntryJob& job, EntryRun& of) {
                         return take_out(reader, job, of);
                     });
        for (std::size_t i = 0; i < plans.size(); ++i) {
            std::unique_ptr<EntryJob> job = job_of(archive_.entries()[i], plans[i].state);
            if (!plans[i].path.empty()) job->path = folders_.full_path(plans[i].path);
            job->bytes = plans[i].bytes;
            if (job->state == EntryState::done) {
                job->state =
                    plans[i].file ? prepare(*job, plans[i].path) : folders_.make(plans[i].path);
            }
            job->settled = !plans[i].file || job->state != EntryState::done;
            job->folder = std::hash<std::string>()(folder_of(job->path));
            run.add(std::move(job));
        }
        return run.finish();
    }

    // Makes the folder and decides about an existing file: done if the entry is to be taken out.
    EntryState prepare(const EntryJob& job, const std::string& path) {
        const std::size_t slash = path.find_last_of('/');
        const std::string parent = slash == std::string::npos ? "" : path.substr(0, slash);
        if (const EntryState state = folders_.make(parent); state != EntryState::done) return state;
        if (!folders_.is_made(parent)) {
            const EntryState state = decide(job.entry, job.path);
            if (state != EntryState::done) return state;
        }
        folders_.expect_file(path);
        return EntryState::done;
    }

    EntryState decide(const Entry& entry, const std::string& path) const {
        const PathState found = path_state(path);
        if (found.kind == PathKind::nothing) return EntryState::done;
        if (found.kind == PathKind::folder) return EntryState::cannot_create;
        switch (options_.existing) {
            case Existing::keep:
                return EntryState::kept_existing;
            case Existing::replace:
                return EntryState::done;
            case Existing::replace_older:
                return found.modified < modification_of(entry) ? EntryState::done
                                                               : EntryState::not_newer;
            case Existing::ask:
                break;
        }
        return events_.replace && events_.replace(entry, path) ? EntryState::done
                                                               : EntryState::declined;
    }

    // On a worker's thread.
    EntryState take_out(EntryReader& reader, EntryJob& job, EntryRun& run) const {
        try {
            run.count(job, 0);
            NewFile file(job.path, job.entry.permissions);
            std::uint64_t written = 0;
            const EntryState state = reader.read(archive_, *job.source, [&](ByteView piece) {
                file.write_at(written, piece);
                written += piece.size();
                run.count(job, piece.size());
            });
            if (state != EntryState::done) return state;
            if (const Moment modified = modification_of(job.entry); modified != 0) {
                file.set_modified(modified);
            }
            file.replace_target();
            return EntryState::done;
        } catch (const ZipError& error) {
            if (error.code() == ZipCode::cannot_create) return EntryState::cannot_create;
            if (error.code() == ZipCode::write_failed) return EntryState::write_failed;
            throw;
        }
    }

    const ExtractOptions& options_;
    const ExtractEvents& events_;
    const Choice choice_;
    TargetFolders folders_;
    const ArchiveReader archive_;
    std::unordered_set<std::string> names_;
};

ZipCode test_entries(const std::string& path, const Choice& choice, const ExtractEvents& events) {
    const ArchiveReader archive(path);
    std::vector<Plan> plans;
    std::uint64_t total = 0;
    for (const OldEntry& source : archive.entries()) {
        const std::string name = entry_of(source).name;
        const bool wanted = choice.takes(name, target_name(name));
        Plan plan;
        plan.state = wanted ? EntryState::done : EntryState::left_out;
        plan.bytes = wanted ? source.central.size : 0;
        total += std::min(plan.bytes, ~total);
        plans.push_back(std::move(plan));
    }
    require_match(plans, choice);
    const auto read = [&archive](EntryReader& reader, EntryJob& job, EntryRun& of) {
        of.count(job, 0);
        return reader.read(archive, *job.source,
                           [&](ByteView piece) { of.count(job, piece.size()); });
    };
    EntryRun run(thread_count(0), events, total, read);
    for (std::size_t i = 0; i < plans.size(); ++i) {
        std::unique_ptr<EntryJob> job = job_of(archive.entries()[i], plans[i].state);
        job->settled = job->state != EntryState::done;
        job->bytes = plans[i].bytes;
        run.add(std::move(job));
    }
    return run.finish();
}

template <typename Action>
ZipCode guarded(std::string& why, const Action& action) {
    try {
        return action();
    } catch (const ZipError& error) {
        why = error.what();
        return error.code();
    } catch (const std::bad_alloc&) {
        why = "out of memory";
        return ZipCode::out_of_memory;
    } catch (...) {
        why = "internal error";
        return ZipCode::internal_error;
    }
}

}  // namespace

ZipCode extract_archive(const std::string& archive, const ExtractOptions& options,
                        const ExtractEvents& events, std::string& why) {
    return guarded(why, [&] { return Extraction(archive, options, events).run(); });
}

ZipCode test_archive(const std::string& archive, const std::vector<std::string>& patterns,
                     const std::vector<std::string>& exclusions, const ExtractEvents& events,
                     std::string& why) {
    return guarded(why,
                   [&] { return test_entries(archive, Choice(patterns, exclusions), events); });
}

}  // namespace kovrel::zip
