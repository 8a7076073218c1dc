// A folder with an archive in it, for tests of update_archive() as its callers see it.
#pragma once

#include <gmock/gmock.h>
#include <string>
#include <vector>

#include "tests/zip/plain_reader.h"
#include "tests/zip/test_folder.h"
#include "update.h"

namespace kovrel::zip {

using test::PlainEntry;
using test::TestFolder;

class ZipUpdate : public testing::Test {
 protected:
    ZipCode pack(const std::vector<std::string>& names) {
        messages.clear();
        UpdateEvents events;
        events.message = [this](std::string_view line) { messages.emplace_back(line); };
        events.quiet = quiet;
        events.entry_done = [this](const CentralEntry& entry, const std::string&) {
            done.emplace_back(entry.name + " " + std::to_string(entry.size));
            return done.size() == stop_after;
        };
        return update_archive(folder / "a.zip", names, options, events);
    }

    std::vector<PlainEntry> entries() { return test::read_plain(folder.read("a.zip")); }

    std::vector<std::string> names() {
        std::vector<std::string> result;
        for (const PlainEntry& entry : entries()) {
            EXPECT_TRUE(entry.readable) << entry.name;
            result.push_back(entry.name);
        }
        return result;
    }

    std::string data_of(const std::string& name) {
        for (const PlainEntry& entry : entries()) {
            if (entry.name == name) return entry.data;
        }
        return "(none)";
    }

    TestFolder folder;
    UpdateOptions options;
    bool quiet = true;
    std::size_t stop_after = 0;
    std::vector<std::string> messages;
    std::vector<std::string> done;
};

}  // namespace kovrel::zip
