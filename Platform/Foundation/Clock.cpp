#include "Platform/Foundation/Clock.h"

#include <chrono>
#include <utility>

namespace platform {

namespace {

thread_local Date (*threadsClock)() = nullptr;

}  // namespace

ClockScope::ClockScope(Date (*clock)()) : outer_(std::exchange(threadsClock, clock)) {
}

ClockScope::~ClockScope() {
    threadsClock = outer_;
}

Date currentDate() {
    if (threadsClock != nullptr) {
        return threadsClock();
    }
    constexpr std::chrono::sys_days kReferenceDay = std::chrono::year{2001} / 1 / 1;
    const std::chrono::duration<double> since = std::chrono::system_clock::now() - kReferenceDay;
    return Date{since.count()};
}

}  // namespace platform
