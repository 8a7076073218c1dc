// The threads that compress pieces. One thread submits pieces and takes them back in the same
// order; in between they are compressed in any order. That thread is one of those that compress:
// it does so rather than wait for the others.
#pragma once

#include <condition_variable>
#include <deque>
#include <exception>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

#include "deflater.h"

namespace kovrel::zip {

class WorkerPool final {
 public:
    /// `threads` counts the calling one; the others are started (fewer if the system cannot start
    /// them). Throws std::bad_alloc.
    WorkerPool(unsigned threads, int level);
    WorkerPool(const WorkerPool&) = delete;
    WorkerPool& operator=(const WorkerPool&) = delete;
    /// Waits for the pieces being compressed and drops the others.
    ~WorkerPool();

    /// A piece to fill; null while all of them are submitted.
    [[nodiscard]] std::unique_ptr<Piece> free_piece();
    void submit(std::unique_ptr<Piece> piece);
    /// The oldest submitted piece, of which there must be one, once it is compressed. Compresses
    /// others until then.
    /// Throws what its compression threw.
    [[nodiscard]] std::unique_ptr<Piece> take();
    void give_back(std::unique_ptr<Piece> piece);

 private:
    struct Job {
        std::unique_ptr<Piece> piece;
        bool started = false;
        bool done = false;
        std::exception_ptr failure;
    };

    /// The oldest job that no thread has begun; null when there is none.
    Job* start_job();
    void finish_job(Job& job, PieceDeflater& deflater, std::unique_lock<std::mutex>& lock);
    void work(PieceDeflater& deflater);

    std::deque<PieceDeflater> deflaters_;
    std::vector<std::unique_ptr<Piece>> free_;
    std::mutex mutex_;
    std::condition_variable work_to_do_;
    std::condition_variable work_done_;
    std::deque<Job> jobs_;  // in the order of submit()
    bool stopping_ = false;
    std::vector<std::thread> threads_;
};

}  // namespace kovrel::zip
