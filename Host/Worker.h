// The process that loads the importer and runs files through it.
//
// It writes results itself, and its progress to a page that its watcher reads. Foreign code may end
// it at any place. One thread.

#pragma once

#include <cstddef>
#include <string>

#include "Host/FileRun.h"
#include "Host/SharedProgress.h"
#include "Host/TextJob.h"
#include "Host/WorkerProcess.h"

namespace host {

/// Works through a job.
class Worker {
public:
    /// Both must outlive this object.
    Worker(const TextJob& job, SharedProgress& progress)
        : job_(job), progress_(progress), output_(job.form, progress), bounds_(job.limits) {}

    /// Loads the importer and runs the files from `first` on through it. The progress says how that
    /// ended; what a person needs to know has been written.
    void run(std::size_t first);

private:
    void load(std::size_t first);
    void runFiles(FileRun& files, std::size_t first);
    [[nodiscard]] bool report(FileOutcome& outcome);
    void failToLoad(std::string_view cause);

    const TextJob& job_;
    SharedProgress& progress_;
    Output output_;
    ForeignBounds bounds_;
};

}  // namespace host
