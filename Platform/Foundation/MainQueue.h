// Work that other threads leave for the program's main thread.
//
// A program that starts work on other threads runs the queue, where a program with windows would
// run its events. Any thread may leave work; one thread at a time runs it.

#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>

namespace platform {

/// Jobs in the order in which they came.
class MainQueue {
public:
    using Job = std::function<void()>;

    /// The main thread's queue. What is left in it when the program ends is not done.
    [[nodiscard]] static MainQueue& mainQueue();

    void add(Job job);

    /// Does the jobs that are there, and those that they leave. What a job throws comes out; the
    /// jobs behind it stay.
    void run();

    /// Does jobs, and waits for more, until `isDone` says so, which is asked before the first job
    /// and after each.
    void runUntil(const std::function<bool()>& isDone);

private:
    std::mutex mutex_;
    std::condition_variable hasJobs_;
    std::deque<Job> jobs_;
};

}  // namespace platform
