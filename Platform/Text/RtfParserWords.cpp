// What the parser does at control words.

#include <algorithm>
#include <string>
#include <string_view>
#include <utility>

#include "Platform/Foundation/Unicode.h"
#include "Platform/Text/RtfField.h"
#include "Platform/Text/RtfParser.h"

namespace platform {
namespace {

/// The size of characters where the document says nothing.
constexpr std::int32_t kDefaultHalfPoints = 24;

/// In the order of RtfLength.
constexpr std::int32_t RtfParagraphFormat::*kLengths[] = {
    &RtfParagraphFormat::left, &RtfParagraphFormat::firstLine, &RtfParagraphFormat::right,
    &RtfParagraphFormat::before, &RtfParagraphFormat::after};

/// Whether a word without a number, or with one other than 0, switches something on.
bool isOn(const RtfToken& token) {
    return !token.hasParameter || token.parameter != 0;
}

std::u16string_view trimmed(std::u16string_view text) {
    const std::size_t first = std::min(text.find_first_not_of(u' '), text.size());
    return text.substr(first, text.find_last_not_of(u' ') + 1 - first);
}

}  // namespace

void RtfParser::perform(const RtfControlWord& word, const RtfToken& token) {
    switch (word.action) {
        case RtfAction::Insert:
            insert(static_cast<char16_t>(word.argument));
            break;
        case RtfAction::EndParagraph:
            endParagraph();
            break;
        case RtfAction::EndCell:
            if (state_.kind == TextKind::Body) {
                text().endCell(state_.paragraph);
            }
            break;
        case RtfAction::EndRow:
            endRow();
            break;
        case RtfAction::Unicode:
            insertUnicode(token.parameter);
            break;
        case RtfAction::UnicodeSkip:
            state_.unicodeSkip = std::max(token.parameter, 0);
            break;
        case RtfAction::Binary:
            tokenizer_.skipBytes(static_cast<std::size_t>(std::max(token.parameter, 0)));
            break;
        case RtfAction::CodePage:
            if (isRtfCodePage(token.parameter)) {
                namesCodePage_ = true;
                setDocumentCodePage(token.parameter);
            }
            break;
        case RtfAction::CharacterSet:
            if (!namesCodePage_) {
                setDocumentCodePage(word.argument);
            }
            break;
        case RtfAction::DefaultFont:
            defaultFont_ = token.parameter;
            break;
        case RtfAction::FontCharset:
            fonts_.setCharset(token.parameter);
            break;
        case RtfAction::FontCodePage:
            fonts_.setCodePage(token.parameter);
            break;
        case RtfAction::ColorPart:
            colors_.set(static_cast<RtfColors::Part>(word.argument), token.parameter);
            break;
        case RtfAction::Destination:
            beginDestination(static_cast<RtfDestination>(word.argument));
            break;
        default:
            format(word, token);
    }
}

void RtfParser::format(const RtfControlWord& word, const RtfToken& token) {
    switch (word.action) {
        case RtfAction::ParagraphDefaults:
            state_.paragraph = {};
            break;
        case RtfAction::Alignment:
            state_.paragraph.alignment = static_cast<TextAlignment>(word.argument);
            break;
        case RtfAction::Direction:
            state_.paragraph.direction = static_cast<WritingDirection>(word.argument);
            break;
        case RtfAction::Length:
            state_.paragraph.*kLengths[static_cast<std::size_t>(word.argument)] = token.parameter;
            break;
        case RtfAction::TabKind:
            tabKind_ = static_cast<TextAlignment>(word.argument);
            break;
        case RtfAction::Tab:
            state_.paragraph.tabs = tabs_.with(state_.paragraph.tabs, token.parameter,
                                               std::exchange(tabKind_, TextAlignment::Left));
            break;
        case RtfAction::LineSpacing:
            state_.paragraph.lineSpacing = token.parameter;
            break;
        case RtfAction::LineSpacingKind:
            state_.paragraph.isMultiple = token.parameter != 0;
            break;
        default:
            formatCharacters(word, token);
            isStale_ = true;
    }
}

void RtfParser::formatCharacters(const RtfControlWord& word, const RtfToken& token) {
    RtfCharacterFormat& character = state_.character;
    switch (word.action) {
        case RtfAction::Plain:
            setPlain();
            break;
        case RtfAction::Flag:
            setFlag(static_cast<RtfFlag>(word.argument), isOn(token));
            break;
        case RtfAction::Underline:
            character.underline = static_cast<std::uint16_t>(isOn(token) ? word.argument : 0);
            break;
        case RtfAction::Strikethrough:
            character.strikethrough = static_cast<std::uint8_t>(isOn(token) ? word.argument : 0);
            break;
        case RtfAction::Superscript:
            character.superscript = static_cast<std::int8_t>(isOn(token) ? word.argument : 0);
            break;
        case RtfAction::Font:
            if (state_.kind == TextKind::FontTable) {
                fonts_.begin(token.parameter);
            } else {
                setFont(fonts_.indexOf(token.parameter));
            }
            break;
        case RtfAction::FontSize:
            character.halfPoints = static_cast<std::uint16_t>(
                token.parameter > 0 ? std::min(token.parameter, 0xFFFF) : kDefaultHalfPoints);
            break;
        case RtfAction::Color:
            character.color = colors_.indexOf(token.parameter);
            break;
        case RtfAction::BackgroundColor:
            character.backgroundColor = colors_.indexOf(token.parameter);
            break;
        default:
            break;
    }
}

void RtfParser::setFlag(RtfFlag flag, bool isOn) {
    switch (flag) {
        case RtfFlag::Bold:
            state_.character.isBold = isOn;
            break;
        case RtfFlag::Italic:
            state_.character.isItalic = isOn;
            break;
        case RtfFlag::Hidden:
            state_.isHidden = isOn;
            break;
        case RtfFlag::Deleted:
            state_.isDeleted = isOn;
            break;
    }
}

void RtfParser::setFont(std::uint16_t font) {
    state_.character.font = font;
    state_.codePage = fonts_.codePageAt(font);
    isStale_ = true;
}

void RtfParser::setPlain() {
    const std::uint16_t link = state_.character.link;
    state_.character = {};
    state_.character.link = link;
    state_.isHidden = false;
    state_.isDeleted = false;
    setFont(fonts_.indexOf(defaultFont_));
}

void RtfParser::setDocumentCodePage(int codePage) {
    fonts_.setDocumentCodePage(codePage);
    setFont(state_.character.font);
}

void RtfParser::beginDestination(RtfDestination destination) {
    const bool isDocument = states_.size() <= 1;
    if (destination == RtfDestination::Body || isDocument) {
        return;
    }
    if (destination == RtfDestination::InUnicode) {
        state_.kind = state_.alternative;
        return;
    }
    // Groups that share a state have no end of their own: they are text, or nothing.
    const bool isText =
        destination == RtfDestination::Note || destination == RtfDestination::Object ||
        destination == RtfDestination::Field || destination == RtfDestination::FieldResult;
    if (deeper_ != 0 && isText) {
        return;
    }
    const bool isLost = deeper_ != 0 || state_.kind == TextKind::Dropped;
    if (isLost || destination == RtfDestination::Skipped) {
        tokenizer_.skipToGroupEnd();
        return;
    }
    isStale_ = true;
    begin(destination);
}

void RtfParser::begin(RtfDestination destination) {
    switch (destination) {
        case RtfDestination::FontTable:
            state_.kind = TextKind::FontTable;
            state_.end = GroupEnd::FontTable;
            break;
        case RtfDestination::ColorTable:
            state_.kind = TextKind::ColorTable;
            break;
        case RtfDestination::Note:
            // A note of a note is text of that.
            if (state_.text == &body_) {
                state_.text = &notes_;
                state_.end = GroupEnd::Note;
            }
            break;
        case RtfDestination::Picture:
            attach(RtfAttributes::kFilelessAttachment);
            tokenizer_.skipToGroupEnd();
            break;
        case RtfDestination::Object:
            state_.end = GroupEnd::Object;
            state_.start = state_.text->length();
            break;
        case RtfDestination::Graphic:
            readName(GroupEnd::Graphic);
            break;
        case RtfDestination::Field:
            state_.fieldLink = state_.character.link;
            state_.isSymbol = false;
            break;
        case RtfDestination::FieldInstruction:
            readName(GroupEnd::Instruction);
            break;
        case RtfDestination::FieldResult:
            state_.character.link = state_.fieldLink;
            if (state_.isSymbol) {
                tokenizer_.skipToGroupEnd();
            }
            break;
        case RtfDestination::Alternatives:
            state_.alternative = std::exchange(state_.kind, TextKind::Dropped);
            break;
        default:
            break;
    }
}

void RtfParser::readName(GroupEnd end) {
    state_.kind = TextKind::Body;
    state_.isHidden = false;
    state_.isDeleted = false;
    state_.text = &names_;
    state_.start = names_.length();
    state_.end = end;
}

void RtfParser::finishInstruction(std::size_t start) {
    const RtfField field = rtfField(names_.takeCharacters(start));
    if (!field.link.empty()) {
        state_.fieldLink = attributes_.addLink(utf8FromUtf16(field.link));
    }
    if (field.symbol) {
        state_.isSymbol = true;
        takeUnit(*field.symbol);
    }
}

void RtfParser::finishGraphic(std::size_t start) {
    const std::u16string taken = names_.takeCharacters(start);
    const std::string name = utf8FromUtf16(trimmed(taken));
    auto attachment = findAttachment_ ? findAttachment_(name) : nullptr;
    attach(attachment ? attributes_.addAttachment(std::move(attachment))
                      : RtfAttributes::kFilelessAttachment);
    // A character for readers that show no pictures follows.
    standIns_ = 1;
}

}  // namespace platform
