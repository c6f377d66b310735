#include "Platform/Text/HtmlStream.h"

#include <algorithm>
#include <new>

namespace platform {
namespace {

bool startsCharacter(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U;
}

HtmlParsing* opened(const HtmlFunctions& functions, const HtmlHandler& handler) {
    HtmlParsing* const parsing = functions.open(&handler);
    if (parsing == nullptr) {
        throw std::bad_alloc();
    }
    return parsing;
}

}  // namespace

HtmlStream::HtmlStream(const HtmlHandler& handler)
    : functions_(moduleFunctions<HtmlFunctions>()), parsing_(opened(functions_, handler)) {
    piece_.reserve(kPiece);
}

HtmlStream::~HtmlStream() {
    functions_.close(parsing_);
}

void HtmlStream::flush(std::string_view& utf8) {
    while (piece_.size() + utf8.size() > kPiece) {
        std::size_t count = kPiece - piece_.size();
        while (count > 0 && !startsCharacter(utf8[count])) {
            --count;
        }
        piece_ += utf8.substr(0, count);
        utf8.remove_prefix(count);
        parse(false);
    }
}

void HtmlStream::settle() {
    // A comment is markup, and with one at the end of its input the parser gives back what it has
    // kept, too.
    write("<!---->");
    parse(false);
    textSinceTag_ = 0;
}

void HtmlStream::finish() {
    parse(true);
}

void HtmlStream::parse(bool isLast) {
    if (!functions_.parse(parsing_, piece_, isLast)) {
        throw std::bad_alloc();
    }
    piece_.clear();
}

}  // namespace platform
