#include "Tools/pvdoc/Languages.h"

#include <algorithm>

#include "Tools/pvdoc/Progress.h"
#include "Tools/pvdoc/TextOfFile.h"

namespace pvdoc {

using parlavox::LanguageSegment;
using parlavox::TextAnalyzeUtils;
using platform::Range;

namespace {

/// Stretches beyond these are only counted in a report.
constexpr std::size_t kReported = 20;

auto segmentsWithProgress(std::u16string_view text, const parlavox::AllowedLanguages& allowed) {
    const Progress progress("languages", text.size(), Progress::Printing::AtTheEnd);
    return TextAnalyzeUtils::languageSegmentsForString(text, allowed);
}

}  // namespace

platform::Result<std::uint64_t> listLanguages(const std::string& file,
                                              const parlavox::AllowedLanguages& allowed,
                                              ListingForm form, const Output& output) {
    const platform::AttributedString text = PV_TRY(textOfFile(file));
    const std::u16string_view string = text.string();
    const auto segments = segmentsWithProgress(string, allowed);
    if (!segments) {
        return std::uint64_t{0};
    }
    Listing listing(form, "language  text", output);
    for (const auto& segment : *segments) {
        const Range range = segment->range;
        listing.addLanguage(range, segment->languageCode.value_or(""),
                            string.substr(range.location, range.length));
    }
    return segments->size();
}

void reportLanguages(const std::u16string& text, Report& report) {
    const auto segments = TextAnalyzeUtils::languageSegmentsForString(text, std::nullopt);
    if (!segments) {
        report.add("language", "none can be told");
        return;
    }
    report.add("language", counted(segments->size(), "stretch", "stretches"));
    for (std::size_t i = 0; i < std::min(segments->size(), kReported); ++i) {
        const LanguageSegment& segment = *segments->at(i);
        report.add("", std::to_string(segment.range.location) + " to " +
                           std::to_string(segment.range.end()) + ": " +
                           segment.languageCode.value_or(""));
    }
    if (segments->size() > kReported) {
        report.add("", "and " + std::to_string(segments->size() - kReported) + " more");
    }
}

}  // namespace pvdoc
