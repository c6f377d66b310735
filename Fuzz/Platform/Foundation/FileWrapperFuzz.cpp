// Serialized file wrappers, as archives hold attached files.

#include "Fuzz/Support/Input.h"
#include "Platform/Foundation/FileWrapperSerialization.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    const auto wrapper =
        platform::fileWrapperFromSerializedRepresentation(fuzz::dataOfInput(bytes, size));
    if (!wrapper) {
        fuzz::expect(!wrapper.fault().detail.empty(), "a fault says what is wrong");
        return 0;
    }
    const auto written = wrapper.value()->serializedRepresentation();
    fuzz::expect(written.has_value(), "what was read can be written");
    const auto again = platform::fileWrapperFromSerializedRepresentation(*written);
    fuzz::expect(again && again.value()->serializedRepresentation() == written,
                 "what was written is read as it was");
    return 0;
}
