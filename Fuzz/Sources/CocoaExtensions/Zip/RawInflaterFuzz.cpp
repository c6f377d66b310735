// Raw deflate data, inflated in both ways. The first two bytes say into how many bytes.

#include <cstring>

#include "Fuzz/Support/Input.h"
#include "Platform/Foundation/Buffer.h"
#include "Sources/CocoaExtensions/Zip/RawInflater.h"

using parlavox::RawInflater;
using platform::Buffer;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    if (size < 2) {
        return 0;
    }
    const std::size_t outputSize = bytes[0] + 256U * bytes[1];
    const platform::Data input = fuzz::dataOfInput(bytes + 2, size - 2);
    RawInflater inflater;
    fuzz::expect(inflater.begin(input.span()) == RawInflater::kOk, "there is memory");
    Buffer whole = Buffer::zeroed(outputSize);
    const bool isWhole = inflater.inflateWhole(whole.span());
    Buffer stream = Buffer::zeroed(outputSize);
    const int code = inflater.inflateInto(stream.span());
    if (isWhole) {
        // A stream that uses reserved codes is refused by the one only.
        fuzz::expect(code != RawInflater::kBufferError, "both see the end of the output");
        fuzz::expect(code != RawInflater::kStreamEnd ||
                         std::memcmp(whole.bytes(), stream.bytes(), outputSize) == 0,
                     "both give the same bytes");
    }
    return 0;
}
