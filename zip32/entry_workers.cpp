#include "entry_workers.h"

#include <algorithm>

namespace kovrel::zip {

EntryWorkers::EntryWorkers(unsigned threads, Work work) : work_(std::move(work)) {
    for (unsigned i = 0; i < std::max(threads, 1U); ++i) workers_.emplace_back();
    if (threads < 2) return;
    threads_.reserve(threads);
    try {
        for (Worker& worker : workers_) {
            threads_.emplace_back([this, &worker] { work_on(worker); });
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
        run(workers_.front(), *job);
        job->settled = true;
    }
    const bool is_work = !job->settled;
    {
        const std::lock_guard lock(mutex_);
        jobs_.push_back(std::move(job));
        if (is_work) ++left_;
    }
    if (is_work) work_to_do_.notify_one();
}

void EntryWorkers::wait(std::size_t most_left, std::chrono::milliseconds patience) {
    std::unique_lock lock(mutex_);
    wake_at_ = most_left;
    work_done_.wait_for(lock, patience,
                        [this] { return left_ <= wake_at_ && jobs_.front()->settled; });
}

std::unique_ptr<EntryJob> EntryWorkers::take() {
    std::unique_ptr<EntryJob> job;
    {
        const std::lock_guard lock(mutex_);
        if (jobs_.empty() || !jobs_.front()->settled) return nullptr;
        job = std::move(jobs_.front());
        jobs_.pop_front();
        if (waiting_from_ > 0) --waiting_from_;
    }
    if (job->failure) std::rethrow_exception(job->failure);
    return job;
}

void EntryWorkers::run(Worker& worker, EntryJob& job) const noexcept {
    try {
        job.state = work_(worker.reader, job);
    } catch (...) {
        job.failure = std::current_exception();
    }
}

// Called with the lock held; null when there is none.
EntryJob* EntryWorkers::next_job(const Worker& worker) {
    const auto waits = [](const EntryJob& job) { return !job.begun && !job.settled; };
    const auto is_free = [&](std::size_t folder) {
        return folder == 0 ||
               std::none_of(workers_.begin(), workers_.end(), [&](const Worker& other) {
                   return &other != &worker && other.folder == folder;
               });
    };
    while (waiting_from_ < jobs_.size() && !waits(*jobs_[waiting_from_])) ++waiting_from_;
    for (std::size_t i = waiting_from_; i < jobs_.size(); ++i) {
        if (waits(*jobs_[i]) && is_free(jobs_[i]->folder)) return jobs_[i].get();
    }
    return waiting_from_ < jobs_.size() ? jobs_[waiting_from_].get() : nullptr;
}

void EntryWorkers::work_on(Worker& worker) {
    std::unique_lock lock(mutex_);
    while (true) {
        EntryJob* job = nullptr;
        work_to_do_.wait(lock, [&] { return stopping_ || (job = next_job(worker)) != nullptr; });
        if (stopping_) return;
        job->begun = true;
        worker.folder = job->folder;
        lock.unlock();
        run(worker, *job);
        lock.lock();
        worker.folder = 0;
        job->settled = true;
        if (--left_ <= wake_at_) work_done_.notify_one();
    }
}

}  // namespace kovrel::zip
