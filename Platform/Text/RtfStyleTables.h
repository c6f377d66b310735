// The tables at the beginning of an RTF file, and the control words that refer to them.
//
// One thread at a time.

#pragma once

#include <map>
#include <string>
#include <string_view>
#include <tuple>
#include <unordered_map>
#include <vector>

#include "Platform/Text/AttributedString.h"
#include "Platform/Text/ParagraphStyle.h"

namespace platform {

/// Appends text with what RTF gives a meaning to escaped. Ends of paragraphs are for the caller.
void appendRtfText(std::string& rtf, std::u16string_view text);

/// Collects the fonts and colours that texts use.
class RtfStyleTables {
public:
    /// The control words that give text the attributes, from plain text on. They end in a space.
    [[nodiscard]] const std::string& wordsFor(const Attributes& attributes);

    /// The control words that give a paragraph the layout that the attributes state, from a plain
    /// paragraph on; without a space at their end.
    [[nodiscard]] const std::string& paragraphWordsFor(const Attributes& attributes);

    /// The font table and the colour table.
    [[nodiscard]] std::string tables() const;

private:
    using Words = std::unordered_map<const void*, std::string>;

    [[nodiscard]] std::string newWordsFor(const Dictionary& attributes);
    void appendFont(std::string& words, const Dictionary& attributes);
    void appendColor(std::string& words, std::string_view word, const Value& color);

    Words words_;
    Words paragraphWords_;
    // Names come from documents: ordered, they cost the same whatever they are.
    std::map<std::string, std::size_t> fonts_;
    std::vector<std::string> fontNames_;
    std::map<std::string, std::size_t> colors_;
    std::vector<std::string> colorEntries_;
};

}  // namespace platform
