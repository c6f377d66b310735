#include "Host/SignalWatch.h"

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>

namespace host {
namespace {

bool isIgnored(int signal) {
    struct sigaction action {};
    return ::sigaction(signal, nullptr, &action) == 0 && action.sa_handler == SIG_IGN;
}

struct sigaction setAction(int signal, sighandler_t handler) {
    struct sigaction action {};
    struct sigaction before {};
    action.sa_handler = handler;
    ::sigaction(signal, &action, &before);
    return before;
}

std::optional<ChildEnd> endOf(pid_t child, int options) {
    ChildEnd end;
    rusage usage{};
    pid_t ended = 0;
    do {
        ended = ::wait4(child, &end.status, options, &usage);
    } while (ended < 0 && errno == EINTR);
    if (ended != child) {
        return std::nullopt;
    }
    end.memoryPeak = static_cast<std::size_t>(usage.ru_maxrss) * 1024;
    return end;
}

}  // namespace

SignalWatch::SignalWatch() {
    // Where a child's end is ignored, the system forgets how it ended.
    childBefore_ = setAction(SIGCHLD, SIG_DFL);
    ::sigemptyset(&watched_);
    ::sigaddset(&watched_, SIGCHLD);
    for (const int ending : {SIGHUP, SIGINT, SIGQUIT, SIGTERM}) {
        if (!isIgnored(ending)) {
            ::sigaddset(&watched_, ending);
        }
    }
    ::sigprocmask(SIG_BLOCK, &watched_, &maskBefore_);
    pipeBefore_ = setAction(SIGPIPE, SIG_IGN);
}

SignalWatch::~SignalWatch() {
    ::sigaction(SIGPIPE, &pipeBefore_, nullptr);
    ::sigaction(SIGCHLD, &childBefore_, nullptr);
    ::sigprocmask(SIG_SETMASK, &maskBefore_, nullptr);
}

std::optional<ChildEnd> SignalWatch::waitFor(pid_t child, std::chrono::nanoseconds longest,
                                             int& signal) const {
    const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(longest);
    const timespec timeout{seconds.count(), (longest - seconds).count()};
    // Of several signals the lowest number comes first, and that of a child's end is the highest: a
    // child that dies of the signal that ends us all is no crash.
    const int arrived = ::sigtimedwait(&watched_, nullptr, &timeout);
    signal = arrived > 0 && arrived != SIGCHLD ? arrived : 0;
    // A stopped child sends the signal, too.
    return arrived == SIGCHLD ? endOf(child, WNOHANG) : std::nullopt;
}

ChildEnd SignalWatch::kill(pid_t child) {
    ::kill(child, SIGKILL);
    return endOf(child, 0).value_or(ChildEnd());
}

void dieOf(int signal) {
    setAction(signal, SIG_DFL);
    sigset_t only;
    ::sigemptyset(&only);
    ::sigaddset(&only, signal);
    ::raise(signal);
    ::sigprocmask(SIG_UNBLOCK, &only, nullptr);
    // Not reached: the signal's usual effect is the end.
    ::_exit(128 + signal);
}

}  // namespace host
