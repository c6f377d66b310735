// Whole documents through the plug-in's import function.

#include "Fuzz/Support/Input.h"
#include "Fuzz/Support/MemoryFile.h"
#include "Tests/Support/LoadedImporter.h"
#include "Tests/Support/TemporaryDirectory.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    static const test::TemporaryDirectory spooled;
    const platform::Data input = fuzz::dataOfInput(bytes, size);
    if (fuzz::declaresTooMuch(input)) {
        return 0;
    }
    const fuzz::MemoryFile file(input.span());
    const auto path = test::makeCFString(file.path());
    const test::CFOwner<CFMutableDictionaryRef> attributes(CFDictionaryCreateMutable(
        kCFAllocatorDefault, 0, &kCFTypeDictionaryKeyCallBacks, &kCFTypeDictionaryValueCallBacks));
    bool wasRead = false;
    fuzz::allowExceptions([&] {
        wasRead = GetMetadataForFile(nullptr, attributes.get(),
                                     CFSTR("com.brightmill.parlavox.parlavox"), path.get()) != 0;
    });
    fuzz::expect(CFDictionaryGetCount(attributes.get()) == (wasRead ? 1 : 0), "text or nothing");
    fuzz::expect(wasRead == (ParlavoxImporterLastFailure() == nullptr), "a failure has a reason");
    // Of an entry that cannot be spooled an empty file is left, by intention.
    fuzz::expect(spooled.removeFiles() == 0, "spooled entries go with their archive");
    return 0;
}
