// Runs a job in worker processes and watches over them: this process never runs foreign code.
//
// A worker that ends in the middle costs the file that it had in hand; another one goes on with the
// next. Their temporary files lie in one folder, which is removed in the end.
// Process-wide: one at a time, in a process with one thread.

#pragma once

#include <sys/types.h>

#include <cstddef>
#include <optional>

#include "Host/Output.h"
#include "Host/SharedProgress.h"
#include "Host/SignalWatch.h"
#include "Host/TemporaryFolder.h"
#include "Host/TextJob.h"

namespace host {

/// Exit statuses of the program.
enum ExitStatus : int {
    kAllRead = 0,
    kSomeFailed = 1,
    kWrongCommandLine = 2,
    kNoImporter = 3,
};

/// How this process is to end: with a status, or by a signal that it has received.
struct Ending {
    int status = kAllRead;
    int signal = 0;
};

/// Watches over the workers of one job.
class Supervisor {
public:
    /// `job` and `signals` must outlive this object.
    Supervisor(const TextJob& job, const SignalWatch& signals, TemporaryFolder folder,
               SharedProgress progress)
        : job_(job),
          signals_(signals),
          folder_(std::move(folder)),
          progress_(std::move(progress)),
          output_(job.form, progress_) {}

    /// Runs the job to its end. What has come of it has been written.
    [[nodiscard]] Ending run();

private:
    [[noreturn]] void work(pid_t watcher, std::size_t first) noexcept;
    [[nodiscard]] std::optional<ChildEnd> watch(pid_t child, int& signal);
    void removeStaleFolders();
    [[nodiscard]] Overrun overrun() const;
    [[nodiscard]] std::optional<Ending> judge(const ChildEnd& end);
    [[nodiscard]] std::optional<Ending> loseFile(const ChildEnd& end);
    [[nodiscard]] Ending loseImporter(const ChildEnd& end, const char* when, int status) const;
    [[nodiscard]] Ending allDone() const;

    const TextJob& job_;
    const SignalWatch& signals_;
    TemporaryFolder folder_;
    SharedProgress progress_;
    Output output_;
    bool hasRemovedStaleFolders_ = false;
};

/// Does `job`: prepares what its workers need, and watches over them.
[[nodiscard]] Ending supervise(const TextJob& job);

}  // namespace host
