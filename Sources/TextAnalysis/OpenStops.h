// Where a sentence would end if the text ended earlier.
//
// A full stop ends no sentence when the next letter behind it is a small one. Up to a place between
// the two, the stop does end it: it is open there. Only stops behind the last letter are open, so a
// stretch that begins with a letter and goes on without letters tells all about its places.
//
// An object belongs to one thread at a time; its text must stay as it is while it lives.

#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "Platform/Text/TextUnits.h"

namespace parlavox {

/// Finds the ends at open stops. It remembers the last stretch, so that many places of one stretch
/// cost one walk over it.
class OpenStops {
public:
    explicit OpenStops(std::u16string_view string) : string_(string) {}

    /// The end of the last sentence that is long enough to tell its language and that ends at an
    /// open stop in the text up to `target`, that included.
    ///
    /// Requires: `target` lies in `sentence`, which is one of the whole text's.
    [[nodiscard]] std::optional<std::uint64_t> lastLongEnd(std::uint64_t target,
                                                           const platform::TextUnit& sentence);

private:
    void lookAt(std::uint64_t target, const platform::TextUnit& sentence);
    void findLongEnds(const platform::TextUnit& sentence);

    const std::u16string_view string_;
    /// The stretch that was looked at last, and the places that it tells all about.
    platform::Range stretch_;
    platform::Range known_;
    std::vector<std::uint64_t> longEnds_;
};

}  // namespace parlavox
