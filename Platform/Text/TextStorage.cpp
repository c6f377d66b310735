#include "Platform/Text/TextStorage.h"

#include <algorithm>
#include <iterator>

#include "Platform/Foundation/Exception.h"

namespace platform {
namespace {

using Runs = std::vector<AttributeRun>;

/// A place in a list of runs: so many characters into the run with that number.
struct Place {
    std::size_t run = 0;
    std::uint64_t offset = 0;
};

/// Where the character at `location` lies; behind the last run for the end of the text.
Place placeOf(const Runs& runs, std::uint64_t location) {
    Place place{0, location};
    while (place.run < runs.size() && place.offset >= runs[place.run].length) {
        place.offset -= runs[place.run].length;
        ++place.run;
    }
    return place;
}

void replaceRuns(Runs& runs, Range range, const Runs& replacement) {
    const Place start = placeOf(runs, range.location);
    const Place end = placeOf(runs, range.end());
    // With the neighbours on both sides, which may go on in the new runs.
    std::size_t first = start.run;
    std::size_t behind = end.run;
    Runs pieces;
    if (start.offset > 0) {
        appendRun(pieces, start.offset, runs[start.run].attributes);
    } else if (start.run > 0) {
        --first;
        appendRun(pieces, runs[first].length, runs[first].attributes);
    }
    for (const AttributeRun& run : replacement) {
        appendRun(pieces, run.length, run.attributes);
    }
    if (end.run < runs.size()) {
        appendRun(pieces, runs[end.run].length - end.offset, runs[end.run].attributes);
        ++behind;
    }
    const auto place = [&](std::size_t number) {
        return runs.begin() + static_cast<std::ptrdiff_t>(number);
    };
    const std::size_t common = std::min(behind - first, pieces.size());
    std::move(pieces.begin(), pieces.begin() + static_cast<std::ptrdiff_t>(common), place(first));
    runs.erase(place(first + common), place(behind));
    runs.insert(place(first + common),
                std::make_move_iterator(pieces.begin() + static_cast<std::ptrdiff_t>(common)),
                std::make_move_iterator(pieces.end()));
}

}  // namespace

const AttributedString& TextStorage::attributedString() const {
    if (draft_) {
        text_ = AttributedString(std::move(draft_->string), std::move(draft_->runs));
        draft_.reset();
    }
    return text_;
}

const std::u16string& TextStorage::string() const {
    return draft_ ? *draft_->string : text_.string();
}

const std::vector<AttributeRun>& TextStorage::runs() const {
    return draft_ ? draft_->runs : text_.runs();
}

void TextStorage::replaceCharactersInRangeWithAttributedString(Range range,
                                                               AttributedString attributedString) {
    requireInText(range);
    if (range.length == length()) {
        return setAttributedString(std::move(attributedString));
    }
    if (!draft_) {
        draft_ = Draft{std::make_shared<std::u16string>(text_.string()), text_.runs()};
        text_ = AttributedString();
    }
    draft_->string->replace(range.location, range.length, attributedString.string());
    replaceRuns(draft_->runs, range, attributedString.runs());
}

void TextStorage::replaceCharactersInRangeWithString(Range range, std::u16string string) {
    requireInText(range);
    const bool hasCharacters = range.length > 0 || range.location > 0;
    const Attributes attributes =
        hasCharacters
            ? runs()[placeOf(runs(), range.location - (range.length > 0 ? 0 : 1)).run].attributes
            : nullptr;
    Runs run;
    appendRun(run, string.size(), attributes);
    replaceCharactersInRangeWithAttributedString(
        range, AttributedString(std::make_shared<const std::u16string>(std::move(string)),
                                std::move(run)));
}

void TextStorage::setAttributedString(AttributedString attributedString) {
    draft_.reset();
    text_ = std::move(attributedString);
}

void TextStorage::requireInText(Range range) const {
    if (!range.liesWithin(length())) {
        raise(RangeException("range of " + std::to_string(range.length) + " at " +
                             std::to_string(range.location) + " beyond " +
                             std::to_string(length()) + " characters"));
    }
}

}  // namespace platform
