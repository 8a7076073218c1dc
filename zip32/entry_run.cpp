#include "entry_run.h"

namespace kovrel::zip {
namespace {

// Enough for each worker to find a folder of its own among the next files.
constexpr std::size_t most_pending = 256;
constexpr std::chrono::milliseconds between_progress{100};

[[noreturn]] void stop() {
    throw ZipError(ZipCode::aborted, "stopped by the caller");
}

}  // namespace

EntryRun::EntryRun(unsigned threads, const ExtractEvents& events, std::uint64_t total, Work work)
    : events_(events),
      total_(total),
      told_(std::chrono::steady_clock::now()),
      workers_(threads, [this, work = std::move(work)](EntryReader& reader, EntryJob& job) {
          return work(reader, job, *this);
      }) {}

void EntryRun::add(std::unique_ptr<EntryJob> job) {
    workers_.submit(std::move(job));
    const std::size_t most = workers_.on_calling_thread() ? 0 : most_pending;
    while (workers_.pending() > most) settle(most / 2);
}

ZipCode EntryRun::finish() {
    while (workers_.pending() > 0) settle(0);
    return code_;
}

void EntryRun::count(EntryJob& job, std::uint64_t bytes) {
    if (stopping_) stop();
    job.counted += bytes;
    unsettled_ += bytes;
    if (workers_.on_calling_thread() &&
        std::chrono::steady_clock::now() - told_ >= between_progress) {
        tell_progress(job.entry);
    }
}

void EntryRun::settle(std::size_t most_left) {
    workers_.wait(most_left, between_progress);
    std::unique_ptr<EntryJob> job = workers_.take();
    if (!job) tell_progress(workers_.oldest());
    for (; job; job = workers_.take()) tell(*job);
}

void EntryRun::tell(const EntryJob& job) {
    unsettled_ -= job.counted;
    settled_ += job.bytes;
    if (!is_as_asked(job.state)) code_ = ZipCode::incomplete;
    if (events_.entry_done && events_.entry_done(job.entry, job.state, job.path)) stop();
    if (job.state == EntryState::write_failed) {
        throw ZipError(ZipCode::write_failed, "could not write: " + job.path);
    }
    tell_progress(job.entry);
}

void EntryRun::tell_progress(const Entry& entry) {
    told_ = std::chrono::steady_clock::now();
    if (events_.progress && events_.progress(entry.name, settled_ + unsettled_, total_)) stop();
}

}  // namespace kovrel::zip
