// What is known of languages that share a script: which there are, and how much words and letters
// speak for each. The build makes the tables (Packaging/generate/LanguageTables.h) of Languages.txt
// and of libexttextcat's data.
//
// Evidence is counted in nats, the natural logarithms of ratios of probability. Constant tables;
// any thread at once.

#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

#include "Platform/Text/Scripts.h"

namespace platform {

/// Most languages that share one script.
inline constexpr std::size_t kMostLanguages = 64;

/// A language as it is written in one script.
struct Language {
    std::string_view code;  ///< the platform's, or another's where the platform has none
    bool isNamed;           ///< whether the platform has a code for it
    std::int8_t lead;       ///< how much likelier it is beforehand than its neighbours, in nats
};

/// How much something speaks for a language.
struct LanguageEvidence {
    std::uint8_t language;  ///< its place among those that share its script
    std::uint8_t weight;    ///< in sixteenths of a nat
};

/// Maps texts, by their hashes, to evidence.
struct LanguageModelTable {
    /// The number of upper bits of a hash that choose a bucket.
    static constexpr int kBucketBits = 12;

    /// The hashes in order. The evidence for keys[i] begins at first[i] and ends at first[i + 1].
    std::span<const std::uint32_t> keys;
    std::span<const std::uint16_t> first;
    std::span<const LanguageEvidence> evidence;
    /// Where the keys of each bucket begin, and where those of the last end.
    std::span<const std::uint16_t> buckets;

    /// Returns what the text with this hash speaks for; nothing when it is not known.
    [[nodiscard]] std::span<const LanguageEvidence> find(std::uint32_t hash) const noexcept;
};

/// The hash of a text, one unit after the other.
class LanguageModelHash {
public:
    /// The scripts' texts are kept apart, so that evidence is for the languages of one script.
    explicit constexpr LanguageModelHash(Script script)
        : state_((0x811C9DC5u ^ static_cast<std::uint32_t>(script)) * kPrime) {}

    constexpr void add(char16_t unit) { state_ = (state_ ^ unit) * kPrime; }

    /// The buckets want upper bits that are as well mixed as the lower ones.
    [[nodiscard]] constexpr std::uint32_t value() const {
        const std::uint32_t mixed = (state_ ^ (state_ >> 15)) * 0x2C1B3C6Du;
        return mixed ^ (mixed >> 13);
    }

private:
    static constexpr std::uint32_t kPrime = 0x01000193u;
    std::uint32_t state_;
};

/// The languages that share a script; at most kMostLanguages.
[[nodiscard]] std::span<const Language> languagesInScript(Script script) noexcept;

/// Returns the place, among the languages that share a script, of the one that CLD2 calls `code`;
/// -1 when there is none.
[[nodiscard]] int placeOfLanguage(Script script, std::string_view code) noexcept;

/// Returns the languages that write a letter, a bit for the place of each; all bits for letters
/// that every language of the script writes and for those that none does.
[[nodiscard]] std::uint64_t languagesWithLetter(Script script, char16_t letter) noexcept;

/// Whole words, in small letters. One that ends in an apostrophe has it as U+0027; so does one that
/// begins with it, which stands there for letters that follow one in a text.
extern const LanguageModelTable kWordTable;

/// One to five letters in a row, in small letters, with '_' for the ends of a word.
extern const LanguageModelTable kGramTable;

}  // namespace platform
