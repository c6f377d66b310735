#include "Tools/pvdoc/Report.h"

#include "Platform/Foundation/Unicode.h"

namespace pvdoc {
namespace {

constexpr std::size_t kLabelWidth = 11;

}  // namespace

void Report::add(std::string_view label, std::string_view text) {
    std::string line(label);
    if (line.size() < kLabelWidth) {
        line.resize(kLabelWidth, ' ');
    }
    text_ += line + shownInLine(text) + '\n';
}

std::string counted(std::uint64_t count, std::string_view noun, std::string_view plural) {
    const std::string nouns = plural.empty() ? std::string(noun) + 's' : std::string(plural);
    return std::to_string(count) + ' ' + (count == 1 ? std::string(noun) : nouns);
}

std::string shownInLine(std::string_view text) {
    std::string line;
    while (!text.empty()) {
        const std::size_t length = platform::utf8FormLength(text);
        const auto first = static_cast<unsigned char>(text.front());
        const bool isShown =
            length > 0 && first >= 0x20 && first != 0x7F &&
            !(length == 2 && first == 0xC2 && static_cast<unsigned char>(text[1]) < 0xA0);
        line += isShown ? text.substr(0, length) : "?";
        text.remove_prefix(length > 0 ? length : 1);
    }
    return line;
}

}  // namespace pvdoc
