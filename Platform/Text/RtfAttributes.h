// The attributes of an RTF text: each look that occurs becomes one set, which its runs share.
//
// One thread at a time.

#pragma once

#include <array>
#include <compare>
#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "Platform/Text/AttributedString.h"
#include "Platform/Text/RtfFormat.h"
#include "Platform/Text/RtfTables.h"
#include "Platform/Text/TextAttachment.h"

namespace platform {

/// Makes sets of attributes, each once.
///
/// A hostile text could have a look of its own for every few bytes, and a set takes hundreds. So
/// there is a most; looks beyond it have no attributes but their attachments.
class RtfAttributes {
public:
    static constexpr std::size_t kMostSets = 1U << 14U;

    /// Requires: the tables live as long as this object. Their entries don't change after their
    /// first use.
    RtfAttributes(const RtfFonts& fonts, const RtfColors& colors, const RtfTabs& tabs);

    /// Returns the number that stands for a link or an attachment in formats. There are fewer than
    /// 2^16 links, then none is answered; and kMostAttachments, then one without a file.
    [[nodiscard]] std::uint16_t addLink(std::string url);
    [[nodiscard]] std::uint16_t addAttachment(std::shared_ptr<const TextAttachment> attachment);

    /// The attachment without a file.
    static constexpr std::uint16_t kFilelessAttachment = 1;

    /// Returns the number of the set for a look.
    [[nodiscard]] std::uint32_t indexOf(const RtfCharacterFormat& character,
                                        const RtfParagraphFormat& paragraph);

    /// The set of a number.
    [[nodiscard]] const Attributes& operator[](std::uint32_t index) const { return sets_[index]; }

private:
    struct Look {
        RtfCharacterFormat character;
        RtfParagraphFormat paragraph;

        friend auto operator<=>(const Look&, const Look&) = default;
    };
    using FontLook = std::array<std::uint16_t, 4>;
    static constexpr std::size_t kMostAttachments = 4096;

    [[nodiscard]] Attributes attributesOf(const Look& look);
    [[nodiscard]] Value fontOf(const RtfCharacterFormat& character);
    [[nodiscard]] Value paragraphStyleOf(const RtfParagraphFormat& paragraph);
    [[nodiscard]] Value colorAt(std::uint16_t index) const;

    const RtfFonts& fonts_;
    const RtfColors& colors_;
    const RtfTabs& tabs_;
    std::vector<Value> links_;
    std::vector<Value> attachments_;
    std::map<Look, std::uint32_t> indices_;
    std::vector<Attributes> sets_;
    /// What sets share.
    std::map<FontLook, Value> fontValues_;
    std::map<RtfParagraphFormat, Value> paragraphStyles_;
};

}  // namespace platform
