#include "Platform/Foundation/OutputStream.h"

#include <utility>

#include "Platform/Foundation/FileOutputStream.h"
#include "Platform/Foundation/MemoryOutputStream.h"

namespace platform {

std::shared_ptr<OutputStream> OutputStream::outputStreamToFileAtPath(std::string path,
                                                                     FileAppending append) {
    return std::make_shared<FileOutputStream>(std::move(path), append);
}

std::shared_ptr<OutputStream> OutputStream::outputStreamToMemory() {
    return std::make_shared<MemoryOutputStream>();
}

std::optional<std::int64_t> OutputStream::currentFileOffset() const {
    return std::nullopt;
}

std::optional<Data> OutputStream::dataWritten() const {
    return std::nullopt;
}

}  // namespace platform
