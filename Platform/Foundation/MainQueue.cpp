#include "Platform/Foundation/MainQueue.h"

#include <utility>

namespace platform {

MainQueue& MainQueue::mainQueue() {
    // Never destroyed: a thread may leave work until the very end.
    static auto& queue = *new MainQueue;
    return queue;
}

void MainQueue::add(Job job) {
    {
        const std::lock_guard lock(mutex_);
        jobs_.push_back(std::move(job));
    }
    hasJobs_.notify_one();
}

void MainQueue::run() {
    runUntil([this] {
        const std::lock_guard lock(mutex_);
        return jobs_.empty();
    });
}

void MainQueue::runUntil(const std::function<bool()>& isDone) {
    while (!isDone()) {
        std::unique_lock lock(mutex_);
        hasJobs_.wait(lock, [this] { return !jobs_.empty(); });
        const Job job = std::move(jobs_.front());
        jobs_.pop_front();
        lock.unlock();
        job();
    }
}

}  // namespace platform
