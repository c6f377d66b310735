#include "Platform/Text/HtmlParser.h"

#include <algorithm>

#include "Platform/Foundation/Unicode.h"
#include "Platform/Text/HtmlSource.h"
#include "Platform/Text/HtmlStream.h"

namespace platform {
namespace {

/// Runs that a page of a size may have: more than any editor writes, less than memory has.
std::size_t mostRunsOf(std::size_t size) {
    constexpr std::size_t kBytesToRun = 12;
    constexpr std::size_t kAlways = 1024;
    return kAlways + size / kBytesToRun;
}

/// The length of UTF-8 in UTF-16.
std::size_t unitsOf(std::string_view utf8) {
    constexpr std::size_t kBlock = 64;
    std::size_t units = 0;
    for (; !utf8.empty(); utf8.remove_prefix(std::min(kBlock, utf8.size()))) {
        const std::string_view block = utf8.substr(0, kBlock);
        units += block.size();
        if (isAscii(block)) {
            continue;
        }
        for (const char byte : block) {
            const auto code = static_cast<unsigned char>(byte);
            units -= (code & 0xC0U) == 0x80U ? 1 : 0;
            units += code >= 0xF0U ? 1 : 0;
        }
    }
    return units;
}

}  // namespace

HtmlParser::HtmlParser(std::string_view page) : page_(page), text_(mostRunsOf(page.size())) {
    // Pieces of text take up some more room while they are converted.
    constexpr std::size_t kConverted = 4096;
    text_.reserve(unitsOf(page) + kConverted);
    states_.emplace_back();
}

AttributedString HtmlParser::parse() {
    const HtmlHandler handler = {
        this,
        [](void* receiver, std::string_view name, const char* const* attributes) {
            static_cast<HtmlParser*>(receiver)->startElement(name, attributes);
        },
        [](void* receiver) { static_cast<HtmlParser*>(receiver)->endElement(); },
        [](void* receiver, std::string_view utf8) {
            static_cast<HtmlParser*>(receiver)->takeCharacters(utf8);
        },
    };
    HtmlStream stream(handler);
    writeHtmlSource(page_, stream);
    while (states_.size() > 1) {
        endElement();
    }
    return text_.finish(attributes_);
}

void HtmlParser::startElement(std::string_view name, const char* const* attributes) {
    mayDropLineEnd_ = false;
    const HtmlValues values(attributes);
    // Elements that look the same share the number.
    (void)look();
    State state = top();
    state.kind = htmlKindNamed(name);
    state.role = state.kind != nullptr ? state.kind->role : HtmlRole::Inline;
    if (!state.isHidden) {
        begin(state, values);
    }
    if (state.look != top().look) {
        state.index = kUnknown;
    }
    states_.push_back(state);
    if (!state.isHidden && state.role == HtmlRole::Item) {
        beginItem(values);
    }
}

void HtmlParser::endElement() {
    if (states_.size() > 1) {
        end(top());
        states_.pop_back();
    }
}

void HtmlParser::takeCharacters(std::string_view utf8) {
    const State& state = top();
    if (state.isHidden) {
        return;
    }
    if (state.isReading) {
        readings_ += utf8;
        return;
    }
    if (!state.isPreformatted) {
        text_.append(utf8, look());
        return;
    }
    if (mayDropLineEnd_ && !utf8.empty()) {
        mayDropLineEnd_ = false;
        utf8.remove_prefix(utf8.starts_with("\r\n") ? 2 : utf8.starts_with('\n') ? 1 : 0);
    }
    text_.appendPreformatted(utf8, look());
}

std::uint32_t HtmlParser::look() {
    State& state = top();
    if (state.index == kUnknown) {
        state.index = attributes_.indexOf(state.look);
    }
    return state.index;
}

}  // namespace platform
