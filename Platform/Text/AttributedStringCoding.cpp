#include "Platform/Text/AttributedStringCoding.h"

#include <algorithm>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "Platform/Foundation/ArchivedObject.h"
#include "Platform/Foundation/KeyedArchiver.h"
#include "Platform/Text/AttributedString.h"
#include "Platform/Text/Color.h"
#include "Platform/Text/Font.h"
#include "Platform/Text/ParagraphStyle.h"
#include "Platform/Text/TextAttachment.h"

namespace platform {
namespace {

/// Reads the numbers of a run table: seven bits a byte, the low ones first, the top bit set on all
/// bytes but a number's last.
class NumberReader {
public:
    explicit NumberReader(std::string_view bytes) : bytes_(bytes) {}

    /// The next number; nothing at the end, and when the bytes end inside it or it overflows.
    std::optional<std::uint64_t> next() {
        std::uint64_t number = 0;
        for (unsigned shift = 0; shift < 64 && !bytes_.empty(); shift += 7) {
            const auto byte = static_cast<unsigned char>(bytes_.front());
            bytes_.remove_prefix(1);
            const std::uint64_t bits = byte & 0x7F;
            if ((bits << shift) >> shift != bits) {
                return std::nullopt;
            }
            number |= bits << shift;
            if ((byte & 0x80) == 0) {
                return number;
            }
        }
        return std::nullopt;
    }

private:
    std::string_view bytes_;
};

/// The attributes at `index` of the array; nothing when they are damaged.
std::optional<Attributes> attributesAt(const ArchivedObject::Elements& sets, std::uint64_t index) {
    const auto value = sets.objectAt(index);
    if (!value) {
        return std::nullopt;
    }
    Attributes attributes = value.value().sharedDictionary();
    if (!attributes) {
        return std::nullopt;
    }
    return attributes;
}

/// The runs that a run table gives to a text of `length` units, up to the first damaged one.
std::vector<AttributeRun> readRuns(std::string_view table, const ArchivedObject::Elements& sets,
                                   std::uint64_t length) {
    std::vector<AttributeRun> runs;
    runs.reserve(std::min<std::uint64_t>(table.size() / 2, length));
    NumberReader numbers(table);
    std::uint64_t rest = length;
    while (rest > 0) {
        const auto runLength = numbers.next();
        const auto index = runLength ? numbers.next() : std::nullopt;
        if (!index || *runLength > rest) {
            break;
        }
        auto attributes = attributesAt(sets, *index);
        if (!attributes) {
            break;
        }
        if (*runLength > 0) {
            runs.push_back({*runLength, std::move(*attributes)});
            rest -= *runLength;
        }
    }
    return runs;
}

/// One dictionary covers the whole text; an array of them needs a run table.
std::vector<AttributeRun> decodeRuns(const ArchivedObject& object, std::uint64_t length) {
    const auto table = object.dataForKey("NSAttributeInfo");
    if (!table) {
        return {};
    }
    if (!table.value()) {
        const auto attributes = object.objectForKey("NSAttributes");
        Attributes whole = attributes ? attributes.value().sharedDictionary() : nullptr;
        return whole ? std::vector<AttributeRun>{{length, std::move(whole)}}
                     : std::vector<AttributeRun>();
    }
    // Of a table that many texts share each makes runs of its own, one of two bytes at least.
    if (!object.charge(table.value()->size() / 2, sizeof(AttributeRun))) {
        return {};
    }
    const auto sets = object.elementsForKey("NSAttributes");
    if (!sets || !sets.value()) {
        return {};
    }
    return readRuns(table.value()->view(), *sets.value(), length);
}

Result<Value> decodeAttributedString(const ArchivedObject& object) {
    auto text = PV_TRY(object.stringForKey("NSString"));
    if (!text) {
        text = std::make_shared<const std::u16string>();
    }
    // An empty text has no attributes, whatever the archive says.
    auto runs = text->empty() ? std::vector<AttributeRun>() : decodeRuns(object, text->size());
    return Value(std::shared_ptr<const Object>(
        std::make_shared<const AttributedString>(std::move(text), std::move(runs))));
}

template <class Type>
Result<Value> decodeTyped(const ArchivedObject& object) {
    return object.typed<Type>();
}

constexpr CodableClass kClasses[] = {
    {"NSAttributedString", decodeAttributedString},
    {"NSMutableAttributedString", decodeAttributedString},
    {"NSTextStorage", decodeAttributedString},
    {"NSFont", decodeTyped<Font>},
    {"NSColor", decodeTyped<Color>},
    {"NSParagraphStyle", decodeTyped<ParagraphStyle>},
    {"NSMutableParagraphStyle", decodeTyped<ParagraphStyle>},
    {"NSTextAttachment", decodeTyped<TextAttachment>},
};

/// Appends a number of a run table, as NumberReader reads it.
void appendNumber(std::string& table, std::uint64_t number) {
    while (number > 0x7F) {
        table.push_back(static_cast<char>(number | 0x80));
        number >>= 7;
    }
    table.push_back(static_cast<char>(number));
}

/// The attribute sets of a text, each once, and the table of its runs.
struct RunTable {
    Array sets;
    std::string table;
};

RunTable tableOf(const std::vector<AttributeRun>& runs) {
    RunTable result;
    std::unordered_map<const Dictionary*, std::uint64_t> places;
    for (const AttributeRun& run : runs) {
        const auto [place, isNew] = places.try_emplace(run.attributes.get(), result.sets.size());
        if (isNew) {
            result.sets.push_back(run.attributes ? Value(run.attributes) : Value(Dictionary()));
        }
        appendNumber(result.table, run.length);
        appendNumber(result.table, place->second);
    }
    return result;
}

}  // namespace

std::span<const CodableClass> attributedTextClasses() {
    return kClasses;
}

std::shared_ptr<const ArchivedClassNames> AttributedString::archivedClass() const {
    return classNamed({"NSAttributedString", "NSObject"});
}

void AttributedString::encodeWithCoder(KeyedArchiver& coder) const {
    coder.encodeObject(Value(string_), "NSString");
    if (runs_->empty()) {
        return;
    }
    RunTable runs = tableOf(*runs_);
    // One run needs no table, its attributes stand alone.
    if (runs_->size() == 1) {
        coder.encodeObject(runs.sets.front(), "NSAttributes");
        return;
    }
    coder.encodeObject(Value(std::move(runs.sets)), "NSAttributes");
    coder.encodeObject(Value(Data::adopt(std::move(runs.table))), "NSAttributeInfo");
}

}  // namespace platform
