// Walks over an RTF document and does what its control words say.
//
// One thread at a time.

#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "Platform/Text/RtfAttributes.h"
#include "Platform/Text/RtfControlWords.h"
#include "Platform/Text/RtfFormat.h"
#include "Platform/Text/RtfReader.h"
#include "Platform/Text/RtfTables.h"
#include "Platform/Text/RtfText.h"
#include "Platform/Text/RtfTokenizer.h"

namespace platform {

/// Reads one document.
///
/// Groups nest on a stack of their states. It has a most: deeper groups share the state of the last
/// one, so that their text is kept and only what they change lasts longer than it should.
class RtfParser {
public:
    /// Requires: both live until the document is parsed.
    RtfParser(std::string_view document, const AttachmentFinder& findAttachment);

    /// Returns the document's text, once.
    [[nodiscard]] AttributedString parse();

private:
    /// What becomes of text.
    enum class TextKind : std::uint8_t { Body, Dropped, FontTable, ColorTable };

    /// What a group's end means.
    enum class GroupEnd : std::uint8_t { None, FontTable, Note, Instruction, Object, Graphic };

    /// What a group hands down to those inside it and takes back at its end.
    struct State {
        RtfCharacterFormat character;
        RtfParagraphFormat paragraph;
        /// Where the text of the body goes.
        RtfText* text = nullptr;
        TextKind kind = TextKind::Body;
        /// What the text of the alternative in Unicode is.
        TextKind alternative = TextKind::Body;
        bool isHidden = false;
        bool isDeleted = false;
        /// Whether the field stands for a character, its result for nothing.
        bool isSymbol = false;
        std::uint16_t fieldLink = 0;
        std::int32_t unicodeSkip = 1;
        int codePage = kRtfDefaultCodePage;
        /// Not handed down.
        GroupEnd end = GroupEnd::None;
        /// The text's length where the group began, for an end that asks for it.
        std::size_t start = 0;
    };

    [[nodiscard]] bool take(const RtfToken& token);
    void open();
    [[nodiscard]] bool close();
    void finishGroup(const State& group);

    void takeText(std::string_view bytes, bool areAscii);
    void takeUnit(char16_t unit);
    void takeSymbol(std::string_view symbol);
    void takeWord(const RtfToken& token, bool isMarked);

    void perform(const RtfControlWord& word, const RtfToken& token);
    void format(const RtfControlWord& word, const RtfToken& token);
    void formatCharacters(const RtfControlWord& word, const RtfToken& token);
    void setFlag(RtfFlag flag, bool isOn);
    void setFont(std::uint16_t font);
    void setPlain();
    void setDocumentCodePage(int codePage);
    void insertUnicode(std::int32_t number);
    void insert(char16_t unit);
    void attach(std::uint16_t attachment);
    void endParagraph();
    void endRow();

    void beginDestination(RtfDestination destination);
    void begin(RtfDestination destination);
    void readName(GroupEnd end);
    void finishInstruction(std::size_t start);
    void finishGraphic(std::size_t start);

    [[nodiscard]] bool isShown() const {
        return state_.kind == TextKind::Body && !state_.isHidden && !state_.isDeleted;
    }
    /// The text with the look and the code page that are in force.
    RtfText& text();

    RtfTokenizer tokenizer_;
    const AttachmentFinder& findAttachment_;
    RtfFonts fonts_;
    RtfColors colors_;
    RtfTabs tabs_;
    RtfAttributes attributes_;
    RtfText body_;
    RtfText notes_;
    /// Instructions of fields and names of files.
    RtfText names_;

    State state_;
    std::vector<State> states_;
    /// Groups that are open beyond the stack's end.
    std::size_t deeper_ = 0;

    std::int32_t defaultFont_ = 0;
    /// The kind of the next tab.
    TextAlignment tabKind_ = TextAlignment::Left;
    bool namesCodePage_ = false;
    bool isGroupStart_ = false;
    /// Whether the next word is marked as one that readers may pass over.
    bool isMarked_ = false;
    /// Whether the text does not know yet what has changed.
    bool isStale_ = true;
    /// How many characters are to be left out because they stand in for one that has been read.
    std::int32_t standIns_ = 0;
};

}  // namespace platform
