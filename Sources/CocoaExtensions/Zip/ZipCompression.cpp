// Deflating the contents of one entry.

#include <zlib.h>

#include <string>
#include <utility>

#include "Platform/Foundation/Buffer.h"
#include "Sources/CocoaExtensions/Zip/ZipAssertion.h"
#include "Sources/CocoaExtensions/Zip/ZipWrapper.h"

namespace parlavox {

using platform::Data;

namespace {

constexpr int kRawWindowBits = -15;
constexpr int kMemoryLevel = 9;
constexpr std::uint32_t kHighestLevel = 10;
constexpr char kZlibVersion[] = "1.2.5";

/// Deflates the whole input into the output. A stream that fills the output to its last byte may be
/// whole: zlib says so only when asked again.
int deflateWhole(z_stream& stream) {
    const int code = deflate(&stream, Z_FINISH);
    if (code != Z_OK || stream.avail_out != 0) {
        return code;
    }
    Bytef spare = 0;
    stream.next_out = &spare;
    stream.avail_out = 1;
    const bool isWhole = deflate(&stream, Z_FINISH) == Z_STREAM_END && stream.avail_out == 1;
    stream.avail_out = 0;
    return isWhole ? Z_STREAM_END : Z_OK;
}

}  // namespace

std::optional<Data> ZipWrapper::compressedData(const std::optional<Data>& data,
                                               std::uint32_t withCompressionLevel) const {
    if (!zipRequire(data.has_value(), "data != nil", __LINE__)) {
        return std::nullopt;
    }
    // Should the handler return, the level is used as given.
    (void)zipRequire(withCompressionLevel <= kHighestLevel, "level <= 10", __LINE__);
    z_stream stream{};
    const int initCode =
        deflateInit2_(&stream, static_cast<int>(withCompressionLevel), Z_DEFLATED, kRawWindowBits,
                      kMemoryLevel, Z_DEFAULT_STRATEGY, kZlibVersion, sizeof stream);
    if (initCode != Z_OK) {
        zipFail("deflateInit2 failed with code: " + std::to_string(initCode), __LINE__);
        return std::nullopt;
    }
    // The output is as long as the input: what does not shrink into it is better stored.
    platform::Buffer output = platform::Buffer::zeroed(data->size());
    stream.next_in = reinterpret_cast<Bytef*>(const_cast<std::byte*>(data->bytes()));
    stream.avail_in = static_cast<uInt>(data->size());
    stream.next_out = reinterpret_cast<Bytef*>(output.bytes());
    stream.avail_out = static_cast<uInt>(output.size());
    const int code = deflateWhole(stream);
    deflateEnd(&stream);
    if (code == Z_STREAM_END) {
        output.truncate(static_cast<std::uint32_t>(output.size()) - stream.avail_out);
        return Data::adopt(std::move(output));
    }
    if (code != Z_OK) {
        zipFail("deflate fails with code " + std::to_string(code), __LINE__);
    }
    return std::nullopt;
}

}  // namespace parlavox
