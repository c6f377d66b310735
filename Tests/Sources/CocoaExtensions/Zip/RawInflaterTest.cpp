#include "Sources/CocoaExtensions/Zip/RawInflater.h"

#include <dlfcn.h>
#include <gtest/gtest.h>

#include <span>
#include <string>

#include "Platform/Foundation/AssertionHandler.h"
#include "Platform/Foundation/Buffer.h"
#include "Platform/Foundation/Exception.h"
#include "Sources/CocoaExtensions/Zip/ZipAssertion.h"
#include "Tests/Sources/CocoaExtensions/Zip/ZipWrapperTestPeer.h"
#include "Tools/samples/ZipBuilder.h"

namespace {

/// What the library's initialisation is made to answer; 0 leaves it alone.
int forcedInitCode = 0;

}  // namespace

/// Stands in front of the library's function of that name in this program.
extern "C" __attribute__((visibility("default"))) int inflateInit2_(void* stream, int windowBits,
                                                                    const char* version, int size) {
    if (forcedInitCode != 0) {
        return forcedInitCode;
    }
    using Function = int (*)(void*, int, const char*, int);
    static const auto real = reinterpret_cast<Function>(::dlsym(RTLD_NEXT, "inflateInit2_"));
    return real(stream, windowBits, version, size);
}

namespace parlavox {
namespace {

using Peer = ZipWrapperTestPeer;

/// While it lives, no stream can be initialised.
class RefusalScope {
public:
    explicit RefusalScope(int code) { forcedInitCode = code; }
    ~RefusalScope() { forcedInitCode = 0; }
};

TEST(RawInflater, RefusedInitialisationIsAnAssertionFailureOfTheEntry) {
    samples::ZipBuilder zip;
    const auto& header = zip.add("a", std::string(100, 'a')).central;
    const SZipFileInfo entry{0, 0, header.CompressionMethod, header.DataDescriptor.CompressedSize,
                             header.DataDescriptor.UncompressedSize};
    ASSERT_TRUE(Peer::dataForEntry(*Peer::unscanned(zip.finish()), entry)) << "without a refusal";
    const auto wrapper = Peer::unscanned(zip.finish());

    constexpr int kMemoryError = -4;
    const RefusalScope refusal(kMemoryError);
    EXPECT_EQ(RawInflater().begin({}), kMemoryError);
    try {
        (void)Peer::dataForEntry(*wrapper, entry);
        FAIL() << "nothing was raised";
    } catch (const platform::AssertionFailure& failure) {
        EXPECT_EQ(failure.reason(), "inflateInit2 failed with code: 4294967292");
        EXPECT_EQ(failure.file(), kZipSourceFile);
        EXPECT_EQ(failure.line(), 789u);
    }
    struct Silent : platform::AssertionHandler {
        void handleFailure(const platform::AssertionFailure&) override {}
    } silent;
    const platform::AssertionHandlerScope scope(silent);
    EXPECT_EQ(Peer::dataForEntry(*wrapper, entry), std::nullopt) << "none when the handler returns";
}

TEST(RawInflater, InflatesOneStreamAfterAnotherWhateverBecameOfTheLast) {
    samples::ZipBuilder zip;
    const platform::Data good = zip.add("a", std::string(100, 'a')).data;
    const std::span<const std::byte> whole = good.span();
    RawInflater inflater;
    for (const std::size_t size : {whole.size(), whole.size() - 1, std::size_t{0}, whole.size()}) {
        SCOPED_TRACE(size);
        platform::Buffer output = platform::Buffer::zeroed(100);
        ASSERT_EQ(inflater.begin(whole.first(size)), RawInflater::kOk);
        EXPECT_EQ(inflater.inflateInto(output.span()),
                  size == whole.size() ? RawInflater::kStreamEnd : RawInflater::kBufferError);
    }
}

}  // namespace
}  // namespace parlavox
