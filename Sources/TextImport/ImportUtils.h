// Cleans text that comes into a document from outside.
//
// Positions and lengths count UTF-16 units. The operations return a text of its own and leave their
// argument as it is; where nothing is left out, both share characters and runs. No operation
// reports an error. Any thread at once.

#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "Platform/Foundation/Range.h"
#include "Platform/Text/AttributedString.h"

namespace parlavox {

/// A class of class-level operations; there are no instances.
class ImportUtils {
public:
    ImportUtils() = delete;

    /// Returns the text without its NUL characters.
    ///
    /// Selector: createCleanCopy:
    [[nodiscard]] static platform::AttributedString createCleanCopy(
        const platform::AttributedString& string);

    /// Returns the text without the runs that carry an attachment, whatever their characters are.
    ///
    /// Selector: createCopyWithoutAttachments:
    [[nodiscard]] static platform::AttributedString createCopyWithoutAttachments(
        const platform::AttributedString& string);

    /// Returns the text without its NUL characters, and without the hyphens and blanks that are
    /// left where the ends of a PDF's lines broke words.
    ///
    /// Selector: createCleanCopyFromPDFString:
    [[nodiscard]] static platform::AttributedString createCleanCopyFromPDFString(
        const platform::AttributedString& string);

    /// Whether the "- " at a range is to be deleted, as what is left of a word that was broken at
    /// the end of a line: it stands directly between two words, and not both is true that they are
    /// misspelled when they are joined and right as they stand. The language is the one found where
    /// the first word begins; where none is found, or none of `availableLanguages` begins with its
    /// code, spelling does not count.
    ///
    /// Raises RangeException when the range does not lie in the text.
    ///
    /// Selector: shouldDeleteHyphenAtRange:string:availableLanguages:
    [[nodiscard]] static bool shouldDeleteHyphenAtRange(
        platform::Range range, std::u16string_view string,
        const std::vector<std::string>& availableLanguages);
};

}  // namespace parlavox
