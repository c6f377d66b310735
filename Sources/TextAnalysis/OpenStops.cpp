#include "Sources/TextAnalysis/OpenStops.h"

#include <algorithm>
#include <memory>

#include "Platform/Text/CharacterSet.h"
#include "Sources/TextAnalysis/LanguageChunks.h"

namespace parlavox {

using platform::Range;
using platform::TextUnit;
using platform::TextUnitKind;
using platform::TextUnits;

namespace {

/// The full stops, after which a sentence goes on when the next letter is a small one.
bool isFullStop(char16_t unit) {
    return unit == u'.' || unit == u'\u2024' || unit == u'\uFE52' || unit == u'\uFF0E';
}

/// Whether a unit is a letter to the rules of sentences: half-width voicing marks are none.
bool isSentenceLetter(char16_t unit) {
    return unit != u'\uFF9E' && unit != u'\uFF9F' && platform::isBaseLetter(unit);
}

bool isPlainSign(char16_t unit) {
    return unit < 0x80 && !isSentenceLetter(unit);
}

}  // namespace

std::optional<std::uint64_t> OpenStops::lastLongEnd(std::uint64_t target,
                                                    const TextUnit& sentence) {
    if (target < known_.location || target >= known_.end()) {
        lookAt(target, sentence);
    }
    const auto behind = std::upper_bound(longEnds_.begin(), longEnds_.end(), target);
    return behind == longEnds_.begin() ? std::nullopt : std::optional(*(behind - 1));
}

/// Finds the stretch with `target`, and the places around it that have the same last unit besides
/// plain signs: others, as circled letters are, may decide stops without being letters.
void OpenStops::lookAt(std::uint64_t target, const TextUnit& sentence) {
    const Range all = sentence.enclosingRange;
    std::uint64_t begin = target;
    while (begin > all.location && isPlainSign(string_[begin])) {
        --begin;
    }
    std::uint64_t end = target + 1;
    while (end < all.end() && isPlainSign(string_[end])) {
        ++end;
    }
    known_ = {begin, end - begin};
    while (begin > all.location && !isSentenceLetter(string_[begin])) {
        --begin;
    }
    stretch_ = {begin, end - begin};
    longEnds_.clear();
    const std::u16string_view units = string_.substr(begin, end - begin);
    if (std::any_of(units.begin(), units.end(), isFullStop)) {
        findLongEnds(sentence);
    }
}

void OpenStops::findLongEnds(const TextUnit& sentence) {
    const auto parts =
        TextUnits::over(string_.substr(stretch_.location, stretch_.length), TextUnitKind::Sentence);
    bool isFirst = true;
    for (bool isAtOne = parts->moveToFirst(); isAtOne; isAtOne = parts->moveToNext()) {
        const TextUnit& part = parts->unit();
        // The first part ends what begins where the whole sentence does.
        const std::uint64_t textStart =
            isFirst ? std::min(sentence.substringRange.location,
                               stretch_.location + part.substringRange.location)
                    : stretch_.location + part.substringRange.location;
        const std::uint64_t textEnd = stretch_.location + part.substringRange.end();
        if (textEnd - textStart >= kMinimalSentenceLengthToDetectLanguage) {
            longEnds_.push_back(stretch_.location + part.enclosingRange.end());
        }
        isFirst = false;
    }
}

}  // namespace parlavox
