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

    /// Returns the number that stands for a layout of paragraphs; that of the default one when
    /// there are too many.
    [[nodiscard]] std::uint16_t indexOf(const RtfParagraphFormat& paragraph);

    /// Returns the number of the set for a look of characters in paragraphs of a layout's number.
    [[nodiscard]] std::uint32_t indexOf(const RtfCharacterFormat& character,
                                        std::uint16_t paragraph);

    /// The number of no set at all.
    static constexpr std::uint32_t kNoAttributes = 0;

    /// The set of a number.
    [[nodiscard]] const Attributes& operator[](std::uint32_t index) const { return sets_[index]; }

private:
    struct Look {
        RtfCharacterFormat character;
        std::uint16_t paragraph = 0;

        friend auto operator<=>(const Look&, const Look&) = default;
    };
    using FontLook = std::array<std::uint16_t, 4>;
    static constexpr std::size_t kMostAttachments = 4096;

    /// A look that was asked for lately.
    struct Recent {
        Look look;
        std::uint32_t index = 0;
        bool isSet = false;
    };
    static constexpr std::size_t kMostRecent = 64;

    [[nodiscard]] std::uint32_t findIndex(Look look);
    [[nodiscard]] Attributes attributesOf(const Look& look);
    [[nodiscard]] Value fontOf(const RtfCharacterFormat& character);
    [[nodiscard]] Value paragraphStyleOf(const RtfParagraphFormat& paragraph) const;
    [[nodiscard]] Value colorAt(std::uint16_t index) const;

    const RtfFonts& fonts_;
    const RtfColors& colors_;
    const RtfTabs& tabs_;
    std::vector<Value> links_;
    std::vector<Value> attachments_;
    static constexpr std::size_t kMostParagraphs = 4096;

    std::map<RtfParagraphFormat, std::uint16_t> paragraphIndices_;
    /// Null for the default layout, which has the number 0.
    std::vector<Value> paragraphStyles_;
    /// What was asked for last.
    RtfParagraphFormat paragraph_;
    std::uint16_t paragraphIndex_ = 0;

    std::map<Look, std::uint32_t> indices_;
    std::array<Recent, kMostRecent> recent_;
    std::vector<Attributes> sets_;
    /// What sets share.
    std::map<FontLook, Value> fontValues_;
};

}  // namespace platform
