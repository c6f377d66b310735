// Property lists of any format.

#include "Fuzz/Support/Input.h"
#include "Platform/Foundation/PropertyListSerialization.h"

using platform::PropertyListSerialization;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    const platform::Data input = fuzz::dataOfInput(bytes, size);
    const auto value = PropertyListSerialization::propertyListWithData(input);
    fuzz::expect(value || !value.fault().detail.empty(), "a fault says what is wrong");
    return 0;
}
