#include "Sources/TextImport/PDFImporter.h"

#include <cmath>
#include <cstdint>
#include <memory>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "Platform/Text/AttributeNames.h"
#include "Platform/Text/Font.h"
#include "Platform/Text/ParagraphStyle.h"
#include "Sources/TextImport/ImportUtils.h"

namespace parlavox {

using platform::AttributedString;
using platform::AttributeRun;
using platform::Attributes;
using platform::Data;
using platform::Dictionary;
using platform::Font;
using platform::kFontAttributeName;
using platform::kParagraphStyleAttributeName;
using platform::ParagraphStyle;
using platform::PDFDocument;
using platform::PDFPage;
using platform::Value;

namespace {

/// Changes the attributes of runs, those of equal runs once. Holds what it was given, so that the
/// next set is no other one at the same address.
template <class Change>
class AttributeChange {
public:
    explicit AttributeChange(Change change) : change_(std::move(change)) {}

    Attributes operator()(const Attributes& attributes) {
        const auto found = changed_.find(attributes);
        return found != changed_.end()
                   ? found->second
                   : changed_.emplace(attributes, change_(attributes)).first->second;
    }

private:
    Change change_;
    std::unordered_map<Attributes, Attributes> changed_;
};

std::shared_ptr<const Font> fontOf(const Attributes& attributes) {
    const Value* const value = attributes ? attributes->find(kFontAttributeName) : nullptr;
    return value == nullptr ? nullptr : std::dynamic_pointer_cast<const Font>(value->object());
}

/// What is left of a run's attributes when they are written as RTF and read again as a plain
/// text's: its font, in half points.
Attributes normalised(const Attributes& attributes) {
    const auto font = fontOf(attributes);
    if (font == nullptr) {
        return nullptr;
    }
    Dictionary kept;
    const double size = std::round(2 * font->pointSize()) / 2;
    kept.set(kFontAttributeName, Value(std::make_shared<const Font>(font->fontName(), size)));
    return std::make_shared<const Dictionary>(std::move(kept));
}

/// The texts of pages, one behind the other.
class PageTexts {
public:
    void append(const AttributedString& page) {
        string_ += page.string();
        for (const AttributeRun& run : page.runs()) {
            platform::appendRun(runs_, run.length, change_(run.attributes));
        }
    }

    AttributedString finish() {
        return {std::make_shared<const std::u16string>(std::move(string_)), std::move(runs_)};
    }

private:
    std::u16string string_;
    std::vector<AttributeRun> runs_;
    AttributeChange<Attributes (*)(const Attributes&)> change_{normalised};
};

/// The text with the platform's default paragraph style over the whole and no other.
AttributedString inDefaultParagraphStyle(const AttributedString& text) {
    const Value style(std::make_shared<const ParagraphStyle>(platform::ParagraphLayout{}));
    AttributeChange change([&](const Attributes& attributes) {
        Dictionary changed = attributes ? *attributes : Dictionary();
        changed.set(kParagraphStyleAttributeName, style);
        return std::make_shared<const Dictionary>(std::move(changed));
    });
    std::vector<AttributeRun> runs;
    for (const AttributeRun& run : text.runs()) {
        platform::appendRun(runs, run.length, change(run.attributes));
    }
    return {text.sharedString(), std::move(runs)};
}

}  // namespace

std::optional<AttributedString> PDFImporter::createStringFromPDFData(
    const std::optional<Data>& data) {
    const auto document = data ? PDFDocument::initWithData(*data) : nullptr;
    return document ? std::optional(createStringFromDocument(*document)) : std::nullopt;
}

AttributedString PDFImporter::createStringFromDocument(PDFDocument& document) {
    PageTexts texts;
    for (std::uint64_t index = 0; index < document.pageCount(); index++) {
        // Each page goes before the next one comes.
        if (const std::shared_ptr<PDFPage> page = document.pageAtIndex(index)) {
            texts.append(page->attributedString());
        }
    }
    return inDefaultParagraphStyle(ImportUtils::createCleanCopyFromPDFString(texts.finish()));
}

}  // namespace parlavox
