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
    if (platform::findUnit(clean.string(), u'-', 0) == std::u16string::npos) {
        // Nobody need look what dictionaries there are.
        return clean;
    }
    const SpellChecker checker = SpellChecker::sharedSpellChecker();
    const std::vector<Range> deleted =
        LineEndHyphens(clean.string(), checker, checker.availableLanguages()).rangesToDelete();
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
