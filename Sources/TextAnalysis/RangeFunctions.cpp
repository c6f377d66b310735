#include "Sources/TextAnalysis/RangeFunctions.h"

#include <algorithm>
#include <utility>

namespace parlavox {

extern "C" Range PVIntersectionRange(Range first, Range second) {
    const bool isSecondFirst = second.location < first.location ||
                               (second.location == first.location && second.length > first.length);
    const auto [a, b] = isSecondFirst ? std::pair(second, first) : std::pair(first, second);
    if (a.end() <= b.location) {
        return NotFoundRange;
    }
    if (b.end() == 0 || a.end() == b.end()) {
        return b;
    }
    const Range shared{b.location, std::min(a.end(), b.end()) - b.location};
    return shared == Range{} ? NotFoundRange : shared;
}

}  // namespace parlavox
