#include "Platform/Foundation/Checksum.h"

#include <gtest/gtest.h>

#include <string>

namespace platform {
namespace {

std::uint32_t checksumOf(std::string_view text, std::uint32_t before = 0) {
    return checksumOfBytes(before, std::as_bytes(std::span(text)));
}

TEST(Checksum, IsTheOneThatArchivesKeep) {
    EXPECT_EQ(checksumOf("123456789"), 0xCBF43926u);
    EXPECT_EQ(checksumOf("a"), 0xE8B7BE43u);
    EXPECT_EQ(checksumOf(""), 0u);
}

TEST(Checksum, GoesOnWhereItEnded) {
    const std::string text = "a stretch of bytes that is longer than any block of a table";
    for (std::size_t cut = 0; cut <= text.size(); ++cut) {
        EXPECT_EQ(checksumOf(text.substr(cut), checksumOf(text.substr(0, cut))), checksumOf(text));
    }
    EXPECT_EQ(checksumOfBytes(7, {}), 7u) << "no bytes change nothing";
}

}  // namespace
}  // namespace platform
