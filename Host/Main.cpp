// pvindex: a search host for one run. It loads an importer bundle, hands it files and prints their
// text.

#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <exception>
#include <string>

#include "Host/CommandLine.h"
#include "Host/ImporterBundle.h"
#include "Host/ImporterLocation.h"
#include "Host/Output.h"
#include "Host/OutputText.h"
#include "Host/Supervisor.h"
#include "Host/TypeList.h"

namespace {

using namespace host;  // NOLINT(google-build-using-namespace): this is the program

Ending fail(std::string_view subject, std::string_view message, int status) {
    static_cast<void>(writeAll(STDERR_FILENO, errorLine(subject, message)));
    return {status};
}

Ending print(std::string_view text) {
    const int error = writeAll(STDOUT_FILENO, text);
    return error == 0 ? Ending{kAllRead}
                      : fail("standard output", std::strerror(error), kSomeFailed);
}

Ending printTypes(const Request& request) {
    const auto bundle = ImporterBundle::open(request.job.importer);
    if (!bundle) {
        return fail(request.job.importer, bundle.fault().detail, kNoImporter);
    }
    const ImporterTypes& types = bundle.value().types();
    return print(request.json ? typeLinesAsJson(types) : typeTable(types));
}

Ending fulfil(Request request) {
    if (request.job.importer.empty()) {
        const auto programs = folderOfProgram();
        const auto importer = programs ? importerBeside(*programs) : std::nullopt;
        if (!importer) {
            return fail("no importer", "there is none beside the program, and no --importer",
                        kNoImporter);
        }
        request.job.importer = *importer;
    }
    return request.command == Command::Types ? printTypes(request) : supervise(request.job);
}

Ending run(int argc, const char* const* argv) {
    CommandLine commandLine = CommandLine::read(argc, argv);
    if (commandLine.request) {
        return fulfil(*std::move(commandLine.request));
    }
    if (!commandLine.error.empty()) {
        static_cast<void>(writeAll(STDERR_FILENO, commandLine.error));
        return {commandLine.status};
    }
    return print(commandLine.output);
}

Ending runGuarded(int argc, const char* const* argv) {
    try {
        return run(argc, argv);
    } catch (const std::exception& exception) {
        return fail("stopped", exception.what(), kNoImporter);
    }
}

}  // namespace

int main(int argc, char** argv) {
    const Ending ending = runGuarded(argc, argv);
    if (ending.signal != 0) {
        dieOf(ending.signal);
    }
    return ending.status;
}
