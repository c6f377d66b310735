#include "Platform/Foundation/IdleResources.h"

#include <gtest/gtest.h>

namespace platform {
namespace {

int releases = 0;

TEST(IdleResources, AreReleasedByEachKeeperEachTime) {
    releaseIdleResources();
    EXPECT_EQ(releases, 0);
    addIdleResources([] { releases += 1; });
    addIdleResources([] { releases += 10; });
    releaseIdleResources();
    EXPECT_EQ(releases, 11);
    releaseIdleResources();
    EXPECT_EQ(releases, 22);
}

}  // namespace
}  // namespace platform
