// A file that exists in memory only, for code that wants a path.

#pragma once

#include <sys/mman.h>
#include <unistd.h>

#include <cstddef>
#include <span>
#include <string>

#include "Fuzz/Support/Input.h"

namespace fuzz {

/// One file; its path is good in this process while the object lives.
class MemoryFile {
public:
    explicit MemoryFile(std::span<const std::byte> bytes)
        : descriptor_(::memfd_create("input", MFD_CLOEXEC)) {
        expect(descriptor_ >= 0, "a file in memory");
        while (!bytes.empty()) {
            const ssize_t count = ::write(descriptor_, bytes.data(), bytes.size());
            expect(count > 0, "room for the input");
            bytes = bytes.subspan(static_cast<std::size_t>(count));
        }
    }
    ~MemoryFile() { ::close(descriptor_); }
    MemoryFile(const MemoryFile&) = delete;
    MemoryFile& operator=(const MemoryFile&) = delete;

    [[nodiscard]] std::string path() const {
        return "/proc/self/fd/" + std::to_string(descriptor_);
    }

private:
    int descriptor_;
};

}  // namespace fuzz
