// The import function when the C library has no memory for the text.
//
// The function is linked in, so that this program's own CFStringCreateWithCharacters stands in the
// library's place.

#include <gtest/gtest.h>

#include <new>

#include "Tests/Support/LoadedImporter.h"
#include "Tests/Support/TemporaryFolder.h"
#include "Tools/samples/ArchiveBuilder.h"
#include "Tools/samples/PackageBuilder.h"

CFStringRef CFStringCreateWithCharacters(CFAllocatorRef, const UniChar*, CFIndex) {
    return nullptr;
}

namespace {

TEST(ImportOutOfMemory, RaisesAndSetsNoText) {
    const test::TemporaryFolder folder;
    const auto path = test::makeCFString(
        folder.write("document", samples::package(samples::archiveOfText(u"words")).view()));
    const test::CFOwner<CFMutableDictionaryRef> attributes(CFDictionaryCreateMutable(
        kCFAllocatorDefault, 0, &kCFTypeDictionaryKeyCallBacks, &kCFTypeDictionaryValueCallBacks));
    EXPECT_THROW((void)GetMetadataForFile(nullptr, attributes.get(),
                                          CFSTR("com.brightmill.parlavox.parlavox"), path.get()),
                 std::bad_alloc);
    EXPECT_EQ(CFDictionaryGetCount(attributes.get()), 0);
}

}  // namespace
