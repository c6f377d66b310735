// The types that a document's text is exported as.

#pragma once

namespace parlavox {

/// The text without its tags as RTF.
inline constexpr char kRtfWithoutTagsType[] = "com.brightmill.parlavox.rtf-no-tags";

/// The text without its tags as plain text in UTF-8.
inline constexpr char kTextWithoutTagsType[] = "com.brightmill.parlavox.txt-no-tags";

}  // namespace parlavox
