// Any text with any runs through the copies of the import clean-up.
//
// The input begins with a number of runs, a byte, and a byte for each: the upper bits are its
// length and the lowest says that it carries an attachment. The rest is the text, little-endian.

#include <algorithm>
#include <cstring>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "Fuzz/Support/Input.h"
#include "Platform/Text/SpellChecker.h"
#include "Platform/Text/TextAttachment.h"
#include "Sources/TextImport/ImportUtils.h"
#include "Sources/TextImport/LineEndHyphens.h"

namespace {

using parlavox::ImportUtils;
using platform::AttributedString;
using platform::Attributes;

struct Input {
    AttributedString string;
    /// The characters without attachments.
    std::u16string withoutAttachments;
};

Attributes attributes(bool withAttachment) {
    platform::Dictionary dictionary;
    if (withAttachment) {
        dictionary.set(platform::kAttachmentAttributeName,
                       platform::Value(std::make_shared<const platform::TextAttachment>(nullptr)));
    }
    return std::make_shared<const platform::Dictionary>(std::move(dictionary));
}

Input inputIn(const std::uint8_t* bytes, std::size_t size) {
    const std::size_t runCount = size == 0 ? 0 : std::min<std::size_t>(bytes[0], size - 1);
    const std::size_t head = size == 0 ? 0 : 1 + runCount;
    std::u16string text((size - head) / 2, u'\0');
    if (!text.empty()) {
        std::memcpy(text.data(), bytes + head, 2 * text.size());
    }
    std::vector<platform::AttributeRun> runs;
    std::u16string plain;
    std::size_t covered = 0;
    for (std::size_t i = 0; i < runCount; ++i) {
        const bool withAttachment = (bytes[1 + i] & 1U) != 0;
        const std::size_t length = std::min<std::size_t>(bytes[1 + i] >> 1, text.size() - covered);
        if (length > 0) {
            runs.push_back({length, attributes(withAttachment)});
            plain += withAttachment ? u"" : text.substr(covered, length);
            covered += length;
        }
    }
    plain += text.substr(covered);
    auto shared = std::make_shared<const std::u16string>(std::move(text));
    return {AttributedString(std::move(shared), std::move(runs)), std::move(plain)};
}

/// Each hyphen decided on its own, without what others have taught.
std::u16string withoutLineEndHyphens(const std::u16string& text) {
    const auto checker = platform::SpellChecker::sharedSpellChecker();
    std::u16string kept;
    std::size_t from = 0;
    for (std::size_t at = text.find(u"- "); at != std::u16string::npos;
         at = text.find(u"- ", at + 2)) {
        parlavox::LineEndHyphens rule(text, checker, checker.availableLanguages());
        if (rule.shouldDelete({at, 2})) {
            kept += text.substr(from, at - from);
            from = at + 2;
        }
    }
    return kept + text.substr(from);
}

void expectText(const AttributedString& copy, const std::u16string& want, const char* what) {
    fuzz::expect(copy.string() == want, what);
    std::uint64_t covered = 0;
    for (const platform::AttributeRun& run : copy.runs()) {
        fuzz::expect(run.length > 0, "a run has a length");
        covered += run.length;
    }
    fuzz::expect(covered == copy.length(), "runs cover the text");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    const Input input = inputIn(bytes, size);
    expectText(ImportUtils::createCopyWithoutAttachments(input.string), input.withoutAttachments,
               "the text without attachments");
    std::u16string clean = input.string.string();
    std::erase(clean, u'\0');
    expectText(ImportUtils::createCleanCopy(input.string), clean, "the text without NUL");
    expectText(ImportUtils::createCleanCopyFromPDFString(input.string),
               withoutLineEndHyphens(clean), "the text without line-end hyphens");
    return 0;
}
