#include "Host/FileRun.h"

#include <exception>
#include <new>
#include <utility>

#include "Host/ContentTypes.h"
#include "Host/InputFile.h"
#include "Host/OutputText.h"

namespace host {
namespace {

void fail(FileOutcome& outcome, std::string error) {
    outcome.ok = false;
    outcome.text.clear();
    outcome.error = std::move(error);
}

std::string firstOf(std::string cause, const char* otherwise) {
    return cause.empty() ? otherwise : std::move(cause);
}

}  // namespace

void FileRun::import(FileOutcome& outcome) {
    const platform::Result<InputFile> file = InputFile::open(outcome.path);
    if (!file) {
        fail(outcome, file.fault().detail);
        return;
    }
    outcome.type = type_ ? *type_ : contentTypeOf(file.value(), types_);
    if (!type_ && !types_.takes(outcome.type)) {
        fail(outcome, "no importer takes " + outcome.type + " (--type names another type)");
        return;
    }
    const auto text = importer_.textOfFile(file.value().pathAsText(), outcome.type);
    if (!text) {
        fail(outcome, firstOf(importer_.lastFailure(), "the importer could not read it"));
        return;
    }
    outcome.text = utf8ForOutput(*text);
    outcome.ok = true;
}

FileOutcome FileRun::run(const std::string& path) {
    FileOutcome outcome;
    outcome.path = path;
    const auto begin = std::chrono::steady_clock::now();
    try {
        import(outcome);
    } catch (const std::bad_alloc&) {
        fail(outcome, "out of memory");
    } catch (const std::exception& exception) {
        fail(outcome, firstOf(importer_.lastFailure(), exception.what()));
    } catch (...) {
        fail(outcome, "unknown exception");
    }
    outcome.duration = std::chrono::steady_clock::now() - begin;
    return outcome;
}

}  // namespace host
