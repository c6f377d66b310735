#include "Tests/Host/Program.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <spawn.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <fstream>
#include <iterator>

namespace host {
namespace {

std::string contentOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::vector<std::string> environmentWith(const std::string& temporary) {
    std::vector<std::string> variables{"TMPDIR=" + temporary};
    for (char** variable = environ; *variable != nullptr; ++variable) {
        if (!std::string_view(*variable).starts_with("TMPDIR=")) {
            variables.emplace_back(*variable);
        }
    }
    return variables;
}

std::vector<char*> pointersTo(std::vector<std::string>& strings) {
    std::vector<char*> pointers;
    for (std::string& string : strings) {
        pointers.push_back(string.data());
    }
    pointers.push_back(nullptr);
    return pointers;
}

// Orphans of the run are ours: each that is there has outlived it.
int countAndEndOrphans() {
    int count = 0;
    int status = 0;
    while (true) {
        const pid_t ended = ::waitpid(-1, &status, WNOHANG);
        if (ended < 0) {
            return count;
        }
        ++count;
        if (ended == 0) {
            // Still running: it is not waited for any longer than its own deadline.
            ::waitpid(-1, &status, 0);
        }
    }
}

}  // namespace

Program::Program(std::vector<std::string> arguments, int output,
                 std::shared_ptr<test::TemporaryFolder> temporary)
    : temporary_(std::move(temporary)) {
    ::prctl(PR_SET_CHILD_SUBREAPER, 1);
    arguments.insert(arguments.begin(), "pvindex");
    std::vector<std::string> variables = environmentWith(temporary_->path());
    posix_spawn_file_actions_t actions;
    ::posix_spawn_file_actions_init(&actions);
    constexpr int kCreate = O_WRONLY | O_CREAT | O_APPEND;
    if (output >= 0) {
        ::posix_spawn_file_actions_adddup2(&actions, output, STDOUT_FILENO);
    } else {
        ::posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, results_.path("out").c_str(),
                                           kCreate, 0600);
    }
    ::posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, results_.path("err").c_str(),
                                       kCreate, 0600);
    EXPECT_EQ(::posix_spawn(&process_, PV_INDEX_PROGRAM, &actions, nullptr,
                            pointersTo(arguments).data(), pointersTo(variables).data()),
              0);
    ::posix_spawn_file_actions_destroy(&actions);
}

ProgramRun Program::finish() {
    int status = 0;
    EXPECT_EQ(::waitpid(process_, &status, 0), process_);
    ProgramRun run;
    run.status = WIFSIGNALED(status) ? 128 + WTERMSIG(status) : WEXITSTATUS(status);
    run.childrenLeft = countAndEndOrphans();
    run.output = contentOf(results_.path("out"));
    run.error = contentOf(results_.path("err"));
    run.leftBehind = temporary_->names();
    return run;
}

}  // namespace host
