#include "Sources/TextImport/RTFExporter.h"

#include <gtest/gtest.h>

#include <string>

#include "Platform/Text/TextAttachment.h"
#include "Tests/Support/LetteredText.h"

namespace parlavox {
namespace {

/// Text whose characters under a '*' carry an attachment, the others the attribute of their letter.
platform::AttributedString taggedText(const std::u16string& characters,
                                      const std::string& letters) {
    const platform::AttributedString plain = test::letteredText(characters, letters);
    std::vector<platform::AttributeRun> runs;
    std::size_t at = 0;
    for (const platform::AttributeRun& run : plain.runs()) {
        platform::Attributes attributes = run.attributes;
        if (letters[at] == '*') {
            platform::Dictionary tag;
            tag.set(platform::kAttachmentAttributeName, platform::Value(1));
            attributes = std::make_shared<const platform::Dictionary>(std::move(tag));
        }
        platform::appendRun(runs, run.length, attributes);
        at += run.length;
    }
    return {plain.sharedString(), std::move(runs)};
}

TEST(RTFExporter, RemovesTagsAndKeepsAllOtherTextWithItsAttributes) {
    struct Row {
        const char* name;
        std::u16string text;
        const char* letters;
        std::u16string want;
        const char* wantLetters;
    };
    const Row rows[] = {
        {"no text", u"", "", u"", ""},
        {"no tags", u"abcd", "xxyy", u"abcd", "xx|yy"},
        {"tags at start, middle and end", u"TabTTcdT", "*xx**yy*", u"abcd", "xx|yy"},
        {"a tag between equal runs", u"abTcd", "xx*xx", u"abcd", "xxxx"},
        {"nothing but tags", u"TTT", "***", u"", ""},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        const auto text = RTFExporter::stringByRemovingTags(taggedText(row.text, row.letters));
        EXPECT_EQ(text.string(), row.want);
        EXPECT_EQ(test::lettersOf(text), row.wantLetters);
    }
}

}  // namespace
}  // namespace parlavox
