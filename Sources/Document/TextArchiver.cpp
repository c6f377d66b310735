#include "Sources/Document/TextArchiver.h"

namespace parlavox {

std::shared_ptr<TextArchiver> TextArchiver::init() {
    return std::shared_ptr<TextArchiver>(new TextArchiver());
}

platform::Data TextArchiver::archivedDataWithRootObject(const platform::Value& root) {
    const auto archiver = init();
    archiver->encodeObject(root, "root");
    return archiver->encodedData();
}

}  // namespace parlavox
