// The module `html`, over the push parser of libxml2.

#include <libxml/HTMLparser.h>
#include <libxml/parserInternals.h>

#include <exception>
#include <mutex>
#include <new>
#include <string_view>
#include <utility>

#include "Platform/Text/Modules/HtmlModule.h"

namespace platform {

struct HtmlParsing {
    explicit HtmlParsing(const HtmlHandler& itsHandler) : handler(&itsHandler) {}

    const HtmlHandler* handler;
    htmlParserCtxtPtr context = nullptr;
    /// How many elements are open, the root among them.
    std::size_t depth = 0;
    /// What a function of the handler has raised; it must not pass through the library.
    std::exception_ptr raised;
};

}  // namespace platform

namespace {

using platform::HtmlFunctions;
using platform::HtmlParsing;

/// A parser ends the page with the end of its first element. This one never ends: as the elements
/// of a page end before those around them, none of them ends it.
constexpr std::string_view kRootTag = "<div>";

std::string_view viewOf(const xmlChar* text) {
    return reinterpret_cast<const char*>(text);
}

template <class Call>
void tell(HtmlParsing& parsing, const Call& call) {
    try {
        call(*parsing.handler);
    } catch (...) {
        parsing.raised = std::current_exception();
        xmlStopParser(parsing.context);
    }
}

void startElement(void* user, const xmlChar* name, const xmlChar** attributes) {
    HtmlParsing& parsing = *static_cast<HtmlParsing*>(user);
    if (++parsing.depth == 1) {
        return;
    }
    tell(parsing, [&](const platform::HtmlHandler& handler) {
        handler.startElement(handler.receiver, viewOf(name),
                             reinterpret_cast<const char* const*>(attributes));
    });
}

void endElement(void* user, const xmlChar* /*name*/) {
    HtmlParsing& parsing = *static_cast<HtmlParsing*>(user);
    if (--parsing.depth == 0) {
        return;
    }
    tell(parsing,
         [&](const platform::HtmlHandler& handler) { handler.endElement(handler.receiver); });
}

void characters(void* user, const xmlChar* text, int length) {
    HtmlParsing& parsing = *static_cast<HtmlParsing*>(user);
    tell(parsing, [&](const platform::HtmlHandler& handler) {
        handler.characters(handler.receiver,
                           viewOf(text).substr(0, static_cast<std::size_t>(length)));
    });
}

void sayNothing(void* /*context*/, const char* /*format*/, ...) {
}

/// Keeps the library's own words about memory off the process's output while it lives.
class Silence {
public:
    Silence() : function_(xmlGenericError), context_(xmlGenericErrorContext) {
        xmlSetGenericErrorFunc(nullptr, sayNothing);
    }
    ~Silence() { xmlSetGenericErrorFunc(context_, function_); }
    Silence(const Silence&) = delete;
    Silence& operator=(const Silence&) = delete;

private:
    xmlGenericErrorFunc function_;
    void* context_;
};

/// Whether all was taken. The library goes on after other errors, and most of the ways that it
/// reports a refused allocation by stop it.
bool takes(HtmlParsing& parsing, std::string_view utf8, bool areLast) {
    const Silence silence;
    const int size = static_cast<int>(utf8.size());
    htmlParseChunk(parsing.context, utf8.data(), size, areLast ? 1 : 0);
    if (parsing.raised != nullptr) {
        std::rethrow_exception(std::exchange(parsing.raised, nullptr));
    }
    const int error = parsing.context->errNo;
    return error != XML_ERR_NO_MEMORY && error != XML_ERR_NAME_REQUIRED &&
           parsing.context->disableSAX == 0;
}

bool begins(HtmlParsing& parsing) {
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
    return takes(parsing, kRootTag, false);
}

void close(HtmlParsing* parsing) {
    htmlFreeParserCtxt(parsing->context);
    delete parsing;
}

HtmlParsing* open(const platform::HtmlHandler* handler) {
    static std::once_flag isInitialised;
    std::call_once(isInitialised, xmlInitParser);
    const Silence silence;
    auto* const parsing = new (std::nothrow) HtmlParsing(*handler);
    if (parsing != nullptr && !begins(*parsing)) {
        close(parsing);
        return nullptr;
    }
    return parsing;
}

bool parse(HtmlParsing* parsing, std::string_view utf8, bool areLast) {
    return takes(*parsing, utf8, areLast);
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
