// The module `html`, over the push parser of libxml2.

#include <libxml/HTMLparser.h>
#include <libxml/parserInternals.h>

#include <algorithm>
#include <climits>
#include <memory>
#include <mutex>
#include <new>
#include <string>

#include "Platform/Text/Modules/HtmlModule.h"

namespace platform {

/// One page, perhaps in several parsers one after the other.
struct HtmlParsing {
    explicit HtmlParsing(const HtmlHandler& itsHandler) : handler(&itsHandler) {}

    const HtmlHandler* handler;
    htmlParserCtxtPtr context = nullptr;
    /// What a parser that was stopped has not looked at.
    std::string rest;
    bool isStopped = false;
};

}  // namespace platform

namespace {

using platform::HtmlFunctions;
using platform::HtmlParsing;

/// A parser ends the page with the end of its first element; no page has one of this name.
constexpr std::string_view kRoot = "parlavox-page";
constexpr std::string_view kRootTag = "<parlavox-page>";

std::string_view viewOf(const xmlChar* text) {
    return reinterpret_cast<const char*>(text);
}

/// Leaves the parser, whose search for what a tag closes grows with the depth. Another one goes on
/// behind the tag that has begun.
void stop(HtmlParsing& parsing) {
    const xmlParserInput& input = *parsing.context->input;
    const std::string_view behindName(reinterpret_cast<const char*>(input.cur),
                                      static_cast<std::size_t>(input.end - input.cur));
    parsing.rest = behindName.substr(std::min(behindName.find('>'), behindName.size() - 1) + 1);
    parsing.isStopped = true;
    xmlStopParser(parsing.context);
}

void startElement(void* user, const xmlChar* name, const xmlChar** attributes) {
    HtmlParsing& parsing = *static_cast<HtmlParsing*>(user);
    if (viewOf(name) == kRoot) {
        return;
    }
    parsing.handler->startElement(parsing.handler->receiver, viewOf(name),
                                  reinterpret_cast<const char* const*>(attributes));
    if (parsing.context->nameNr > HtmlFunctions::kMostDepth) {
        stop(parsing);
    }
}

void endElement(void* user, const xmlChar* name) {
    const HtmlParsing& parsing = *static_cast<HtmlParsing*>(user);
    if (viewOf(name) != kRoot) {
        parsing.handler->endElement(parsing.handler->receiver, viewOf(name));
    }
}

void characters(void* user, const xmlChar* text, int length) {
    const HtmlParsing& parsing = *static_cast<HtmlParsing*>(user);
    parsing.handler->characters(parsing.handler->receiver,
                                viewOf(text).substr(0, static_cast<std::size_t>(length)));
}

/// Makes a parser for what is left of the page.
bool beginParser(HtmlParsing& parsing) {
    htmlFreeParserCtxt(parsing.context);
    htmlSAXHandler handler{};
    handler.startElement = startElement;
    handler.endElement = endElement;
    handler.characters = characters;
    handler.ignorableWhitespace = characters;
    handler.cdataBlock = characters;
    handler.initialized = 1;
    parsing.context =
        htmlCreatePushParserCtxt(&handler, &parsing, nullptr, 0, nullptr, XML_CHAR_ENCODING_UTF8);
    if (parsing.context == nullptr) {
        return false;
    }
    constexpr int kOptions = HTML_PARSE_RECOVER | HTML_PARSE_NOERROR | HTML_PARSE_NOWARNING |
                             HTML_PARSE_NONET | HTML_PARSE_NOIMPLIED | HTML_PARSE_IGNORE_ENC;
    htmlCtxtUseOptions(parsing.context, kOptions);
    htmlParseChunk(parsing.context, kRootTag.data(), static_cast<int>(kRootTag.size()), 0);
    return true;
}

HtmlParsing* open(const platform::HtmlHandler* handler) {
    static std::once_flag isInitialised;
    std::call_once(isInitialised, xmlInitParser);
    auto parsing = std::unique_ptr<HtmlParsing>(new (std::nothrow) HtmlParsing(*handler));
    return parsing != nullptr && beginParser(*parsing) ? parsing.release() : nullptr;
}

void close(HtmlParsing* parsing) {
    htmlFreeParserCtxt(parsing->context);
    delete parsing;
}

void parse(HtmlParsing* parsing, std::string_view utf8, bool areLast) {
    if (parsing->context == nullptr) {
        return;
    }
    htmlParseChunk(parsing->context, utf8.data(), static_cast<int>(utf8.size()), areLast ? 1 : 0);
    while (parsing->isStopped) {
        parsing->isStopped = false;
        parsing->handler->forgetElements(parsing->handler->receiver);
        const std::string rest = std::move(parsing->rest);
        if (!beginParser(*parsing)) {
            return;
        }
        htmlParseChunk(parsing->context, rest.data(), static_cast<int>(rest.size()),
                       areLast ? 1 : 0);
    }
}

constexpr HtmlFunctions kFunctions = {{[] {
                                      }},
                                      open,
                                      close,
                                      parse};

}  // namespace

extern "C" __attribute__((visibility("default"))) const platform::ModuleHead* parlavoxModule() {
    return &kFunctions;
}
