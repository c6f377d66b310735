#include "Host/WorkerEnd.h"

#include <sys/wait.h>

#include <array>
#include <cstdio>
#include <cstring>

#include "Platform/Foundation/AsciiCase.h"

namespace host {
namespace {

std::string secondsOf(std::chrono::microseconds time) {
    std::array<char, 40> text{};
    std::snprintf(text.data(), text.size(), "%.12g s", static_cast<double>(time.count()) / 1e6);
    return text.data();
}

// Code that gets no memory mostly fails at once, and then the memory it had tells why.
bool usedUpMemory(const ChildEnd& end, const Limits& limits) {
    const std::size_t bound = limits.memory << 20;
    return bound != 0 && end.memoryPeak >= bound - bound / 8;
}

std::string nameOfSignal(int signal) {
    const char* known = ::strsignal(signal);
    std::string name = known == nullptr ? "signal " + std::to_string(signal) : known;
    name.front() = platform::asciiLowercase(name.front());
    return name;
}

}  // namespace

std::string describeEnd(const ChildEnd& end, const Limits& limits) {
    if (WIFEXITED(end.status)) {
        return "the importer ended the process (exit status " +
               std::to_string(WEXITSTATUS(end.status)) + ")";
    }
    const int signal = WTERMSIG(end.status);
    if (end.overrun == Overrun::Disk || (signal == SIGXFSZ && limits.disk != 0)) {
        return "used more disk than " + std::to_string(limits.disk) + " MiB";
    }
    if (end.overrun == Overrun::Time || (signal == SIGALRM && limits.time.count() != 0)) {
        return "took longer than " + secondsOf(limits.time);
    }
    if (usedUpMemory(end, limits)) {
        return "used more memory than " + std::to_string(limits.memory) + " MiB";
    }
    return "the importer crashed (" + nameOfSignal(signal) + ")";
}

}  // namespace host
