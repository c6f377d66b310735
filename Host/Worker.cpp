#include "Host/Worker.h"

#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <exception>
#include <new>

#include "Host/ImporterBundle.h"
#include "Host/OutputText.h"
#include "Host/WorkerProcess.h"

namespace host {

void Worker::run(std::size_t first) {
    progress_.beginForeign(Phase::Loading);
    bounds_.impose();
    try {
        load(first);
    } catch (const std::bad_alloc&) {
        failToLoad("out of memory");
    } catch (const std::exception& exception) {
        failToLoad(exception.what());
    } catch (...) {
        failToLoad("unknown exception");
    }
}

void Worker::load(std::size_t first) {
    const platform::Result<ImporterBundle> bundle = ImporterBundle::open(job_.importer);
    if (!bundle) {
        failToLoad(bundle.fault().detail);
        return;
    }
    platform::Result<Importer> importer = bundle.value().makeImporter();
    bounds_.lift();
    if (!importer) {
        failToLoad(importer.fault().detail);
        return;
    }
    FileRun files(importer.value(), bundle.value().types(), job_.type);
    runFiles(files, first);
}

void Worker::runFiles(FileRun& files, std::size_t first) {
    for (std::size_t i = first; i < job_.files.size(); ++i) {
        progress_.takeInHand(i);
        bounds_.impose();
        FileOutcome outcome = files.run(job_.files[i]);
        bounds_.lift();
        if (!report(outcome)) {
            endProcess(EXIT_FAILURE);
        }
        progress_.setPhase(Phase::Written);
    }
    progress_.beginForeign(Phase::Releasing);
    bounds_.impose();
}

bool Worker::report(FileOutcome& outcome) {
    int error = 0;
    try {
        error = output_.write(outcome);
    } catch (const std::bad_alloc&) {
        outcome.ok = false;
        std::string().swap(outcome.text);
        outcome.error = "out of memory";
        error = output_.write(outcome);
    }
    if (!outcome.ok) {
        progress_.countFailure();
    }
    if (error == EPIPE) {
        progress_.setPhase(Phase::OutputClosed);
    } else if (error != 0) {
        static_cast<void>(
            writeAll(STDERR_FILENO, errorLine("standard output", std::strerror(error))));
        progress_.setPhase(Phase::OutputFailed);
    }
    return error == 0;
}

void Worker::failToLoad(std::string_view cause) {
    bounds_.lift();
    static_cast<void>(writeAll(STDERR_FILENO, errorLine(job_.importer, cause)));
    progress_.setPhase(Phase::LoadFailed);
}

}  // namespace host
