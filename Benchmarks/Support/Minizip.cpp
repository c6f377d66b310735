#include "Benchmarks/Support/Minizip.h"

#include <zip.h>

namespace bench {

void writeWithMinizip(const std::string& path, std::uint32_t level, int memoryLevel,
                      const std::vector<std::string>& names,
                      const std::vector<std::string>& contents) {
    zipFile const archive = zipOpen64(path.c_str(), APPEND_STATUS_CREATE);
    const int method = level == 0 ? 0 : Z_DEFLATED;
    for (std::size_t i = 0; i < names.size(); ++i) {
        const zip_fileinfo information{};
        zipOpenNewFileInZip3(archive, names[i].c_str(), &information, nullptr, 0, nullptr, 0,
                             nullptr, method, static_cast<int>(level), 0, -MAX_WBITS, memoryLevel,
                             Z_DEFAULT_STRATEGY, nullptr, 0);
        zipWriteInFileInZip(archive, contents[i].data(), static_cast<unsigned>(contents[i].size()));
        zipCloseFileInZip(archive);
    }
    zipClose(archive, nullptr);
}

}  // namespace bench
