// Pages of HTML with one construct in each.

#include <string_view>

#include "Fuzz/Support/Seeds.h"

namespace fuzz {

std::vector<Seed> htmlSeeds() {
    using namespace std::string_view_literals;
    const auto page = [](std::string_view bytes) {
        return platform::Data::copyOf(bytes);
    };
    return {
        {"page", page("<!DOCTYPE html><html><head><title>t</title></head><body><p>words<p>more"
                      "</body></html>tail"sv)},
        {"blocks", page("<h1 align=center>a</h1><div>b<p>c</div><hr><dl><dt>d<dd>e</dl>"sv)},
        {"inline", page("<b>a</b> <i>b<u>c</u></i><s>d</s><sup>e</sup><code>f</code><big>g"sv)},
        {"references", page("&eacute;&copy&#233;&#xE9;&#128;&#0;&amp;lt;&nosuch;&#x110000;"sv)},
        {"list", page("<ol start=5 type=I reversed><li value=7>a<li>b<ul><li>c</ul></ol>"sv)},
        {"table", page("<table><caption>a</caption><tr><td>b<td><table><td>c</table><tr><th>d"
                       "<td></table>e"sv)},
        {"preformatted",
         page("<pre>\n a\r\n\tb</pre><textarea>\n<b>&lt;</textarea><xmp><i></xmp>"sv)},
        {"breaks", page("a<br>b<br/><br><p>c<br></p>"sv)},
        {"links", page("<a href='http://a/?b&c=d'>e</a><a name=f>g<img alt=\"h\"></a>"sv)},
        {"dropped", page("<script>if (a<b) '</p>'</script><style>c</style><!-- d --><template>e"
                         "</template><p hidden>f</p><b style='display:none'>g</b>h"sv)},
        {"comments", page("<!-->a<!--->b<!-- --!>c<!d>e<?f>g</ h>i<![CDATA[j]]>k<!--"sv)},
        {"tags", page("a < b<1></><a b=c'd e=\"f>g\" h='i' /j><k=l =m><"sv)},
        {"forms", page("<input value=a><input type=hidden value=b><select><optgroup label=c>"
                       "<option>d</select><button>e</button><dialog open>f</dialog>"sv)},
        {"ruby", page("<ruby>\xE6\xBC\xA2<rp>(<rt>kan<rp>)\n\xE5\xAD\x97<rt>ji</ruby>"sv)},
        {"foreign", page("<svg><desc/>a<text>b</text></svg><math><mi>c</mi><annotation>d"sv)},
        {"xhtml",
         page("<?xml version='1.0' encoding='utf-8'?><html><title/><p/><![CDATA[<a>]]>"sv)},
        {"charset", page("<meta charset=windows-1251>\xEF\xF0\xE8\xE2\xE5\xF2"sv)},
        {"pragma", page("<meta http-equiv=Content-Type content='text/html; charset=Shift_JIS'>"
                        "\x93\xFA\x96\x7B"sv)},
        {"utf-16", page("\xFF\xFE<\0p\0>\0\xE9\0\x3D\xD8"sv)},
        {"utf-8", page("\xEF\xBB\xBF<p>\xC3\xA9\xFF\xF0\x9F\x98\x80"sv)},
        {"guessed", page("<p>caf\xE9 na\xEFve d\xE9j\xE0 vu"sv)},
        {"nul", page("<p>a\0b\fc</p><b\0 hidde\0n>d"sv)},
        {"nesting", page("<p>a<div>b</p><h1>c<h2><p>d</h1><ul><li><b>e<li>f<ol><li>g</ul>h"sv)},
        {"formats", page("<b>a<p>b<i>c</b>d</p>e<a href=f>g<a href=h>i<table><td><u>j</table>k"sv)},
        {"cells", page("<td>a<tr>b<table><form><td>c<div><tbody><tr><table><td>d</form>e"sv)},
        {"pictures", page("<svg><style/><title>a</title><![CDATA[b]]><foreignObject><p>c</svg>"
                          "<math><mtable><mtd>d<mtr><mtd><mi><b>e</math>f"sv)},
        {"scripts", page("a<script><!--<script></script>--></script>b<script><!-->c</script>d"sv)},
        {"subset", page("<?xml?><!DOCTYPE a [<!ENTITY b \"c\">]><p>&b;<br></br></"sv)},
        {"reversed", page("<html dir=rtl><ol reversed><li>a<ul><li>b</ul><li>c</ol><li>d"sv)},
        {"names", page("<parlavox-page><x hidden>a</x><script<b>c</script><p1>d</p1>\v\1<wbr>e"sv)},
        {"cut", page("<p>words<a href=\"http"sv)},
    };
}

}  // namespace fuzz
