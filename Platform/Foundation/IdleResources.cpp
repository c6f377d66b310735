#include "Platform/Foundation/IdleResources.h"

#include <array>
#include <atomic>
#include <cstddef>

namespace platform {
namespace {

constexpr std::size_t kMostKeepers = 16;

// Trivial to destroy, so that an unloaded plug-in leaves no exit hook behind.
constinit std::array<std::atomic<ReleaseIdle>, kMostKeepers> keepers{};
constinit std::atomic<std::size_t> keeperCount = 0;

}  // namespace

void addIdleResources(ReleaseIdle release) {
    keepers.at(keeperCount.fetch_add(1)).store(release);
}

void releaseIdleResources() {
    for (const std::atomic<ReleaseIdle>& keeper : keepers) {
        if (const ReleaseIdle release = keeper.load()) {
            release();
        }
    }
}

}  // namespace platform
