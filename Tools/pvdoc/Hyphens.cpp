#include "Tools/pvdoc/Hyphens.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <vector>

#include "Platform/Foundation/Unicode.h"
#include "Platform/Text/PDFDocument.h"
#include "Platform/Text/SpellChecker.h"
#include "Sources/TextImport/LineEndHyphens.h"

namespace pvdoc {

using parlavox::HyphenDecision;
using parlavox::HyphenReason;

namespace {

/// Hyphens beyond these are only counted.
constexpr std::size_t kShown = 100;

std::u16string textOfPages(const platform::Data& pdf) {
    std::u16string text;
    const auto document = platform::PDFDocument::initWithData(pdf);
    for (std::uint64_t i = 0; document != nullptr && i < document->pageCount(); i++) {
        if (const auto page = document->pageAtIndex(i)) {
            text += page->attributedString().string();
        }
    }
    return text;
}

std::string describe(const HyphenDecision& decision) {
    const std::string language = decision.language.value_or("");
    switch (decision.reason) {
        case HyphenReason::NoDictionary:
            return "joined: no language that can be checked";
        case HyphenReason::JoinedRight:
            return "joined: one word in " + language;
        case HyphenReason::ApartWrong:
            return "joined: not right either way in " + language;
        case HyphenReason::Compound:
            break;
    }
    return "kept: right with the hyphen alone in " + language;
}

}  // namespace

void reportHyphens(const platform::Data& pdf, Report& report) {
    const std::u16string text = textOfPages(pdf);
    const auto checker = platform::SpellChecker::sharedSpellChecker();
    const auto decisions =
        parlavox::LineEndHyphens(text, checker, checker.availableLanguages()).decisions();
    const auto joined = static_cast<std::size_t>(
        std::count_if(decisions.begin(), decisions.end(),
                      [](const HyphenDecision& decision) { return decision.isDeleted(); }));
    report.add("hyphens", counted(decisions.size(), "word") + " in two parts, " +
                              std::to_string(joined) + " joined, " +
                              std::to_string(decisions.size() - joined) + " kept");
    for (const HyphenDecision& decision :
         std::span(decisions).first(std::min(decisions.size(), kShown))) {
        const auto word =
            std::u16string_view(text).substr(decision.apart.location, decision.apart.length);
        report.add("", platform::utf8FromUtf16(word) + ", " + describe(decision));
    }
    if (decisions.size() > kShown) {
        report.add("", "and " + std::to_string(decisions.size() - kShown) + " more");
    }
}

}  // namespace pvdoc
