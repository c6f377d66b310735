// Lets one test process see programs with and without a name.

#pragma once

#include <atomic>
#include <memory>

#include "Platform/Foundation/Bundle.h"

namespace platform {

/// While it lives, the program has no name unless the test gives it one; then it has its old one.
class MainBundleTestPeer {
public:
    MainBundleTestPeer() : before_(Bundle::namedMainBundle_.exchange(nullptr)) {}
    ~MainBundleTestPeer() {
        const std::unique_ptr<const Bundle::MainBundle> named(
            Bundle::namedMainBundle_.exchange(before_));
    }
    MainBundleTestPeer(const MainBundleTestPeer&) = delete;
    MainBundleTestPeer& operator=(const MainBundleTestPeer&) = delete;

private:
    const Bundle::MainBundle* before_;
};

}  // namespace platform
