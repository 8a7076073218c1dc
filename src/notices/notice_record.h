// What was announced, the latest announcements up to a limit, and its lines for a log.
#pragma once

#include <cstddef>
#include <deque>
#include <memory>
#include <string>

#include "runtime/announcement.h"

namespace kovrel {

class NoticeRecord {
 public:
    using Entry = std::shared_ptr<const NotedAnnouncement>;

    static constexpr std::size_t usual_limit = 1000;

    /// Drops the oldest one when there are too many.
    void add(Entry entry);
    void clear() noexcept { entries_.clear(); }
    [[nodiscard]] std::size_t limit() const noexcept { return limit_; }
    void set_limit(std::size_t limit);
    /// From the oldest to the newest.
    [[nodiscard]] const std::deque<Entry>& entries() const noexcept { return entries_; }

    /// One line for each entry: time, kind, member, title, number of the failure, answer and text,
    /// separated by tabs. In titles and texts, line breaks and tabs become blanks.
    [[nodiscard]] std::wstring text() const;

 private:
    std::size_t limit_ = usual_limit;
    std::deque<Entry> entries_;
};

}  // namespace kovrel
