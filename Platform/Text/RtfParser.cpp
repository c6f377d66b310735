#include "Platform/Text/RtfParser.h"

#include <algorithm>
#include <utility>

#include "Platform/Foundation/Unicode.h"

namespace platform {
namespace {

/// Programs nest a few dozen deep.
constexpr std::size_t kMostStates = 4096;

constexpr std::int32_t kUtf16Units = 0x10000;
constexpr std::int32_t kCodePoints = 0x110000;

/// A run takes five times the memory of the shortest word that begins one. So there are fewer than
/// a document could ask for, but more than programs do.
std::size_t mostRunsOf(std::string_view document) {
    constexpr std::size_t kBytesForEach = 6;
    constexpr std::size_t kAlways = 4096;
    return kAlways + document.size() / kBytesForEach;
}

/// The character of a symbol; 0 for one that has none.
char16_t characterOf(char symbol) {
    switch (symbol) {
        case '~':
            return 0xA0;
        case '-':
            return 0xAD;
        case '_':
            return 0x2011;
        case '\t':
            return u'\t';
        default:
            return 0;
    }
}

}  // namespace

RtfParser::RtfParser(std::string_view document, const AttachmentFinder& findAttachment)
    : tokenizer_(document),
      findAttachment_(findAttachment),
      attributes_(fonts_, colors_, tabs_),
      body_(attributes_, mostRunsOf(document)),
      notes_(attributes_, mostRunsOf(document)),
      names_(attributes_, 0) {
    body_.reserve(document.size());
    state_.text = &body_;
}

AttributedString RtfParser::parse() {
    while (take(tokenizer_.next())) {
    }
    body_.takeParagraphs(notes_, state_.paragraph);
    return body_.finish(state_.paragraph);
}

bool RtfParser::take(const RtfToken& token) {
    const bool isGroupStart = std::exchange(isGroupStart_, false);
    const bool isMarked = std::exchange(isMarked_, false);
    switch (token.kind) {
        case RtfTokenKind::Text:
            takeText(token.text, token.isAscii);
            break;
        case RtfTokenKind::Open:
            open();
            break;
        case RtfTokenKind::Close:
            return close();
        case RtfTokenKind::Word:
            takeWord(token, isMarked);
            break;
        case RtfTokenKind::Symbol:
            isMarked_ = isGroupStart && token.text == "*";
            takeSymbol(token.text);
            break;
        case RtfTokenKind::End:
            return false;
    }
    return true;
}

void RtfParser::open() {
    isGroupStart_ = true;
    standIns_ = 0;
    if (states_.size() == kMostStates) {
        ++deeper_;
        return;
    }
    states_.push_back(state_);
    state_.end = GroupEnd::None;
}

bool RtfParser::close() {
    standIns_ = 0;
    if (deeper_ != 0) {
        --deeper_;
        return true;
    }
    // The document's own group: its state is that of the last paragraph.
    if (states_.size() <= 1) {
        return false;
    }
    isStale_ = true;
    const State group = std::exchange(state_, states_.back());
    states_.pop_back();
    finishGroup(group);
    return true;
}

void RtfParser::finishGroup(const State& group) {
    switch (group.end) {
        case GroupEnd::None:
            break;
        case GroupEnd::FontTable:
            fonts_.end();
            setFont(fonts_.indexOf(defaultFont_));
            break;
        case GroupEnd::Note:
            notes_.finishParagraph(group.paragraph);
            break;
        case GroupEnd::Instruction:
            finishInstruction(group.start);
            break;
        case GroupEnd::Object:
            if (state_.text->length() == group.start) {
                attach(RtfAttributes::kFilelessAttachment);
            }
            break;
        case GroupEnd::Graphic:
            finishGraphic(group.start);
            break;
    }
}

void RtfParser::takeText(std::string_view bytes, bool areAscii) {
    if (standIns_ != 0) {
        const auto count = std::min(static_cast<std::size_t>(standIns_), bytes.size());
        standIns_ -= static_cast<std::int32_t>(count);
        bytes.remove_prefix(count);
    }
    switch (state_.kind) {
        case TextKind::Body:
            if (isShown() && !bytes.empty()) {
                text().append(bytes, areAscii);
            }
            break;
        case TextKind::Dropped:
            break;
        case TextKind::FontTable:
            fonts_.append(bytes);
            break;
        case TextKind::ColorTable:
            colors_.append(bytes);
            break;
    }
}

void RtfParser::takeUnit(char16_t unit) {
    if (state_.kind == TextKind::FontTable) {
        fonts_.append(unit);
    } else if (isShown()) {
        text().appendUnit(unit);
    }
}

void RtfParser::takeSymbol(std::string_view symbol) {
    switch (symbol.front()) {
        case '*':
        case '\'':
            break;
        case '\r':
        case '\n':
            endParagraph();
            break;
        case '{':
        case '}':
        case '\\':
            takeText(symbol, true);
            break;
        default:
            insert(characterOf(symbol.front()));
            break;
    }
}

void RtfParser::takeWord(const RtfToken& token, bool isMarked) {
    const RtfControlWord* const word = rtfControlWord(token);
    if (isMarked && (word == nullptr || word->action != RtfAction::Destination)) {
        tokenizer_.skipToGroupEnd();
        return;
    }
    // Only characters are to stand in for one, but programs count words, too.
    const bool isCharacter = word != nullptr && (word->action == RtfAction::Insert ||
                                                 word->action == RtfAction::Unicode);
    if (standIns_ != 0 && !isCharacter) {
        --standIns_;
    }
    if (word != nullptr) {
        perform(*word, token);
    }
}

RtfText& RtfParser::text() {
    if (std::exchange(isStale_, false)) {
        state_.text->setFormat(state_.character);
        state_.text->setCodePage(state_.codePage);
    }
    return *state_.text;
}

void RtfParser::insert(char16_t unit) {
    if (standIns_ != 0) {
        --standIns_;
    } else if (unit != 0 && isShown()) {
        text().append(unit);
    }
}

void RtfParser::insertUnicode(std::int32_t number) {
    constexpr std::int32_t kPrivate = 0xF000;
    number += number < 0 ? kUtf16Units : 0;
    if (state_.codePage == kRtfSymbolCodePage && number >= kPrivate && number <= kPrivate + 0xFF) {
        number = rtfSymbol(static_cast<std::uint8_t>(number - kPrivate));
    }
    if (number < 0 || number >= kCodePoints) {
        takeUnit(kReplacementCharacter);
    } else if (number >= kUtf16Units) {
        // Not the way that RTF has for it, but there is only one meaning.
        takeUnit(static_cast<char16_t>(0xD7C0 + (number >> 10)));
        takeUnit(static_cast<char16_t>(0xDC00 + (number & 0x3FF)));
    } else if (number != 0) {
        takeUnit(static_cast<char16_t>(number));
    }
    standIns_ = state_.unicodeSkip;
}

void RtfParser::attach(std::uint16_t attachment) {
    if (isShown()) {
        RtfCharacterFormat format = state_.character;
        format.attachment = attachment;
        state_.text->setFormat(format);
        state_.text->append(kAttachmentCharacter);
        isStale_ = true;
    }
}

void RtfParser::endParagraph() {
    if (isShown()) {
        text().endParagraph(state_.paragraph);
        if (state_.text == &body_) {
            body_.takeParagraphs(notes_, state_.paragraph);
        }
    }
}

void RtfParser::endRow() {
    if (state_.kind == TextKind::Body) {
        text().endRow(state_.paragraph);
        if (state_.text == &body_) {
            body_.takeParagraphs(notes_, state_.paragraph);
        }
    }
}

}  // namespace platform
