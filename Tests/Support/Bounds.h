// Bounds for code that reads hostile input, in a process of its own.
//
// They are far above what any input needs: a test that meets one has found code that does not end
// or that takes memory without measure.

#pragma once

#include <sys/resource.h>

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

}  // namespace test
