// The threads that compress pieces. Pieces are handed in and taken back in one order by one
// thread; in between they are worked on in any order.
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
    /// `threads` 1 compresses on the calling thread, in submit(); more start that many threads
    /// (fewer where the system gives no more). Throws std::bad_alloc.
    WorkerPool(unsigned threads, int level);
    WorkerPool(const WorkerPool&) = delete;
    WorkerPool& operator=(const WorkerPool&) = delete;
    /// Waits for the pieces under work and drops the others.
    ~WorkerPool();

    /// A piece to fill, or nothing while all of them are on their way.
    [[nodiscard]] std::unique_ptr<Piece> free_piece();
    void submit(std::unique_ptr<Piece> piece);
    /// The oldest piece handed in, once it is compressed; at least one is on its way.
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

    void work(PieceDeflater& deflater);
    [[nodiscard]] Job* next_job();

    std::vector<std::unique_ptr<PieceDeflater>> deflaters_;
    std::vector<std::unique_ptr<Piece>> free_;
    std::mutex mutex_;
    std::condition_variable work_to_do_;
    std::condition_variable work_done_;
    std::deque<std::unique_ptr<Job>> jobs_;  // in the order of submit()
    bool stopping_ = false;
    std::vector<std::thread> threads_;
};

}  // namespace kovrel::zip
