#include "Platform/Foundation/NameHash.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace platform {
namespace {

TEST(NameHash, IsTheSameForTheSameNameThroughoutTheProcess) {
    EXPECT_EQ(NameHash()("text.plist"), NameHash()(std::string("text.plist")));
}

TEST(NameHash, TellsNamesApart) {
    using namespace std::string_view_literals;
    std::vector<std::string_view> names = {
        "",        "\0"sv,     "\0\0"sv,      "a",       "a\0"sv,          "\0a"sv,
        "1234567", "12345678", "1234567\0"sv, "7654321", "abcdefg1234567", "1234567abcdefg"};
    std::vector<std::size_t> hashes;
    std::transform(names.begin(), names.end(), std::back_inserter(hashes), NameHash());
    std::sort(hashes.begin(), hashes.end());
    EXPECT_EQ(std::adjacent_find(hashes.begin(), hashes.end()), hashes.end());
}

TEST(NameHash, SpreadsNumberedNamesOverFewBits) {
    constexpr std::size_t kBuckets = 1024;
    std::vector<int> load(kBuckets);
    const NameHash hash;
    for (int i = 0; i < 16 * static_cast<int>(kBuckets); ++i) {
        ++load[hash("image-" + std::to_string(i) + ".png") & (kBuckets - 1)];
    }
    // 16 on average; a bucket of 100 does not come about by chance.
    EXPECT_LT(*std::max_element(load.begin(), load.end()), 100);
}

}  // namespace
}  // namespace platform
