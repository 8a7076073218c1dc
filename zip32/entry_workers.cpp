#include "entry_workers.h"

#include <algorithm>

namespace kovrel::zip {

EntryWorkers::EntryWorkers(unsigned threads, Work work) : work_(std::move(work)) {
    for (unsigned i = 0; i < std::max(threads, 1U); ++i) readers_.emplace_back();
    if (threads < 2) return;
    threads_.reserve(threads);
    try {
        for (EntryReader& reader : readers_) {
            threads_.emplace_back([this, &reader] { work_on(reader); });
        }
    } catch (const std::exception&) {
        // The threads that did start do the work; with none, submit() does.
    }
}

EntryWorkers::~EntryWorkers() {
    {
        const std::lock_guard lock(mutex_);
        stopping_ = true;
    }
    work_to_do_.notify_all();
    for (std::thread& thread : threads_) thread.join();
}

std::size_t EntryWorkers::pending() const {
    const std::lock_guard lock(mutex_);
    return jobs_.size();
}

const Entry& EntryWorkers::oldest() const {
    const std::lock_guard lock(mutex_);
    return jobs_.front()->entry;
}

void EntryWorkers::submit(std::unique_ptr<EntryJob> job) {
    if (threads_.empty() && !job->settled) {
        run(readers_.front(), *job);
        job->settled = true;
    }
    const bool is_work = !job->settled;
    {
        const std::lock_guard lock(mutex_);
        jobs_.push_back(std::move(job));
        skip_settled();
    }
    if (is_work) work_to_do_.notify_one();
}

std::unique_ptr<EntryJob> EntryWorkers::take(std::chrono::milliseconds patience) {
    std::unique_ptr<EntryJob> job;
    {
        std::unique_lock lock(mutex_);
        if (!work_done_.wait_for(lock, patience, [this] { return jobs_.front()->settled; })) {
            return nullptr;
        }
        job = std::move(jobs_.front());
        jobs_.pop_front();
        --begun_;
    }
    if (job->failure) std::rethrow_exception(job->failure);
    return job;
}

void EntryWorkers::run(EntryReader& reader, EntryJob& job) const noexcept {
    try {
        job.state = work_(reader, job);
    } catch (...) {
        job.failure = std::current_exception();
    }
}

// Called with the lock held.
void EntryWorkers::skip_settled() {
    while (begun_ < jobs_.size() && jobs_[begun_]->settled) ++begun_;
}

void EntryWorkers::work_on(EntryReader& reader) {
    std::unique_lock lock(mutex_);
    while (true) {
        work_to_do_.wait(lock, [this] { return stopping_ || begun_ < jobs_.size(); });
        if (stopping_) return;
        EntryJob& job = *jobs_[begun_++];
        skip_settled();
        lock.unlock();
        run(reader, job);
        lock.lock();
        job.settled = true;
        work_done_.notify_one();
    }
}

}  // namespace kovrel::zip
