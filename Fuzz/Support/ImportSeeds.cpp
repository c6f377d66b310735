// Texts as they come from other programs, with runs that may carry attachments.

#include <string_view>
#include <utility>

#include "Fuzz/Support/Seeds.h"

namespace fuzz {
namespace {

using namespace std::string_view_literals;
using platform::Data;

/// What the target takes: runs, each a length and whether it carries an attachment, and the text.
Data imported(const std::vector<std::pair<unsigned, bool>>& runs, std::u16string_view text) {
    std::string bytes(1, static_cast<char>(runs.size()));
    for (const auto& [length, withAttachment] : runs) {
        bytes += static_cast<char>(length << 1 | (withAttachment ? 1U : 0U));
    }
    return Data::copyOf(bytes + littleEndianBytes(text));
}

}  // namespace

std::vector<Seed> importUtilsSeeds() {
    return {
        {"english", imported({{6, false}, {9, false}},
                             u"The light- house keeper was a well- known exam- ple. "
                             u"Nobody knew why he never came down."sv)},
        {"german", imported({},
                            u"Der Leucht- turm steht in der N\u00E4he. Die Haus- und "
                            u"Hoft\u00FCr, 10- 12 Leute - und so fort."sv)},
        {"no-language", imported({{4, false}}, u"1- 2. 3- 4.\n5 - 6- 7\n8- 9- 10. - "sv)},
        {"nul", imported({{2, false}, {3, false}}, u"\0a\0\0b- \0c-\0 d\0"sv)},
        {"attachments", imported({{3, false}, {1, true}, {2, false}, {4, true}},
                                 u"abc\uFFFC"
                                 u"de\uFFFC\uFFFC\uFFFC\uFFFC f- g"sv)},
        {"surrogates",
         imported({{1, true}}, u"\xD83D\xDE00- \U00010411- \xDC11 a\u0301- \u0301- b"sv)},
        {"short-sentences", imported({}, u"a- b. c- d. E- f! g- h?\nI- j.\n\nk- l. M- n."sv)},
    };
}

}  // namespace fuzz
