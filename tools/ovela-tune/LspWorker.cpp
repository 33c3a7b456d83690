#include "LspWorker.h"

#include <libxml/xmlerror.h>

namespace ovela::tune::lsp {

namespace {

void ignoreXmlMessage(void*, const char*, ...) {}

}  // namespace

LspWorker::LspWorker() : mThread([this] { run(); }) {}

LspWorker::~LspWorker() {
    {
        std::lock_guard<std::mutex> lock(mLock);
        mStopping = true;
    }
    mPosted.notify_one();
    mThread.join();
}

void LspWorker::post(std::function<void()> task) {
    {
        std::lock_guard<std::mutex> lock(mLock);
        mTasks.push_back(std::move(task));
    }
    mPosted.notify_one();
}

void LspWorker::run() {
    // libxml2 keeps its error handler per thread: its messages would
    // otherwise reach standard error, beside the findings that say the same.
    xmlSetGenericErrorFunc(nullptr, ignoreXmlMessage);
    while (true) {
        std::function<void()> task;
        {
            std::unique_lock<std::mutex> lock(mLock);
            mPosted.wait(lock, [this] { return mStopping || !mTasks.empty(); });
            if (mTasks.empty()) {
                return;
            }
            task = std::move(mTasks.front());
            mTasks.pop_front();
        }
        task();
    }
}

}  // namespace ovela::tune::lsp
