// Documents in RTF that the benchmarks read.
//
// Their shapes are those of real documents: prose with few words of the format; the output of a
// word processor and of an editor, which tell of every few words at length; text in escaped bytes
// of one and of two; and in Unicode. Pure functions; any thread at once.

#pragma once

#include <cstddef>
#include <string_view>

#include "Platform/Foundation/Data.h"

namespace bench {

/// One kind of document.
struct RtfShape {
    const char* name;
    /// What the document consists of, again and again.
    std::string_view piece;
};
inline constexpr RtfShape kRtfShapes[] = {
    {"prose",
     "The keeper of the lighthouse climbed the stairs every evening and lit the lamp that showed "
     "the ships their way home. Nobody had ever asked him how many steps there were, and he had "
     "never counted them.\\par\n"},
    {"a word processor's",
     "{\\rtlch\\fcs1 \\af0\\afs24 \\ltrch\\fcs0 \\f1\\fs24\\lang1033\\langfe1024\\insrsid744138 "
     "The keeper of the lighthouse }{\\rtlch\\fcs1 \\ab\\af0 \\ltrch\\fcs0 \\b\\f1\\insrsid744138 "
     "climbed the stairs}{\\rtlch\\fcs1 \\af0 \\ltrch\\fcs0 \\insrsid7875023\\charrsid744138  "
     "every "
     "evening and lit the lamp.\\par }\\pard\\plain \\ltrpar\\ql \\li0\\ri0\\widctlpar\n"},
    {"an editor's",
     "\\f0\\fs24 \\cf0 The keeper of the lighthouse \\f1\\b climbed\\f0\\b0  the stairs every "
     "evening \\i and\\i0  lit the lamp.\\\n"},
    {"escaped bytes",
     "\\'d1\\'ec\\'ee\\'f2\\'f0\\'e8\\'f2\\'e5\\'eb\\'fc \\'ec\\'e0\\'ff\\'ea\\'e0 "},
    {"two escaped bytes a character",
     "\\f2 \\'93\\'fa\\'96\\'7b\\'8c\\'ea\\'82\\'cc\\'95\\'b6\\'8f\\'cd\\f0  and \n"},
    {"Unicode",
     "\\u1057?\\u1084?\\u1086?\\u1090?\\u1088?\\u1080?\\u1090?\\u1077?\\u1083?\\u1100? "},
};

/// Returns a document of about `size` bytes.
[[nodiscard]] platform::Data rtfDocument(const RtfShape& shape, std::size_t size);

}  // namespace bench
