// The threads that read entries and write their files. One thread submits jobs and takes them back
// in the same order; in between they are done in any order.
#pragma once

#include <chrono>
#include <condition_variable>
#include <deque>
#include <exception>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "entry_reader.h"
#include "listing.h"

namespace kovrel::zip {

/// One entry, and where its file goes.
struct EntryJob {
    const OldEntry* source = nullptr;
    Entry entry;
    std::string path;           // of the file to make
    std::uint64_t bytes = 0;    // to be unpacked
    std::uint64_t counted = 0;  // unpacked already
    EntryState state = EntryState::done;
    bool settled = false;  // no work, or no more
    std::exception_ptr failure;
};

class EntryWorkers {
 public:
    using Work = std::function<EntryState(EntryReader&, EntryJob&)>;

    /// With 1 thread, submit() does the work on the calling thread; with more, that many are
    /// started (fewer if the system cannot start them). Throws std::bad_alloc.
    EntryWorkers(unsigned threads, Work work);
    EntryWorkers(const EntryWorkers&) = delete;
    EntryWorkers& operator=(const EntryWorkers&) = delete;
    /// Waits for the jobs being done and drops the others.
    ~EntryWorkers();

    [[nodiscard]] bool on_calling_thread() const noexcept { return threads_.empty(); }
    /// How many were submitted and not taken back.
    [[nodiscard]] std::size_t pending() const;
    void submit(std::unique_ptr<EntryJob> job);
    /// The oldest job, of which there must be one; null if it is not done in time.
    [[nodiscard]] std::unique_ptr<EntryJob> take(std::chrono::milliseconds patience);
    /// The oldest job's entry.
    [[nodiscard]] const Entry& oldest() const;

 private:
    void run(EntryReader& reader, EntryJob& job) const noexcept;
    void work_on(EntryReader& reader);
    void skip_settled();

    Work work_;
    std::deque<EntryReader> readers_;
    mutable std::mutex mutex_;
    std::condition_variable work_to_do_;
    std::condition_variable work_done_;
    std::deque<std::unique_ptr<EntryJob>> jobs_;  // in the order of submit()
    std::size_t begun_ = 0;  // that many at the front are being done, or need nothing
    bool stopping_ = false;
    std::vector<std::thread> threads_;
};

}  // namespace kovrel::zip
