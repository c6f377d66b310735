#include "Sources/Document/PVVoiceIdentifier.h"

#include <gtest/gtest.h>

#include <limits>
#include <memory>

#include "Platform/Foundation/Exception.h"
#include "Sources/Document/TextArchiver.h"
#include "Sources/Document/TextUnarchiver.h"
#include "Tools/samples/ArchiveBuilder.h"

namespace parlavox {
namespace {

using platform::Data;
using platform::Dictionary;
using platform::Uid;
using platform::Value;
using String = PVVoiceIdentifier::String;
using Identifier = std::shared_ptr<const PVVoiceIdentifier>;

Identifier make(String cocoa, String synthesizer, std::uint64_t number = 0, String name = {}) {
    return PVVoiceIdentifier::initWithCocoaVoiceId(std::move(cocoa), std::move(synthesizer), number,
                                                   std::move(name));
}

Identifier decode(const Data& archive) {
    const auto unarchiver = TextUnarchiver::initWithTagValuesDictionary(nullptr, archive);
    return std::dynamic_pointer_cast<const PVVoiceIdentifier>(unarchiver->decodeObject().object());
}

void expectParts(const Identifier& identifier, const String& cocoa, const String& synthesizer,
                 std::uint64_t number, const String& name) {
    ASSERT_NE(identifier, nullptr);
    EXPECT_EQ(identifier->cocoaVoiceId(), cocoa);
    EXPECT_EQ(identifier->synthesizerId(), synthesizer);
    EXPECT_EQ(identifier->synthesizerVoiceId(), number);
    EXPECT_EQ(identifier->voiceName(), name);
}

TEST(PVVoiceIdentifier, InitAnswersNothing) {
    EXPECT_EQ(PVVoiceIdentifier::init(), nullptr);
}

TEST(PVVoiceIdentifier, NeedsOneOfTheTwoIdentifiers) {
    const struct {
        const char* name;
        String cocoa, synthesizer;
        bool isMade;
    } kRows[] = {
        {"both absent", std::nullopt, std::nullopt, false},
        {"both empty", u"", u"", false},
        {"one absent, one empty", std::nullopt, u"", false},
        {"platform voice", u"v", std::nullopt, true},
        {"platform voice and an empty synthesizer", u"v", u"", true},
        {"synthesizer", std::nullopt, u"s", true},
        {"both", u"v", u"s", true},
    };
    for (const auto& row : kRows) {
        const Identifier identifier = make(row.cocoa, row.synthesizer, 7, u"Ada");
        EXPECT_EQ(identifier != nullptr, row.isMade) << row.name;
        if (identifier != nullptr) {
            expectParts(identifier, row.cocoa, row.synthesizer, 7, u"Ada");
        }
    }
}

TEST(PVVoiceIdentifier, TheDictionaryHoldsTheNumberAndWhatIsPresent) {
    EXPECT_EQ(make(std::nullopt, u"s", 3)->dictionaryRepresentation(),
              (Dictionary{{"SynthesizerId", Value(u"s")}, {"SynthesizerVoiceId", Value(3)}}));
    const Dictionary all = make(u"v", u"", 0, u"Ada")->dictionaryRepresentation();
    EXPECT_EQ(all, (Dictionary{{"SynthesizerVoiceId", Value(0)},
                               {"CocoaVoiceId", Value(u"v")},
                               {"SynthesizerId", Value(u"")},
                               {"VoiceName", Value(u"Ada")}}));
    EXPECT_EQ(all.entries().front().first, "SynthesizerVoiceId") << "it comes first";
}

TEST(PVVoiceIdentifier, IsMadeOfADictionary) {
    constexpr std::uint64_t kLargest = std::numeric_limits<std::uint64_t>::max();
    const Dictionary whole = make(u"v", u"s", kLargest, u"Ada")->dictionaryRepresentation();
    expectParts(PVVoiceIdentifier::initWithDictionaryRepresentation(whole), u"v", u"s", kLargest,
                u"Ada");
    expectParts(
        PVVoiceIdentifier::initWithDictionaryRepresentation({{"CocoaVoiceId", Value(u"v")}}), u"v",
        std::nullopt, 0, std::nullopt);
    expectParts(
        PVVoiceIdentifier::initWithDictionaryRepresentation({{"CocoaVoiceId", Value(u"v")},
                                                             {"VoiceName", Value(1)},
                                                             {"SynthesizerVoiceId", Value(u"12")}}),
        u"v", std::nullopt, 12, std::nullopt);
    EXPECT_EQ(PVVoiceIdentifier::initWithDictionaryRepresentation({}), nullptr);
    EXPECT_EQ(PVVoiceIdentifier::initWithDictionaryRepresentation(
                  {{"SynthesizerVoiceId", Value(3)}, {"VoiceName", Value(u"Ada")}}),
              nullptr);
}

TEST(PVVoiceIdentifier, IsKeptInArchives) {
    const Identifier kRows[] = {
        make(u"v", u"s", 12, u"Ada"),
        make(u"v", std::nullopt),
        make(std::nullopt, u"s", std::numeric_limits<std::uint64_t>::max()),
    };
    for (const Identifier& row : kRows) {
        const Identifier again = decode(TextArchiver::archivedDataWithRootObject(Value(row)));
        expectParts(again, row->cocoaVoiceId(), row->synthesizerId(), row->synthesizerVoiceId(),
                    row->voiceName());
    }
}

TEST(PVVoiceIdentifier, AnArchiveMayHoldOneThatNamesNoVoice) {
    samples::ArchiveBuilder b;
    const Uid type = b.addClass({"PVVoiceIdentifier", "NSObject"});
    expectParts(decode(b.finish(b.addInstance(type, {}))), std::nullopt, std::nullopt, 0,
                std::nullopt);
}

TEST(PVVoiceIdentifier, WithAFieldOfAnotherKindStaysOpaque) {
    samples::ArchiveBuilder b;
    const Uid type = b.addClass({"PVVoiceIdentifier", "NSObject"});
    for (const Dictionary& fields : {Dictionary{{"CocoaVoiceId", Value(b.add(Value(3)))}},
                                     Dictionary{{"SynthesizerVoiceId", Value(u"three")}}}) {
        const Data archive = b.finish(b.addInstance(type, fields));
        const auto unarchiver = TextUnarchiver::initWithTagValuesDictionary(nullptr, archive);
        const auto root = unarchiver->decodeObject().object();
        EXPECT_NE(dynamic_cast<const platform::OpaqueObject*>(root.get()), nullptr);
    }
}

TEST(PVVoiceIdentifier, EqualityIsLooseOnPurpose) {
    const Identifier self = make(u"v", u"s", 1, u"Ada");
    const struct {
        const char* name;
        Identifier first, second;
        bool isEqual;
    } kRows[] = {
        {"the same object", self, self, true},
        {"the same platform voice, other synthesizer", make(u"v", u"s", 1), make(u"v", u"t", 2),
         true},
        {"other platform voices, the same synthesizer voice", make(u"v", u"s", 1),
         make(u"w", u"s", 1), true},
        {"no platform voice, the same synthesizer voice", make(std::nullopt, u"s", 1),
         make(std::nullopt, u"s", 1), true},
        {"no platform voice, another number", make(std::nullopt, u"s", 1),
         make(std::nullopt, u"s", 2), false},
        {"no platform voice, another synthesizer", make(std::nullopt, u"s", 1),
         make(std::nullopt, u"t", 1), false},
        {"nothing in common", make(u"v", std::nullopt), make(u"w", std::nullopt), false},
        {"absent synthesizers are not the same", make(u"v", std::nullopt, 1),
         make(u"w", std::nullopt, 1), false},
        {"a platform voice against none", make(u"v", u"s", 1), make(std::nullopt, u"s", 1), true},
        {"names never count", make(u"v", std::nullopt, 0, u"Ada"),
         make(u"v", std::nullopt, 0, u"Bo"), true},
        {"equal empty platform voices count", make(u"", u"s", 1), make(u"", u"t", 2), true},
    };
    for (const auto& row : kRows) {
        EXPECT_EQ(row.first->isEqual(row.second.get()), row.isEqual) << row.name;
        EXPECT_EQ(row.second->isEqual(row.first.get()), row.isEqual) << row.name << ", turned";
    }
    EXPECT_FALSE(self->isEqual(nullptr));
    const auto other = platform::OpaqueObject::make({"Other"}, {});
    EXPECT_FALSE(self->isEqual(other.get()));
}

TEST(PVVoiceIdentifier, ItsCopyIsItself) {
    const Identifier identifier = make(u"v", std::nullopt);
    EXPECT_EQ(identifier->copyWithZone(), identifier);
}

TEST(PVVoiceIdentifier, DescribesItself) {
    EXPECT_EQ(make(u"v", std::nullopt, 7, u"Ad\u00E4")->description(),
              "CocoaVoiceId = 'v', SynthesizerId = '(null)'. SynthesizerVoiceId = '7'. VoiceName = "
              "'Ad\u00E4'.");
    EXPECT_EQ(make(std::nullopt, u"s", std::numeric_limits<std::uint64_t>::max())->description(),
              "CocoaVoiceId = '(null)', SynthesizerId = 's'. SynthesizerVoiceId = "
              "'18446744073709551615'. VoiceName = '(null)'.");
}

}  // namespace
}  // namespace parlavox
