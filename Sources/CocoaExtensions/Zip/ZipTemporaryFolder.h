// The one thing that the container remembers between calls: the path of its temporary folder.
//
// Published once, without a lock, in memory that needs no destructor, so that the code can be
// unloaded. Any thread at once.

#pragma once

#include <string_view>

namespace parlavox {

/// The process's cached path.
class ZipTemporaryFolder final {
public:
    ZipTemporaryFolder() = delete;

    /// Returns the path that was published, null when none was.
    [[nodiscard]] static const char* cachedPath();

    /// Keeps `path` for all later calls. Of two threads that publish at once, one is forgotten. A
    /// path too long for the system is not kept.
    static void publish(std::string_view path);

private:
    friend class ZipWrapperTestPeer;

    /// Forgets the path. Requires: no other thread uses the container.
    static void forget();
};

}  // namespace parlavox
