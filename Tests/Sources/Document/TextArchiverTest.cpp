#include "Sources/Document/TextArchiver.h"

#include <gtest/gtest.h>

#include <memory>

#include "Platform/Foundation/PropertyListSerialization.h"
#include "Platform/Text/AttributedString.h"
#include "Sources/Document/PVVoiceIdentifier.h"
#include "Sources/Document/TextUnarchiver.h"

namespace parlavox {
namespace {

using platform::AttributedString;
using platform::Codable;
using platform::Data;
using platform::Dictionary;
using platform::Value;

TEST(TextArchiver, WritesUnderItsOwnName) {
    const Data archive = TextArchiver::archivedDataWithRootObject(Value(u"text"));
    const Value frame = platform::PropertyListSerialization::propertyListWithData(archive).value();
    EXPECT_EQ((*frame.dictionary())["$archiver"], Value(u"TextArchiver"));
}

TEST(TextArchiver, TextWithAVoiceInItsAttributesIsReadBack) {
    const auto voice = PVVoiceIdentifier::initWithCocoaVoiceId(u"v", u"s", 2, u"Ada");
    const auto text = std::make_shared<const AttributedString>(
        std::make_shared<const std::u16string>(u"Hello there"),
        std::vector<platform::AttributeRun>{
            {5, std::make_shared<const Dictionary>(Dictionary{{"Voice", Value(voice)}})},
            {6, nullptr}});
    const auto unarchiver = TextUnarchiver::initWithTagValuesDictionary(
        nullptr, TextArchiver::archivedDataWithRootObject(Value(text)));
    const auto again =
        std::dynamic_pointer_cast<const AttributedString>(unarchiver->decodeObject().object());
    ASSERT_NE(again, nullptr);
    EXPECT_EQ(again->string(), u"Hello there");
    ASSERT_EQ(again->runs().size(), 2u);
    const Value found = (*again->runs()[0].attributes)["Voice"];
    EXPECT_TRUE(voice->isEqual(found.object().get()));
}

/// An object that looks at who archives it.
class Observer final : public Codable {
public:
    [[nodiscard]] std::shared_ptr<const platform::ArchivedClassNames> archivedClass()
        const override {
        return platform::classNamed({"Observer", "NSObject"});
    }
    void encodeWithCoder(platform::KeyedArchiver& coder) const override {
        coder.encodeBool(dynamic_cast<TextArchiver*>(&coder) != nullptr, "IsText");
    }
};

TEST(TextArchiver, ObjectsCanTellThatTheyAreDocumentText) {
    const Value observer(std::make_shared<const Observer>());
    const auto isText = [](const Data& archive) {
        const auto root =
            platform::KeyedUnarchiver::initForReadingWithData(archive)->decodeObject();
        return (*std::dynamic_pointer_cast<const platform::OpaqueObject>(root.object()))["IsText"];
    };
    EXPECT_EQ(isText(TextArchiver::archivedDataWithRootObject(observer)), Value(true));
    EXPECT_EQ(isText(platform::KeyedArchiver::archivedDataWithRootObject(observer)), Value(false));
}

}  // namespace
}  // namespace parlavox
