#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "Platform/Foundation/AssertionHandler.h"
#include "Platform/Foundation/Buffer.h"
#include "Sources/CocoaExtensions/Zip/RawInflater.h"
#include "Sources/CocoaExtensions/Zip/ZipWrapper.h"

namespace parlavox {
namespace {

using platform::Buffer;
using platform::Data;

std::optional<Data> compressed(const std::optional<Data>& data, std::uint32_t level) {
    return ZipWrapper::initWithData(Data(), nullptr)->compressedData(data, level);
}

std::string inflated(const Data& data, std::size_t size) {
    RawInflater inflater;
    EXPECT_EQ(inflater.begin(data.span()), RawInflater::kOk);
    Buffer output = Buffer::zeroed(size);
    EXPECT_EQ(inflater.inflateInto(output.span()), RawInflater::kStreamEnd);
    return std::string(Data::adopt(std::move(output)).view());
}

/// Bytes that do not shrink.
std::string noise(std::size_t size) {
    std::string bytes;
    std::uint32_t state = 12345;
    while (bytes.size() < size) {
        state = state * 1664525 + 1013904223;
        bytes += static_cast<char>(state >> 24);
    }
    return bytes;
}

std::string failureOf(const std::optional<Data>& data, std::uint32_t level) {
    try {
        (void)compressed(data, level);
        return "";
    } catch (const platform::AssertionFailure& failure) {
        EXPECT_EQ(failure.file(), "Sources/CocoaExtensions/Zip/ZipWrapper");
        return failure.reason();
    }
}

TEST(ZipCompression, RepeatedBytesShrinkAndComeBackAtEveryLevel) {
    const std::string text(100000, 'a');
    for (std::uint32_t level = 1; level <= 9; ++level) {
        const auto data = compressed(Data::copyOf(text), level);
        ASSERT_TRUE(data) << level;
        EXPECT_LT(data->size(), 1000u);
        EXPECT_EQ(inflated(*data, text.size()), text);
    }
}

TEST(ZipCompression, WhatDoesNotShrinkYieldsNothing) {
    EXPECT_EQ(compressed(Data::copyOf("q7"), 6), std::nullopt) << "a few bytes";
    EXPECT_EQ(compressed(Data::copyOf(noise(5000)), 9), std::nullopt);
    EXPECT_EQ(compressed(Data::copyOf(std::string(1000, 'a')), 0), std::nullopt)
        << "stored blocks are longer than what they hold";
}

TEST(ZipCompression, FormAsLongAsTheInputIsReturned) {
    for (const std::string_view text : {"aaaaa", "abcabca"}) {
        const auto data = compressed(Data::copyOf(text), 9);
        ASSERT_TRUE(data) << text;
        EXPECT_EQ(data->size(), text.size());
        EXPECT_EQ(inflated(*data, text.size()), text);
    }
    EXPECT_EQ(compressed(Data::copyOf("aaaa"), 9), std::nullopt) << "one byte too long";
}

TEST(ZipCompression, BrokenConditionsAreReported) {
    EXPECT_EQ(failureOf(std::nullopt, 6), "Invalid parameter not satisfying: data != nil");
    EXPECT_EQ(failureOf(Data::copyOf("x"), 11), "Invalid parameter not satisfying: level <= 10");
    EXPECT_EQ(failureOf(Data::copyOf("x"), 0xFFFFFFFF),
              "Invalid parameter not satisfying: level <= 10");
    EXPECT_EQ(failureOf(Data::copyOf("x"), 10), "deflateInit2 failed with code: -2")
        << "level 10 passes the check, zlib refuses it";
    EXPECT_EQ(failureOf(Data(), 6), "deflate fails with code -5") << "no room for any output";
}

/// A handler that returns and remembers what was broken.
struct Recorder : platform::AssertionHandler {
    std::vector<std::string> reasons;
    void handleFailure(const platform::AssertionFailure& failure) override {
        reasons.push_back(failure.reason());
    }
};

TEST(ZipCompression, AbsentDataYieldsNothingWhenTheHandlerReturns) {
    Recorder recorder;
    const platform::AssertionHandlerScope scope(recorder);
    EXPECT_EQ(compressed(std::nullopt, 11), std::nullopt);
    EXPECT_EQ(recorder.reasons,
              (std::vector<std::string>{"Invalid parameter not satisfying: data != nil"}))
        << "the level is not looked at any more";
}

TEST(ZipCompression, LevelIsUsedAsGivenWhenTheHandlerReturns) {
    Recorder recorder;
    const platform::AssertionHandlerScope scope(recorder);
    EXPECT_EQ(compressed(Data::copyOf("x"), 11), std::nullopt);
    EXPECT_EQ(recorder.reasons,
              (std::vector<std::string>{"Invalid parameter not satisfying: level <= 10",
                                        "deflateInit2 failed with code: -2"}));
}

}  // namespace
}  // namespace parlavox
