// Archives: opened, walked, every entry read.

#include <vector>

#include "Fuzz/Support/Input.h"
#include "Sources/CocoaExtensions/Zip/ZipWrapper.h"
#include "Tests/Support/TemporaryDirectory.h"

namespace {

void readAll(const std::shared_ptr<platform::FileWrapper>& root) {
    std::vector<std::shared_ptr<platform::FileWrapper>> waiting{root};
    while (!waiting.empty()) {
        const auto wrapper = waiting.back();
        waiting.pop_back();
        if (!wrapper->isDirectory()) {
            (void)wrapper->regularFileContents();
            continue;
        }
        for (const auto& [key, child] : wrapper->fileWrappers()) {
            fuzz::expect(wrapper->fileWrapperForKey(key) == child, "a child is found by its key");
            waiting.push_back(child);
        }
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    static const test::TemporaryDirectory spooled;
    const platform::Data input = fuzz::dataOfInput(bytes, size);
    if (!fuzz::declaresTooMuch(input)) {
        fuzz::allowExceptions([&] {
            const auto archive = parlavox::ZipWrapper::initRegularFileWithContents(input);
            fuzz::expect(archive != nullptr, "bytes make at least an empty archive");
            readAll(archive);
        });
        // Of an entry that cannot be spooled an empty file is left, by intention.
        fuzz::expect(spooled.removeFiles() == 0, "spooled entries go with their archive");
    }
    return 0;
}
