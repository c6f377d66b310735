// A stretch of text and the language that it is written in.
//
// One thread at a time.

#pragma once

#include <memory>
#include <optional>
#include <string>

#include "Platform/Foundation/Range.h"

namespace parlavox {

/// A plain pair. It can change, by intention: segmentation merges segments in place.
class LanguageSegment {
public:
    /// Selector: initWithRange:languageCode:
    [[nodiscard]] static std::shared_ptr<LanguageSegment> initWithRange(
        platform::Range range, std::optional<std::string> languageCode);

    /// "Class = 'LanguageSegment', Range = {0, 5}, LanguageCode = en"
    [[nodiscard]] std::string description() const;

    /// In UTF-16 units of the segmented string.
    platform::Range range;

    /// As the language tagger gives it, such as en or zh-Hans. Nothing, or "und", only while a text
    /// is being segmented.
    std::optional<std::string> languageCode;
};

}  // namespace parlavox
