// Writes archives with minizip, whose header has the name of another library's.

#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace bench {

/// Writes an archive of the contents under their names; level 0 stores them. Of the memory level
/// depends how large the tables are in which zlib looks for what it has seen.
void writeWithMinizip(const std::string& path, std::uint32_t level, int memoryLevel,
                      const std::vector<std::string>& names,
                      const std::vector<std::string>& contents);

}  // namespace bench
