// How far the working process has come: a page of memory that it shares with the process that
// watches over it.
//
// The worker writes, the watcher reads; the watcher writes only while there is no worker. The page
// goes with the last of the two.

#pragma once

#include <atomic>
#include <chrono>
#include <cstdint>

#include "Platform/Foundation/Result.h"

namespace host {

/// What a worker is doing.
enum class Phase : std::uint32_t {
    Loading,       ///< the importer is being loaded
    LoadFailed,    ///< it cannot be; that has been reported
    InHand,        ///< a file is being imported
    Writing,       ///< what has come of it is being written
    Written,       ///< all of it is written
    OutputFailed,  ///< nothing more can be written; that has been reported
    OutputClosed,  ///< nobody reads the output any more
    Releasing,     ///< all files are done, the importer is being released
    Finished,      ///< the worker has nothing left to do
};

/// What the next piece of text output has to follow.
struct OutputState {
    bool hasBegun = false;
    bool endsLine = true;
};

/// The page; any process that was forked after it was made has it, too.
class SharedProgress {
public:
    /// Makes the page. The Fault's detail is the system's text.
    [[nodiscard]] static platform::Result<SharedProgress> make();

    ~SharedProgress();
    SharedProgress(SharedProgress&& other) noexcept;
    SharedProgress& operator=(SharedProgress&&) = delete;

    [[nodiscard]] Phase phase() const { return page_->phase; }
    void setPhase(Phase phase) { page_->phase = phase; }

    /// Sets a phase in which foreign code runs, and the time of its begin.
    void beginForeign(Phase phase);

    /// Takes the file of this number, counted from 0, in hand.
    void takeInHand(std::size_t file);

    /// Whether foreign code runs: while loading, with a file in hand, and while releasing.
    [[nodiscard]] bool isForeign() const;

    /// The file in hand, or the one that was last.
    [[nodiscard]] std::size_t file() const { return page_->file; }

    /// The time since foreign code last began to run, such as that of the file in hand.
    [[nodiscard]] std::chrono::nanoseconds timeInHand() const;

    [[nodiscard]] OutputState output() const;
    void setOutput(OutputState state);

    /// Counts one more file that could not be read.
    void countFailure() { ++page_->failures; }
    [[nodiscard]] std::size_t failures() const { return page_->failures; }

private:
    struct Page {
        std::atomic<Phase> phase{Phase::Loading};
        std::atomic<std::uint64_t> file{0};
        std::atomic<std::int64_t> since{0};
        std::atomic<std::uint64_t> failures{0};
        std::atomic<bool> hasBegun{false};
        std::atomic<bool> endsLine{true};
    };
    // Two processes share no lock.
    static_assert(std::atomic<Phase>::is_always_lock_free);
    static_assert(std::atomic<std::uint64_t>::is_always_lock_free);
    static_assert(std::atomic<bool>::is_always_lock_free);

    explicit SharedProgress(Page* page) : page_(page) {}

    Page* page_;  // null in one that was moved from
};

}  // namespace host
