// pvdoc: makes documents, and shows what is in them and how they are read.

#include <stdlib.h>

#include <cstdio>
#include <exception>
#include <filesystem>
#include <string>
#include <system_error>

#include "Tools/pvdoc/CommandLine.h"
#include "Tools/pvdoc/Explain.h"
#include "Tools/pvdoc/Info.h"
#include "Tools/pvdoc/Report.h"

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

int fail(std::string_view message) {
    std::fprintf(stderr, "pvdoc: %s\n", pvdoc::shownInLine(message).c_str());
    return pvdoc::kFailed;
}

int failAt(const std::string& file, const platform::Fault& fault) {
    return fail(file + ": " + fault.detail);
}

int print(const std::string& text, int status) {
    const bool isWritten =
        std::fwrite(text.data(), 1, text.size(), stdout) == text.size() && std::fflush(stdout) == 0;
    return isWritten ? status : fail("standard output: cannot be written");
}

int fulfil(const Request& request) {
    switch (request.command) {
        case pvdoc::Command::Pack: {
            const auto packed = pvdoc::pack(request.pack);
            return packed ? pvdoc::kDone : fail(packed.fault().detail);
        }
        case pvdoc::Command::Info: {
            const auto report = pvdoc::info(request.file);
            return report ? print(report.value(), pvdoc::kDone)
                          : failAt(request.file, report.fault());
        }
        default: {
            const auto explained = pvdoc::explain(request.file);
            if (!explained) {
                return failAt(request.file, explained.fault());
            }
            return print(explained.value().report,
                         explained.value().isRead ? pvdoc::kDone : pvdoc::kFailed);
        }
    }
}

int run(int argc, const char* const* argv) {
    const auto commandLine = pvdoc::CommandLine::read(argc, argv);
    if (commandLine.request) {
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
