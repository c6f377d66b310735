#include "Tools/pvdoc/MarkedUpText.h"

#include <algorithm>
#include <charconv>
#include <map>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include "Platform/Foundation/FileWrapper.h"
#include "Platform/Foundation/PathString.h"
#include "Platform/Foundation/URLReference.h"
#include "Platform/Foundation/Unicode.h"
#include "Platform/Text/Color.h"
#include "Platform/Text/Font.h"
#include "Platform/Text/ParagraphStyle.h"
#include "Platform/Text/TextAttachment.h"

namespace pvdoc {

using platform::AttributedString;
using platform::AttributeRun;
using platform::Attributes;
using platform::Dictionary;
using platform::Fault;
using platform::FaultCode;
using platform::OpaqueField;
using platform::Outcome;
using platform::Result;
using platform::Value;

namespace {

using Words = std::vector<std::string>;

Fault wrong(std::string what) {
    return {FaultCode::Malformed, std::move(what)};
}

/// Splits a mark at its blanks; quotation marks keep words together and are taken off.
Result<Words> wordsOf(std::string_view mark) {
    Words words;
    bool isInWord = false;
    bool isQuoted = false;
    for (const char c : mark) {
        const bool isBlank = c == ' ' || c == '\t' || c == '\n' || c == '\r';
        if (isBlank && !isQuoted) {
            isInWord = false;
            continue;
        }
        if (!isInWord) {
            words.emplace_back();
            isInWord = true;
        }
        if (c == '"') {
            isQuoted = !isQuoted;
        } else {
            words.back().push_back(c);
        }
    }
    if (isQuoted) {
        return wrong("a quotation mark without its other half");
    }
    return words;
}

template <class Number>
std::optional<Number> numberIn(std::string_view word) {
    Number number{};
    const auto [stop, error] = std::from_chars(word.data(), word.data() + word.size(), number);
    const bool isWhole = error == std::errc() && stop == word.data() + word.size();
    return isWhole ? std::optional(number) : std::nullopt;
}

/// An attribute: its name and value.
using Attribute = std::pair<std::string, Value>;

Result<Attribute> fontOf(const Words& words) {
    const auto size = words.size() == 3 ? numberIn<double>(words[2]) : std::nullopt;
    if (!size) {
        return wrong("font wants a name and a size");
    }
    return Attribute{"NSFont", Value(std::make_shared<const platform::Font>(words[1], *size))};
}

Result<Attribute> colorOf(const Words& words) {
    std::vector<double> numbers;
    for (std::size_t i = 1; i < words.size(); ++i) {
        numbers.push_back(numberIn<double>(words[i]).value_or(-1));
    }
    const bool areShares = std::all_of(numbers.begin(), numbers.end(),
                                       [](double number) { return number >= 0 && number <= 1; });
    if (!areShares || numbers.size() < 3 || numbers.size() > 4) {
        return wrong("color wants three or four numbers from 0 to 1");
    }
    const double alpha = numbers.size() == 4 ? numbers[3] : 1;
    numbers.resize(3);
    return Attribute{"NSColor", Value(std::make_shared<const platform::Color>(
                                    platform::ColorSpace::CalibratedRgb, numbers, alpha))};
}

Result<Attribute> linkOf(const Words& words) {
    if (words.size() != 2) {
        return wrong("link wants an address");
    }
    return Attribute{"NSLink", Value(std::make_shared<const platform::URLReference>(words[1]))};
}

Result<Attribute> underlineOf(const Words& words) {
    if (words.size() != 1) {
        return wrong("underline wants nothing more");
    }
    return Attribute{"NSUnderline", Value(1)};
}

Result<Attribute> alignmentOf(const Words& words) {
    using platform::TextAlignment;
    constexpr std::pair<std::string_view, TextAlignment> kNames[] = {
        {"left", TextAlignment::Left},
        {"right", TextAlignment::Right},
        {"center", TextAlignment::Center},
        {"justified", TextAlignment::Justified},
    };
    const auto* const found =
        std::find_if(std::begin(kNames), std::end(kNames),
                     [&](const auto& name) { return words.size() == 2 && name.first == words[1]; });
    if (found == std::end(kNames)) {
        return wrong("align wants left, right, center or justified");
    }
    platform::ParagraphLayout layout;
    layout.alignment = found->second;
    return Attribute{"NSParagraphStyle",
                     Value(std::make_shared<const platform::ParagraphStyle>(layout))};
}

/// A field of a tag's object: text is a reference as in every archive, the rest stands inline.
OpaqueField fieldOf(std::string name, const std::string& text) {
    using platform::FieldForm;
    if (text == "true" || text == "false") {
        return {std::move(name), Value(text == "true"), FieldForm::Inline};
    }
    if (const auto integer = numberIn<std::int64_t>(text)) {
        return {std::move(name), Value(*integer), FieldForm::Inline};
    }
    if (const auto number = numberIn<double>(text)) {
        return {std::move(name), Value(*number), FieldForm::Inline};
    }
    return {std::move(name), Value::fromUtf8(text), FieldForm::Reference};
}

Result<Attribute> tagOf(const Words& words) {
    if (words.size() < 3) {
        return wrong("tag wants an attribute's name and a class");
    }
    std::vector<OpaqueField> fields;
    for (std::size_t i = 3; i < words.size(); ++i) {
        const std::size_t equals = words[i].find('=');
        if (equals == std::string::npos || equals == 0) {
            return wrong("tag's fields are written key=value");
        }
        fields.push_back(fieldOf(words[i].substr(0, equals), words[i].substr(equals + 1)));
    }
    return Attribute{
        words[1], Value(platform::OpaqueObject::make({words[2], "NSObject"}, std::move(fields)))};
}

/// The marks that give their text an attribute.
struct Mark {
    std::string_view name;
    Result<Attribute> (*attribute)(const Words& words);
};

constexpr Mark kMarks[] = {
    {"font", fontOf},           {"color", colorOf},     {"link", linkOf},
    {"underline", underlineOf}, {"align", alignmentOf}, {"tag", tagOf},
};

class Reader {
public:
    explicit Reader(const AttachmentReader& attachments) : attachments_(attachments) {}

    Outcome read(std::u16string_view source) {
        while (!source.empty()) {
            const std::size_t mark = source.find(u"{{");
            const bool isPlain =
                mark != std::u16string_view::npos && mark > 0 && source[mark - 1] == u'\\';
            if (mark == std::u16string_view::npos) {
                take(source);
                return finish();
            }
            if (isPlain) {
                take(source.substr(0, mark - 1));
                take(u"{{");
                source.remove_prefix(mark + 2);
                continue;
            }
            take(source.substr(0, mark));
            const std::size_t end = source.find(u"}}", mark);
            if (end == std::u16string_view::npos) {
                return placed(wrong("{{ without }}"));
            }
            auto done = obey(platform::utf8FromUtf16(source.substr(mark + 2, end - mark - 2)));
            if (!done) {
                return placed(done.fault());
            }
            source.remove_prefix(end + 2);
        }
        return finish();
    }

    AttributedString text() && {
        return AttributedString(std::make_shared<const std::u16string>(std::move(text_)),
                                std::move(runs_));
    }

private:
    /// A mark that is open: its words as they stand, and what it gives.
    struct Open {
        std::string name;
        std::string words;
        Attribute attribute;
    };

    /// Appends characters with the attributes of the open marks.
    void take(std::u16string_view part) {
        if (part.empty()) {
            return;
        }
        text_ += part;
        line_ += static_cast<std::size_t>(std::count(part.begin(), part.end(), u'\n'));
        append(part.size(), attributes());
    }

    void append(std::size_t length, Attributes attributes) {
        if (!runs_.empty() && runs_.back().attributes == attributes) {
            runs_.back().length += length;
        } else {
            runs_.push_back({length, std::move(attributes)});
        }
    }

    /// The attributes of the open marks, the same object for the same marks.
    Attributes attributes() {
        if (open_.empty()) {
            return nullptr;
        }
        std::string words;
        for (const Open& open : open_) {
            words.append(open.words).push_back('\0');
        }
        Attributes& attributes = sets_[words];
        if (attributes == nullptr) {
            Dictionary dictionary;
            for (const Open& open : open_) {
                dictionary.set(open.attribute.first, open.attribute.second);
            }
            attributes = std::make_shared<const Dictionary>(std::move(dictionary));
        }
        return attributes;
    }

    Outcome obey(const std::string& mark) {
        const Words words = PV_TRY(wordsOf(mark));
        if (words.empty()) {
            return wrong("{{}} says nothing");
        }
        if (words[0].starts_with('/')) {
            return close(words[0].substr(1));
        }
        if (words[0] == "attach") {
            return attach(words);
        }
        return open(mark, words);
    }

    Outcome open(const std::string& mark, const Words& words) {
        const auto* const found =
            std::find_if(std::begin(kMarks), std::end(kMarks),
                         [&](const Mark& known) { return known.name == words[0]; });
        if (found == std::end(kMarks)) {
            return wrong("unknown mark " + words[0]);
        }
        // One value for the same words, so that archives hold it once.
        auto known = values_.find(mark);
        if (known == values_.end()) {
            known = values_.emplace(mark, PV_TRY(found->attribute(words))).first;
        }
        open_.push_back({words[0], mark, known->second});
        return platform::done();
    }

    Outcome close(const std::string& name) {
        if (open_.empty() || open_.back().name != name) {
            return wrong("/" + name + " where " + (open_.empty() ? "nothing" : open_.back().name) +
                         " is open");
        }
        open_.pop_back();
        return platform::done();
    }

    Outcome attach(const Words& words) {
        if (words.size() != 2) {
            return wrong("attach wants a file");
        }
        const auto file =
            platform::FileWrapper::initRegularFileWithContents(PV_TRY(attachments_(words[1])));
        file->setPreferredFilename(platform::lastPathComponent(words[1]));
        const Attributes around = attributes();
        Dictionary dictionary = around != nullptr ? *around : Dictionary();
        dictionary.set("NSAttachment",
                       Value(std::make_shared<const platform::TextAttachment>(file.get())));
        text_ += platform::kAttachmentCharacter;
        append(1, std::make_shared<const Dictionary>(std::move(dictionary)));
        return platform::done();
    }

    Outcome finish() {
        return open_.empty() ? platform::done()
                             : placed(wrong(open_.back().name + " is left open"));
    }

    [[nodiscard]] Fault placed(const Fault& fault) const {
        return {fault.code, "line " + std::to_string(line_) + ": " + fault.detail, true};
    }

    const AttachmentReader& attachments_;
    std::u16string text_;
    std::vector<AttributeRun> runs_;
    std::vector<Open> open_;
    std::map<std::string, Attribute> values_;
    std::map<std::string, Attributes> sets_;
    std::size_t line_ = 1;
};

}  // namespace

Result<AttributedString> attributedTextFromMarks(std::u16string_view source,
                                                 const AttachmentReader& attachments) {
    Reader reader(attachments);
    PV_TRY(reader.read(source));
    return std::move(reader).text();
}

}  // namespace pvdoc
