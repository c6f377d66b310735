// Which element ends which, as the characters of pages show it.

#include "Platform/Text/HtmlNesting.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "Tests/Support/HtmlTexts.h"

namespace platform {
namespace {

using namespace std::string_view_literals;

using Row = test::HtmlRow;
using test::expectTexts;

TEST(HtmlNesting, EndsParagraphsBeforeBlocks) {
    constexpr Row kRows[] = {
        {"a block", "<p>a<div>b</div>c</p>d", u"a\nb\nc\nd"},
        {"a list", "<p>a<ul><li>b</ul>c</p>d", u"a\n\t•\tb\nc\nd"},
        {"a table", "<p>a<table><tr><td>b</table>c</p>d", u"a\nb\nc\nd"},
        {"an end before", "<p>a</p></p>b", u"a\nb"},
        {"one behind text that ended by itself", "<p>a<h1>b</h1>c</p>d", u"a\nb\nc\nd"},
        {"inside a button", "<p>a<button><p>b</button>c</p>d", u"a\nb\nc\nd"},
        {"a hidden one before a newer block", "<p hidden>a<section>b</section>c", u"b\nc"},
        {"a hidden one before an item", "<ul><li><p hidden>a<li>b</ul>", u"\t•\tb\n"},
    };
    expectTexts(kRows);
}

TEST(HtmlNesting, EndsHeadingsWithTheEndOfAnyHeading) {
    constexpr Row kRows[] = {
        {"another level", "<h2>a</h3>b", u"a\nb"},
        {"around a paragraph", "<h1><p>a</h1>b", u"a\nb"},
        {"before the next", "<h1>a<h2>b</h1>c", u"a\nb\nc"},
        {"a hidden one around a paragraph", "<h1 hidden><p>a</h1>b", u"b"},
    };
    expectTexts(kRows);
}

TEST(HtmlNesting, EndsItemsBeforeTheNext) {
    constexpr Row kRows[] = {
        {"over inline elements", "<ol><li><span>a<li><i>b<li>c</ol>",
         u"\t1.\ta\n\t2.\tb\n\t3.\tc\n"},
        {"over blocks", "<ol><li><div>a<li><p>b</ol>", u"\t1.\ta\n\t2.\tb\n"},
        {"not those of other lists", "<ol><li>a<ul><li>b</ul><li>c</ol>",
         u"\t1.\ta\n\t◦\tb\n\t2.\tc\n"},
        {"a list in a list, but in no item", "<ol><li>a</li><ul><li>b</li></ul><li>c</li></ol>",
         u"\t1.\ta\n\t◦\tb\n\t2.\tc\n"},
        {"definitions", "<dl><dt hidden><b>a<dd><div>b<dt>c</dl>", u"b\nc\n"},
        {"an end beyond the list", "<ul><li>a<ul></li>b</ul></ul>", u"\t•\ta\nb\n"},
        {"a hidden item", "<ul><li hidden><div>a<li>b</ul>", u"\t•\tb\n"},
        {"the end of a list ends all in it", "<ul><pre>a</ul>b", u"a\nb"},
        {"choices", "<select><option hidden>a<option>b<optgroup label=c><option>d</select>e",
         u"b\nc\nd\ne"},
    };
    expectTexts(kRows);
}

TEST(HtmlNesting, EndsCellsAndRowsBeforeTheNext) {
    constexpr Row kRows[] = {
        {"a cell with a block", "<table><tr><td>a<div hidden>b<td>c</table>", u"a\tc\n"},
        {"a cell without a row", "<table><td>a<tbody><td>b</table>", u"a\nb\n"},
        {"a hidden format", "<table><tr><td><b hidden>a<tr><td>b</table>", u"b\n"},
        {"a form around rows", "<table><form><tr><td>a</form><td>b</table>", u"a\tb\n"},
        {"a table that ends another", "<table><tr><td>a</td><table><tr><td>b</table>", u"a\nb\n"},
        {"ends inside a cell", "<div><table><tr><td>a</div></tbody>b<tr><td>c</table></div>",
         u"ab\nc\n"},
        {"the end of the table", "<table><tr><td><p>a</table>b", u"a\nb"},
    };
    expectTexts(kRows);
}

TEST(HtmlNesting, CarriesFormatsOverTheEndsOfBlocks) {
    constexpr Row kRows[] = {
        {"crossing a paragraph", "a<b hidden>b<p>c</b>d</p>e", u"a\nd\ne"},
        {"over paragraphs", "<p>a<b hidden>b<p>c</b>d", u"a\nd\n"},
        {"not into cells", "<p>a<b hidden>b<table><tr><td>c</table>d", u"a\nc\n"},
        {"around a table", "<b hidden>a<table><tr><td>b</table>c</b>d", u"d"},
        {"around inline elements", "<b><span hidden>a</b>b</span>c", u"bc"},
        {"with nothing of their own", "<font><span hidden>a</font>b", u"b"},
        {"four of one kind", "<b><b><b><b hidden>a</b>b</b>c</b>d</b>e", u"bcde"},
        {"links end before the next", "<a hidden>a<a>b</a>c", u"bc"},
    };
    expectTexts(kRows);
}

TEST(HtmlNesting, EndsPartsOfRubies) {
    constexpr Row kRows[] = {
        {"without ends", "<ruby>漢<rp>(<rt>かん<rp>)</ruby>です", u"漢(かん)です"},
        {"with a base", "<ruby><rb>漢<rt>かん<rb>字<rt>じ</ruby>", u"漢字(かんじ)"},
        {"in no ruby", "a <rt>b</rt> c", u"a b c"},
    };
    expectTexts(kRows);
}

TEST(HtmlNesting, ReadsPicturesAndFormulasAsXml) {
    constexpr Row kRows[] = {
        {"a style that is closed", "a<svg><defs><style/></defs><text>b</text></svg><p>c",
         u"a\nb\nc\n"},
        {"a title that is closed", "a<svg><title/><text>b</text></svg><p>c", u"a\nb\nc\n"},
        {"a script that is closed", "a<svg><script href=x /><text>b</text></svg><p>c",
         u"a\nb\nc\n"},
        {"a style without end", "a<svg><style>b</svg>c", u"ac"},
        {"a title without end", "a<svg><title>b</svg>c", u"ac"},
        {"text that is not looked into", "<svg><text><![CDATA[a<b>]]></text></svg>", u"a<b>\n"},
        {"names of HTML", "<svg><textarea/><plaintext/><xmp/></svg>a<b>b", u"ab"},
        {"an element of HTML ends them", "<svg><g><p>a<style>b</style>", u"a\n"},
        {"HTML inside", "<svg><foreignObject><p>a<style>b</style></p></foreignObject></svg>c",
         u"a\nc"},
        {"formulas", "<math><mi>a</mi><annotation>b</annotation></math>c", u"ac"},
        {"elements that HTML does not know", "<desc>a</desc><metadata>b</metadata>", u"ab"},
    };
    expectTexts(kRows);
}

TEST(HtmlNesting, TakesNamesWhole) {
    constexpr Row kRows[] = {
        {"a sign in a name", "<script<x>a</script><p>b &amp; c", u"a\nb & c\n"},
        {"one that HTML has not", "<style\xC2\xA0x>a</style>b &lt; c", u"ab < c"},
        {"a long one", "<p12345678901234567890123456789012345678901234567890123456789012345>a",
         u"a"},
        {"a tag inside a tag", "a<p<b>c", u"ac"},
        {"one of a root", "<div></html></body></root>a</div>b", u"a\nb"},
        {"elements without contents", "a<wbr>b<source><track><keygen><bgsound>c", u"abc"},
    };
    expectTexts(kRows);
}

TEST(HtmlNesting, KeepsWhatIsOpenWhereElementsNestTooDeep) {
    struct DeepRow {
        const char* name;
        std::string_view start;
        std::string_view piece;
        std::string_view end;
        std::u16string_view want;
    };
    constexpr DeepRow kRows[] = {
        {"hidden text", "<p hidden>", "<span>", "a", u""},
        {"preformatted text", "<pre>", "<b>", "a  b", u"a  b\n"},
        {"a list", "<ol><li>a", "<i><span>", "<li>b", u"\t1.\ta\n\t2.\tb\n"},
        {"a table", "<table><tr><td>a", "<div>", "<td>b", u"a\tb\n"},
        {"elements without contents", "<pre>", "<wbr>", "a  b", u"a  b\n"},
    };
    for (const DeepRow& row : kRows) {
        std::string html(row.start);
        for (int i = 0; i < 2'000; ++i) {
            html += row.piece;
        }
        EXPECT_EQ(test::textOfHtml(html + std::string(row.end)), row.want) << row.name;
    }
}

}  // namespace
}  // namespace platform
