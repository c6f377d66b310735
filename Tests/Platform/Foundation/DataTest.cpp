#include "Platform/Foundation/Data.h"

#include <gtest/gtest.h>

#include <cstring>
#include <utility>

#include "Platform/Foundation/Exception.h"

namespace platform {
namespace {

TEST(Data, PartsShareTheBlockAndOutliveTheWhole) {
    Data whole = Data::copyOf("metadata");
    const std::byte* const start = whole.bytes();
    const Data part = whole.subdataWithRange({4, 4});
    whole = Data();
    EXPECT_EQ(part.view(), "data");
    EXPECT_EQ(part.bytes(), start + 4);
}

TEST(Data, PartsBeyondTheEndRaise) {
    const Data data = Data::copyOf("abc");
    EXPECT_EQ(data.subdataWithRange({3, 0}).size(), 0u);
    EXPECT_THROW((void)data.subdataWithRange({3, 1}), RangeException);
    EXPECT_THROW((void)data.subdataWithRange({4, 0}), RangeException);
    EXPECT_THROW((void)data.subdataWithRange({1, kNotFound}), RangeException);
}

TEST(Data, BufferStartsAsZerosAndIsAdoptedWithoutCopy) {
    Buffer buffer = Buffer::zeroed(8);
    std::memcpy(buffer.bytes(), "abc", 3);
    buffer.truncate(5);
    const std::byte* const start = buffer.bytes();
    const Data data = Data::adopt(std::move(buffer));
    EXPECT_EQ(data.bytes(), start);
    EXPECT_EQ(data.view(), std::string_view("abc\0\0", 5));
}

TEST(Data, AbsentBytesAreNotEmptyBytes) {
    const std::optional<Data> absent;
    const std::optional<Data> empty = Data();
    EXPECT_NE(absent, empty);
    EXPECT_EQ(Data::adopt(Buffer::zeroed(0)), Data());
}

}  // namespace
}  // namespace platform
