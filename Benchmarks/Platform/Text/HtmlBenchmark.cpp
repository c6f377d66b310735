// Pages of 5 MB, beside the parser of libxml2 alone, and twice as long.
//
// The parser is fed as ours feeds it and its events are counted; it converts nothing, folds no
// blanks and knows no looks. The shapes are those of real pages: prose with little markup; a page
// of today's, with attributes on every element; a long table; references to characters; and
// Cyrillic letters in an old encoding, of which the parser alone gets the UTF-8.

#include <benchmark/benchmark.h>
#include <libxml/HTMLparser.h>

#include <string>
#include <string_view>

#include "Benchmarks/Support/Benchmarks.h"
#include "Platform/Text/HtmlReader.h"

namespace bench {
namespace {

using platform::Data;

constexpr std::size_t kSize = 5'000'000;

struct HtmlShape {
    const char* name;
    /// What stands once in the head, and once in the body before all else.
    std::string_view head;
    std::string_view start;
    /// What the page consists of, again and again.
    std::string_view piece;
};
constexpr HtmlShape kShapes[] = {
    {"prose", "", "",
     "<p>The keeper of the lighthouse climbed the stairs every evening and lit the lamp that "
     "showed "
     "the ships their <em>way home</em>. Nobody had ever asked him how many steps there were, and "
     "he had never counted them.</p>\n"},
    {"a page of today's", "", "",
     "<div class=\"card card--wide\" id=\"c1\" data-track=\"list:item\" role=\"listitem\">"
     "<a class=\"card__link\" href=\"https://example.org/stories/keeper?from=list&amp;page=1\" "
     "title=\"The keeper\"><span class=\"card__title\">The keeper of the lighthouse</span></a>"
     "<p class=\"card__text\">He climbed the stairs every evening.</p></div>\n"},
    {"a table", "", "<table>",
     "<tr><td>1949</td><td>lighthouse</td><td>200</td><td><b>lit</b></td></tr>\n"},
    {"references", "", "",
     "<p>Der W&auml;rter stieg zweihundert Stufen hinauf&nbsp;&ndash; Gr&uuml;&szlig;e &amp; "
     "Rufe.</p>\n"},
    {"windows-1251", "<meta charset=windows-1251>", "",
     "<p>\xD1\xEC\xEE\xF2\xF0\xE8\xF2\xE5\xEB\xFC \xEC\xE0\xFF\xEA\xE0 "
     "\xEF\xEE\xE4\xED\xE8\xEC\xE0\xEB\xF1\xFF \xEF\xEE \xEB\xE5\xF1\xF2\xED\xE8\xF6\xE5.</p>\n"},
};

Data pageOf(const HtmlShape& shape, std::size_t size) {
    std::string page = "<!DOCTYPE html><html><head>" + std::string(shape.head) + "</head><body>" +
                       std::string(shape.start);
    while (page.size() < size) {
        page += shape.piece;
    }
    return Data::adopt(page + "</body></html>\n");
}

/// The floor: how many events the parser has for a page.
std::size_t countEvents(std::string_view page, xmlCharEncoding encoding) {
    constexpr std::size_t kPiece = 65536;
    std::size_t count = 0;
    htmlSAXHandler handler{};
    handler.initialized = 1;
    handler.startElement = [](void* user, const xmlChar*, const xmlChar**) {
        ++*static_cast<std::size_t*>(user);
    };
    handler.endElement = [](void* user, const xmlChar*) {
        ++*static_cast<std::size_t*>(user);
    };
    handler.characters = [](void* user, const xmlChar*, int) {
        ++*static_cast<std::size_t*>(user);
    };
    handler.ignorableWhitespace = handler.characters;
    const htmlParserCtxtPtr context =
        htmlCreatePushParserCtxt(&handler, &count, nullptr, 0, nullptr, encoding);
    htmlCtxtUseOptions(
        context, HTML_PARSE_RECOVER | HTML_PARSE_NOERROR | HTML_PARSE_NOWARNING | HTML_PARSE_NONET);
    while (!page.empty()) {
        const std::string_view piece = page.substr(0, kPiece);
        htmlParseChunk(context, piece.data(), static_cast<int>(piece.size()), 0);
        page.remove_prefix(piece.size());
    }
    htmlParseChunk(context, nullptr, 0, 1);
    htmlFreeParserCtxt(context);
    return count;
}

std::string addReader(const HtmlShape& shape, std::size_t size) {
    const std::string name = "HTML: " + std::string(shape.name) + " " + std::to_string(size);
    const Data page = pageOf(shape, size);
    benchmark::RegisterBenchmark(name.c_str(), [page](benchmark::State& state) {
        for (auto _ : state) {
            benchmark::DoNotOptimize(platform::attributedStringFromHtml(page));
        }
    })->Unit(benchmark::kMillisecond);
    return name;
}

std::string addFloor(const HtmlShape& shape) {
    const std::string name = "HTML parsed: " + std::string(shape.name);
    const Data page = pageOf(shape, kSize);
    const xmlCharEncoding encoding =
        shape.head.empty() ? XML_CHAR_ENCODING_UTF8 : XML_CHAR_ENCODING_NONE;
    benchmark::RegisterBenchmark(name.c_str(), [=](benchmark::State& state) {
        for (auto _ : state) {
            benchmark::DoNotOptimize(countEvents(page.view(), encoding));
        }
    })->Unit(benchmark::kMillisecond);
    return name;
}

}  // namespace

void addHtmlBenchmarks(Report& report) {
    report.begin("HTML of 5 MB, beside libxml2's parser alone");
    for (const HtmlShape& shape : kShapes) {
        report.compare({shape.name, addReader(shape, kSize), addFloor(shape), Target::atMost(1.5)});
    }
    report.begin("HTML, twice the page");
    for (const HtmlShape& shape : kShapes) {
        report.compare({shape.name, addReader(shape, 2 * kSize),
                        "HTML: " + std::string(shape.name) + " " + std::to_string(kSize),
                        Target::atMost(2.3)});
    }
}

}  // namespace bench
