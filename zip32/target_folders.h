// The folders that are made or found while entries are taken out, each examined once.
#pragma once

#include <cstdint>
#include <string>
#include <unordered_map>
#include <unordered_set>

#include "entry_state.h"
#include "listing.h"

namespace kovrel::zip {

/// Paths are relative to the chosen folder, with "/" between components; "" is that folder itself.
class TargetFolders {
 public:
    /// The chosen folder may be a link; those below it may not.
    explicit TargetFolders(std::string chosen) : chosen_(std::move(chosen)) {}

    [[nodiscard]] std::string full_path(const std::string& path) const;

    /// An entry says which permissions and time a folder has, if it is made.
    void describe(const std::string& path, const Entry& entry);

    /// Makes a folder with all those that it lies in: done, through_link or cannot_create.
    [[nodiscard]] EntryState make(const std::string& path);
    /// Whether make() has made this folder, so that nothing was in it before.
    [[nodiscard]] bool is_made(const std::string& path) const;

    /// A file is about to be made: what killed processes left in its folder is removed once, and no
    /// folder can have its name.
    void expect_file(const std::string& path);

    /// Gives the folders that were made the times of their entries, once nothing changes in them.
    void set_times() const;

 private:
    struct Folder {
        EntryState state = EntryState::done;
        bool made = false;
        bool tidy = false;  // nothing abandoned is in it
        std::string path{};
    };
    struct Description {
        std::uint16_t permissions = 0777;
        Moment modified = 0;
    };

    [[nodiscard]] Folder make_chosen() const;
    [[nodiscard]] Folder make_inner(const std::string& path);

    std::string chosen_;
    // By the key under which the system finds each.
    std::unordered_map<std::string, Folder> folders_;
    std::unordered_map<std::string, Description> descriptions_;
    std::unordered_set<std::string> files_;
};

/// When an entry was last modified, by its UTC time or else its local one; 0 when it holds none.
[[nodiscard]] Moment modification_of(const Entry& entry);

}  // namespace kovrel::zip
