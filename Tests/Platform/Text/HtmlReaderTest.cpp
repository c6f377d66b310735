// The characters that pages have; HtmlAttributesTest looks at their attributes.

#include "Platform/Text/HtmlReader.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "Tests/Support/HtmlTexts.h"

namespace platform {
namespace {

using namespace std::string_view_literals;

using Row = test::HtmlRow;
using test::expectTexts;

TEST(HtmlReader, EndsBlocksWithOneLineEnd) {
    constexpr Row kRows[] = {
        {"nothing", "", u""},
        {"no markup", "words, no markup", u"words, no markup"},
        {"paragraphs", "<p>one</p><p>two</p>", u"one\ntwo\n"},
        {"paragraphs without ends", "<p>one<p>two", u"one\ntwo\n"},
        {"blank source between", "<p>one</p>\n\n  <p>two</p>\n", u"one\ntwo\n"},
        {"text between blocks", "a<div>b</div>c", u"a\nb\nc"},
        {"blocks in blocks", "<div><div><p>a</p></div></div><div>b</div>", u"a\nb\n"},
        {"empty blocks", "<p></p><div> </div><p>a</p><p></p>", u"a\n"},
        {"a heading", "<h1>a</h1>b", u"a\nb"},
        {"a rule", "a<hr>b", u"a\nb"},
        {"a block that the page does not end", "<section>a<article>b", u"a\nb\n"},
        {"definitions", "<dl><dt>a<dd>b<dt>c<dd>d</dl>", u"a\nb\nc\nd\n"},
        {"an inline element that is shown as a block", "a<b style='display:block'>b</b>c",
         u"a\nb\nc"},
        {"a block that is shown inline", "a<div style='display: inline'>b</div>c", u"abc"},
        {"behind the page's end", "<html><body><p>a</p></body></html><p>b</p>c", u"a\nb\nc"},
        {"two bodies", "<body>a<body>b", u"ab"},
        {"elements that nobody knows", "<x-a>a</x-a><y>b</y>", u"ab"},
        {"ends of nothing", "</div>a</b></p>b</table>c", u"a\nbc"},
        {"elements that cross", "<b>a<i>b</b>c</i>d", u"abcd"},
    };
    expectTexts(kRows);
}

TEST(HtmlReader, FoldsBlanks) {
    constexpr Row kRows[] = {
        {"many blanks", "a  \t\r\n b", u"a b"},
        {"at the ends", "  a  ", u"a"},
        {"at the ends of a block", "<p> a </p> <p> b </p>", u"a\nb\n"},
        {"over the ends of elements", "a <b> b </b> c", u"a b c"},
        {"inside a word", "a<b>b</b>c", u"abc"},
        {"between elements alone", "<b>a</b> <i>b</i>", u"a b"},
        {"a comment inside a word", "a<!-- b -->c", u"ac"},
        {"around a line break", "a <br> b", u"a\u2028b"},
        {"no-break spaces are kept", "a&nbsp; &nbsp;b", u"a\u00A0 \u00A0b"},
        {"soft hyphens are kept", "a&shy;b", u"a\u00ADb"},
        {"a form feed", "a\fb", u"a b"},
        {"a vertical tab", "a\vb&#11;c&#12;d", u"a b c d"},
        {"line ends between Chinese characters", "\xE6\xBC\xA2\n\xE5\xAD\x97", u"漢字"},
        {"a blank between Chinese characters", "\xE6\xBC\xA2 \xE5\xAD\x97", u"漢 字"},
        {"a line end between Chinese and Latin", "\xE6\xBC\xA2\na", u"漢 a"},
        {"a line end between Korean words", "\xEA\xB0\x80\n\xEB\x82\x98", u"가 나"},
    };
    expectTexts(kRows);
}

TEST(HtmlReader, KeepsBlanksThatCount) {
    constexpr Row kRows[] = {
        {"pre", "<pre>a\n  b\tc</pre>", u"a\n  b\tc\n"},
        {"its first line end", "<pre>\n\na\n</pre>b", u"\na\nb"},
        {"other line ends", "<pre>a\r\nb\rc</pre>", u"a\nb\nc\n"},
        {"the first of them", "<pre>\r\na</pre>", u"a\n"},
        {"elements inside", "<pre><b>a</b>\n <i>b</i></pre>", u"a\n b\n"},
        {"the style", "<p style='white-space: pre-wrap'>a  b\nc</p>", u"a  b\nc\n"},
        {"not any more", "<pre>a <b style='white-space:normal'>b  c</b></pre>", u"a b c\n"},
        {"never", "<pre style='white-space:normal'>a\n  b</pre>", u"a b\n"},
        {"a line end behind half of one that ended before", "<pre>a\r</pre><pre>b\n\nc</pre>",
         u"a\nb\n\nc\n"},
        {"a text field", "<textarea>\na\n <b>&amp;</textarea>c", u"a\n <b>&\nc"},
        {"an example", "<xmp>a\n<b>&amp;</b></xmp>", u"a\n<b>&amp;</b>\n"},
        {"the rest", "a<plaintext>b</plaintext>&lt;", u"a\nb</plaintext>&lt;\n"},
    };
    expectTexts(kRows);
}

TEST(HtmlReader, EndsLinesWithLineSeparators) {
    constexpr Row kRows[] = {
        {"between words", "<p>a<br>b</p>", u"a\u2028b\n"},
        {"two", "a<br/><br />b", u"a\u2028\u2028b"},
        {"at the end of a block", "<p>a<br></p>b", u"a\nb"},
        {"at the end of the page", "a<br>", u"a\n"},
        {"alone in a block", "<p><br></p><p>a</p>", u"\na\n"},
        {"as an end", "a</br>b", u"a\u2028b"},
    };
    expectTexts(kRows);
}

TEST(HtmlReader, MarksItemsOfLists) {
    constexpr Row kRows[] = {
        {"bullets", "<ul><li>a</li><li>b</li></ul>", u"\t•\ta\n\t•\tb\n"},
        {"items without ends", "<ul><li>a<li>b</ul>c", u"\t•\ta\n\t•\tb\nc"},
        {"numbers", "<ol><li>a<li>b</ol>", u"\t1.\ta\n\t2.\tb\n"},
        {"the first number", "<ol start=7><li>a<li>b</ol>", u"\t7.\ta\n\t8.\tb\n"},
        {"the number of an item", "<ol><li value=5>a<li>b</ol>", u"\t5.\ta\n\t6.\tb\n"},
        {"backwards", "<ol reversed start=2><li>a<li>b</ol>", u"\t2.\ta\n\t1.\tb\n"},
        {"backwards from their number",
         "<ol reversed><li>a<ul><li>b</ul><!-- <li> "
         "--><li>c<script><li></script></ol><ol><li>d</ol>",
         u"\t2.\ta\n\t◦\tb\n\t1.\tc\n\t1.\td\n"},
        {"a number behind a blank and a sign", "<ol start=' +5'><li>a</ol>", u"\t5.\ta\n"},
        {"no number", "<ol start=x><li value=99999999999>a</ol>", u"\t1.\ta\n"},
        {"letters", "<ol type=a start=26><li>a<li>b</ol>", u"\tz.\ta\n\taa.\tb\n"},
        {"capitals", "<ol type=A><li>a</ol>", u"\tA.\ta\n"},
        {"Roman digits", "<ol type=I start=1949><li>a</ol><ol type=i start=4><li>b</ol>",
         u"\tMCMXLIX.\ta\n\tiv.\tb\n"},
        {"what has no letters", "<ol type=a start=0><li>a</ol>", u"\t0.\ta\n"},
        {"lists in lists", "<ul><li>a<ul><li>b<ul><li>c</ul></ul><li>d</ul>",
         u"\t•\ta\n\t◦\tb\n\t▪\tc\n\t•\td\n"},
        {"a list counts on behind another", "<ol><li>a<ol><li>b</ol><li>c</ol>",
         u"\t1.\ta\n\t1.\tb\n\t2.\tc\n"},
        {"a list that begins its item", "<ol><li><ul><li>a</ul></ol>", u"\t1.\t\t◦\ta\n"},
        {"an empty item", "<ul><li></li><li>a</ul>", u"\t•\ta\n"},
        {"paragraphs in an item", "<ul><li><p>a</p><p>b</p></ul>", u"\t•\ta\nb\n"},
        {"a kind of bullet", "<ul type=square><li>a<li type=circle>b</ul>", u"\t▪\ta\n\t◦\tb\n"},
        {"no bullets", "<ul style='list-style: none'><li>a</ul>", u"a\n"},
        {"an item in no list", "<li>a", u"\t•\ta\n"},
    };
    expectTexts(kRows);
}

TEST(HtmlReader, SeparatesCellsByTabs) {
    constexpr Row kRows[] = {
        {"rows", "<table><tr><td>a</td><td>b</td></tr><tr><th>c</th><td>d</td></tr></table>e",
         u"a\tb\nc\td\ne"},
        {"without ends", "<table><tr><td>a<td>b<tr><td>c<td>d</table>", u"a\tb\nc\td\n"},
        {"blank source between", "<table>\n <tr>\n  <td> a </td>\n  <td>b</td>\n </tr>\n</table>",
         u"a\tb\n"},
        {"empty cells", "<table><tr><td><td>a<td><td>b<td></table>", u"\ta\t\tb\n"},
        {"paragraphs in cells", "<table><tr><td><p>a</p><p>b</p><td><p>c</p></table>",
         u"a\nb\tc\n"},
        {"a line break at a cell's end", "<table><tr><td>a<br><td>b</table>", u"a\tb\n"},
        {"a table in a cell",
         "<table><tr><td>a<td><table><tr><td>b<td>c<tr><td>d</table><td>e"
         "<tr><td>f</table>",
         u"a\tb\tc\nd\te\nf\n"},
        {"an empty table in a cell", "<table><tr><td>a<td><table></table><tr><td>b</table>",
         u"a\nb\n"},
        {"a caption and sections",
         "<table><caption>a</caption><thead><tr><th>b<tbody><tr><td>c</table>", u"a\nb\nc\n"},
        {"cells without a row", "<table><td>a<td>b</table>", u"a\tb\n"},
        {"text outside the cells", "<table><tr><td>a</td>b<td>c</td></table>", u"a\tb\tc\n"},
        {"cells outside a table", "<td>a</td><td>b</td>", u"a\nb\n"},
        {"a hidden cell", "<table><tr><td>a<td hidden>b<td>c</table>", u"a\tc\n"},
    };
    expectTexts(kRows);
}

TEST(HtmlReader, LeavesOutWhatIsNotShown) {
    constexpr Row kRows[] = {
        {"the head", "<head><title>a</title><style>b</style><meta content=c></head>d", u"d"},
        {"a title in the middle", "a<title>b<p>c</title>d", u"ad"},
        {"scripts", "a<script>if (a<b && '</p>') <b></script>c", u"ac"},
        {"scripts in capitals", "a<SCRIPT>b</ScripT >c", u"ac"},
        {"an end that only begins alike", "<script>a</scripts></script>b", u"b"},
        {"a script without end", "a<script>b</p>", u"a"},
        {"a script that writes one",
         "a<script><!--\nwrite('<script src=b></script>');\n//--></script>c", u"ac"},
        {"a comment in a script", "a<script><!-- '<script' --></script>b", u"ab"},
        {"the shortest comment in a script", "a<script><!--> <script> </script>b", u"ab"},
        {"templates", "a<template>b<p>c</p></template>d", u"ad"},
        {"what stands in for scripts", "<noscript>a</noscript>", u"a"},
        {"other pages", "a<iframe src=x>b</iframe><noframes>c</noframes>d", u"ad"},
        {"films and sounds", "<video>a</video><audio>b</audio><canvas>c</canvas>d", u"d"},
        {"the attribute", "<p hidden>a<b>b</b></p><p>c", u"c\n"},
        {"the style", "a<b style='Color: red; Display : NONE !important'>b</b>c", u"ac"},
        {"what is shown inside it", "<p style='display:none'>a<b style='display:block'>b</b></p>c",
         u"c"},
        {"closed dialogs", "<dialog>a</dialog><dialog open>b</dialog>", u"b\n"},
        {"descriptions of pictures and formulas",
         "<svg><desc/><title>a</title><desc>b</desc><text>c</text></svg>"
         "<math><mi>d</mi><annotation>e</annotation></math>",
         u"c\nd"},
    };
    expectTexts(kRows);
}

TEST(HtmlReader, PassesOverCommentsAndDeclarations) {
    constexpr Row kRows[] = {
        {"a comment", "a<!-- <p> -- > -->b", u"ab"},
        {"the shortest", "a<!-->b<!--->c<!---->d", u"abcd"},
        {"an end of another kind", "a<!-- b --!>c", u"ac"},
        {"without end", "a<!-- b <p>c</p>", u"a"},
        {"a condition", "<!--[if IE]>a<![endif]-->b<![if !IE]>c<![endif]>", u"bc"},
        {"a declaration", "<!DOCTYPE html SYSTEM \"x\">a<!b>c", u"ac"},
        {"an instruction", "<?php a ?>b", u"b"},
        {"an end without a name", "a</>b</ c>d", u"abd"},
        {"the start of an end where the page ends", "a</", u"a</"},
    };
    expectTexts(kRows);
}

TEST(HtmlReader, ReadsReferences) {
    constexpr Row kRows[] = {
        {"by name", "&eacute;&Eacute;&hellip;&apos;&check;&lbrace;", u"éÉ…'✓{"},
        {"signs of markup", "&lt;b&gt; &amp;amp; &quot;", u"<b> &amp; \""},
        {"by number", "&#233;&#xE9;&#XE9;&#x1F600;", u"ééé😀"},
        {"without a semicolon", "caf&eacute, &copy2020 &notit; &#233 &ampersand",
         u"café, ©2020 ¬it; é &ersand"},
        {"newer names need one", "&hellip &check", u"&hellip &check"},
        {"two characters", "&NotEqualTilde;", u"≂̸"},
        {"names that nobody knows", "&nosuch; &; & &1 &#; &#x;", u"&nosuch; &; & &1 &#; &#x;"},
        {"of windows-1252", "&#128;&#146;&#x9F;", u"€’Ÿ"},
        {"of no character", "&#0;&#xD800;&#x110000;&#99999999999;", u"\uFFFD\uFFFD\uFFFD\uFFFD"},
        {"at the end", "a&amp", u"a&"},
        {"in an attribute", "<img alt='a&lt;b &copy=c &amp;&quot;'>", u"a<b &copy=c &\""},
    };
    expectTexts(kRows);
}

TEST(HtmlReader, ReadsTagsAsBrowsersDo) {
    constexpr Row kRows[] = {
        {"signs that are no tags", "1 < 2 <3 a<b>c</b> <> <", u"1 < 2 <3 ac <> <"},
        {"capitals", "<P ALIGN=Center>a</P><Br>", u"a\n\n"},
        {"values with ends of tags", "<b title=\"a>b\" class='c>d'>e</b>", u"e"},
        {"names with signs", "<b @click='a > b' :c=\"d>e\" [f]=g>h</b>", u"h"},
        {"quotes without equals signs", "<b a\"b 'c>d</b>", u"d"},
        {"no blank between", "<b a=\"b\"hidden>c</b>d", u"d"},
        {"a tag without end", "a<b c", u"a"},
        {"a quote without end", "a<b c=\"d>e</b>", u"a"},
        {"a slash means nothing", "<div/>a<b/>b",
         u"a"
         "b\n"},
        {"the first of two attributes counts", "<p style='' style='display:none'>a", u"a\n"},
        {"NULs", "a\0b<b\0>c"sv, u"abc"},
        {"control characters", "a\1b\x1F", u"ab"},
    };
    expectTexts(kRows);
}

TEST(HtmlReader, ReadsXhtmlByItsOwnRules) {
    constexpr Row kRows[] = {
        {"empty elements",
         "<?xml version=\"1.0\"?><html><head><title/><script src='a'/></head>"
         "<body><p/>b<textarea/>c</body></html>",
         u"b\nc"},
        {"text that is not looked into", "<?xml version=\"1.0\"?><p><![CDATA[a<b>&amp;]]></p>c",
         u"a<b>&amp;\nc"},
        {"declarations in the document type",
         "<?xml version='1.0'?><!DOCTYPE html [<!ENTITY a \"b>]\"> ] ><p>c</p>", u"c\n"},
        {"a document type without them", "<?xml version='1.0'?><!DOCTYPE html><p>[a]></p>",
         u"[a]>\n"},
        {"an end of what is empty", "<?xml version='1.0'?><p>a<br></br>b</p>", u"a\u2028b\n"},
        {"which HTML does not know", "<p><![CDATA[a<b>&amp;]]></p>c", u"&]]>\nc"},
    };
    expectTexts(kRows);
}

TEST(HtmlReader, ReadsWhatStandsForOtherThings) {
    constexpr Row kRows[] = {
        {"a picture", "a<img src=x alt='b c'>d<img>e", u"ab cde"},
        {"buttons", "<button>a</button><input type=submit value=b><input type=image alt=c>d",
         u"a b c d"},
        {"pictures beside each other", "<img alt=a><img alt=><img alt=b>c<img alt=d>", u"a bcd"},
        {"fields", "<input value=a><input type=HIDDEN value=b><input type=password value=c>", u"a"},
        {"choices", "a<select><optgroup label=b><option>c<option selected>d</select>e",
         u"a\nb\nc\nd\ne"},
        {"readings", "<ruby>漢<rp>(</rp><rt>かん</rt><rp>)</rp>字<rt>じ</rt></ruby>です",
         u"漢字(かんじ)です"},
        {"quotations", "<q>a</q>", u"a"},
    };
    expectTexts(kRows);
}

TEST(HtmlReader, ReadsEncodings) {
    constexpr Row kRows[] = {
        {"UTF-8", "<p>\xC3\xA9</p>", u"é\n"},
        {"UTF-8 with a mark, whatever is declared",
         "\xEF\xBB\xBF<meta charset=windows-1251>\xC3\xA9", u"é"},
        {"UTF-16 with a mark", "\xFF\xFE<\0p\0>\0\xE9\0"sv, u"é\n"},
        {"UTF-16 without one", "\0<\0p\0>\0a\0 \0w\0o\0r\0d\0<\0/\0p\0>"sv, u"a word\n"},
        {"NULs behind markup", "<p>a\0b\0c text text text \0\0"sv, u"abc text text text\n"},
        {"signs of Hong Kong", "<meta charset=big5>\xA4\xA4\x9D\xEF", u"中嘅"},
        {"a Hebrew point", "<meta charset=windows-1255>\xE5\xCA", u"\u05D5\u05BA"},
        {"declared", "<meta charset=windows-1251>\xEC\xE8\xF0", u"мир"},
        {"in the old way",
         "<meta http-equiv=content-type content='text/html; charset=Shift_JIS'>\x93\xFA\x96\x7B",
         u"日本"},
        {"by XML", "<?xml version='1.0' encoding='iso-8859-2'?><p>\xB1</p>", u"ą\n"},
        {"Latin is that of Windows", "<meta charset=iso-8859-1>\x80\x93", u"€“"},
        {"declared wrongly to be UTF-8", "<meta charset=utf-8>caf\xE9 d\xE9j\xE0", u"café déjà"},
        {"broken UTF-8", "\xEF\xBB\xBF\xC3\xA9\xFF\xC3", u"é\uFFFD\uFFFD"},
        {"a guess", "<p>caf\xE9 d\xE9j\xE0 na\xEFve</p>", u"café déjà naïve\n"},
        {"lone surrogates", "\xFF\xFE<\0p\0>\0\0\xD8z\0"sv, u"\uFFFDz\n"},
    };
    expectTexts(kRows);
}

TEST(HtmlReader, RefusesWhatIsNoText) {
    const auto text = attributedStringFromHtml(Data::copyOf("\xFF\1\2\3\4\5\6\7"));
    ASSERT_FALSE(text);
    EXPECT_EQ(text.fault().code, FaultCode::Unsupported);
}

TEST(HtmlReader, KeepsTheTextOfWhateverDepth) {
    constexpr std::size_t kDepth = 100'000;
    for (const std::string_view element : {"div", "b", "ul><li", "table><tr><td", "font"}) {
        std::string html;
        for (std::size_t i = 0; i < kDepth; ++i) {
            html += "<" + std::string(element) + ">";
        }
        const std::u16string text = test::textOfHtml(html + "deep");
        EXPECT_TRUE(text.ends_with(u"deep") || text.ends_with(u"deep\n")) << element;
    }
}

TEST(HtmlReader, ReadsPagesInPieces) {
    // Characters of several bytes and tags at every place of a piece.
    for (std::size_t shift = 0; shift < 8; ++shift) {
        std::string html(shift, 'a');
        std::u16string want(shift, u'a');
        for (int i = 0; i < 20'000; ++i) {
            html += "é<b>漢</b>😀";
            want += u"é漢😀";
        }
        EXPECT_EQ(test::textOfHtml(html), want) << shift;
    }
}

TEST(HtmlReader, ReadsLongTextWithoutMarkup) {
    struct Row {
        const char* name;
        std::string_view piece;
        std::u16string_view want;
    };
    constexpr Row kRows[] = {
        {"words", "one two ", u"one two "},
        {"characters of several bytes", "é漢😀", u"é漢😀"},
        {"references", "&eacute;&amp;&lt;&nosuch;", u"é&<&nosuch;"},
        {"signs that are no markup", "< & ", u"< & "},
    };
    for (const Row& row : kRows) {
        std::string html;
        std::u16string want;
        while (html.size() < 300'000) {
            html += row.piece;
            want += row.want;
        }
        want.resize(want.find_last_not_of(u' ') + 1);
        EXPECT_EQ(test::textOfHtml(html), want) << row.name;
        EXPECT_EQ(test::textOfHtml("<textarea>" + html).substr(0, want.size()), want) << row.name;
    }
}

TEST(HtmlReader, ReadsLongAttributesAndManyOfThem) {
    const std::string lengthy(500'000, 'x');
    EXPECT_EQ(test::textOfHtml("<img alt=" + lengthy + ">").size(), lengthy.size());
    std::string html = "<p";
    for (int i = 0; i < 100'000; ++i) {
        html += " a" + std::to_string(i) + "=b";
    }
    EXPECT_EQ(test::textOfHtml(html + " hidden>a</p>b"), u"b");
}

TEST(HtmlReader, ReadsEveryBeginningOfAPage) {
    constexpr std::string_view kPage =
        "<!DOCTYPE html><html lang=en><head><meta charset=\"utf-8\"><title>a</title></head>"
        "<body><h1>b &eacute;</h1><!-- c --><ul><li>d<table><tr><td>e</table></ul>"
        "<script>f</script><pre>\ng</pre><a href='h'>\xC3\xA9</a></body></html>";
    for (std::size_t size = 0; size <= kPage.size(); ++size) {
        EXPECT_TRUE(attributedStringFromHtml(Data::copyOf(kPage.substr(0, size)))) << size;
    }
}

}  // namespace
}  // namespace platform
