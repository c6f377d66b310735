#include "Sources/Document/TextUnarchiver.h"

#include <gtest/gtest.h>

#include "Platform/Foundation/ArchivedObject.h"
#include "Platform/Foundation/Exception.h"
#include "Platform/Text/AttributedString.h"
#include "Tools/samples/ArchiveBuilder.h"

namespace parlavox {
namespace {

using platform::Dictionary;
using platform::Value;

TEST(TextUnarchiver, DecodesAttributedTextWithoutTagValues) {
    const auto unarchiver = TextUnarchiver::initWithTagValuesDictionary(
        nullptr, samples::archiveOfText(u"standard text"));
    EXPECT_EQ(unarchiver->tagValuesDictionary(), nullptr);
    const auto text = std::dynamic_pointer_cast<const platform::AttributedString>(
        unarchiver->decodeObject().object());
    ASSERT_NE(text, nullptr);
    EXPECT_EQ(text->string(), u"standard text");
}

TEST(TextUnarchiver, ObjectsCanLookUpTagValuesWhileTheyAreDecoded) {
    static constexpr platform::CodableClass kClasses[] = {
        {"AcmeTag", [](const platform::ArchivedObject& object) -> platform::Result<Value> {
             const auto& unarchiver = dynamic_cast<const TextUnarchiver&>(object.unarchiver());
             return (*unarchiver.tagValuesDictionary())["pause"];
         }}};
    samples::ArchiveBuilder builder;
    const auto tag = builder.addInstance(builder.addClass({"AcmeTag", "NSObject"}), {});
    const auto values = std::make_shared<const Dictionary>(Dictionary{{"pause", Value(250)}});
    const auto unarchiver =
        TextUnarchiver::initWithTagValuesDictionary(values, builder.finish(tag));
    unarchiver->addClasses(kClasses);
    EXPECT_EQ(unarchiver->tagValuesDictionary(), values);
    EXPECT_EQ(unarchiver->decodeObject(), Value(250));
}

TEST(TextUnarchiver, RaisesOnBytesThatAreNoArchive) {
    EXPECT_THROW((void)TextUnarchiver::initWithTagValuesDictionary(nullptr, platform::Data()),
                 platform::UnarchiveException);
}

}  // namespace
}  // namespace parlavox
