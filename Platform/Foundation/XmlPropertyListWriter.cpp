#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "Platform/Foundation/Base64.h"
#include "Platform/Foundation/CalendarDate.h"
#include "Platform/Foundation/PropertyListDecoder.h"
#include "Platform/Foundation/Unicode.h"
#include "Platform/Foundation/XmlPropertyList.h"

namespace platform {
namespace {

constexpr std::string_view kHead =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
    "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
    "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
    "<plist version=\"1.0\">\n";

/// Whether a document in XML can hold the unit; surrogates only in pairs.
bool isHoldable(std::u16string_view text, std::size_t at) {
    const char16_t unit = text[at];
    if (isHighSurrogate(unit)) {
        return at + 1 < text.size() && isLowSurrogate(text[at + 1]);
    }
    if (isLowSurrogate(unit)) {
        return at > 0 && isHighSurrogate(text[at - 1]);
    }
    const bool isWhiteSpace = unit == u'\t' || unit == u'\n' || unit == u'\r';
    return (unit >= 0x20 || isWhiteSpace) && unit < 0xFFFE;
}

Outcome checkHoldable(std::u16string_view text) {
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (!isHoldable(text, i)) {
            std::array<char, 5> digits{};
            std::to_chars(digits.data(), digits.data() + 4, static_cast<unsigned>(text[i]), 16);
            return Fault{FaultCode::Unsupported, std::string("text with the unit 0x") +
                                                     digits.data() + ", which XML cannot hold"};
        }
    }
    return done();
}

std::string escaped(std::string_view text) {
    std::string result;
    result.reserve(text.size());
    for (const char c : text) {
        switch (c) {
            case '<':
                result += "&lt;";
                break;
            case '>':
                result += "&gt;";
                break;
            case '&':
                result += "&amp;";
                break;
            case '\r':
                // Readers turn one that stands for itself into a line feed.
                result += "&#13;";
                break;
            default:
                result += c;
        }
    }
    return result;
}

std::string realText(double value) {
    if (value == 0) {
        return "0.0";
    }
    if (std::isnan(value)) {
        return "nan";
    }
    if (std::isinf(value)) {
        return value > 0 ? "+infinity" : "-infinity";
    }
    // As printf's %.17g, whatever the locale.
    char text[64];
    const auto end = std::to_chars(text, text + sizeof text, value, std::chars_format::general, 17);
    return std::string(text, end.ptr);
}

/// Whether `first` comes before `second` by their UTF-16 units. In UTF-8, characters beyond the
/// first plane come last; in UTF-16 those from U+E000 on do.
bool precedes(std::string_view first, std::string_view second) {
    const auto [a, b] = std::mismatch(first.begin(), first.end(), second.begin(), second.end());
    if (a == first.end() || b == second.end()) {
        return a == first.end() && b != second.end();
    }
    const auto rank = [](char unit) {
        const auto byte = static_cast<unsigned char>(unit);
        return byte == 0xEE || byte == 0xEF ? byte + 0x10 : byte;
    };
    return rank(*a) < rank(*b);
}

class Writer {
public:
    Outcome write(const Value& value, unsigned depth) {
        if (depth > kMaxPropertyListDepth) {
            return Fault{FaultCode::TooDeep, "property list nested deeper than " +
                                                 std::to_string(kMaxPropertyListDepth) + " levels"};
        }
        switch (value.kind()) {
            case ValueKind::Boolean:
                line(depth, *value.boolean() ? "<true/>" : "<false/>");
                return done();
            case ValueKind::Integer:
                element(depth, "integer",
                        value.integer() ? std::to_string(*value.integer())
                                        : std::to_string(*value.unsignedInteger()));
                return done();
            case ValueKind::Real:
                element(depth, "real", realText(*value.real()));
                return done();
            case ValueKind::Date:
                element(depth, "date", textFromDate(*value.date()));
                return done();
            case ValueKind::Data:
                writeData(value.data()->view(), depth);
                return done();
            case ValueKind::String:
                PV_TRY(checkHoldable(*value.string()));
                element(depth, "string", escaped(*value.utf8()));
                return done();
            case ValueKind::Array:
                return writeArray(*value.array(), depth);
            case ValueKind::Dictionary:
                return writeDictionary(*value.dictionary(), depth);
            case ValueKind::Uid:
                return writeDictionary({{"CF$UID", Value(value.uid()->index)}}, depth);
            default:
                return Fault{FaultCode::Unsupported, "value that is no property list"};
        }
    }

    std::string text{kHead};

private:
    void line(unsigned depth, std::string_view content) {
        text.append(depth, '\t');
        text += content;
        text += '\n';
    }

    void element(unsigned depth, std::string_view name, std::string_view content) {
        text.append(depth, '\t');
        text.append("<").append(name).append(">").append(content);
        text.append("</").append(name).append(">\n");
    }

    void writeData(std::string_view bytes, unsigned depth) {
        const std::string digits = base64FromBytes(bytes);
        const std::size_t lineLength = 76 - 8 * std::min(depth, 8u);
        line(depth, "<data>");
        for (std::size_t i = 0; i < digits.size(); i += lineLength) {
            line(depth, std::string_view(digits).substr(i, lineLength));
        }
        line(depth, "</data>");
    }

    Outcome writeArray(const Array& array, unsigned depth) {
        if (array.empty()) {
            line(depth, "<array/>");
            return done();
        }
        line(depth, "<array>");
        for (const Value& element : array) {
            PV_TRY(write(element, depth + 1));
        }
        line(depth, "</array>");
        return done();
    }

    Outcome writeDictionary(const Dictionary& dictionary, unsigned depth) {
        if (dictionary.size() == 0) {
            line(depth, "<dict/>");
            return done();
        }
        std::vector<std::pair<std::string_view, const Value*>> entries;
        for (const auto& [key, value] : dictionary.entries()) {
            entries.emplace_back(key, &value);
        }
        std::sort(entries.begin(), entries.end(),
                  [](const auto& a, const auto& b) { return precedes(a.first, b.first); });
        line(depth, "<dict>");
        for (const auto& [key, value] : entries) {
            PV_TRY(checkHoldable(utf16FromUtf8Lossy(key)));
            element(depth + 1, "key", escaped(key));
            PV_TRY(write(*value, depth + 1));
        }
        line(depth, "</dict>");
        return done();
    }
};

}  // namespace

Result<Data> xmlFromValue(const Value& propertyList) {
    Writer writer;
    PV_TRY(writer.write(propertyList, 0));
    writer.text += "</plist>\n";
    return Data::adopt(std::move(writer.text));
}

}  // namespace platform
