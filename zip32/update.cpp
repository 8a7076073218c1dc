#include "update.h"

#include <algorithm>
#include <new>
#include <optional>
#include <span>
#include <thread>
#include <unordered_map>
#include <unordered_set>

#include "archive_reader.h"
#include "archive_writer.h"
#include "input_list.h"
#include "listing.h"
#include "names.h"
#include "piece_feeder.h"
#include "worker_pool.h"
#include "zip_error.h"

namespace kovrel::zip {
namespace {

constexpr unsigned most_threads = 16;
constexpr std::size_t longest_comment = 0xFFFF;

// One place in the new archive: an old entry, a file that takes its place, or a new file.
struct Step {
    const OldEntry* old = nullptr;
    const Input* input = nullptr;
    // A further entry of the name that the file replaces: dropped once the file is packed.
    bool is_duplicate = false;

    [[nodiscard]] bool packs() const { return input != nullptr && !is_duplicate; }
};

unsigned thread_count(const UpdateOptions& options) {
    const unsigned wanted =
        options.threads != 0 ? options.threads : std::thread::hardware_concurrency();
    return std::clamp(wanted, 1U, most_threads);
}

std::optional<ArchiveReader> open_existing(const std::string& path, bool afresh) {
    const std::optional<FileStatus> status = file_status(path);
    if (!status) return std::nullopt;
    if (status->folder || !is_replaceable(path)) {
        throw ZipError(ZipCode::cannot_create, "cannot be replaced: " + path);
    }
    if (status->size == 0 || afresh) return std::nullopt;
    return std::optional<ArchiveReader>(std::in_place, path);
}

bool is_wanted(const Input& input, const OldEntry* old, Selection selection) {
    if (selection == Selection::all) return true;
    if (old == nullptr) return selection == Selection::newer_or_new;
    // Local times, to which entries without another are limited, change with the time zone.
    const std::optional<Moment> known = entry_of(*old).modified;
    return known ? *known / moments_per_second < input.status.moment / moments_per_second
                 : old->central.modified < input.status.modified;
}

std::string name_of(const OldEntry& old) {
    const CentralEntry& entry = old.central;
    return entry_name_utf8(entry.name, entry.flags, entry.made_by, entry.extra);
}

// Old entries keep their places; a file that replaces one takes its place, new ones follow.
// Duplicates of a replaced entry are dropped, since readers take the last entry of a name.
std::vector<Step> plan_steps(std::span<const OldEntry> old, const std::vector<Input>& inputs,
                             Selection selection) {
    std::unordered_map<std::string, const Input*> by_key;
    for (const Input& input : inputs) by_key.emplace(name_key(input.name), &input);

    // Which entry a file replaces. An archive from another system may hold names that differ in
    // capitals alone: the exact name comes before the first that Windows takes for the same file.
    std::unordered_map<const Input*, std::size_t> targets;
    std::vector<std::string> names;  // of the entries, in UTF-8
    std::vector<Step> steps;
    for (std::size_t i = 0; i < old.size(); ++i) {
        names.push_back(name_of(old[i]));
        const auto found = by_key.find(name_key(names[i]));
        steps.push_back({&old[i], found == by_key.end() ? nullptr : found->second});
        if (found == by_key.end()) continue;
        const Input* const input = found->second;
        std::size_t& target = targets.try_emplace(input, i).first->second;
        if (names[i] == input->name && names[target] != input->name) target = i;
    }

    for (std::size_t i = 0; i < old.size(); ++i) {
        Step& step = steps[i];
        if (step.input == nullptr) continue;
        const std::size_t target = targets.at(step.input);
        if (names[i] != names[target] || !is_wanted(*step.input, &old[target], selection)) {
            step.input = nullptr;
        }
        step.is_duplicate = step.input != nullptr && i != target;
    }
    for (const Input& input : inputs) {
        if (!targets.contains(&input) && is_wanted(input, nullptr, selection)) {
            steps.push_back({nullptr, &input});
        }
    }
    return steps;
}

class Update {
 public:
    Update(const std::string& archive_path, const UpdateOptions& options,
           const UpdateEvents& events)
        : archive_path_(final_path(archive_path)), options_(options), events_(events) {}

    ZipCode run(const std::vector<std::string>& names) {
        if (archive_path_.empty() || options_.level < 0 || options_.level > 9) {
            throw ZipError(ZipCode::bad_parameters, "no archive name, or no such level");
        }
        if (options_.comment && options_.comment->size() > longest_comment) {
            throw ZipError(ZipCode::bad_parameters, "too long a comment");
        }
        std::optional<ArchiveReader> old = open_existing(archive_path_, options_.afresh);
        remove_abandoned_files_beside(archive_path_);
        const std::vector<Input> inputs = collect_inputs(archive_path_, names, options_, events_);
        const std::span<const OldEntry> old_entries =
            old ? std::span(old->entries()) : std::span<const OldEntry>();
        const std::vector<Step> steps = plan_steps(old_entries, inputs, options_.selection);
        tell_unwanted(inputs, steps);
        if (std::none_of(steps.begin(), steps.end(),
                         [](const Step& step) { return step.packs(); })) {
            throw ZipError(ZipCode::nothing_to_do, "nothing to do: " + archive_path_);
        }

        NewFile file(archive_path_);
        OutputBuffer output(file);
        ArchiveWriter writer(output, [this] { count(0); });
        if (old && !options_.drop_prefix) writer.copy_prefix(*old);
        write_entries(steps, old, writer);
        if (packed_.empty()) return ZipCode::cannot_open_file;
        writer.finish(options_.comment ? *options_.comment : old ? old->comment() : std::string());
        old.reset();  // an open file cannot be replaced on Windows
        file.replace_target();
        if (options_.move) remove_packed();
        return unopened_.empty() ? ZipCode::ok : ZipCode::cannot_open_file;
    }

 private:
    // Files that are not newer than their entries, or have none where that is not asked for.
    void tell_unwanted(const std::vector<Input>& inputs, const std::vector<Step>& steps) const {
        if (!events_.left_out || options_.selection == Selection::all) return;
        std::unordered_set<const Input*> wanted;
        std::unordered_set<std::string> known;
        for (const Step& step : steps) {
            wanted.insert(step.input);
            if (step.old != nullptr) known.insert(name_key(name_of(*step.old)));
        }
        for (const Input& input : inputs) {
            if (wanted.contains(&input)) continue;
            events_.left_out(input.path, known.contains(name_key(input.name))
                                             ? EntryState::not_newer
                                             : EntryState::left_out);
        }
    }

    void write_entries(const std::vector<Step>& steps, const std::optional<ArchiveReader>& old,
                       ArchiveWriter& writer) {
        std::vector<std::string> paths;
        for (const Step& step : steps) {
            if (!step.packs() || step.input->status.folder) continue;
            paths.push_back(step.input->path);
            total_ += step.input->status.size;
        }
        WorkerPool pool(thread_count(options_), options_.level);
        PieceFeeder feeder(std::move(paths), pool, [this](std::size_t length) { count(length); });
        for (const Step& step : steps) {
            if (step.packs() && add(step, feeder, writer)) {
                report(step, writer.last_entry());
            } else if (step.old != nullptr && stays(step)) {
                current_ = name_of(*step.old);
                writer.copy_entry(*old, *step.old);
            }
        }
    }

    // A duplicate follows the replaced entry, so it is known whether the file could be opened.
    [[nodiscard]] bool stays(const Step& step) const {
        return !step.is_duplicate || unopened_.contains(step.input);
    }

    // False when the file cannot be opened; the old entries of its name are then kept.
    bool add(const Step& step, PieceFeeder& feeder, ArchiveWriter& writer) {
        const Input& input = *step.input;
        CentralEntry entry =
            ArchiveWriter::new_entry(input.name, input.status, options_.zoned_times);
        current_ = input.name;
        if (input.status.folder) {
            writer.add_folder(std::move(entry));
        } else if (const InputFile* file = feeder.next_file()) {
            writer.add_file(std::move(entry), *file, feeder, options_.level);
        } else {
            events_.warn("could not open for reading: ", input.path, EntryState::cannot_open);
            unopened_.insert(&input);
            return false;
        }
        packed_.push_back(&input);
        return true;
    }

    void report(const Step& step, const CentralEntry& entry) const {
        if (!events_.quiet) {
            events_.tell(std::string(step.old != nullptr ? "updating: " : "adding: ") + entry.name +
                         (entry.method == method_deflate ? " (deflated)" : " (stored)"));
        }
        stop_if(events_.entry_done && events_.entry_done(entry, step.input->path));
    }

    // Of a file that grows or shrinks meanwhile, the bytes that it had count.
    void count(std::size_t length) {
        done_ = std::min(done_ + length, total_);
        stop_if(events_.progress && events_.progress(current_, done_, total_));
    }

    static void stop_if(bool stops) {
        if (stops) throw ZipError(ZipCode::aborted, "stopped by the caller");
    }

    void remove_packed() const {
        for (const Input* input : packed_) {
            if (!input->status.folder && !remove_file(input->path)) {
                events_.tell("warning: could not delete: " + input->path);
            }
        }
    }

    const std::string archive_path_;
    const UpdateOptions& options_;
    const UpdateEvents& events_;
    std::uint64_t total_ = 0;  // bytes of all files to pack
    std::uint64_t done_ = 0;
    std::string current_;  // the entry at work
    std::vector<const Input*> packed_;
    std::unordered_set<const Input*> unopened_;
};

}  // namespace

ZipCode update_archive(const std::string& archive_path, const std::vector<std::string>& names,
                       const UpdateOptions& options, const UpdateEvents& events) {
    const auto fail = [&](ZipCode code, std::string_view text) {
        try {
            events.tell("error: " + std::string(text));
        } catch (...) {
            return ZipCode::internal_error;
        }
        return code;
    };
    try {
        return Update(archive_path, options, events).run(names);
    } catch (const ZipError& error) {
        return fail(error.code(), error.what());
    } catch (const std::bad_alloc&) {
        return fail(ZipCode::out_of_memory, "out of memory");
    } catch (...) {
        return fail(ZipCode::internal_error, "internal error");
    }
}

}  // namespace kovrel::zip
