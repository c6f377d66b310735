// Real sentences of several languages in one text.

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <nlohmann/json.hpp>
#include <string>

#include "Platform/Foundation/Unicode.h"
#include "Platform/Text/TextUnits.h"
#include "Sources/TextAnalysis/TextAnalyzeUtils.h"
#include "Tests/Support/Fixtures.h"

namespace parlavox {
namespace {

/// The position in UTF-16 units of each code point, and the text's end.
std::vector<std::uint64_t> positionsOfCodePoints(std::u16string_view text) {
    std::vector<std::uint64_t> positions;
    for (std::uint64_t i = 0; i <= text.size(); ++i) {
        if (i == text.size() || i == 0 || !platform::isLowSurrogate(text[i])) {
            positions.push_back(i);
        }
    }
    return positions;
}

/// From the start of the sentence before `position` to the end of the one behind it.
Range sentencesAround(std::u16string_view text, std::uint64_t position) {
    const auto sentences = platform::TextUnits::over(text, platform::TextUnitKind::Sentence);
    EXPECT_TRUE(sentences->moveTo(position));
    std::uint64_t end = sentences->enclosingRange().end();
    if (sentences->moveToNext()) {
        end = sentences->enclosingRange().end();
        EXPECT_TRUE(sentences->moveToPrevious());
    }
    static_cast<void>(sentences->moveToPrevious());
    const std::uint64_t begin = sentences->enclosingRange().location;
    return {begin, end - begin};
}

struct Score {
    int boundaries = 0;
    int found = 0;
};

void addDocument(const nlohmann::json& document, Score& score) {
    const std::u16string text = platform::utf16FromUtf8Lossy(document["text"].get<std::string>());
    const auto positions = positionsOfCodePoints(text);
    const auto segments = TextAnalyzeUtils::languageSegmentsForString(text, std::nullopt);
    ASSERT_TRUE(segments);
    const auto& truth = document["segments"];
    for (std::size_t i = 1; i < truth.size(); ++i) {
        if (truth[i]["lang"] == truth[i - 1]["lang"]) {
            continue;
        }
        const Range around = sentencesAround(text, positions.at(truth[i]["start"]));
        ++score.boundaries;
        score.found += std::any_of(segments->begin(), segments->end(), [&](const auto& segment) {
            const std::uint64_t start = segment->range.location;
            return start >= around.location && start <= around.end() && start > 0;
        });
    }
}

TEST(LanguageSegments, ChangeWithinASentenceOfWhereTheLanguageChanges) {
    const auto path = test::fixturePath("language/mixed-documents.jsonl");
    if (!path) {
        GTEST_SKIP() << "not on this machine";
    }
    Score score;
    std::ifstream file(*path);
    for (std::string line; std::getline(file, line);) {
        addDocument(nlohmann::json::parse(line), score);
    }
    EXPECT_EQ(score.boundaries, 185);
    // The others lie between short sentences of related languages.
    EXPECT_GE(score.found, 182);
}

}  // namespace
}  // namespace parlavox
