// The importer function: a document's file in, its text out.

#include <new>
#include <optional>
#include <string>

#include "Platform/Foundation/Error.h"
#include "Platform/Foundation/Failure.h"
#include "Platform/Foundation/URL.h"
#include "Sources/Document/Document.h"
#include "Sources/Importer/MetadataImporterPlugin.h"

namespace {

std::optional<std::string> utf8FromCFString(CFStringRef string) {
    const CFIndex size =
        CFStringGetMaximumSizeForEncoding(CFStringGetLength(string), kCFStringEncodingUTF8) + 1;
    std::string text(static_cast<std::size_t>(size), '\0');
    if (!CFStringGetCString(string, text.data(), size, kCFStringEncodingUTF8)) {
        return std::nullopt;
    }
    text.resize(text.find('\0'));
    return text;
}

std::optional<std::string> fileSystemPath(CFStringRef path) {
    const CFIndex size = CFStringGetMaximumSizeOfFileSystemRepresentation(path);
    std::string text(static_cast<std::size_t>(size), '\0');
    if (!CFStringGetFileSystemRepresentation(path, text.data(), size)) {
        return std::nullopt;
    }
    text.resize(text.find('\0'));
    return text;
}

void setTextContent(CFMutableDictionaryRef attributes, const std::u16string& text) {
    const CFStringRef content = CFStringCreateWithCharacters(
        kCFAllocatorDefault, reinterpret_cast<const UniChar*>(text.data()),
        static_cast<CFIndex>(text.size()));
    if (content == nullptr) {
        throw std::bad_alloc();
    }
    CFDictionarySetValue(attributes, kMDItemTextContent, content);
    CFRelease(content);
}

}  // namespace

Boolean GetMetadataForFile(void*, CFMutableDictionaryRef attributes, CFStringRef contentTypeUTI,
                           CFStringRef pathToFile) {
    platform::clearFailure();
    // A lone surrogate, say, has no bytes.
    const auto path = fileSystemPath(pathToFile);
    const auto type = utf8FromCFString(contentTypeUTI);
    if (!path || !type) {
        platform::noteFailure(path ? "the content type is no valid text"
                                   : "the path is no valid text");
        return false;
    }
    const auto document = parlavox::Document::init();
    std::optional<platform::Error> error;
    const bool wasRead =
        document->readFromURL(platform::URL::fileURLWithPath(*path), *type, &error);
    if (wasRead && !error) {
        setTextContent(attributes, document->textStorage()->string());
        platform::clearFailure();
    }
    return wasRead;
}

const char* ParlavoxImporterLastFailure() noexcept {
    return platform::lastFailure();
}
