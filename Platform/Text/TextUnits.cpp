#include "Platform/Text/TextUnits.h"

#include "Platform/Text/ParagraphUnits.h"
#include "Platform/Text/SentenceUnits.h"
#include "Platform/Text/WordUnits.h"

namespace platform {

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
