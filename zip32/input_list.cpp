#include "input_list.h"

#include <unordered_map>

#include "folder_access.h"
#include "name_patterns.h"
#include "names.h"
#include "zip_error.h"

namespace kovrel::zip {
namespace {

constexpr std::size_t longest_name = 0xFFFF;
// Where links are followed, deeper folders are taken for a loop of them.
constexpr int deepest_folder = 100;

// The folder that a pattern is looked for in. "." after a drive alone is its current folder.
std::string searched_folder(const std::string& pattern) {
    const std::string folder = folder_of(pattern);
    return folder.empty() || is_drive(folder) ? folder + '.' : folder;
}

// The components of `full` below those of `base`, with "/" between them; nothing when it is not
// there.
std::optional<std::string> name_below(const std::vector<std::string>& full,
                                      const std::vector<std::string>& base) {
    if (base.size() > full.size()) return std::nullopt;
    std::string name;
    for (std::size_t i = 0; i < full.size(); ++i) {
        if (i >= base.size()) {
            name = join_path(name, full[i]);
        } else if (name_key(full[i]) != name_key(base[i])) {
            return std::nullopt;
        }
    }
    return name;
}

class Collector {
 public:
    Collector(const std::string& archive_path, const UpdateOptions& options,
              const UpdateEvents& events)
        : archive_path_(archive_path),
          archive_exists_(file_status(archive_path).has_value()),
          options_(options),
          events_(events),
          exclusions_(options.exclusions) {}

    void add_named(const std::string& given) {
        std::string path = given;
        if (!options_.root.empty() && !is_absolute(given)) path = join_path(options_.root, given);
        const std::string name = options_.base ? name_below_base(path) : relative_name(given);
        if (const std::string last = last_component(path); options_.base && is_pattern(last)) {
            if (add_contents(searched_folder(path), folder_of(name, PathStyle::posix), 0,
                             NamePatterns({last}))) {
                return;
            }
        } else if (const std::optional<FileStatus> status = file_status(path)) {
            add_found(path, name, *status, 0);
            return;
        }
        events_.warn("name not matched: ", given, EntryState::cannot_open);
    }

    std::vector<Input> take() { return std::move(inputs_); }

 private:
    [[nodiscard]] std::string name_below_base(const std::string& path) const {
        const std::vector<std::string> full = components(absolute_path(path));
        std::vector<std::string> base;
        if (!options_.base->empty()) {
            base = components(absolute_path(*options_.base));
        } else if (!full.empty()) {
            base.assign(full.begin(), full.end() - (is_drive(full.back()) ? 0 : 1));
        }
        const std::optional<std::string> name = name_below(full, base);
        if (!name) throw ZipError(ZipCode::bad_parameters, "outside the base: " + path);
        return *name;
    }

    void add_found(const std::string& path, const std::string& name, const FileStatus& status,
                   int depth) {
        if (exclusions_.match(name)) return;
        if (options_.base && components(name, PathStyle::posix).size() > deepest_name) {
            events_.warn("too deep: ", path, EntryState::bad_name);
        } else if (status.folder) {
            add_folder(path, name, status, depth);
        } else {
            add_file(path, name, status);
        }
    }

    void add_file(const std::string& path, const std::string& name, const FileStatus& status) {
        if (archive_exists_ && is_same_file(path, archive_path_)) {
            events_.warn("the archive is not packed into itself: ", path, EntryState::left_out);
            return;
        }
        add({path, options_.drop_folder_names ? last_component(name, PathStyle::posix) : name,
             status});
    }

    void add_folder(const std::string& path, const std::string& name, const FileStatus& status,
                    int depth) {
        const bool gets_entry = options_.folder_entries && !options_.drop_folder_names;
        if (gets_entry && !name.empty()) add({path, name + '/', status});
        if (options_.recurse) {
            add_contents(path, name, depth, NamePatterns({"*"}));
        } else if (!gets_entry) {
            events_.warn("a folder is not packed: ", path, EntryState::left_out);
        }
    }

    // What matches a pattern; the contents of a folder that does not match are searched for it.
    // Whether anything matches.
    bool add_contents(const std::string& path, const std::string& name, int depth,
                      const NamePatterns& pattern) {
        if (depth > deepest_folder) {
            events_.warn("too deep: ", path, EntryState::bad_name);
            return false;
        }
        const auto names = folder_names(path);
        if (!names) events_.warn("could not read: ", path, EntryState::cannot_open);
        bool any = false;
        for (const std::string& found : names.value_or(std::vector<std::string>())) {
            const std::string inner = join_path(path, found);
            const bool matches = pattern.match(found);
            const std::optional<FileStatus> status = file_status(inner);
            if (status && status->hidden_or_system && !options_.include_hidden) continue;
            if (!matches && !(status && status->folder && options_.recurse)) continue;
            any = any || matches;
            if (!options_.follow_links && path_state(inner).kind == PathKind::link) {
                events_.warn("a link is not packed: ", inner, EntryState::link);
            } else if (!status) {
                events_.warn("no file or folder: ", inner, EntryState::cannot_open);
            } else if (matches) {
                add_found(inner, join_path(name, found), *status, depth + 1);
            } else if (add_contents(inner, join_path(name, found), depth + 1, pattern)) {
                any = true;
            }
        }
        return any;
    }

    void add(Input input) {
        if (input.name.empty() || input.name.size() > longest_name) {
            throw ZipError(ZipCode::bad_parameters, "not a name for an entry: " + input.path);
        }
        const auto [known, is_new] = by_key_.try_emplace(name_key(input.name), input.path);
        if (is_new) {
            inputs_.push_back(std::move(input));
        } else if (known->second != input.path && !is_same_file(known->second, input.path)) {
            throw ZipError(ZipCode::bad_parameters, "name in the archive repeated: " + input.name +
                                                        " (" + known->second + ", " + input.path +
                                                        ")");
        }
    }

    const std::string& archive_path_;
    const bool archive_exists_;
    const UpdateOptions& options_;
    const UpdateEvents& events_;
    const NamePatterns exclusions_;
    std::vector<Input> inputs_;
    std::unordered_map<std::string, std::string> by_key_;
};

}  // namespace

std::vector<Input> collect_inputs(const std::string& archive_path,
                                  const std::vector<std::string>& names,
                                  const UpdateOptions& options, const UpdateEvents& events) {
    Collector collector(archive_path, options, events);
    for (const std::string& name : names) collector.add_named(name);
    return collector.take();
}

}  // namespace kovrel::zip
