// The attributes of a page's text: each look that occurs becomes one set, which its runs share.
//
// One thread at a time.

#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include "Platform/Text/AttributedString.h"
#include "Platform/Text/HtmlFormat.h"

namespace platform {

/// Makes sets of attributes, each once.
///
/// A hostile page could have a look of its own for every few bytes. So there is a most; looks
/// beyond it have no attributes.
class HtmlAttributes {
public:
    HtmlAttributes();

    /// Returns the number that stands for a link; that of none when there are too many.
    [[nodiscard]] std::uint16_t addLink(std::string_view url);

    /// Returns the number that stands for a list inside another; that of the other when there are
    /// too many, or they nest too deep.
    [[nodiscard]] std::uint16_t addList(std::uint16_t outer, const std::string& markerFormat,
                                        std::int32_t firstNumber);

    /// Returns the number of the set for a look.
    [[nodiscard]] std::uint32_t indexOf(const HtmlLook& look);

    /// The number of no set at all.
    static constexpr std::uint32_t kNoAttributes = 0;

    /// The set of a number.
    [[nodiscard]] const Attributes& operator[](std::uint32_t index) const { return sets_[index]; }

private:
    static constexpr std::size_t kMostSets = 1U << 14U;
    static constexpr std::size_t kMostLists = 4096;
    static constexpr std::size_t kDeepestList = 16;
    using ListKey = std::tuple<std::uint16_t, std::string, std::int32_t>;

    /// A look that was asked for lately.
    struct Recent {
        HtmlLook look;
        std::uint32_t index = 0;
        bool isSet = false;
    };
    static constexpr std::size_t kMostRecent = 64;

    [[nodiscard]] std::uint32_t findIndex(const HtmlLook& look);
    [[nodiscard]] Attributes attributesOf(const HtmlLook& look);
    [[nodiscard]] Value fontOf(const HtmlCharacterFormat& character);
    [[nodiscard]] Value paragraphStyleOf(const HtmlParagraphFormat& paragraph);

    std::vector<Value> links_;
    std::map<std::string, std::uint16_t, std::less<>> linkNumbers_;
    std::vector<std::vector<TextList>> lists_;
    std::map<ListKey, std::uint16_t> listNumbers_;
    std::map<HtmlLook, std::uint32_t> indices_;
    std::array<Recent, kMostRecent> recent_;
    std::vector<Attributes> sets_;
    /// What sets share.
    std::map<HtmlCharacterFormat, Value> fonts_;
    std::map<HtmlParagraphFormat, Value> paragraphStyles_;
};

}  // namespace platform
