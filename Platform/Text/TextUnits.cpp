#include "Platform/Text/TextUnits.h"

#include "Platform/Text/ParagraphUnits.h"
#include "Platform/Text/SentenceUnits.h"
#include "Platform/Text/WordUnits.h"

namespace platform {

std::optional<TextUnitKind> textUnitKindIn(unsigned options) {
    switch (const unsigned unit = options & 0xFF) {
        case static_cast<unsigned>(TextUnitKind::Paragraph):
        case static_cast<unsigned>(TextUnitKind::Word):
        case static_cast<unsigned>(TextUnitKind::Sentence):
            return static_cast<TextUnitKind>(unit);
        default:
            return std::nullopt;
    }
}

std::unique_ptr<TextUnits> TextUnits::over(std::u16string_view text, TextUnitKind kind) {
    switch (kind) {
        case TextUnitKind::Paragraph:
            return std::make_unique<ParagraphUnits>(text);
        case TextUnitKind::Word:
            return std::make_unique<WordUnits>(text);
        case TextUnitKind::Sentence:
            break;
    }
    return std::make_unique<SentenceUnits>(text);
}

}  // namespace platform
