// The name of a voice that texts are read with.
//
// Immutable; any thread at once.

#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <utility>

#include "Platform/Foundation/Codable.h"
#include "Platform/Foundation/KeyedUnarchiver.h"
#include "Platform/Foundation/Value.h"
#include "Sources/Document/FNLDictionaryRepresentation.h"

namespace parlavox {

/// Names a voice by the platform's identifier, by its number within a synthesizer, or by both, and
/// says how it is shown. Strings are UTF-16; one that is absent is not an empty one.
class PVVoiceIdentifier final : public platform::Codable,
                                public FNLDictionaryRepresentation,
                                public std::enable_shared_from_this<PVVoiceIdentifier> {
public:
    using String = std::optional<std::u16string>;

    /// Returns the identifier of these parts; null when both `cocoaVoiceId` and `synthesizerId` are
    /// absent or empty.
    ///
    /// Selector: initWithCocoaVoiceId:synthesizerId:synthesizerVoiceId:voiceName:
    [[nodiscard]] static std::shared_ptr<const PVVoiceIdentifier> initWithCocoaVoiceId(
        String cocoaVoiceId, String synthesizerId, std::uint64_t synthesizerVoiceId,
        String voiceName);

    /// Returns null: an identifier of no parts names no voice.
    ///
    /// Selector: init
    [[nodiscard]] static std::shared_ptr<const PVVoiceIdentifier> init();

    /// Returns the identifier that `dictionary` describes; null when it holds neither identifier.
    /// Values of another kind count as absent.
    ///
    /// Selector: initWithDictionaryRepresentation:
    [[nodiscard]] static std::shared_ptr<const PVVoiceIdentifier> initWithDictionaryRepresentation(
        const platform::Dictionary& dictionary);

    /// Returns the identifier that was archived as `coder`, even one that names no voice; a Fault
    /// when a field holds what it never does.
    ///
    /// Selector: initWithCoder:
    static platform::Result<platform::Value> initWithCoder(const platform::ArchivedObject& coder);

    /// The class, to be added to unarchivers. One with damaged fields stays opaque.
    [[nodiscard]] static std::span<const platform::CodableClass> codableClasses();

    /// The platform's identifier of the voice.
    [[nodiscard]] const String& cocoaVoiceId() const { return cocoaVoiceId_; }
    /// The speech synthesizer.
    [[nodiscard]] const String& synthesizerId() const { return synthesizerId_; }
    /// The number of the voice within that synthesizer.
    [[nodiscard]] std::uint64_t synthesizerVoiceId() const { return synthesizerVoiceId_; }
    /// The name that people see.
    [[nodiscard]] const String& voiceName() const { return voiceName_; }

    /// Returns the number, always, and each string that is present.
    ///
    /// Selector: dictionaryRepresentation
    [[nodiscard]] platform::Dictionary dictionaryRepresentation() const override;

    [[nodiscard]] std::shared_ptr<const platform::ArchivedClassNames> archivedClass()
        const override;

    /// Selector: encodeWithCoder:
    void encodeWithCoder(platform::KeyedArchiver& coder) const override;

    /// Returns this object, which never changes. It is `copyWithZone:` without a zone, which
    /// nothing here has.
    [[nodiscard]] std::shared_ptr<const PVVoiceIdentifier> copyWithZone() const;

    /// Whether `other` names the same voice: the same object, or the same platform voice, or else
    /// the same voice of the same synthesizer. Loose on purpose: either is enough, and names never
    /// count. No hash agrees with it, so identifiers are no keys of hashed collections.
    ///
    /// Selector: isEqual:
    [[nodiscard]] bool isEqual(const platform::Object* other) const;

    /// Returns a line about the identifier, as UTF-8.
    ///
    /// Selector: description
    [[nodiscard]] std::string description() const;

private:
    PVVoiceIdentifier(String cocoaVoiceId, String synthesizerId, std::uint64_t synthesizerVoiceId,
                      String voiceName)
        : cocoaVoiceId_(std::move(cocoaVoiceId)),
          synthesizerId_(std::move(synthesizerId)),
          synthesizerVoiceId_(synthesizerVoiceId),
          voiceName_(std::move(voiceName)) {}

    String cocoaVoiceId_;
    String synthesizerId_;
    std::uint64_t synthesizerVoiceId_;
    String voiceName_;
};

static_assert(DictionaryRepresentable<PVVoiceIdentifier>);

}  // namespace parlavox
