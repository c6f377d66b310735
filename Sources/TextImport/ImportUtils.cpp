#include "Sources/TextImport/ImportUtils.h"

#include <algorithm>

#include "Platform/Text/AttributedStringBuilder.h"
#include "Platform/Text/SpellChecker.h"
#include "Platform/Text/TextAttachment.h"
#include "Platform/Text/UnitSearch.h"
#include "Sources/TextImport/LineEndHyphens.h"

namespace parlavox {

using platform::AttributedString;
using platform::AttributedStringBuilder;
using platform::AttributeRun;
using platform::Range;
using platform::SpellChecker;

namespace {

constexpr std::u16string_view kHyphenAndBlank = u"- ";

/// Where the text has its next "- " at `from` or behind it; npos when there is none.
std::size_t findHyphenAndBlank(std::u16string_view text, std::size_t from) {
    while (true) {
        const std::size_t hyphen = platform::findUnit(text, kHyphenAndBlank.front(), from);
        if (hyphen == std::u16string_view::npos ||
            text.substr(hyphen).starts_with(kHyphenAndBlank)) {
            return hyphen;
        }
        from = hyphen + 1;
    }
}

/// The ranges of the line-end hyphens in a text, each with its blank.
std::vector<Range> hyphensToDelete(std::u16string_view text) {
    std::size_t found = findHyphenAndBlank(text, 0);
    if (found == std::u16string_view::npos) {
        return {};
    }
    const SpellChecker checker = SpellChecker::sharedSpellChecker();
    LineEndHyphens hyphens(text, checker, checker.availableLanguages());
    std::vector<Range> ranges;
    while (found != std::u16string_view::npos) {
        const Range range{found, kHyphenAndBlank.size()};
        if (hyphens.shouldDelete(range)) {
            ranges.push_back(range);
        }
        found = findHyphenAndBlank(text, range.end());
    }
    return ranges;
}

bool hasAttachment(const AttributeRun& run) {
    const auto* const attachment =
        run.attributes ? run.attributes->find(platform::kAttachmentAttributeName) : nullptr;
    return attachment != nullptr && !attachment->isNull();
}

}  // namespace

AttributedString ImportUtils::createCleanCopy(const AttributedString& string) {
    const std::u16string_view text = string.string();
    std::size_t nul = platform::findUnit(text, u'\0', 0);
    if (nul == std::u16string_view::npos) {
        return string;
    }
    AttributedStringBuilder copy;
    copy.reserve(text.size());
    std::size_t kept = 0;
    for (; nul != std::u16string_view::npos; nul = platform::findUnit(text, u'\0', kept)) {
        copy.append(string, {kept, nul - kept});
        kept = nul + 1;
    }
    copy.append(string, {kept, text.size() - kept});
    return copy.finish();
}

AttributedString ImportUtils::createCopyWithoutAttachments(const AttributedString& string) {
    const auto& runs = string.runs();
    if (std::none_of(runs.begin(), runs.end(), hasAttachment)) {
        return string;
    }
    AttributedStringBuilder copy;
    copy.reserve(string.length());
    Range range;
    for (const AttributeRun& run : runs) {
        range = {range.end(), run.length};
        if (!hasAttachment(run)) {
            copy.append(string, range);
        }
    }
    return copy.finish();
}

AttributedString ImportUtils::createCleanCopyFromPDFString(const AttributedString& string) {
    AttributedString clean = createCleanCopy(string);
    const std::vector<Range> deleted = hyphensToDelete(clean.string());
    if (deleted.empty()) {
        return clean;
    }
    AttributedStringBuilder copy;
    copy.reserve(clean.length());
    std::uint64_t kept = 0;
    for (const Range& range : deleted) {
        copy.append(clean, {kept, range.location - kept});
        kept = range.end();
    }
    copy.append(clean, {kept, clean.length() - kept});
    return copy.finish();
}

bool ImportUtils::shouldDeleteHyphenAtRange(Range range, std::u16string_view string,
                                            const std::vector<std::string>& availableLanguages) {
    return LineEndHyphens(string, SpellChecker::sharedSpellChecker(), availableLanguages)
        .shouldDelete(range);
}

}  // namespace parlavox
