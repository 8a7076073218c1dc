#include "input_list.h"

#include <unordered_map>

#include "names.h"
#include "zip_error.h"

namespace kovrel::zip {
namespace {

constexpr std::size_t longest_name = 0xFFFF;
// Deeper folders are taken for a loop of links.
constexpr int deepest_folder = 100;

std::string join(std::string_view folder, std::string_view name) {
    return std::string(folder).append("/").append(name);
}

class Collector {
 public:
    Collector(const std::string& archive_path, const UpdateOptions& options,
              const UpdateEvents& events)
        : archive_path_(archive_path), options_(options), events_(events) {}

    void add_named(const std::string& given) {
        std::string path = given;
        if (!options_.root.empty() && !is_absolute(given)) path = join(options_.root, given);
        const std::optional<FileStatus> status = file_status(path);
        if (!status) {
            warn("name not matched: " + given);
        } else if (!status->folder) {
            add_file(path, given, *status);
        } else {
            add_folder(path, given, *status, 0);
        }
    }

    std::vector<Input> take() { return std::move(inputs_); }

 private:
    void warn(const std::string& text) const { events_.tell("warning: " + text); }

    void add_file(const std::string& path, const std::string& given, const FileStatus& status) {
        if (is_same_file(path, archive_path_)) {
            warn("the archive is not packed into itself: " + given);
            return;
        }
        add({path, options_.drop_folder_names ? last_component(given) : relative_name(given),
             status});
    }

    void add_folder(const std::string& path, const std::string& given, const FileStatus& status,
                    int depth) {
        std::string name = relative_name(given);
        if (options_.folder_entries && !options_.drop_folder_names && !name.empty()) {
            add({path, name + '/', status});
        }
        if (!options_.recurse) {
            if (!options_.folder_entries || options_.drop_folder_names) {
                warn("a folder is not packed: " + given);
            }
            return;
        }
        for (const std::string& found : folder_names(path)) {
            const std::string inner = join(path, found);
            const std::string inner_given = join(given, found);
            const std::optional<FileStatus> inner_status = file_status(inner);
            if (!inner_status || (inner_status->hidden_or_system && !options_.include_hidden)) {
                continue;
            }
            if (!inner_status->folder) {
                add_file(inner, inner_given, *inner_status);
            } else if (depth < deepest_folder) {
                add_folder(inner, inner_given, *inner_status, depth + 1);
            }
        }
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
    const UpdateOptions& options_;
    const UpdateEvents& events_;
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
