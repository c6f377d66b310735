#include "Tools/pvdoc/Clean.h"

#include <fmt/format.h>

#include <algorithm>

#include "Platform/Foundation/Unicode.h"
#include "Platform/Text/CharacterSet.h"
#include "Sources/TextImport/ImportUtils.h"
#include "Tools/pvdoc/Progress.h"
#include "Tools/pvdoc/Report.h"
#include "Tools/pvdoc/TextOfFile.h"

namespace pvdoc {
namespace {

constexpr std::u16string_view kHyphen = u"- ";

/// Stands where a document holds an attachment.
constexpr char16_t kReplacedObject = u'\uFFFC';

/// How much of a word is shown on either side.
constexpr std::size_t kShownUnits = 40;

std::string shown(std::u16string_view text) {
    return shownInLine(platform::utf8FromUtf16(text));
}

/// What stands before `end`, back to white space.
std::u16string_view wordBefore(std::u16string_view text, std::size_t end) {
    std::size_t begin = end;
    while (begin > 0 && end - begin < kShownUnits &&
           !platform::isWhitespaceOrNewline(text[begin - 1])) {
        --begin;
    }
    return text.substr(begin, end - begin);
}

/// What stands from `begin` on, up to white space.
std::u16string_view wordFrom(std::u16string_view text, std::size_t begin) {
    std::size_t end = begin;
    while (end < text.size() && end - begin < kShownUnits &&
           !platform::isWhitespaceOrNewline(text[end])) {
        ++end;
    }
    return text.substr(begin, end - begin);
}

void writeChange(std::u16string_view text, const Removal& removal, const Output& output) {
    if (removal.kind == Removal::Kind::Nul) {
        output(fmt::format("{:>10}  NUL\n", removal.location));
        return;
    }
    const std::string first = shown(wordBefore(text, removal.location));
    const std::size_t blank = text.find(kHyphen.back(), removal.location);
    const std::string second = shown(wordFrom(text, text.find_first_not_of(u'\0', blank + 1)));
    output(fmt::format("{:>10}  {}- {} -> {}{}\n", removal.location, first, second, first, second));
}

platform::AttributedString cleanedWithProgress(const platform::AttributedString& text) {
    const Progress progress("clean-up", text.length(), Progress::Printing::AtTheEnd);
    return parlavox::ImportUtils::createCleanCopyFromPDFString(text);
}

}  // namespace

std::vector<Removal> removalsBetween(std::u16string_view before, std::u16string_view after) {
    std::vector<Removal> removals;
    // NULs go first, so a hyphen and its blank may have had some between them.
    std::u16string text;
    std::vector<std::uint64_t> places;
    for (std::size_t i = 0; i < before.size(); ++i) {
        if (before[i] == u'\0') {
            removals.push_back({i, Removal::Kind::Nul});
        } else {
            text += before[i];
            places.push_back(i);
        }
    }
    std::size_t removed = 0;
    for (std::size_t i = text.find(kHyphen); i != std::u16string::npos;
         i = text.find(kHyphen, i + kHyphen.size())) {
        // A letter follows a hyphen that was taken out, so the texts differ there at once.
        if (after.substr(i - removed, kHyphen.size()) != kHyphen) {
            removals.push_back({places[i], Removal::Kind::Hyphen});
            removed += kHyphen.size();
        }
    }
    std::sort(removals.begin(), removals.end(), [](const Removal& one, const Removal& other) {
        return one.location < other.location;
    });
    return removals;
}

platform::Result<std::uint64_t> clean(const std::string& file, CleanForm form,
                                      const Output& output) {
    const platform::AttributedString text = PV_TRY(textOfFile(file));
    const platform::AttributedString cleaned = cleanedWithProgress(text);
    const std::vector<Removal> removals = removalsBetween(text.string(), cleaned.string());
    if (form == CleanForm::Text) {
        std::u16string shownText = cleaned.string();
        std::erase(shownText, kReplacedObject);
        output(platform::utf8FromUtf16(shownText));
    } else {
        for (const Removal& removal : removals) {
            writeChange(text.string(), removal, output);
        }
    }
    return removals.size();
}

}  // namespace pvdoc
