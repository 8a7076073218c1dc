// One run over entries: jobs go through the workers, and what becomes of each is told in order on
// the calling thread.
#pragma once

#include <atomic>

#include "entry_workers.h"
#include "extraction.h"

namespace kovrel::zip {

class EntryRun {
 public:
    using Work = std::function<EntryState(EntryReader&, EntryJob&, EntryRun&)>;

    /// `total`: the bytes that all jobs unpack to. Throws std::bad_alloc.
    EntryRun(unsigned threads, const ExtractEvents& events, std::uint64_t total, Work work);
    EntryRun(const EntryRun&) = delete;
    EntryRun& operator=(const EntryRun&) = delete;
    ~EntryRun() { stopping_ = true; }

    /// Throws ZipError aborted when an event stops the run, write_failed when a file could not be
    /// written; what the work threw.
    void add(std::unique_ptr<EntryJob> job);
    /// Waits for all jobs: ok or incomplete. Throws as add() does.
    [[nodiscard]] ZipCode finish();

    /// Called by the work after each piece. Throws ZipError aborted when the run is stopped.
    void count(EntryJob& job, std::uint64_t bytes);

 private:
    /// Waits for a while until at most that many jobs are left, and tells of those that are done.
    void settle(std::size_t most_left);
    void tell(const EntryJob& job);
    void tell_progress(const Entry& entry);

    const ExtractEvents& events_;
    const std::uint64_t total_;
    std::uint64_t settled_ = 0;                 // bytes of the entries that have been told of
    std::atomic<std::uint64_t> unsettled_ = 0;  // unpacked already of the others
    std::atomic<bool> stopping_ = false;
    std::chrono::steady_clock::time_point told_;
    ZipCode code_ = ZipCode::ok;
    EntryWorkers workers_;  // last: its threads use the others
};

}  // namespace kovrel::zip
