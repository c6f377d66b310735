#include "Platform/Foundation/FoundationCoding.h"

#include <charconv>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "Platform/Foundation/ArchivedObject.h"
#include "Platform/Foundation/Unicode.h"

namespace platform {
namespace {

/// A string's characters stand inline, or as UTF-8 bytes; neither makes an empty string.
Result<Value> decodeString(const ArchivedObject& object) {
    Value text = PV_TRY(object.objectForKey("NS.string"));
    if (text.string() != nullptr) {
        return text;
    }
    const Value bytes = PV_TRY(object.objectForKey("NS.bytes"));
    if (bytes.data() != nullptr) {
        PV_TRY(object.chargeKey(bytes.data()->view()));
        return Value(utf16FromUtf8Lossy(bytes.data()->view()));
    }
    if (bytes.string() != nullptr) {
        return bytes;
    }
    if (!text.isNull() || !bytes.isNull()) {
        return Fault{FaultCode::Malformed, "string without characters"};
    }
    return Value(u"");
}

Result<Value> decodeData(const ArchivedObject& object) {
    for (const std::string_view key : {"NS.data", "NS.bytes"}) {
        if (const auto data = PV_TRY(object.dataForKey(key))) {
            return Value(*data);
        }
    }
    return Value(Data());
}

Result<Value> decodeDate(const ArchivedObject& object) {
    const Value time = PV_TRY(object.objectForKey("NS.time"));
    if (const auto seconds = time.real()) {
        return Value(Date{*seconds});
    }
    if (const auto seconds = time.integer()) {
        return Value(Date{static_cast<double>(*seconds)});
    }
    return Fault{FaultCode::Malformed, "date without a time"};
}

/// Puts numbered fields such as "NS.object.3" in the order of their numbers.
class NumberedFields {
public:
    void add(std::string_view key, std::string_view prefix, const Value& value) {
        std::uint64_t number = 0;
        if (!key.starts_with(prefix)) {
            return;
        }
        const char* const end = key.data() + key.size();
        const auto [stop, error] = std::from_chars(key.data() + prefix.size(), end, number);
        if (error == std::errc() && stop == end) {
            values_.insert_or_assign(number, value);
        }
    }

    /// The values from 0 up to the first number that is missing.
    Array inOrder() const {
        Array array;
        for (const auto& [number, value] : values_) {
            if (number != array.size()) {
                break;
            }
            array.push_back(value);
        }
        return array;
    }

private:
    std::map<std::uint64_t, Value> values_;
};

/// An array's elements, which stand in one inline array or in numbered fields.
Result<Array> arrayElements(const ArchivedObject& object) {
    const Value objects = PV_TRY(object.objectForKey("NS.objects"));
    if (objects.array() != nullptr) {
        return *objects.array();
    }
    if (!objects.isNull()) {
        return Fault{FaultCode::Malformed, "NS.objects that is no array"};
    }
    NumberedFields elements;
    PV_TRY(object.forEachField([&](const std::string& key, const Value& value) {
        elements.add(key, "NS.object.", value);
    }));
    return elements.inOrder();
}

Result<Value> decodeArray(const ArchivedObject& object) {
    return Value(PV_TRY(arrayElements(object)));
}

Result<Array> dictionaryKeys(const ArchivedObject& object) {
    const Value keys = PV_TRY(object.objectForKey("NS.keys"));
    if (keys.array() != nullptr) {
        return *keys.array();
    }
    NumberedFields numbered;
    PV_TRY(object.forEachField(
        [&](const std::string& key, const Value& value) { numbered.add(key, "NS.key.", value); }));
    return numbered.inOrder();
}

/// Keys other than strings are legal but not a property list's: such a dictionary stays opaque.
Result<Value> decodeDictionary(const ArchivedObject& object) {
    const Array keys = PV_TRY(dictionaryKeys(object));
    Array values = PV_TRY(arrayElements(object));
    if (keys.size() != values.size()) {
        return Fault{FaultCode::Malformed, "dictionary of " + std::to_string(keys.size()) +
                                               " keys and " + std::to_string(values.size()) +
                                               " values"};
    }
    std::vector<Dictionary::Entry> entries;
    entries.reserve(keys.size());
    for (std::size_t i = 0; i < keys.size(); ++i) {
        auto key = keys[i].utf8();
        if (!key) {
            return object.opaque();
        }
        PV_TRY(object.chargeKey(*key));
        entries.emplace_back(std::move(*key), std::move(values[i]));
    }
    return Value(Dictionary(std::move(entries)));
}

constexpr CodableClass kClasses[] = {
    {"NSString", decodeString},
    {"NSMutableString", decodeString},
    {"NSData", decodeData},
    {"NSMutableData", decodeData},
    {"NSDate", decodeDate},
    {"NSArray", decodeArray},
    {"NSMutableArray", decodeArray},
    {"NSDictionary", decodeDictionary},
    {"NSMutableDictionary", decodeDictionary},
};

}  // namespace

std::span<const CodableClass> foundationClasses() {
    return kClasses;
}

}  // namespace platform
