// Runs code that reads hostile input in a process of its own, within bounds.
//
// The bounds are far above what an honest input needs: what meets one does not end, or takes memory
// without measure.

#pragma once

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <string>

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
#define PV_TEST_HAS_SHADOW_MEMORY 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer)
#define PV_TEST_HAS_SHADOW_MEMORY 1
#endif
#endif

namespace test {

/// Bounds the calling process from here on: so many seconds of processor time and, where no
/// sanitizer needs the address space for itself, so many bytes of it.
inline void boundProcess(rlim_t seconds, rlim_t bytes) {
    const rlimit time{seconds, seconds};
    setrlimit(RLIMIT_CPU, &time);
#ifndef PV_TEST_HAS_SHADOW_MEMORY
    const rlimit space{bytes, bytes};
    setrlimit(RLIMIT_AS, &space);
#else
    static_cast<void>(bytes);
#endif
}

/// Returns the string that `work` returns in a child of this process, bounded to so many seconds of
/// processor time and so many bytes of address space; "signal 9" and the like when the child dies.
/// Requires: `work` throws nothing.
template <class Work>
std::string resultOfChild(rlim_t seconds, rlim_t bytes, Work work) {
    int ends[2];
    if (pipe(ends) != 0) {
        return "no pipe";
    }
    const pid_t child = fork();
    if (child == 0) {
        close(ends[0]);
        boundProcess(seconds, bytes);
        const std::string result = work();
        std::size_t written = 0;
        while (written < result.size()) {
            const ssize_t count = write(ends[1], result.data() + written, result.size() - written);
            written += count > 0 ? static_cast<std::size_t>(count) : result.size();
        }
        std::_Exit(0);
    }
    close(ends[1]);
    std::string result;
    char block[4096];
    for (ssize_t count = 0; (count = read(ends[0], block, sizeof block)) > 0;) {
        result.append(block, static_cast<std::size_t>(count));
    }
    close(ends[0]);
    int status = 0;
    waitpid(child, &status, 0);
    return WIFSIGNALED(status) ? "signal " + std::to_string(WTERMSIG(status)) : result;
}

}  // namespace test
