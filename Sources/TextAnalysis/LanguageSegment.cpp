#include "Sources/TextAnalysis/LanguageSegment.h"

#include <utility>

namespace parlavox {

std::shared_ptr<LanguageSegment> LanguageSegment::initWithRange(
    platform::Range range, std::optional<std::string> languageCode) {
    auto segment = std::make_shared<LanguageSegment>();
    segment->range = range;
    segment->languageCode = std::move(languageCode);
    return segment;
}

std::string LanguageSegment::description() const {
    return "Class = 'LanguageSegment', Range = {" + std::to_string(range.location) + ", " +
           std::to_string(range.length) + "}, LanguageCode = " + languageCode.value_or("(null)");
}

}  // namespace parlavox
