// What the module `html` offers: the elements and the text of a page, one after the other.
//
// A parser belongs to one thread at a time; different ones to different threads. It takes UTF-8
// alone and believes no other encoding that the page declares.

#pragma once

#include <cstddef>
#include <string_view>

#include "Platform/Text/Modules/Module.h"

namespace platform {

/// What a parser tells its user; all texts are valid during the call. What a function raises ends
/// the page, and comes out of `parse`.
struct HtmlHandler {
    void* receiver;
    /// `attributes` are names and values in turn, with a null behind the last; null for none. A
    /// value is null where there is only a name.
    void (*startElement)(void* receiver, std::string_view name, const char* const* attributes);
    /// Ends the innermost element.
    void (*endElement)(void* receiver);
    void (*characters)(void* receiver, std::string_view utf8);
};

/// A page that is being parsed.
struct HtmlParsing;

struct HtmlFunctions : ModuleHead {
    static constexpr char kName[] = "html";

    /// Begins a page; null when there is no memory. Requires: the handler lives until it is closed.
    HtmlParsing* (*open)(const HtmlHandler* handler);
    void (*close)(HtmlParsing* parsing);

    /// Takes the next bytes of the page; false when there is no memory for them, after which
    /// nothing can be taken. Requires: they are UTF-8 without NULs and end at the end of a
    /// character; the last ones are told to be the last; each element ends before the one around
    /// it.
    bool (*parse)(HtmlParsing* parsing, std::string_view utf8, bool areLast);
};

}  // namespace platform
