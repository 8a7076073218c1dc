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
    const unsigned pieces = threads > 1 ? 2 * threads + 2 : 1;
    for (unsigned i = 0; i < pieces; ++i) free_.push_back(std::make_unique<Piece>());
    for (unsigned i = 0; i < std::max(threads, 1U); ++i) deflaters_.emplace_back(level);
    if (threads < 2) return;
    threads_.reserve(threads);
    try {
        for (PieceDeflater& deflater : deflaters_) {
            threads_.emplace_back([this, &deflater] { work(deflater); });
        }
    } catch (const std::exception&) {
        // The threads that did start do the work; with none, submit() does.
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
    Job job;
    job.piece = std::move(piece);
    if (threads_.empty()) {
        run_guarded(deflaters_.front(), *job.piece, job.failure);
        job.done = true;
    }
    {
        const std::lock_guard lock(mutex_);
        jobs_.push_back(std::move(job));
    }
    work_to_do_.notify_one();
}

std::unique_ptr<Piece> WorkerPool::take() {
    Job job;
    {
        std::unique_lock lock(mutex_);
        work_done_.wait(lock, [this] { return jobs_.front().done; });
        job = std::move(jobs_.front());
        jobs_.pop_front();
    }
    if (job.failure) std::rethrow_exception(job.failure);
    return std::move(job.piece);
}

void WorkerPool::work(PieceDeflater& deflater) {
    std::unique_lock lock(mutex_);
    while (true) {
        auto next = jobs_.end();
        work_to_do_.wait(lock, [&] {
            next = std::ranges::find(jobs_, false, &Job::started);
            return stopping_ || next != jobs_.end();
        });
        if (stopping_) return;
        // A reference, unlike the iterator, stays valid while jobs are added and removed.
        Job& job = *next;
        job.started = true;
        lock.unlock();
        run_guarded(deflater, *job.piece, job.failure);
        lock.lock();
        job.done = true;
        work_done_.notify_one();
    }
}

}  // namespace kovrel::zip
