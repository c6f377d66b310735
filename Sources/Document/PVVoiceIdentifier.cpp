#include "Sources/Document/PVVoiceIdentifier.h"

#include "Platform/Foundation/ArchivedObject.h"
#include "Platform/Foundation/KeyedArchiver.h"
#include "Platform/Foundation/Unicode.h"

namespace parlavox {

using platform::ArchivedObject;
using platform::Dictionary;
using platform::Value;
using String = PVVoiceIdentifier::String;

namespace {

// The keys of dictionaries and archives.
constexpr char kCocoaVoiceId[] = "CocoaVoiceId";
constexpr char kSynthesizerId[] = "SynthesizerId";
constexpr char kSynthesizerVoiceId[] = "SynthesizerVoiceId";
constexpr char kVoiceName[] = "VoiceName";

bool isEmpty(const String& string) {
    return !string || string->empty();
}

String stringOf(const Value& value) {
    return value.string() != nullptr ? String(*value.string()) : std::nullopt;
}

platform::Result<String> decodeString(const ArchivedObject& object, std::string_view key) {
    const auto string = PV_TRY(object.stringForKey(key));
    return string != nullptr ? String(*string) : std::nullopt;
}

/// The number as an unsigned integer; negative ones keep their bits.
std::uint64_t unsignedOf(const Value& value) {
    return value.unsignedInteger().value_or(
        static_cast<std::uint64_t>(value.integerValue().value_or(0)));
}

std::string shown(const String& string) {
    return string ? platform::utf8FromUtf16(*string) : "(null)";
}

}  // namespace

std::shared_ptr<const PVVoiceIdentifier> PVVoiceIdentifier::initWithCocoaVoiceId(
    String cocoaVoiceId, String synthesizerId, std::uint64_t synthesizerVoiceId, String voiceName) {
    if (isEmpty(cocoaVoiceId) && isEmpty(synthesizerId)) {
        return nullptr;
    }
    return std::shared_ptr<const PVVoiceIdentifier>(
        new PVVoiceIdentifier(std::move(cocoaVoiceId), std::move(synthesizerId), synthesizerVoiceId,
                              std::move(voiceName)));
}

std::shared_ptr<const PVVoiceIdentifier> PVVoiceIdentifier::init() {
    return initWithCocoaVoiceId(std::nullopt, std::nullopt, 0, std::nullopt);
}

std::shared_ptr<const PVVoiceIdentifier> PVVoiceIdentifier::initWithDictionaryRepresentation(
    const Dictionary& dictionary) {
    return initWithCocoaVoiceId(
        stringOf(dictionary[kCocoaVoiceId]), stringOf(dictionary[kSynthesizerId]),
        unsignedOf(dictionary[kSynthesizerVoiceId]), stringOf(dictionary[kVoiceName]));
}

platform::Result<Value> PVVoiceIdentifier::initWithCoder(const ArchivedObject& coder) {
    auto cocoaVoiceId = PV_TRY(decodeString(coder, kCocoaVoiceId));
    auto synthesizerId = PV_TRY(decodeString(coder, kSynthesizerId));
    const auto number =
        static_cast<std::uint64_t>(PV_TRY(coder.integerForKey(kSynthesizerVoiceId)));
    auto voiceName = PV_TRY(decodeString(coder, kVoiceName));
    const std::shared_ptr<const PVVoiceIdentifier> identifier(new PVVoiceIdentifier(
        std::move(cocoaVoiceId), std::move(synthesizerId), number, std::move(voiceName)));
    return Value(identifier);
}

std::span<const platform::CodableClass> PVVoiceIdentifier::codableClasses() {
    // One whose fields hold what they never do is kept as it is: it must not cost a text anything.
    constexpr auto kDecode = [](const ArchivedObject& object) -> platform::Result<Value> {
        auto identifier = initWithCoder(object);
        return identifier ? std::move(identifier) : object.opaque();
    };
    static constexpr platform::CodableClass kClasses[] = {{"PVVoiceIdentifier", kDecode}};
    return kClasses;
}

Dictionary PVVoiceIdentifier::dictionaryRepresentation() const {
    Dictionary dictionary{{kSynthesizerVoiceId, Value(synthesizerVoiceId_)}};
    const auto add = [&](const char* key, const String& string) {
        if (string) {
            dictionary.set(key, Value(*string));
        }
    };
    add(kCocoaVoiceId, cocoaVoiceId_);
    add(kSynthesizerId, synthesizerId_);
    add(kVoiceName, voiceName_);
    return dictionary;
}

std::shared_ptr<const platform::ArchivedClassNames> PVVoiceIdentifier::archivedClass() const {
    return platform::classNamed({"PVVoiceIdentifier", "NSObject"});
}

void PVVoiceIdentifier::encodeWithCoder(platform::KeyedArchiver& coder) const {
    const auto encode = [&](const char* key, const String& string) {
        if (string) {
            coder.encodeObject(Value(*string), key);
        }
    };
    encode(kCocoaVoiceId, cocoaVoiceId_);
    encode(kSynthesizerId, synthesizerId_);
    coder.encodeInteger(static_cast<std::int64_t>(synthesizerVoiceId_), kSynthesizerVoiceId);
    encode(kVoiceName, voiceName_);
}

std::shared_ptr<const PVVoiceIdentifier> PVVoiceIdentifier::copyWithZone() const {
    return shared_from_this();
}

bool PVVoiceIdentifier::isEqual(const platform::Object* other) const {
    if (other == this) {
        return true;
    }
    const auto* const identifier = dynamic_cast<const PVVoiceIdentifier*>(other);
    if (identifier == nullptr) {
        return false;
    }
    if (cocoaVoiceId_ && cocoaVoiceId_ == identifier->cocoaVoiceId_) {
        return true;
    }
    return synthesizerId_ && synthesizerId_ == identifier->synthesizerId_ &&
           synthesizerVoiceId_ == identifier->synthesizerVoiceId_;
}

std::string PVVoiceIdentifier::description() const {
    return "CocoaVoiceId = '" + shown(cocoaVoiceId_) + "', SynthesizerId = '" +
           shown(synthesizerId_) + "'. SynthesizerVoiceId = '" +
           std::to_string(synthesizerVoiceId_) + "'. VoiceName = '" + shown(voiceName_) + "'.";
}

}  // namespace parlavox
