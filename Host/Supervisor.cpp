#include "Host/Supervisor.h"

#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>
#include <utility>

#include "Host/OutputText.h"
#include "Host/Worker.h"
#include "Host/WorkerEnd.h"
#include "Host/WorkerProcess.h"

namespace host {
namespace {

// How often this process looks what a worker is doing.
constexpr std::chrono::milliseconds kLookInterval(200);

// By how much a worker may overrun its deadline before this process steps in.
constexpr std::chrono::seconds kGrace(1);

void tell(std::string_view subject, std::string_view message) {
    static_cast<void>(writeAll(STDERR_FILENO, errorLine(subject, message)));
}

}  // namespace

Ending Supervisor::run() {
    const pid_t watcher = ::getpid();
    std::size_t first = 0;
    while (true) {
        progress_.beginForeign(Phase::Loading);
        const pid_t child = ::fork();
        if (child < 0) {
            tell("cannot start a process", std::strerror(errno));
            return {kNoImporter};
        }
        if (child == 0) {
            work(watcher, first);
        }
        int signal = 0;
        const std::optional<ChildEnd> end = watch(child, signal);
        if (!end) {
            SignalWatch::kill(child);
            return {kSomeFailed, signal};
        }
        if (const std::optional<Ending> ending = judge(*end)) {
            return *ending;
        }
        // What the worker left would count as its successor's.
        folder_.clear();
        first = progress_.file() + 1;
    }
}

std::optional<ChildEnd> Supervisor::watch(pid_t child, int& signal) {
    while (true) {
        std::optional<ChildEnd> end = signals_.waitFor(child, kLookInterval, signal);
        if (end || signal != 0) {
            return end;
        }
        removeStaleFolders();
        if (const Overrun found = overrun(); found != Overrun::None) {
            end = SignalWatch::kill(child);
            end->overrun = found;
            return end;
        }
    }
}

// Left to runs that take their time: to look for what killed runs have left is a good part of what
// a run for one small file costs.
void Supervisor::removeStaleFolders() {
    if (!hasRemovedStaleFolders_) {
        TemporaryFolder::removeStale(TemporaryFolder::defaultBase());
        hasRemovedStaleFolders_ = true;
    }
}

// A worker bounds itself as far as it can, but foreign code can undo that.
Overrun Supervisor::overrun() const {
    if (!progress_.isForeign()) {
        return Overrun::None;
    }
    const Limits& limits = job_.limits;
    if (limits.time.count() != 0 && progress_.timeInHand() > limits.time + kGrace) {
        return Overrun::Time;
    }
    const bool isTooLarge =
        limits.disk != 0 && folder_.holdsMoreThan(static_cast<std::uint64_t>(limits.disk) << 20);
    return isTooLarge ? Overrun::Disk : Overrun::None;
}

void Supervisor::work(pid_t watcher, std::size_t first) noexcept {
    endWith(watcher);
    ::setenv("TMPDIR", folder_.path().c_str(), 1);
    folder_.leaveToOwner();
    resetSignals();
    boundMemory(job_.limits.memory);
    Worker(job_, progress_).run(first);
    if (progress_.phase() == Phase::Releasing) {
        progress_.setPhase(Phase::Finished);
    }
    endProcess(EXIT_SUCCESS);
}

std::optional<Ending> Supervisor::judge(const ChildEnd& end) {
    switch (progress_.phase()) {
        case Phase::Loading:
            return loseImporter(end, "while it was loaded", kNoImporter);
        case Phase::LoadFailed:
            return Ending{kNoImporter};
        case Phase::InHand:
        case Phase::Writing:
            return loseFile(end);
        case Phase::OutputFailed:
            return Ending{kSomeFailed};
        case Phase::OutputClosed:
            return Ending{kSomeFailed, SIGPIPE};
        case Phase::Releasing:
            return loseImporter(end, "when all was done", allDone().status);
        case Phase::Written:
        case Phase::Finished:
            break;
    }
    const bool isLast = progress_.file() + 1 >= job_.files.size();
    return isLast ? std::optional(allDone()) : std::nullopt;
}

std::optional<Ending> Supervisor::loseFile(const ChildEnd& end) {
    progress_.countFailure();
    FileOutcome outcome;
    outcome.path = job_.files.at(progress_.file());
    outcome.type = job_.type.value_or("");
    outcome.duration = progress_.timeInHand();
    outcome.error = describeEnd(end, job_.limits);
    int error = output_.endStoppedLine(progress_.phase());
    if (error == 0) {
        error = output_.write(outcome);
    }
    if (error == EPIPE) {
        return Ending{kSomeFailed, SIGPIPE};
    }
    if (error != 0) {
        tell("standard output", std::strerror(error));
        return Ending{kSomeFailed};
    }
    const bool isLast = progress_.file() + 1 >= job_.files.size();
    return isLast ? std::optional(allDone()) : std::nullopt;
}

Ending Supervisor::loseImporter(const ChildEnd& end, const char* when, int status) const {
    tell(job_.importer, describeEnd(end, job_.limits) + " " + when);
    return {status};
}

Ending Supervisor::allDone() const {
    return {progress_.failures() == 0 ? kAllRead : kSomeFailed};
}

Ending supervise(const TextJob& job) {
    const SignalWatch signals;
    const std::string base = TemporaryFolder::defaultBase();
    platform::Result<TemporaryFolder> folder = TemporaryFolder::make(base);
    if (!folder) {
        tell(base, "cannot make a temporary folder: " + folder.fault().detail);
        return {kNoImporter};
    }
    platform::Result<SharedProgress> progress = SharedProgress::make();
    if (!progress) {
        tell("cannot share memory", progress.fault().detail);
        return {kNoImporter};
    }
    return Supervisor(job, signals, std::move(folder).value(), std::move(progress).value()).run();
}

}  // namespace host
