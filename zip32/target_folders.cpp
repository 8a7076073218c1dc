#include "target_folders.h"

#include "file_access.h"
#include "folder_access.h"
#include "names.h"

namespace kovrel::zip {
namespace {

constexpr std::uint16_t plain_permissions = 0777;
// Without these the owner could not put anything into the folder.
constexpr std::uint16_t owner_may_all = 0700;

std::string parent_of(const std::string& path) {
    const std::size_t end = path.find_last_of('/');
    return end == std::string::npos ? std::string() : path.substr(0, end);
}

bool make_with_parents(std::string path) {
    if (const auto status = file_status(path)) return status->folder;
    while (ends_in_separator(path)) path.pop_back();
    // A root that is not there.
    if (path.empty() || is_drive(path)) return false;
    const std::string parent = folder_of(path);
    if (!parent.empty() && parent != path && !make_with_parents(parent)) return false;
    return make_folder(path, plain_permissions);
}

}  // namespace

Moment modification_of(const Entry& entry) {
    if (entry.modified) return *entry.modified;
    return moment_of_dos_time(entry.local_modified).value_or(0);
}

std::string TargetFolders::full_path(const std::string& path) const {
    if (path.empty()) return chosen_;
    return join_path(chosen_, path);
}

void TargetFolders::describe(const std::string& path, const Entry& entry) {
    const auto permissions = static_cast<std::uint16_t>(entry.permissions | owner_may_all);
    descriptions_[name_key(path)] = {permissions, modification_of(entry)};
}

EntryState TargetFolders::make(const std::string& path) {
    std::string key = name_key(path);
    if (const auto known = folders_.find(key); known != folders_.end()) return known->second.state;
    Folder folder = path.empty() ? make_chosen() : make_inner(path);
    folder.path = path;
    return folders_.emplace(std::move(key), std::move(folder)).first->second.state;
}

bool TargetFolders::is_made(const std::string& path) const {
    const auto known = folders_.find(name_key(path));
    return known != folders_.end() && known->second.made;
}

void TargetFolders::expect_file(const std::string& path) {
    files_.insert(name_key(path));
    Folder& folder = folders_[name_key(parent_of(path))];
    if (folder.tidy) return;
    folder.tidy = true;
    if (!folder.made) remove_abandoned_files_beside(full_path(path));
}

void TargetFolders::set_times() const {
    for (const auto& [key, folder] : folders_) {
        const auto description = descriptions_.find(key);
        if (!folder.made || description == descriptions_.end()) continue;
        if (description->second.modified != 0) {
            set_folder_time(full_path(folder.path), description->second.modified);
        }
    }
}

TargetFolders::Folder TargetFolders::make_chosen() const {
    if (const auto status = file_status(chosen_)) {
        return {.state = status->folder ? EntryState::done : EntryState::cannot_create};
    }
    if (make_with_parents(chosen_)) return {.made = true};
    return {.state = EntryState::cannot_create};
}

TargetFolders::Folder TargetFolders::make_inner(const std::string& path) {
    if (files_.contains(name_key(path))) return {.state = EntryState::cannot_create};
    if (const EntryState state = make(parent_of(path)); state != EntryState::done) {
        return {.state = state};
    }
    const std::string full = full_path(path);
    const auto description = descriptions_.find(name_key(path));
    const bool described = description != descriptions_.end();
    if (make_folder(full, described ? description->second.permissions : plain_permissions)) {
        return {.made = true};
    }
    switch (path_state(full).kind) {
        case PathKind::folder:
            return {};
        case PathKind::link:
            return {.state = EntryState::through_link};
        default:
            return {.state = EntryState::cannot_create};
    }
}

}  // namespace kovrel::zip
