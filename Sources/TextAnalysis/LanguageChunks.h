// Cuts a text into chunks that are long enough for their language to be told, and tells it.
//
// Pure functions and plain values; any thread at once, different objects.

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Platform/Text/TextUnits.h"
#include "Sources/TextAnalysis/TextAnalyzeUtils.h"

namespace parlavox {

/// Collects the chunks of a text, whose sentences it is given in their order.
///
/// Short and blank sentences go with the chunk that follows them. Zero is both a position and the
/// sign that nothing is pending, by intention: nothing is lost, as the first chunk begins at 0
/// anyway. A pending blank sentence does not set where its text begins, by intention, too: the next
/// sentence that ends at the minimal length or later closes its chunk, however short it is.
class LanguageChunks {
public:
    void add(const platform::TextUnit& sentence);

    /// Those that are complete; there is nothing between them.
    [[nodiscard]] const std::vector<Range>& complete() const { return complete_; }

private:
    void append(std::uint64_t start, std::uint64_t end);

    std::vector<Range> complete_;
    std::uint64_t pendingStart_ = 0;
    std::uint64_t pendingTextStart_ = 0;
};

/// The chunks that a text consists of: the complete ones, the last of them with what is left.
[[nodiscard]] std::vector<Range> languageChunksOf(std::u16string_view string);

/// Tells the language of a stretch of text as the platform's code; "und" when it cannot be told.
using LanguageTagging = std::string (*)(std::u16string_view stretch);

/// The code that `tagging` gives, or the allowed one that it begins with.
[[nodiscard]] std::string languageTagOf(std::u16string_view stretch,
                                        const AllowedLanguages& allowed, LanguageTagging tagging);

/// Whether a code says a language, and one that is allowed.
[[nodiscard]] bool isAcceptableLanguage(const std::optional<std::string>& code,
                                        const AllowedLanguages& allowed);

}  // namespace parlavox
