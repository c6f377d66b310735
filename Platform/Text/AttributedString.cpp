#include "Platform/Text/AttributedString.h"

#include <cassert>

#include "Platform/Foundation/Exception.h"

namespace platform {

void appendRun(std::vector<AttributeRun>& runs, std::uint64_t length,
               const Attributes& attributes) {
    if (length == 0) {
        return;
    }
    if (!runs.empty() && runs.back().attributes == attributes) {
        runs.back().length += length;
    } else {
        runs.push_back({length, attributes});
    }
}

AttributedString::AttributedString() : AttributedString(std::u16string()) {
}

AttributedString::AttributedString(std::u16string string)
    : AttributedString(std::make_shared<const std::u16string>(std::move(string)), {}) {
}

AttributedString::AttributedString(std::shared_ptr<const std::u16string> string,
                                   std::vector<AttributeRun> runs)
    : string_(std::move(string)) {
    std::uint64_t covered = 0;
    for (const AttributeRun& run : runs) {
        covered += run.length;
    }
    assert(covered <= length());
    if (covered < length()) {
        runs.push_back({length() - covered, nullptr});
    }
    runs_ = std::make_shared<const std::vector<AttributeRun>>(std::move(runs));
}

Attributes AttributedString::attributesAtIndex(std::uint64_t index, Range* effectiveRange) const {
    if (index >= length()) {
        raise(RangeException("index " + std::to_string(index) + " beyond " +
                             std::to_string(length()) + " characters"));
    }
    std::uint64_t start = 0;
    auto run = runs_->begin();
    while (index - start >= run->length) {
        start += run->length;
        ++run;
    }
    if (effectiveRange != nullptr) {
        *effectiveRange = {start, run->length};
    }
    return run->attributes;
}

}  // namespace platform
