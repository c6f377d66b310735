#include "Benchmarks/Support/Process.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <stdexcept>

namespace bench {
namespace {

double secondsOf(const timeval& time) {
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
}

std::string readAll(int descriptor) {
    std::string all;
    std::array<char, 65536> block;
    ssize_t count = 0;
    while ((count = ::read(descriptor, block.data(), block.size())) > 0) {
        all.append(block.data(), static_cast<std::size_t>(count));
    }
    return all;
}

pid_t start(const std::vector<std::string>& command, int output) {
    std::vector<char*> arguments;
    for (const std::string& argument : command) {
        arguments.push_back(const_cast<char*>(argument.c_str()));
    }
    arguments.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    ::posix_spawn_file_actions_init(&actions);
    ::posix_spawn_file_actions_adddup2(&actions, output, STDOUT_FILENO);
    pid_t child = 0;
    const int error =
        ::posix_spawn(&child, arguments[0], &actions, nullptr, arguments.data(), ::environ);
    ::posix_spawn_file_actions_destroy(&actions);
    if (error != 0) {
        throw std::runtime_error("cannot start " + command.front());
    }
    return child;
}

}  // namespace

ProcessRun runProcess(const std::vector<std::string>& command) {
    std::array<int, 2> ends{};
    if (::pipe2(ends.data(), O_CLOEXEC) != 0) {
        throw std::runtime_error("no pipe");
    }
    const pid_t child = start(command, ends[1]);
    ::close(ends[1]);
    ProcessRun run;
    run.output = readAll(ends[0]);
    ::close(ends[0]);
    rusage usage{};
    ::wait4(child, &run.status, 0, &usage);
    run.seconds = secondsOf(usage.ru_utime) + secondsOf(usage.ru_stime);
    return run;
}

}  // namespace bench
