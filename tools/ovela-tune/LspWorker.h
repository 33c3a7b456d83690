#ifndef OVELA_TUNE_LSP_WORKER_H
#define OVELA_TUNE_LSP_WORKER_H

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>

namespace ovela::tune::lsp {

// One thread that runs tasks in the order they were posted: the loads and
// the answers about them, while the thread that reads the client's messages
// goes on reading.
class LspWorker {
  public:
    LspWorker();
    // Runs what was posted, then ends the thread.
    ~LspWorker();
    LspWorker(const LspWorker&) = delete;
    LspWorker& operator=(const LspWorker&) = delete;

    void post(std::function<void()> task);

  private:
    void run();

    std::mutex mLock;
    std::condition_variable mPosted;
    std::deque<std::function<void()>> mTasks;
    bool mStopping = false;
    std::thread mThread;
};

}  // namespace ovela::tune::lsp

#endif  // OVELA_TUNE_LSP_WORKER_H
