// The characters that RTF documents have; RtfAttributesTest looks at their attributes.

#include "Platform/Text/RtfReader.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace platform {
namespace {

using namespace std::string_view_literals;

struct Row {
    const char* name;
    std::string_view rtf;
    std::u16string_view want;
};

std::u16string textOf(std::string_view rtf) {
    const auto text = attributedStringFromRtf(Data::copyOf(rtf));
    return text ? text.value().string() : u"(a fault)";
}

template <std::size_t kCount>
void expectTexts(const Row (&rows)[kCount]) {
    for (const Row& row : rows) {
        EXPECT_EQ(textOf(row.rtf), row.want) << row.name;
    }
}

TEST(RtfReader, ReadsCharactersInTheDocumentsCodePage) {
    constexpr Row kRows[] = {
        {"ASCII", R"({\rtf1\ansi plain words})", u"plain words"},
        {"none is named", R"({\rtf1 caf\'e9})", u"caf\u00E9"},
        {"ANSI", R"({\rtf1\ansi \'80})", u"\u20AC"},
        {"one of Windows", R"({\rtf1\ansi\ansicpg1251 \'ec\'e8\'f0})", u"\u043C\u0438\u0440"},
        {"before the character set", R"({\rtf1\ansicpg1251\ansi \'ec})", u"\u043C"},
        {"the Macintosh's", R"({\rtf1\mac caf\'8e})", u"caf\u00E9"},
        {"that of the first PC", R"({\rtf1\pc caf\'82})", u"caf\u00E9"},
        {"that of the later PC", R"({\rtf1\pca \'9b})", u"\u00F8"},
        {"one that is not known", R"({\rtf1\ansi\ansicpg4711 caf\'e9})", u"caf\u00E9"},
        {"number 0", R"({\rtf1\ansi\ansicpg0 caf\'e9})", u"caf\u00E9"},
        {"bytes above ASCII that are not escaped", "{\\rtf1 caf\xE9 \xFC}", u"caf\u00E9 \u00FC"},
        {"UTF-8", "{\\rtf1\\ansicpg65001 caf\\'c3\\'a9 \xC3\xA9}", u"caf\u00E9 \u00E9"},
        {"capital digits", R"({\rtf1 \'C4\'e4})", u"\u00C4\u00E4"},
        {"an escaped letter", R"({\rtf1 \'41\'7b\'5c})", u"A{\\"},
        {"an escaped line end", R"({\rtf1 a\'0ab\'0dc\'09d\'00e})", u"a\nb\nc\tde"},
        {"half a byte", R"({\rtf1 a\'4zb\'zc})", u"azbzc"},
        {"two bytes", R"({\rtf1\ansi\ansicpg936 \'d6\'d0\'ce\'c4a})", u"\u4E2D\u6587a"},
        {"two bytes, one of them as it is", "{\\rtf1\\ansicpg932 \\'83\x5E}", u"\u30BF"},
    };
    expectTexts(kRows);
}

TEST(RtfReader, ReadsCharactersInTheFontsCodePage) {
    constexpr std::string_view kHead =
        R"({\rtf1\ansi\ansicpg1252\deff0{\fonttbl{\f0\fcharset0 A;}{\f1\fcharset204 B;})"
        R"({\f2\fcharset128 \'82\'6c C;}{\f3\fcharset2 Symbol;}{\f4\fcharset2 Wingdings;})"
        R"({\f5\fcharset77 D;}{\f6\cpg437 E;}{\f7\fcharset1 F;}{\f8 G;}{\f9\fcharset2 H;}})";
    constexpr Row kRows[] = {
        {"Cyrillic", R"(\f1 \'ec\f0 \'ec)", u"\u043C\u00EC"},
        {"to a group's end", R"({\f1 \'ec}\'ec)", u"\u043C\u00EC"},
        {"Japanese", R"(\f2 \'93\'fa\'96{\b\'7b} x\f0 \'fa)", u"\u65E5\u672C x\u00FA"},
        {"two bytes in two groups", R"({\f2 \'93}{\f2 \'fa})", u"\u65E5"},
        {"two bytes in two fonts", R"(\f2 \'93\f0\b \'fa\'fa)", u"\u65E5\u00FA"},
        {"the second byte as it is", R"(\f2 \'83A)", u"\u30A2"},
        {"the second byte is a brace", R"(\f2 \'83\}\'83\{\'83\\)", u"\u30DE\u30DC\u30BD"},
        {"a character between the bytes", R"(\f2 \'93\u233?\'fa!)", u"\uFFFD\u00E9\uFFFD!"},
        {"half a character at the end", R"(\f2 \'93)", u"\uFFFD"},
        {"the font Symbol", R"(\f3 ab\'b7 \u-3999?)", u"\u03B1\u03B2\u2022 \u03B1"},
        {"pictures", R"(\f4 \'a7J)", u"\uF0A7\uF04A"},
        {"the Macintosh's", R"(\f5 \'8e)", u"\u00E9"},
        {"a code page of its own", R"(\f6 \'82)", u"\u00E9"},
        {"the default", R"(\f7 \'e9\f8 \'e9\f99 \'e9)", u"\u00E9\u00E9\u00E9"},
        {"letters in a font that says it has pictures", R"(\f9 a\'e9)", u"a\u00E9"},
        {"plain is the default font", R"(\f1 \'ec\plain \'ec)", u"\u043C\u00EC"},
    };
    for (const Row& row : kRows) {
        EXPECT_EQ(textOf(std::string(kHead) + std::string(row.rtf) + "}"), row.want) << row.name;
    }
}

TEST(RtfReader, ReadsLongTextsOfTwoBytesACharacter) {
    for (const char* const head : {"932", "1361 {\\fonttbl{\\f0\\fcharset128 A;}}\\f0"}) {
        std::string rtf = "{\\rtf1\\ansicpg" + std::string(head) + " ";
        std::u16string want;
        for (int i = 0; i < 20'000; ++i) {
            rtf += i % 3 == 0 ? "\\'93\\'fa" : i % 3 == 1 ? "\x93\xFA" : "{\\b\\'93}\xFA";
            want += u'\u65E5';
        }
        EXPECT_EQ(textOf(rtf + "}"), want) << head;
    }
}

TEST(RtfReader, ReadsJohab) {
    constexpr Row kRows[] = {
        {"the first and the last syllable", R"({\rtf1\ansicpg1361 \'88\'61\'d3\'bd})",
         u"\uAC00\uD7A3"},
        {"letters alone", R"({\rtf1\ansicpg1361 \'88\'41\'84\'61\'84\'44\'84\'41})",
         u"\u3131\u314F\u3133\u3000"},
        {"signs", R"({\rtf1\ansicpg1361 \'d9\'31\'d9\'91})", u"\u3000\u223D"},
        {"Chinese characters", R"({\rtf1\ansicpg1361 \'e0\'31\'f9\'fe})", u"\u4F3D\u8A70"},
        {"by charset", R"({\rtf1{\fonttbl{\f0\fcharset130 A;}}\f0 a\'88{\b\'61}b})", u"a\uAC00b"},
        {"what is no character", R"({\rtf1\ansicpg1361 \'88\'40\'df\'31\'88\par})",
         u"\uFFFD\uFFFD\uFFFD\n"},
    };
    expectTexts(kRows);
}

TEST(RtfReader, ReadsFontTables) {
    constexpr Row kRows[] = {
        {"without groups",
         R"({\rtf1{\fonttbl\f0\fcharset204 A;\f1\fcharset161 B;}\f1 \'e1\f0 \'e1})",
         u"\u03B1\u0431"},
        {"with blanks and more inside",
         R"({\rtf1 { \fonttbl {\f0 \fcharset204 {\*\panose 02;}A{\*\falt C;};} }{\f0 \'e1}})",
         u" \u0431"},
        {"a second one", R"({\rtf1{\fonttbl{\f0 A;}}{\fonttbl{\f1\fcharset204 B;}}\f1 \'e1})",
         u"\u0431"},
        {"the default font's code page", R"({\rtf1\deff3{\fonttbl{\f3\fcharset204 A;}}\'e1})",
         u"\u0431"},
        {"charset 0 in a document of the Macintosh",
         R"({\rtf1\mac{\fonttbl{\f0\fcharset0 A;}}\f0 \'8e})", u"\u00E9"},
        {"charset 0 in another document of Windows",
         R"({\rtf1\ansi\ansicpg1251{\fonttbl{\f0\fcharset0 A;}}\f0 \'e9})", u"\u00E9"},
        {"none, and fonts nevertheless", R"({\rtf1\deff1 \f0 a\f-1 b\f65536 c\f9999999 d})",
         u"abcd"},
        {"numbers that are none", R"({\rtf1{\fonttbl{\f-5\fcharset204 A;}{\f70000 B;}}a})", u"a"},
    };
    expectTexts(kRows);
}

TEST(RtfReader, ReadsUnicode) {
    constexpr Row kRows[] = {
        {"one stand-in", R"({\rtf1 \u233?a})", u"\u00E9a"},
        {"negative", R"({\rtf1 \u-257?a})", u"\uFEFFa"},
        {"a byte stands in", R"({\rtf1 \u233\'e9a})", u"\u00E9a"},
        {"none does", R"({\rtf1\uc0 \u233a\u233 b\u233\'e9})", u"\u00E9a\u00E9b\u00E9\u00E9"},
        {"two do", R"({\rtf1\uc2 \u24180\'94\'4ea\u233??b})", u"\u5E74a\u00E9b"},
        {"how many lasts as long as a group", R"({\rtf1{\uc0 \u233 a}\u233?b})", u"\u00E9a\u00E9b"},
        {"a symbol stands in", R"({\rtf1 \u8209\_a\u123\{b\u160\~c})", u"\u2011a{b\u00A0c"},
        {"a word stands in", R"({\rtf1 \u8226\bullet a\u8212\emdash b})", u"\u2022a\u2014b"},
        {"a word that does something counts, too", R"({\rtf1 \u233\par a})", u"\u00E9\na"},
        {"a group's end is no stand-in", R"({\rtf1 {\u233}ab{\u233}{c}})", u"\u00E9ab\u00E9c"},
        {"a line end is none", "{\\rtf1 \\u233\n?a}", u"\u00E9a"},
        {"another character is none", R"({\rtf1 \u233\u234?a})", u"\u00E9\u00EAa"},
        {"the stand-ins of two characters", R"({\rtf1\uc1 \u-10179?\u-8704?a})", u"\U0001F600a"},
        {"halves in two groups", R"({\rtf1\uc0{\b\u-10179}{\u-8704}})", u"\U0001F600"},
        {"the first half alone", R"({\rtf1 \u-10179?a\u-10179?})", u"\uFFFDa\uFFFD"},
        {"the second half alone", R"({\rtf1 \u-8704?a\u-8704?})", u"\uFFFDa\uFFFD"},
        {"two first halves", R"({\rtf1 \u-10179?\u-10179?\u-8704?})", u"\uFFFD\U0001F600"},
        {"more than 16 bits", R"({\rtf1 \u128512?a})", u"\U0001F600a"},
        {"no character", R"({\rtf1 \u1114112?a\u-99999?b\u99999999999?c})",
         u"\uFFFDa\uFFFDb\uFFFDc"},
        {"NUL", R"({\rtf1 \u0?a})", u"a"},
        {"more stand-ins than there is text", R"({\rtf1\uc2147483647 \u233 abc})", u"\u00E9"},
        {"a negative number of them", R"({\rtf1\uc-1 \u233 abc})", u"\u00E9abc"},
        {"raw bytes stand in", "{\\rtf1 \\u233\\bin3 }}}a}", u"\u00E9a"},
        {"both ways", R"({\rtf1 {\upr{bytes}{\*\ud{\u233?}}}a})", u"\u00E9a"},
        {"both ways, nested in what is dropped",
         R"({\rtf1 {\upr{x{\upr{y}{\*\ud z}}{\pict 0}}{\*\ud b}}a})", u"ba"},
    };
    expectTexts(kRows);
}

TEST(RtfReader, ReadsCharactersThatHaveNames) {
    constexpr Row kRows[] = {
        {"dashes and quotes", R"({\rtf1 \emdash\endash\lquote\rquote\ldblquote\rdblquote\bullet})",
         u"\u2014\u2013\u2018\u2019\u201C\u201D\u2022"},
        {"blanks", R"({\rtf1 a\tab b\~c\emspace\enspace\qmspace d})",
         u"a\tb\u00A0c\u2003\u2002\u2005d"},
        {"hyphens", R"({\rtf1 a\-b\_c})", u"a\u00ADb\u2011c"},
        {"marks", R"({\rtf1 \ltrmark\rtlmark\zwj\zwnj a})", u"\u200E\u200F\u200D\u200Ca"},
        {"signs of the format", R"({\rtf1 \{a\}\\})", u"{a}\\"},
        {"one blank ends a word", R"({\rtf1 a\emdash  b})", u"a\u2014 b"},
        {"a tab", "{\\rtf1 a\tb\\\tc}", u"a\tb\tc"},
        {"symbols that nobody knows", R"({\rtf1 a\|b\:c\?d})", u"abcd"},
        {"words that nobody knows", R"({\rtf1 a\zzz b\zzz1c\zzz-1 d})", u"abcd"},
        {"words in other letters", R"({\rtf1 a\PAR b\Emdash c})", u"abc"},
        {"a word with a sign and no number", R"({\rtf1\uc0 \u-a\tab-b})", u"-a\t-b"},
        {"pages and columns", R"({\rtf1 a\page b\column c})", u"a\fb\fc"},
    };
    expectTexts(kRows);
}

TEST(RtfReader, EndsLinesAndParagraphs) {
    constexpr Row kRows[] = {
        {"paragraphs", R"({\rtf1 a\par b\par})", u"a\nb\n"},
        {"a line end in a paragraph", R"({\rtf1 a\line b})", u"a\u2028b"},
        {"a section", R"({\rtf1 a\sect b})", u"a\nb"},
        {"a backslash before a line end", "{\\rtf1 a\\\nb\\\r\nc\\\rd}", u"a\nb\nc\nd"},
        {"line ends in the file are none", "{\\rtf1 a\nb\r\nc\rd\\b\n e}", u"abcd e"},
        {"other control characters are none",
         "{\\rtf1 a\0b\x01\x1F\x0C"
         "c}"sv,
         u"abc"},
    };
    expectTexts(kRows);
}

TEST(RtfReader, ReadsTables) {
    constexpr Row kRows[] = {
        {"cells and rows",
         R"({\rtf1\trowd\cellx1 a\intbl\cell b\cell\row\trowd c\cell d\cell\row e})",
         u"a\tb\nc\td\ne"},
        {"empty cells", R"({\rtf1\trowd\cell\cell a\cell\cell\row})", u"\t\ta\t\n"},
        {"paragraphs in a cell", R"({\rtf1 a\par b\cell c\cell\row})", u"a\nb\tc\n"},
        {"a row without cells", R"({\rtf1 a\row b})", u"a\nb"},
        {"text behind the last cell", R"({\rtf1 a\cell b\row})", u"a\tb\n"},
        {"a table in a cell",
         R"({\rtf1 a\nestcell b\nestcell{\*\nesttableprops\trowd\nestrow}{\nonesttables\par})"
         R"(c\cell d\cell\row})",
         u"a\tb\nc\td\n"},
        {"cells in other groups", R"({\rtf1{a\cell}{b\cell}{\row}})", u"a\tb\n"},
    };
    expectTexts(kRows);
}

TEST(RtfReader, LeavesOutWhatIsNoText) {
    constexpr Row kRows[] = {
        {"tables of the document",
         R"({\rtf1{\fonttbl{\f0 Arial;}}{\colortbl;\red1\green2\blue3;}{\stylesheet{\s1 One;}}a})",
         u"a"},
        {"what describes the document",
         R"({\rtf1{\info{\title b}{\*\company c}}{\*\generator d;}a})", u"a"},
        {"marked groups that nobody knows", R"({\rtf1 a{\*\zzz b{\i c}\'64}e})", u"ae"},
        {"marked words that are no destinations", R"({\rtf1 a{\*\b c}d})", u"ad"},
        {"not groups that nobody knows", R"({\rtf1 a{\zzz b}c})", u"abc"},
        {"a mark that is not at a group's start", R"({\rtf1 a{b\*\zzz c}d{\* e\b f}})", u"abcd ef"},
        {"a mark and a line end", "{\\rtf1 a{\\*\n\\zzz b}c}", u"ac"},
        {"headers and footers",
         R"({\rtf1{\header b}{\headerl b}{\headerr b}{\headerf b}{\footer b\par}{\footerf b}a})",
         u"a"},
        {"comments", R"({\rtf1 a{\*\atnid b}{\*\atnauthor c}\chatn{\*\annotation d}e})", u"ae"},
        {"hidden text", R"({\rtf1 a{\v b}c\v d\par e\v0 f\v g\plain h})", u"acfh"},
        {"deleted text", R"({\rtf1 a{\deleted b\'63\u100?\tab\par}c{\revised d}})", u"acd"},
        {"marks and index entries", R"({\rtf1 a{\*\bkmkstart b}{\bkmkend c}{\xe{\v d}}{\tc e}f})",
         u"af"},
        {"bytes with braces in them", "{\\rtf1 a{\\*\\blob\\bin5 }}{{\\}b\\bin2 {{c}", u"abc"},
        {"bytes beyond the end", R"({\rtf1 a\bin2000000000 b})", u"a"},
        {"a negative number of bytes", R"({\rtf1 a\bin-5 b})", u"ab"},
        {"braces in a group that is left out", R"({\rtf1 a{\*\zzz \}\{\\}b{\info \bin1 }}c})",
         u"abc"},
        {"drawings, but not their text",
         R"({\rtf1 a{\shp{\*\shpinst{\sp{\sn b}{\sv c}}{\shptxt d\par}}{\shprslt e}}f)"
         R"({\*\do\dptxbx{\dptxbxtext g}}})",
         u"ad\nfg"},
        {"formulas, but not their properties",
         R"({\rtf1 a{\mmath{\*\moMath{\mf{\mfPr{\mtype bar}}{\mnum{\mr b}}{\mden{\mr c}}}}}})",
         u"abc"},
        {"a destination of the whole document", R"({\rtf1 a\header b})", u"ab"},
    };
    expectTexts(kRows);
}

TEST(RtfReader, KeepsNumbersOfLists) {
    constexpr Row kRows[] = {
        {"as new programs write them",
         R"({\rtf1{\*\listtable{\list{\listname b;}}}{\listtext\f0 1.\tab}a\par})", u"1.\ta\n"},
        {"as old programs do",
         R"({\rtf1{\pntext\f3\'b7\tab}{\*\pn\pnlvlblt{\pntxtb b}{\pntxta c}}a})", u"\u00B7\ta"},
    };
    expectTexts(kRows);
}

TEST(RtfReader, PutsNotesBehindTheirParagraph) {
    constexpr Row kRows[] = {
        {"a note", R"({\rtf1 a{\super\chftn}{\footnote b}c\par d})", u"ac\nb\nd"},
        {"two of a paragraph", R"({\rtf1 a{\footnote b}c{\footnote d\par e\par}f\par g})",
         u"acf\nb\nd\ne\ng"},
        {"at the document's end", R"({\rtf1 a{\footnote b}c})", u"ac\nb\n"},
        {"at the end of a line", R"({\rtf1 a{\footnote b}\par})", u"a\nb\n"},
        {"of a cell", R"({\rtf1 a{\footnote b}\cell c\cell\row d})", u"a\tc\nb\nd"},
        {"of an endnote", R"({\rtf1 a{\footnote\ftnalt b}\par c})", u"a\nb\nc"},
        {"of a note", R"({\rtf1 a{\footnote b{\footnote c}}\par d})", u"a\nbc\nd"},
        {"in hidden text", R"({\rtf1 a{\v{\footnote b}}\par c})", u"a\nc"},
        {"not what separates them", R"({\rtf1{\*\ftnsep b}{\ftnsepc c}{\aftncn d}a})", u"a"},
    };
    expectTexts(kRows);
}

TEST(RtfReader, TakesTheResultsOfFields) {
    constexpr Row kRows[] = {
        {"a link", R"({\rtf1 a {\field{\*\fldinst{HYPERLINK "http://b"}}{\fldrslt{\ul c}}} d})",
         u"a c d"},
        {"an instruction without a mark", R"({\rtf1{\field{\fldinst PAGE}{\fldrslt 7}}})", u"7"},
        {"no result", R"({\rtf1 a{\field{\*\fldinst PAGE}}b})", u"ab"},
        {"a field in an instruction",
         R"({\rtf1{\field{\*\fldinst IF {\field{\*\fldinst b}{\fldrslt c}} d}{\fldrslt a}}})",
         u"a"},
        {"a field in a result",
         R"({\rtf1{\field{\*\fldinst b}{\fldrslt a{\field{\*\fldinst c}{\fldrslt d}}e}}})", u"ade"},
        {"a symbol", R"({\rtf1{\field{\*\fldinst SYMBOL 183 \\f "Symbol" \\s 10}{\fldrslt x}}})",
         u"\u2022"},
        {"a symbol in hexadecimal digits", R"({\rtf1{\field{\*\fldinst symbol 0xE9}}})", u"\u00E9"},
        {"a symbol in Unicode", R"({\rtf1{\field{\*\fldinst SYMBOL 8364 \\u}{\fldrslt}}})",
         u"\u20AC"},
        {"no symbol",
         R"({\rtf1{\field{\*\fldinst SYMBOL x}{\fldrslt a}}{\field{\*\fldinst SYMBOL}}})", u"a"},
        {"a form's field",
         R"({\rtf1{\field{\*\fldinst FORMTEXT{\*\formfield{\*\ffdeftext b}}})"
         R"({\fldrslt a}}})",
         u"a"},
    };
    expectTexts(kRows);
}

TEST(RtfReader, MakesPicturesAndFilesAttachments) {
    constexpr Row kRows[] = {
        {"a picture", R"({\rtf1 a{\pict\pngblip 8950}b})", u"a\uFFFCb"},
        {"a picture with its stand-in",
         R"({\rtf1 a{\*\shppict{\pict 89}}{\nonshppict{\pict 50}}b})", u"a\uFFFCb"},
        {"a picture in raw bytes", "{\\rtf1 a{\\pict\\bin4 }{}}}b}", u"a\uFFFCb"},
        {"an object", R"({\rtf1 a{\object\objemb{\*\objclass b}{\*\objdata 0105}}c})", u"a\uFFFCc"},
        {"an object with a picture", R"({\rtf1 a{\object{\*\objdata 01}{\result{\pict 0}}}c})",
         u"a\uFFFCc"},
        {"an object with text", R"({\rtf1 a{\object{\*\objdata 01}{\result b}}c})", u"abc"},
        {"a file beside the document",
         "{\\rtf1 a{{\\NeXTGraphic b.png \\width640 \\height480\n}\xAC}c}", u"a\uFFFCc"},
        {"its stand-in is escaped", R"({\rtf1 a{{\NeXTGraphic b.png}\'ac}c})", u"a\uFFFCc"},
        {"it has no stand-in", R"({\rtf1 a{{\NeXTGraphic b.png}}c})", u"a\uFFFCc"},
        {"hidden ones", R"({\rtf1 a{\v{\pict 0}{\object}{{\NeXTGraphic b}\'ac}}c})", u"ac"},
    };
    expectTexts(kRows);
}

TEST(RtfReader, ReadsHtmlThatIsEncapsulated) {
    EXPECT_EQ(textOf("{\\rtf1\\ansi\\ansicpg1252\\fromhtml1 \\deff0{\\fonttbl{\\f0 Arial;}}\n"
                     "{\\*\\htmltag64 <p>}\\htmlrtf {\\htmlrtf0 Hello {\\*\\htmltag84 &nbsp;}"
                     "\\htmlrtf \\'a0\\htmlrtf0 there\\htmlrtf\\par}\\htmlrtf0\n"
                     "{\\*\\htmltag84 <a href=\"http://b\">}\\htmlrtf {\\field{\\*\\fldinst "
                     "HYPERLINK \"http://b\"}{\\fldrslt\\htmlrtf0 link\\htmlrtf }\\htmlrtf0 "
                     "\\htmlrtf }\\htmlrtf0 {\\*\\htmltag92 </a>}{\\*\\mhtmltag c}}"),
              u"Hello \u00A0there\nlink");
}

TEST(RtfReader, ReadsDamagedDocumentsUpToTheDamage) {
    constexpr Row kRows[] = {
        {"no group ends", R"({\rtf1 a{\b b{\i c)", u"abc"},
        {"too many ends", R"({\rtf1 a}} b)", u"a"},
        {"the end in a word", R"({\rtf1 a\pa)", u"a"},
        {"the end behind a backslash", R"({\rtf1 a\)", u"a"},
        {"the end in a byte", R"({\rtf1 a\'e)", u"a"},
        {"the end in a table", R"({\rtf1 a{\fonttbl{\f0 b)", u"a"},
        {"the end in a note", R"({\rtf1 a{\footnote b)", u"a\nb\n"},
        {"the end in an instruction", R"({\rtf1 a{\field{\*\fldinst HYPERLINK "b)", u"a"},
        {"no version", R"({\rtf a})", u"a"},
        {"another version", R"({\rtf0 a})", u"a"},
        {"a word that goes on", R"({\rtfx a})", u"a"},
        {"a byte-order mark", "\xEF\xBB\xBF{\\rtf1 a}", u"a"},
        {"text behind the document", "{\\rtf1 a}\n{\\rtf1 b}", u"a"},
        {"nothing", R"({\rtf1})", u""},
    };
    expectTexts(kRows);
}

TEST(RtfReader, KeepsTextHoweverDeepItIs) {
    constexpr std::size_t kDepth = 100'000;
    const std::string opened(kDepth, '{');
    EXPECT_EQ(textOf("{\\rtf1 a" + opened + "b{\\*\\zzz c}{\\field{\\*\\fldinst d}e}" +
                     std::string(kDepth, '}') + "f}"),
              u"abef");
    std::string formats = "{\\rtf1 ";
    for (std::size_t i = 0; i < kDepth; ++i) {
        formats += "{\\v0\\b x";
    }
    EXPECT_EQ(textOf(formats), std::u16string(kDepth, u'x'));
}

TEST(RtfReader, ReadsEveryBeginningOfADocument) {
    constexpr std::string_view kDocument =
        R"({\rtf1\ansi{\fonttbl{\f0\fcharset128 A;}}\f0 a\'93\'fa{\b\u-10179?}\u-8704? b\par)"
        R"({\field{\*\fldinst{HYPERLINK "c"}}{\fldrslt d}}{\footnote e}{\pict 00}\cell f\row})";
    constexpr std::u16string_view kText = u"a\u65E5\U0001F600 b\nd\uFFFC\tf\ne\n";
    EXPECT_EQ(textOf(kDocument), kText);
    for (std::size_t length = 5; length < kDocument.size(); ++length) {
        const auto text = attributedStringFromRtf(Data::copyOf(kDocument.substr(0, length)));
        ASSERT_TRUE(text) << length;
        EXPECT_LE(text.value().length(), kText.size()) << length;
    }
}

TEST(RtfReader, RefusesWhatIsNoRtf) {
    for (const std::string_view bytes :
         {""sv, "{"sv, "{\\rt"sv, "a {\\rtf1 a}"sv, "\\rtf1 a"sv, "{\\RTF1 a}"sv, "words"sv}) {
        EXPECT_FALSE(isRtf(bytes)) << bytes;
        const auto text = attributedStringFromRtf(Data::copyOf(bytes));
        ASSERT_FALSE(text) << bytes;
        EXPECT_EQ(text.fault().code, FaultCode::Malformed);
        EXPECT_EQ(text.fault().detail, "no RTF: it does not begin with {\\rtf");
    }
}

}  // namespace
}  // namespace platform
