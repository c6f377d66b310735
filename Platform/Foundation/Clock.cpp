#include "Platform/Foundation/Clock.h"

#include <chrono>

namespace platform {

Date currentDate() {
    constexpr std::chrono::sys_days kReferenceDay = std::chrono::year{2001} / 1 / 1;
    const std::chrono::duration<double> since = std::chrono::system_clock::now() - kReferenceDay;
    return Date{since.count()};
}

}  // namespace platform
