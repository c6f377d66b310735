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
        functions_.parse(parsing_, piece_, false);
        piece_.clear();
    }
}

void HtmlStream::settle() {
    write("<!---->");
    functions_.parse(parsing_, piece_, false);
    piece_.clear();
}

void HtmlStream::finish() {
    functions_.parse(parsing_, piece_, true);
    piece_.clear();
}

}  // namespace platform
