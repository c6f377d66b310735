#include "Host/WorkerProcess.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/time.h>
#include <unistd.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>

#include "Platform/Foundation/FileDescriptor.h"

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
#define PV_HAS_SHADOW_MEMORY 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer)
#define PV_HAS_SHADOW_MEMORY 1
#endif
#endif

#ifdef PV_COUNTS_COVERAGE
extern "C" void __gcov_dump(void);
#endif

namespace host {
namespace {

using platform::FileDescriptor;

#ifdef PV_HAS_SHADOW_MEMORY
constexpr bool kBoundsMemory = false;
#else
constexpr bool kBoundsMemory = true;
#endif

// The address space in use, in bytes; 0 when the system doesn't tell.
std::uint64_t addressSpaceInUse() {
    const FileDescriptor file(::open("/proc/self/statm", O_RDONLY | O_CLOEXEC));
    char text[32] = {};
    if (!file.isOpen() || ::read(file.number(), text, sizeof text - 1) <= 0) {
        return 0;
    }
    return std::strtoull(text, nullptr, 10) * static_cast<std::uint64_t>(::sysconf(_SC_PAGESIZE));
}

// The process is killed when the time is over; 0 is never.
void setAlarm(std::chrono::microseconds time) {
    const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(time);
    itimerval timer{};
    timer.it_value.tv_sec = seconds.count();
    timer.it_value.tv_usec = (time - seconds).count();
    ::setitimer(ITIMER_REAL, &timer, nullptr);
}

}  // namespace

void endWith(pid_t watcher) {
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (::getppid() != watcher) {
        endProcess(EXIT_FAILURE);
    }
}

void resetSignals() {
    ::signal(SIGALRM, SIG_DFL);
    ::signal(SIGXFSZ, SIG_DFL);
    ::signal(SIGPIPE, SIG_IGN);
    sigset_t none;
    ::sigemptyset(&none);
    ::sigprocmask(SIG_SETMASK, &none, nullptr);
}

void boundMemory(std::size_t mebibytes) {
    const rlimit noCore{0, 0};
    ::setrlimit(RLIMIT_CORE, &noCore);
    rlimit space{};
    if (!kBoundsMemory || mebibytes == 0 || ::getrlimit(RLIMIT_AS, &space) != 0) {
        return;
    }
    const rlim_t bound = addressSpaceInUse() + (static_cast<rlim_t>(mebibytes) << 20);
    space.rlim_cur = std::min(bound, space.rlim_max);
    ::setrlimit(RLIMIT_AS, &space);
}

ForeignBounds::ForeignBounds(const Limits& limits) : time_(limits.time), ownFileSize_{} {
    if (::getrlimit(RLIMIT_FSIZE, &ownFileSize_) != 0) {
        ownFileSize_ = {RLIM_INFINITY, RLIM_INFINITY};
    }
    foreignFileSize_ = ownFileSize_;
    if (limits.disk != 0) {
        foreignFileSize_.rlim_cur =
            std::min(static_cast<rlim_t>(limits.disk) << 20, ownFileSize_.rlim_cur);
    }
}

void ForeignBounds::impose() const {
    ::setrlimit(RLIMIT_FSIZE, &foreignFileSize_);
    setAlarm(time_);
}

void ForeignBounds::lift() const {
    setAlarm(std::chrono::microseconds(0));
    ::setrlimit(RLIMIT_FSIZE, &ownFileSize_);
}

void endProcess(int status) {
#ifdef PV_COUNTS_COVERAGE
    __gcov_dump();
#endif
    ::_exit(status);
}

}  // namespace host
