#include "worker_pool.h"

#include <algorithm>

namespace kovrel::zip {
namespace {

void run_guarded(PieceDeflater& deflater, Piece& piece, std::exception_ptr& failure) noexcept {
    try {
        deflater.run(piece);
    } catch (...) {
        failure = std::current_exception();
    }
}

}  // namespace

WorkerPool::WorkerPool(unsigned threads, int level) {
    const unsigned pieces = threads > 1 ? 2 * threads + 6 : 1;
    for (unsigned i = 0; i < pieces; ++i) free_.push_back(std::make_unique<Piece>());
    for (unsigned i = 0; i < std::max(threads, 1U); ++i) deflaters_.emplace_back(level);
    threads_.reserve(deflaters_.size() - 1);
    try {
        for (std::size_t i = 1; i < deflaters_.size(); ++i) {
            threads_.emplace_back([this, &deflater = deflaters_[i]] { work(deflater); });
        }
    } catch (const std::exception&) {
        // The threads that did start and take() do the work.
    }
}

WorkerPool::~WorkerPool() {
    {
        const std::lock_guard lock(mutex_);
        stopping_ = true;
    }
    work_to_do_.notify_all();
    for (std::thread& thread : threads_) thread.join();
}

std::unique_ptr<Piece> WorkerPool::free_piece() {
    if (free_.empty()) return nullptr;
    std::unique_ptr<Piece> piece = std::move(free_.back());
    free_.pop_back();
    return piece;
}

void WorkerPool::give_back(std::unique_ptr<Piece> piece) {
    free_.push_back(std::move(piece));
}

void WorkerPool::submit(std::unique_ptr<Piece> piece) {
    {
        const std::lock_guard lock(mutex_);
        jobs_.emplace_back().piece = std::move(piece);
    }
    work_to_do_.notify_one();
}

std::unique_ptr<Piece> WorkerPool::take() {
    std::unique_lock lock(mutex_);
    while (!jobs_.front().done) {
        if (Job* job = start_job()) {
            finish_job(*job, deflaters_.front(), lock);
        } else {
            work_done_.wait(lock);
        }
    }
    Job job = std::move(jobs_.front());
    jobs_.pop_front();
    if (job.failure) std::rethrow_exception(job.failure);
    return std::move(job.piece);
}

WorkerPool::Job* WorkerPool::start_job() {
    const auto next = std::ranges::find(jobs_, false, &Job::started);
    if (next == jobs_.end()) return nullptr;
    next->started = true;
    return &*next;  // stays valid while jobs are added and removed
}

void WorkerPool::finish_job(Job& job, PieceDeflater& deflater, std::unique_lock<std::mutex>& lock) {
    lock.unlock();
    run_guarded(deflater, *job.piece, job.failure);
    lock.lock();
    job.done = true;
}

void WorkerPool::work(PieceDeflater& deflater) {
    std::unique_lock lock(mutex_);
    while (true) {
        Job* job = nullptr;
        work_to_do_.wait(lock, [&] { return stopping_ || (job = start_job()) != nullptr; });
        if (stopping_) return;
        finish_job(*job, deflater, lock);
        work_done_.notify_one();
    }
}

}  // namespace kovrel::zip
