// Runs pvindex as a user does, and tells what came of it.
//
// A run gets a temporary folder of its own as TMPDIR, unless it follows another. One thread at a
// time.

#pragma once

#include <sys/types.h>

#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "Tests/Support/TemporaryFolder.h"

namespace host {

/// What a run left.
struct ProgramRun {
    int status = -1;  ///< the exit status, or 128 and the number of the signal that ended it
    std::string output;
    std::string error;
    std::vector<std::string> leftBehind;  ///< the names of what is in TMPDIR
    int childrenLeft = 0;                 ///< processes of the run that have outlived it
};

/// A started pvindex.
class Program {
public:
    /// Starts it with these arguments; its standard output goes to `output`, a descriptor, or is
    /// kept when that is -1.
    explicit Program(std::vector<std::string> arguments, int output = -1)
        : Program(std::move(arguments), output, std::make_shared<test::TemporaryFolder>()) {}

    /// Starts it with the TMPDIR of an earlier run.
    Program(std::vector<std::string> arguments, const Program& earlier)
        : Program(std::move(arguments), -1, earlier.temporary_) {}

    [[nodiscard]] pid_t process() const { return process_; }
    [[nodiscard]] const test::TemporaryFolder& temporary() const { return *temporary_; }

    /// Waits for its end.
    [[nodiscard]] ProgramRun finish();

    /// Starts one and waits for its end.
    [[nodiscard]] static ProgramRun run(std::vector<std::string> arguments) {
        return Program(std::move(arguments)).finish();
    }

private:
    Program(std::vector<std::string> arguments, int output,
            std::shared_ptr<test::TemporaryFolder> temporary);

    std::shared_ptr<test::TemporaryFolder> temporary_;
    test::TemporaryFolder results_;
    pid_t process_ = -1;
};

}  // namespace host
