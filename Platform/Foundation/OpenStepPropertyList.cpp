#include "Platform/Foundation/OpenStepPropertyList.h"

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "Platform/Foundation/NextStepCharacters.h"
#include "Platform/Foundation/PropertyListDecoder.h"
#include "Platform/Foundation/Unicode.h"

namespace platform {
namespace {

bool isBlank(char16_t unit) {
    return (unit >= 0x09 && unit <= 0x0D) || unit == ' ' || unit == 0x2028 || unit == 0x2029;
}

bool isLineEnd(char16_t unit) {
    return unit == '\n' || unit == '\r' || unit == 0x2028 || unit == 0x2029;
}

/// Whether `unit` may stand in a string without quotes.
bool isPlain(char16_t unit) {
    return (unit >= 'A' && unit <= 'Z') || (unit >= 'a' && unit <= 'z') ||
           (unit >= '0' && unit <= ':') || unit == '_' || unit == '$' || unit == '/' ||
           unit == '.' || unit == '-';
}

bool isQuote(char16_t unit) {
    return unit == '"' || unit == '\'';
}

/// The value of a digit in base 16 or below; nothing when `unit` is none.
std::optional<unsigned> digitValue(char16_t unit, unsigned base) {
    const char16_t lower = unit | 0x20;
    const unsigned value = unit >= '0' && unit <= '9'     ? unit - u'0'
                           : lower >= 'a' && lower <= 'f' ? lower - u'a' + 10u
                                                          : base;
    return value < base ? std::optional(value) : std::nullopt;
}

/// The character that a single one stands for after a backslash.
char16_t escapedCharacter(char16_t unit) {
    constexpr std::u16string_view kLetters = u"abfnrtv";
    constexpr std::u16string_view kMeanings = u"\a\b\f\n\r\t\v";
    const std::size_t place = kLetters.find(unit);
    return place == kLetters.npos ? unit : kMeanings[place];
}

/// A container whose end has not come yet.
struct OpenContainer {
    char16_t end = 0;  ///< the closing bracket; 0 for the pairs of a strings file
    Array elements;
    std::vector<Dictionary::Entry> entries;
    std::string key;
};

/// Reads one list from its first character to its last.
class Reader {
public:
    explicit Reader(std::u16string_view text) : text_(text) {}

    Result<Value> list() {
        if (text_.empty()) {
            return fault("no text");
        }
        if (!skipBlanks()) {
            return Value(Dictionary());
        }
        Value root = PV_TRY(finished(PV_TRY(begun())));
        if (!skipBlanks()) {
            return root;
        }
        if (root.string() == nullptr) {
            return fault("something after the list");
        }
        position_ = 0;
        open_.push_back({});
        return finished(std::nullopt);
    }

private:
    /// Begins a value: reads all of a scalar; opens a container and answers nothing.
    Result<std::optional<Value>> begun() {
        if (!skipBlanks()) {
            return fault("end of the text where a value belongs");
        }
        const char16_t first = text_[position_];
        if (first == '{' || first == '(') {
            if (open_.size() >= kMaxPropertyListDepth) {
                return fault(
                    "nested deeper than " + std::to_string(kMaxPropertyListDepth) + " levels",
                    FaultCode::TooDeep);
            }
            ++position_;
            open_.push_back({first == '{' ? u'}' : u')', {}, {}, {}});
            return std::optional<Value>();
        }
        if (first == '<') {
            ++position_;
            return std::optional(PV_TRY(data()));
        }
        return std::optional(Value(PV_TRY(string())));
    }

    /// Reads on until every open container is closed. `value` is what was read last, if anything.
    Result<Value> finished(std::optional<Value> value) {
        while (!open_.empty()) {
            if (value) {
                PV_TRY(add(std::move(*value)));
            }
            value = isAtEnd() ? closed() : PV_TRY(nextIn(open_.back()));
        }
        return std::move(*value);
    }

    /// Whether the innermost container ends here. Brackets are passed over; a strings file ends
    /// where no key follows, and the platform does not ask what does.
    bool isAtEnd() {
        const bool hasMore = skipBlanks();
        const char16_t end = open_.back().end;
        if (end == 0) {
            return !hasMore || !(isPlain(text_[position_]) || isQuote(text_[position_]));
        }
        if (!hasMore || text_[position_] != end) {
            return false;
        }
        ++position_;
        return true;
    }

    Value closed() {
        OpenContainer container = std::move(open_.back());
        open_.pop_back();
        return container.end == ')' ? Value(std::move(container.elements))
                                    : Value(Dictionary(std::move(container.entries)));
    }

    /// Begins the next element or pair. A key without a value stands for itself.
    Result<std::optional<Value>> nextIn(OpenContainer& container) {
        if (container.end == ')') {
            return begun();
        }
        std::u16string key = PV_TRY(string());
        container.key = utf8FromUtf16(key);
        if (!skipBlanks() || (text_[position_] != '=' && text_[position_] != ';')) {
            return fault("no '=' or ';' after a key");
        }
        if (text_[position_] == ';') {
            return std::optional(Value(std::move(key)));
        }
        ++position_;
        return begun();
    }

    /// Adds a value to the innermost container and passes over the separator.
    Outcome add(Value value) {
        OpenContainer& container = open_.back();
        const bool hasMore = skipBlanks();
        if (container.end == ')') {
            container.elements.push_back(std::move(value));
            if (!hasMore || (text_[position_] != ',' && text_[position_] != ')')) {
                return fault("no ',' or ')' after an element");
            }
            position_ += text_[position_] == ',' ? 1 : 0;
            return done();
        }
        container.entries.emplace_back(std::move(container.key), std::move(value));
        if (!hasMore || text_[position_] != ';') {
            return fault("no ';' after a value");
        }
        ++position_;
        return done();
    }

    Result<std::u16string> string() {
        if (position_ == text_.size()) {
            return fault("end of the text where a string belongs");
        }
        if (isQuote(text_[position_])) {
            return quotedString(text_[position_++]);
        }
        const std::size_t start = position_;
        while (position_ < text_.size() && isPlain(text_[position_])) {
            ++position_;
        }
        if (position_ == start) {
            std::string what = "unexpected character ";
            what += utf8FromUtf16(text_.substr(position_, isHighSurrogate(text_[start]) ? 2 : 1));
            return fault(std::move(what));
        }
        return std::u16string(text_.substr(start, position_ - start));
    }

    Result<std::u16string> quotedString(char16_t quote) {
        const std::size_t start = position_;
        std::u16string string;
        while (position_ < text_.size() && text_[position_] != quote) {
            const char16_t unit = text_[position_++];
            const bool isEscape = unit == '\\' && position_ < text_.size();
            string.push_back(isEscape ? escape() : unit);
        }
        if (position_ == text_.size()) {
            position_ = start;
            return fault("string without an end");
        }
        ++position_;
        return string;
    }

    /// Reads what follows a backslash.
    char16_t escape() {
        if (digitValue(text_[position_], 8)) {
            return characterFromNextStep(static_cast<std::uint8_t>(number(8, 3)));
        }
        const char16_t unit = text_[position_++];
        return unit == 'U' ? static_cast<char16_t>(number(16, 4)) : escapedCharacter(unit);
    }

    /// The number that up to `mostDigits` digits make.
    unsigned number(unsigned base, int mostDigits) {
        unsigned result = 0;
        for (int i = 0; i < mostDigits && position_ < text_.size(); ++i) {
            const auto digit = digitValue(text_[position_], base);
            if (!digit) {
                break;
            }
            result = result * base + *digit;
            ++position_;
        }
        return result;
    }

    Result<Value> data() {
        std::string bytes;
        while (position_ < text_.size() && text_[position_] != '>') {
            if (isBlank(text_[position_])) {
                ++position_;
                continue;
            }
            const auto high = digitValue(text_[position_], 16);
            const auto low =
                position_ + 1 < text_.size() ? digitValue(text_[position_ + 1], 16) : std::nullopt;
            if (!high || !low) {
                return fault("no pair of hexadecimal digits in data");
            }
            bytes.push_back(static_cast<char>(*high << 4 | *low));
            position_ += 2;
        }
        if (position_ == text_.size()) {
            return fault("data without an end");
        }
        ++position_;
        return Value(Data::adopt(std::move(bytes)));
    }

    /// Passes over white space and comments; false at the text's end. A comment without an end
    /// reaches to the text's.
    bool skipBlanks() {
        while (position_ < text_.size()) {
            const std::u16string_view rest = text_.substr(position_);
            if (isBlank(rest.front())) {
                ++position_;
            } else if (rest.starts_with(u"//")) {
                while (position_ < text_.size() && !isLineEnd(text_[position_])) {
                    ++position_;
                }
            } else if (rest.starts_with(u"/*")) {
                const std::size_t end = text_.find(u"*/", position_ + 2);
                position_ = end == text_.npos ? text_.size() : end + 2;
            } else {
                return true;
            }
        }
        return false;
    }

    Fault fault(std::string what, FaultCode code = FaultCode::Malformed) const {
        std::size_t line = 1;
        for (std::size_t i = 0; i < position_; ++i) {
            // A carriage return and the line feed after it are one line end.
            const bool isPair = text_[i] == '\r' && i + 1 < position_ && text_[i + 1] == '\n';
            line += (text_[i] == '\n' || text_[i] == '\r') && !isPair ? 1 : 0;
        }
        return {code, std::move(what) + " in line " + std::to_string(line)};
    }

    std::u16string_view text_;
    std::size_t position_ = 0;
    std::vector<OpenContainer> open_;
};

}  // namespace

Result<Value> valueFromOpenStep(std::u16string_view text) {
    return Reader(text).list();
}

}  // namespace platform
