#include <expat.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "Platform/Foundation/Base64.h"
#include "Platform/Foundation/CalendarDate.h"
#include "Platform/Foundation/PropertyListDecoder.h"
#include "Platform/Foundation/XmlPropertyList.h"

namespace platform {
namespace {

bool isBlank(char c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}

std::string_view trimmed(std::string_view text) {
    while (!text.empty() && isBlank(text.front())) {
        text.remove_prefix(1);
    }
    while (!text.empty() && isBlank(text.back())) {
        text.remove_suffix(1);
    }
    return text;
}

/// Decimal or, after "0x", hexadecimal digits with an optional sign, in the range of 64 bits.
std::optional<Value> integerFromText(std::string_view text) {
    text = trimmed(text);
    const bool negative = !text.empty() && text.front() == '-';
    if (negative || (!text.empty() && text.front() == '+')) {
        text.remove_prefix(1);
    }
    const bool hexadecimal = text.starts_with("0x") || text.starts_with("0X");
    if (hexadecimal) {
        text.remove_prefix(2);
    }
    std::uint64_t magnitude = 0;
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, magnitude, hexadecimal ? 16 : 10);
    if (error != std::errc() || stop != end) {
        return std::nullopt;
    }
    constexpr std::uint64_t kLowest = std::uint64_t{1} << 63;
    if (!negative) {
        return Value(magnitude);
    }
    if (magnitude > kLowest) {
        return std::nullopt;
    }
    return Value(static_cast<std::int64_t>(0 - magnitude));
}

/// The power of ten of the first digit that is not 0, of a number beyond the range of reals.
std::int64_t decimalExponentOf(std::string_view text) {
    text.remove_prefix(text.starts_with('-') ? 1 : 0);
    const std::size_t letter = std::min(text.find_first_of("eE"), text.size());
    const std::string_view digits = text.substr(0, letter);
    std::string_view exponentText = text.substr(std::min(letter + 1, text.size()));
    exponentText.remove_prefix(exponentText.starts_with('+') ? 1 : 0);
    std::int64_t exponent = 0;
    const char* const end = exponentText.data() + exponentText.size();
    if (std::from_chars(exponentText.data(), end, exponent).ec == std::errc::result_out_of_range) {
        return exponentText.starts_with('-') ? -1 : 1;
    }
    const auto point = static_cast<std::int64_t>(std::min(digits.find('.'), digits.size()));
    const auto first = static_cast<std::int64_t>(digits.find_first_of("123456789"));
    // Far more than any text has digits, and far less than what overflows.
    constexpr std::int64_t kMost = std::int64_t{1} << 60;
    return std::clamp(exponent, -kMost, kMost) + point - first;
}

std::optional<Value> realFromText(std::string_view text) {
    text = trimmed(text);
    if (text.starts_with("+-")) {
        return std::nullopt;
    }
    if (text.starts_with('+')) {
        text.remove_prefix(1);
    }
    double value = 0;
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, value);
    if (stop != end || text.empty()) {
        return std::nullopt;
    }
    if (error == std::errc::result_out_of_range) {
        // The digits overflow or vanish: what they come nearest to.
        value = decimalExponentOf(text) < 0 ? 0.0 : std::numeric_limits<double>::infinity();
        return Value(text.front() == '-' ? -value : value);
    }
    return error == std::errc() ? std::optional<Value>(value) : std::nullopt;
}

/// A container whose end has not come yet.
struct OpenContainer {
    bool isDictionary = false;
    Array elements;
    std::vector<Dictionary::Entry> entries;
    std::optional<std::string> key;
};

/// Receives the parser's events and builds the value.
class Builder {
public:
    explicit Builder(XML_Parser parser) : parser_(parser) {}

    Result<Value> finish(XML_Status status) {
        if (fault_) {
            return std::move(*fault_);
        }
        if (status != XML_STATUS_OK) {
            return Fault{FaultCode::Malformed,
                         std::string(XML_ErrorString(XML_GetErrorCode(parser_))) + place()};
        }
        if (!root_) {
            return Fault{FaultCode::Malformed, "XML without a property list"};
        }
        return std::move(*root_);
    }

    void startElement(std::string_view name) {
        if (!element_.empty()) {
            return fail("<" + std::string(name) + "> inside <" + element_ + ">");
        }
        text_.clear();
        if (name == "plist") {
            if (plistDepth_++ > 0 || root_ || !open_.empty()) {
                fail("<plist> inside a property list");
            }
        } else if (name == "dict" || name == "array") {
            if (open_.size() >= kMaxPropertyListDepth) {
                return fail(
                    "nested deeper than " + std::to_string(kMaxPropertyListDepth) + " levels",
                    FaultCode::TooDeep);
            }
            open_.push_back({name == "dict", {}, {}, std::nullopt});
        } else {
            element_ = name;
        }
    }

    void endElement(std::string_view name) {
        if (fault_ || name == "plist") {
            return;
        }
        if (element_.empty()) {
            return endContainer();
        }
        element_.clear();
        if (name == "key") {
            return addKey();
        }
        auto value = scalar(name);
        if (!value) {
            return fail("bad <" + std::string(name) + ">");
        }
        add(std::move(*value));
    }

    void characters(std::string_view text) {
        if (!element_.empty()) {
            text_ += text;
        } else if (!trimmed(text).empty()) {
            fail("text between elements");
        }
    }

    void entityDeclaration() { fail("declared entity"); }

    // Each one is compared with all others of its element.
    void attributeDeclaration() { fail("declared attribute"); }

    // With a document type, a reference to nothing is no error to the parser.
    void skippedEntity(std::string_view name) {
        fail("undefined entity &" + std::string(name) + ";");
    }

private:
    std::string place() const {
        return " in line " + std::to_string(XML_GetCurrentLineNumber(parser_));
    }

    void fail(std::string what, FaultCode code = FaultCode::Malformed) {
        if (!fault_) {
            fault_ = Fault{code, std::move(what) + place()};
            XML_StopParser(parser_, XML_FALSE);
        }
    }

    std::optional<Value> scalar(std::string_view name) const {
        if (name == "string") {
            return Value::fromUtf8(text_);
        }
        if (name == "integer") {
            return integerFromText(text_);
        }
        if (name == "real") {
            return realFromText(text_);
        }
        if (name == "true" || name == "false") {
            return Value(name == "true");
        }
        if (name == "date") {
            const auto date = dateFromText(trimmed(text_));
            return date ? std::optional<Value>(*date) : std::nullopt;
        }
        if (name == "data") {
            return Value(Data::adopt(bytesFromBase64(text_)));
        }
        return std::nullopt;
    }

    void addKey() {
        if (open_.empty() || !open_.back().isDictionary || open_.back().key) {
            return fail("<key> where none belongs");
        }
        open_.back().key = text_;
    }

    void add(Value value) {
        if (open_.empty()) {
            if (root_) {
                return fail("second value after the property list");
            }
            root_ = std::move(value);
        } else if (!open_.back().isDictionary) {
            open_.back().elements.push_back(std::move(value));
        } else if (open_.back().key) {
            open_.back().entries.emplace_back(std::move(*open_.back().key), std::move(value));
            open_.back().key.reset();
        } else {
            fail("value without a key");
        }
    }

    void endContainer() {
        OpenContainer container = std::move(open_.back());
        open_.pop_back();
        if (container.key) {
            return fail("key without a value");
        }
        add(container.isDictionary ? Value(Dictionary(std::move(container.entries)))
                                   : Value(std::move(container.elements)));
    }

    XML_Parser parser_;
    std::vector<OpenContainer> open_;
    std::string element_;
    std::string text_;
    std::optional<Value> root_;
    std::optional<Fault> fault_;
    int plistDepth_ = 0;
};

Builder& builderOf(void* userData) {
    return *static_cast<Builder*>(userData);
}

void onStart(void* userData, const XML_Char* name, const XML_Char**) {
    builderOf(userData).startElement(name);
}

void onEnd(void* userData, const XML_Char* name) {
    builderOf(userData).endElement(name);
}

void onCharacters(void* userData, const XML_Char* text, int length) {
    builderOf(userData).characters({text, static_cast<std::size_t>(length)});
}

void onEntity(void* userData, const XML_Char*, int, const XML_Char*, int, const XML_Char*,
              const XML_Char*, const XML_Char*, const XML_Char*) {
    builderOf(userData).entityDeclaration();
}

void onAttribute(void* userData, const XML_Char*, const XML_Char*, const XML_Char*, const XML_Char*,
                 int) {
    builderOf(userData).attributeDeclaration();
}

void onSkippedEntity(void* userData, const XML_Char* name, int) {
    builderOf(userData).skippedEntity(name);
}

/// Reads `text` in `encoding`, or in the one that it declares when that is null.
Result<Value> valueFromEncodedXml(std::string_view text, const char* encoding) {
    // The parser wants a declaration to come first of all.
    while (!text.empty() && isBlank(text.front())) {
        text.remove_prefix(1);
    }
    const std::unique_ptr<XML_ParserStruct, decltype(&XML_ParserFree)> parser(
        XML_ParserCreate(encoding), XML_ParserFree);
    if (!parser) {
        throw std::bad_alloc();
    }
    Builder builder(parser.get());
    XML_SetUserData(parser.get(), &builder);
    XML_SetElementHandler(parser.get(), onStart, onEnd);
    XML_SetCharacterDataHandler(parser.get(), onCharacters);
    XML_SetEntityDeclHandler(parser.get(), onEntity);
    XML_SetAttlistDeclHandler(parser.get(), onAttribute);
    XML_SetSkippedEntityHandler(parser.get(), onSkippedEntity);
    constexpr std::size_t kPiece = 1 << 20;
    XML_Status status = XML_STATUS_OK;
    do {
        const std::size_t size = std::min(text.size(), kPiece);
        const bool isLast = size == text.size();
        status = XML_Parse(parser.get(), text.data(), static_cast<int>(size), isLast);
        text.remove_prefix(size);
    } while (status == XML_STATUS_OK && !text.empty());
    return builder.finish(status);
}

}  // namespace

Result<Value> valueFromXml(const Data& data) {
    return valueFromEncodedXml(data.view(), nullptr);
}

Result<Value> valueFromUtf8Xml(std::string_view text) {
    return valueFromEncodedXml(text, "UTF-8");
}

}  // namespace platform
