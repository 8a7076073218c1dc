// The threads that read entries and write their files. One thread submits jobs and takes them back
// in the same order; in between they are done in any order. Two threads work in one folder only if
// there is nothing else to do, since the system makes one wait for the other there.
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
    std::size_t folder = 0;     // a number for the folder that the file goes into; 0 for none
    std::uint64_t bytes = 0;    // to be unpacked
    std::uint64_t counted = 0;  // unpacked already
    EntryState state = EntryState::done;
    bool begun = false;    // by a worker
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
    /// Waits until the oldest job, of which there must be one, is done and at most that many are
    /// left to do, or that long. To be woken for each of them would take as long as writing a small
    /// file.
    void wait(std::size_t most_left, std::chrono::milliseconds patience);
    /// The oldest job if it is done, else null. Throws what the work threw.
    [[nodiscard]] std::unique_ptr<EntryJob> take();
    /// The oldest job's entry; there must be one.
    [[nodiscard]] const Entry& oldest() const;

 private:
    struct Worker {
        EntryReader reader;
        std::size_t folder = 0;  // that it works in
    };

    void run(Worker& worker, EntryJob& job) const noexcept;
    void work_on(Worker& worker);
    [[nodiscard]] EntryJob* next_job(const Worker& worker);

    Work work_;
    std::deque<Worker> workers_;
    mutable std::mutex mutex_;
    std::condition_variable work_to_do_;
    std::condition_variable work_done_;
    std::deque<std::unique_ptr<EntryJob>> jobs_;  // in the order of submit()
    std::size_t waiting_from_ = 0;                // those before are begun, or need nothing
    std::size_t left_ = 0;                        // to do, or being done
    std::size_t wake_at_ = 0;                     // of left_, when wait() ends
    bool stopping_ = false;
    std::vector<std::thread> threads_;
};

}  // namespace kovrel::zip
