#include "Platform/Foundation/BufferedOutputStream.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "Tests/Support/TemporaryFolder.h"

namespace platform {
namespace {

/// Takes a number of bytes in all and remembers the size of each write.
class SmallTarget final : public OutputStream {
public:
    explicit SmallTarget(std::size_t room) : room_(room) {}

    void open() override { setStatus(StreamStatus::Open); }
    void close() override { setStatus(StreamStatus::Closed); }
    std::int64_t write(std::span<const std::byte> bytes) override {
        sizes.push_back(bytes.size());
        const std::size_t count = std::min(bytes.size(), room_);
        room_ -= count;
        return count == 0 ? -1 : static_cast<std::int64_t>(count);
    }

    std::vector<std::size_t> sizes;

private:
    std::size_t room_;
};

std::span<const std::byte> bytesOf(std::string_view text) {
    return std::as_bytes(std::span(text));
}

TEST(BufferedOutputStream, GathersSmallWritesAndPassesLargeOnes) {
    const auto target = std::make_shared<SmallTarget>(1'000'000);
    BufferedOutputStream stream(target);
    EXPECT_EQ(stream.write(bytesOf("x")), -1) << "it is not open";
    stream.open();
    EXPECT_EQ(stream.streamStatus(), StreamStatus::Open);
    EXPECT_EQ(stream.write(bytesOf("four")), 4);
    EXPECT_EQ(stream.write(bytesOf("and")), 3);
    EXPECT_TRUE(target->sizes.empty());
    const std::string large(100'000, 'x');
    EXPECT_EQ(stream.write(bytesOf(large)), 100'000);
    EXPECT_EQ(target->sizes, (std::vector<std::size_t>{7, 100'000}));
    for (int i = 0; i < 3; i++) {
        EXPECT_EQ(stream.write(bytesOf(std::string_view(large).substr(0, 30'000))), 30'000);
    }
    EXPECT_EQ(target->sizes, (std::vector<std::size_t>{7, 100'000, 60'000}));
    stream.close();
    EXPECT_EQ(target->sizes, (std::vector<std::size_t>{7, 100'000, 60'000, 30'000}));
    EXPECT_EQ(stream.streamStatus(), StreamStatus::Closed);
}

TEST(BufferedOutputStream, WhatIsLostIsToldByTheNextStep) {
    const auto target = std::make_shared<SmallTarget>(2);
    BufferedOutputStream stream(target);
    stream.open();
    EXPECT_TRUE(stream.flush()) << "nothing was gathered";
    EXPECT_EQ(stream.write(bytesOf("four")), 4);
    EXPECT_FALSE(stream.flush());
    EXPECT_TRUE(stream.flush()) << "what was lost is not tried again";
    EXPECT_EQ(stream.write(bytesOf("four")), 4);
    EXPECT_EQ(stream.write(bytesOf(std::string(70'000, 'x'))), -1);
    EXPECT_EQ(stream.write(bytesOf("four")), 4);
    EXPECT_EQ(stream.write(bytesOf("")), -1) << "a write of nothing goes to the target, too";
}

TEST(BufferedOutputStream, KnowsItsPlace) {
    const test::TemporaryFolder folder;
    BufferedOutputStream stream(
        OutputStream::outputStreamToFileAtPath(folder.path("a"), FileAppending::No));
    EXPECT_EQ(stream.currentFileOffset(), std::nullopt);
    stream.open();
    EXPECT_EQ(stream.currentFileOffset(), 0);
    EXPECT_EQ(stream.write(bytesOf("four")), 4);
    EXPECT_EQ(stream.currentFileOffset(), 4);
    EXPECT_TRUE(stream.flush());
    EXPECT_EQ(stream.currentFileOffset(), 4);
    stream.close();
    EXPECT_EQ(folder.read("a"), "four");
    BufferedOutputStream none(
        OutputStream::outputStreamToFileAtPath(folder.path("none/a"), FileAppending::No));
    none.open();
    EXPECT_EQ(none.streamStatus(), StreamStatus::Error);
    EXPECT_TRUE(none.streamError());
}

}  // namespace
}  // namespace platform
