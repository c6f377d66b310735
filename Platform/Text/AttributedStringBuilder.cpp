#include "Platform/Text/AttributedStringBuilder.h"

#include <algorithm>
#include <memory>
#include <utility>

#include "Platform/Foundation/Exception.h"

namespace platform {

void AttributedStringBuilder::append(const AttributedString& source, Range range) {
    if (!range.liesWithin(source.length())) {
        raise(RangeException("range of " + std::to_string(range.length) + " at " +
                             std::to_string(range.location) + " beyond " +
                             std::to_string(source.length()) + " characters"));
    }
    if (range.length == 0) {
        return;
    }
    if (isWhole_) {
        copy({0, source_.length()});
        isWhole_ = false;
    }
    // The source is kept, so nothing else can stand where its parts are.
    const bool isSameSource =
        &source.runs() == &source_.runs() && &source.string() == &source_.string();
    if (!isSameSource || range.location < runStart_) {
        source_ = source;
        run_ = 0;
        runStart_ = 0;
    }
    if (string_.empty() && range.length == source.length()) {
        isWhole_ = true;
    } else {
        copy(range);
    }
}

AttributedString AttributedStringBuilder::finish() {
    AttributedStringBuilder built;
    std::swap(built, *this);
    if (built.isWhole_) {
        return std::move(built.source_);
    }
    return {std::make_shared<const std::u16string>(std::move(built.string_)),
            std::move(built.runs_)};
}

void AttributedStringBuilder::copy(Range range) {
    const std::vector<AttributeRun>& runs = source_.runs();
    string_.append(source_.string(), range.location, range.length);
    for (std::uint64_t location = range.location; location < range.end();) {
        while (location - runStart_ >= runs[run_].length) {
            runStart_ += runs[run_].length;
            ++run_;
        }
        const std::uint64_t end = std::min(runStart_ + runs[run_].length, range.end());
        appendRun(runs_, end - location, runs[run_].attributes);
        location = end;
    }
}

}  // namespace platform
