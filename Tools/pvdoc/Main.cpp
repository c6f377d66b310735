// pvdoc: makes documents, and shows what is in them and how they are read.

#include <stdlib.h>

#include <cstdio>
#include <exception>
#include <filesystem>
#include <string>
#include <system_error>

#include "Platform/Foundation/Bundle.h"
#include "Tools/pvdoc/CommandLine.h"
#include "Tools/pvdoc/Explain.h"
#include "Tools/pvdoc/Info.h"
#include "Tools/pvdoc/Languages.h"
#include "Tools/pvdoc/Report.h"
#include "Tools/pvdoc/Units.h"

namespace {

using pvdoc::Request;

/// A folder of the program's own for temporary files, gone with all it holds at the end.
class ScratchFolder {
public:
    ScratchFolder() : path_(std::filesystem::temp_directory_path(ignored_) / "pvdoc-XXXXXX") {
        if (::mkdtemp(path_.data()) != nullptr) {
            ::setenv("TMPDIR", path_.c_str(), 1);
        }
    }
    ~ScratchFolder() { std::filesystem::remove_all(path_, ignored_); }
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;

private:
    std::error_code ignored_;
    std::string path_;
};

void warn(std::string_view message) {
    std::fprintf(stderr, "pvdoc: %s\n", pvdoc::shownInLine(message).c_str());
}

int fail(std::string_view message) {
    warn(message);
    return pvdoc::kFailed;
}

int failAt(const std::string& file, const platform::Fault& fault) {
    return fail(file + ": " + fault.detail);
}

void write(std::string_view text) {
    std::fwrite(text.data(), 1, text.size(), stdout);
}

/// Ends with the status if all output could be written.
int end(int status) {
    const bool isWritten = std::fflush(stdout) == 0 && std::ferror(stdout) == 0;
    return isWritten ? status : fail("standard output: cannot be written");
}

int print(const std::string& text, int status) {
    write(text);
    return end(status);
}

int explain(const std::string& file) {
    const auto explained = pvdoc::explain(file);
    if (!explained) {
        return failAt(file, explained.fault());
    }
    return print(explained.value().report,
                 explained.value().isRead ? pvdoc::kDone : pvdoc::kFailed);
}

int listUnits(const Request& request) {
    const auto count = pvdoc::listUnits(request.file, request.unitKind, request.form, write);
    return count ? end(pvdoc::kDone) : failAt(request.file, count.fault());
}

int listLanguages(const Request& request) {
    const auto count = pvdoc::listLanguages(request.file, request.allowed, request.form, write);
    if (!count) {
        return failAt(request.file, count.fault());
    }
    return count.value() > 0 ? end(pvdoc::kDone) : fail(request.file + ": no language can be told");
}

int clean(const Request& request) {
    const auto count = pvdoc::clean(request.file, request.cleanForm, write);
    return count ? end(pvdoc::kDone) : failAt(request.file, count.fault());
}

int endWith(const platform::Outcome& outcome) {
    return outcome ? pvdoc::kDone : fail(outcome.fault().detail);
}

int saveDocument(const pvdoc::Conversion& conversion) {
    const auto saved = pvdoc::save(conversion);
    if (!saved) {
        return fail(saved.fault().detail);
    }
    return print(pvdoc::shownInLine(conversion.target) +
                     ": saved without its text, as this format's own save does; pvdoc pack makes "
                     "documents with their text\n",
                 pvdoc::kDone);
}

int showTemplates(const pvdoc::TemplatesOptions& options) {
    const auto listing = pvdoc::templates(options);
    return listing ? print(listing.value(), pvdoc::kDone) : fail(listing.fault().detail);
}

int zipFolder(const pvdoc::ZipOptions& options) {
    constexpr std::size_t kShown = 5;
    const auto emptyFiles = pvdoc::zip(options);
    if (!emptyFiles) {
        return fail(emptyFiles.fault().detail);
    }
    const auto& paths = emptyFiles.value();
    for (std::size_t i = 0; i < paths.size() && i < kShown; ++i) {
        warn(paths[i] + ": is empty; the format lists no empty files, so it will not be found");
    }
    if (paths.size() > kShown) {
        warn("and " + std::to_string(paths.size() - kShown) + " more empty files");
    }
    return pvdoc::kDone;
}

int fulfil(const Request& request) {
    switch (request.command) {
        case pvdoc::Command::Pack:
            return endWith(pvdoc::pack(request.pack));
        case pvdoc::Command::Save:
            return saveDocument(request.conversion);
        case pvdoc::Command::Export:
            return endWith(pvdoc::exportText(request.conversion, request.exportFormat));
        case pvdoc::Command::Templates:
            return showTemplates(request.templates);
        case pvdoc::Command::Zip:
            return zipFolder(request.zip);
        case pvdoc::Command::Unzip:
            return endWith(pvdoc::unzip(request.unzip));
        case pvdoc::Command::Info: {
            const auto report = pvdoc::info(request.file);
            return report ? print(report.value(), pvdoc::kDone)
                          : failAt(request.file, report.fault());
        }
        case pvdoc::Command::Units:
            return listUnits(request);
        case pvdoc::Command::Languages:
            return listLanguages(request);
        case pvdoc::Command::Clean:
            return clean(request);
        case pvdoc::Command::Explain:
            break;
    }
    return explain(request.file);
}

int run(int argc, const char* const* argv) {
    const auto commandLine = pvdoc::CommandLine::read(argc, argv);
    if (commandLine.request) {
        platform::Bundle::setMainBundle("com.brightmill.pvdoc", PV_VERSION);
        const ScratchFolder scratch;
        return fulfil(*commandLine.request);
    }
    std::fputs(commandLine.error.c_str(), stderr);
    return print(commandLine.output, commandLine.status);
}

}  // namespace

int main(int argc, char** argv) {
    try {
        return run(argc, argv);
    } catch (const std::exception& exception) {
        return fail(std::string("stopped: ") + exception.what());
    }
}
