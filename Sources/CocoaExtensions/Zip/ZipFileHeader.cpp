#include "Sources/CocoaExtensions/Zip/ZipFileHeader.h"

#include <utility>

#include "Sources/CocoaExtensions/Zip/ZipAssertion.h"

namespace parlavox {

std::shared_ptr<const ZipFileHeader> ZipFileHeader::initWithFileHeader(
    SFileHeader fileHeader, std::optional<platform::Data> fileNameData) {
    if (!zipRequire(fileNameData.has_value(), "fileNameData != nil", 39)) {
        return nullptr;
    }
    return std::make_shared<const ZipFileHeader>(PassKey(), fileHeader, std::move(*fileNameData));
}

ZipFileHeader::ZipFileHeader(PassKey, const SFileHeader& fileHeader, platform::Data fileNameData)
    : fileHeader_(fileHeader), fileNameData_(std::move(fileNameData)) {
}

}  // namespace parlavox
