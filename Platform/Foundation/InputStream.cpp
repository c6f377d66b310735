#include "Platform/Foundation/InputStream.h"

#include <utility>

#include "Platform/Foundation/DataInputStream.h"
#include "Platform/Foundation/FileInputStream.h"

namespace platform {

std::shared_ptr<InputStream> InputStream::inputStreamWithFileAtPath(std::string path) {
    return std::make_shared<FileInputStream>(std::move(path));
}

std::shared_ptr<InputStream> InputStream::inputStreamWithData(Data data) {
    return std::make_shared<DataInputStream>(std::move(data));
}

bool InputStream::hasBytesAvailable() const {
    return streamStatus() == StreamStatus::Open;
}

std::optional<std::int64_t> InputStream::answerWithoutReading(std::size_t count) const {
    if (streamStatus() == StreamStatus::AtEnd) {
        return 0;
    }
    if (streamStatus() != StreamStatus::Open) {
        return -1;
    }
    return count == 0 ? std::optional<std::int64_t>(0) : std::nullopt;
}

}  // namespace platform
