// Files of others, each with its text beside it.

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

#include "Platform/Foundation/Unicode.h"
#include "Platform/Text/PlainText.h"
#include "Tests/Support/TestData.h"

namespace platform {
namespace {

constexpr std::string_view kExpected = ".expected.txt";

std::string bytesOf(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// The text with each line end as a line feed, as the files with the texts have it.
std::string withLineFeeds(std::string_view text) {
    std::string result;
    for (std::size_t i = 0; i < text.size(); i++) {
        const bool isPair = text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n';
        if (!isPair) {
            result += text[i] == '\r' ? '\n' : text[i];
        }
    }
    return result;
}

std::vector<std::string> namesOfFiles() {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(test::dataPath("text"))) {
        std::string name = entry.path().filename();
        if (name.ends_with(kExpected)) {
            names.push_back(name.substr(0, name.size() - kExpected.size()));
        }
    }
    std::sort(names.begin(), names.end());
    return names;
}

TEST(PlainTextFiles, AreReadToTheLastCharacter) {
    const std::vector<std::string> names = namesOfFiles();
    ASSERT_GE(names.size(), 40U);
    for (const std::string& name : names) {
        SCOPED_TRACE(name);
        const auto path = test::dataPath("text") / name;
        const auto text = plainTextFromBytes(bytesOf(path));
        ASSERT_TRUE(text) << text.fault().detail;
        EXPECT_EQ(withLineFeeds(utf8FromUtf16(text.value())),
                  withLineFeeds(bytesOf(path.string() + std::string(kExpected))));
    }
}

}  // namespace
}  // namespace platform
