// RTF with one construct in each.

#include <string_view>

#include "Fuzz/Support/Seeds.h"
#include "Platform/Foundation/FileWrapper.h"

namespace fuzz {
namespace {

using namespace std::string_view_literals;

/// A document with two fonts, one of them Japanese, and two colours.
platform::Data document(std::string_view body) {
    return platform::Data::copyOf(
        "{\\rtf1\\ansi\\ansicpg1252\\deff0"
        "{\\fonttbl{\\f0\\fswiss\\fcharset0 Arial;}{\\f1\\fcharset128 MS Mincho;}"
        "{\\f2\\fcharset2 Symbol;}}{\\colortbl;\\red255\\green0\\blue0;}" +
        std::string(body) + "}");
}

}  // namespace

std::vector<Seed> rtfSeeds() {
    return {
        {"plain", document("\\pard\\f0\\fs24 words\\par more\\line words\\page"sv)},
        {"bytes", document("caf\\'e9 \\f1 \\'93\\'fa\\'96{\\b \\'7b}\\'83\\} \\f2 a\\'b7"sv)},
        {"unicode",
         document("\\u233?\\uc2\\u-10179\\'81\\'40\\u-8704\\'81\\'40\\uc0\\u65536 \\u-9000"sv)},
        {"characters",
         document("\\emdash\\bullet\\~\\-\\_\\tab\\{\\}\\\\\\ldblquote x\\rdblquote"sv)},
        {"looks",
         document("\\b b\\i\\ul\\strike\\cf1\\highlight1 x\\plain\\super y\\sub\\fs40 z"sv)},
        {"paragraphs",
         document(
             "\\pard\\qc\\li720\\fi-360\\sl360\\slmult1\\tqr\\tx900 a\\par\\pard\\rtlpar b\\par"sv)},
        {"table",
         document("\\trowd\\cellx1\\intbl a\\cell b\\nestcell{\\*\\nesttableprops\\nestrow}"
                  "{\\nonesttables\\par}\\cell\\row"sv)},
        {"field",
         document("{\\field{\\*\\fldinst HYPERLINK \"http://a/\" \\\\l \"b\"}{\\fldrslt c}}"
                  "{\\field{\\*\\fldinst SYMBOL 183 \\\\f \"Symbol\"}{\\fldrslt}}"sv)},
        {"note", document("a{\\footnote b\\par c} d{\\footnote e}\\par f"sv)},
        {"picture", document("{\\*\\shppict{\\pict\\bin3 }{}}}{\\nonshppict{\\pict 0011}}"
                             "{\\object{\\*\\objdata 01}{\\result x}}{\\object}"sv)},
        {"graphic", document("{{\\NeXTGraphic a.png \\width1}\\'ac}b"sv)},
        {"alternatives", document("{\\upr{a}{\\*\\ud{\\u233?}}}"sv)},
        {"hidden", document("a{\\v b}\\deleted c\\deleted0 d{\\header e}{\\*\\unknown{f}}"sv)},
        {"html",
         document(
             "\\fromhtml1{\\*\\htmltag64 <p>}\\htmlrtf{\\htmlrtf0 a\\htmlrtf\\par}\\htmlrtf0"sv)},
        {"list", document("{\\listtext\\tab 1.}{\\*\\pn{\\pntxta .}}{\\pntext\\'b7\\tab}a"sv)},
        {"cut", document("{\\b{\\i a\\"sv)},
        {"macintosh", platform::Data::copyOf("{\\rtf\\mac caf\\'8e"sv)},
        {"utf-8", platform::Data::copyOf("{\\rtf1\\ansicpg65001 caf\\'c3\\'a9 \xC3\xA9}"sv)},
        {"no-rtf", platform::Data::copyOf("{\\rt"sv)},
    };
}

std::vector<Seed> rtfdSeeds() {
    using platform::FileWrapper;
    const auto flat = [](std::string_view rtf) {
        const auto file = [](std::string_view contents) {
            return FileWrapper::initRegularFileWithContents(platform::Data::copyOf(contents));
        };
        const auto folder = FileWrapper::initDirectoryWithFileWrappers(
            {{"TXT.rtf", file(rtf)}, {"a.png", file("picture")}});
        return folder->serializedRepresentation().value_or(platform::Data());
    };
    return {
        {"graphic", flat("{\\rtf1 a{{\\NeXTGraphic a.png \\width1}\xAC}b}"sv)},
        {"missing", flat("{\\rtf1 a{{\\NeXTGraphic b.png \\width1}\xAC}b}"sv)},
        {"plain", flat("no RTF"sv)},
        {"file", FileWrapper::initRegularFileWithContents(platform::Data::copyOf("x"))
                     ->serializedRepresentation()
                     .value_or(platform::Data())},
    };
}

}  // namespace fuzz
