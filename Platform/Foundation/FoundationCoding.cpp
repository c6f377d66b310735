#include "Platform/Foundation/FoundationCoding.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "Platform/Foundation/ArchivedObject.h"
#include "Platform/Foundation/URLReference.h"
#include "Platform/Foundation/Unicode.h"

namespace platform {
namespace {

/// A string's characters stand inline, or as UTF-8 bytes; neither makes an empty string.
Result<Value> decodeString(const ArchivedObject& object) {
    Value text = PV_TRY(object.objectForKey("NS.string"));
    if (text.string() != nullptr) {
        return text;
    }
    Value bytes = PV_TRY(object.objectForKey("NS.bytes"));
    if (bytes.data() != nullptr) {
        PV_TRY(object.charge(bytes.data()->size(), sizeof(char16_t)));
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

/// Decodes all elements of an array.
Result<Array> decodeElements(const ArchivedObject& object,
                             const ArchivedObject::Elements& elements) {
    PV_TRY(object.charge(elements.count(), sizeof(Value)));
    Array array;
    array.reserve(elements.count());
    for (std::uint64_t i = 0; i < elements.count(); ++i) {
        array.push_back(PV_TRY(elements.objectAt(i)));
    }
    return array;
}

/// Whether a collection without elements says something in other fields than its class's own: it is
/// of a class that only has this one's name among its superclasses.
bool isForeign(const ArchivedObject& object, std::string_view key) {
    return !object.containsValueForKey(key) && object.fieldCount() > 0;
}

Result<Value> decodeArray(const ArchivedObject& object) {
    const auto elements = PV_TRY(object.elements("NS.objects", "NS.object."));
    if (elements.count() == 0 && isForeign(object, "NS.objects")) {
        return object.opaque();
    }
    return Value(PV_TRY(decodeElements(object, elements)));
}

/// Keys other than strings are legal but not a property list's: such a dictionary stays opaque.
Result<Value> decodeDictionary(const ArchivedObject& object) {
    ArchivedObject::Elements keys(object);
    ArchivedObject::Elements values(object);
    PV_TRY(object.readElements("NS.keys", "NS.key.", keys));
    PV_TRY(object.readElements("NS.objects", "NS.object.", values));
    if (keys.count() != values.count()) {
        return Fault{FaultCode::Malformed, "dictionary of " + std::to_string(keys.count()) +
                                               " keys and " + std::to_string(values.count()) +
                                               " values"};
    }
    if (keys.count() == 0 && isForeign(object, "NS.keys")) {
        return object.opaque();
    }
    PV_TRY(object.charge(keys.count(), sizeof(Dictionary::Entry)));
    if (auto shared = PV_TRY(object.sharedKeys(keys))) {
        std::vector<Value> all;
        all.reserve(values.count());
        for (std::uint64_t i = 0; i < values.count(); ++i) {
            auto value = values.objectAt(i);
            if (!value) {
                return std::move(value).fault();
            }
            all.push_back(std::move(value).value());
        }
        return Value(Dictionary(std::move(shared), std::move(all)));
    }
    std::vector<Dictionary::Entry> entries;
    entries.reserve(keys.count());
    for (std::uint64_t i = 0; i < keys.count(); ++i) {
        auto key = PV_TRY(keys.objectAt(i)).utf8();
        if (!key) {
            return object.opaque();
        }
        PV_TRY(object.charge(key->size()));
        entries.emplace_back(std::move(*key), PV_TRY(values.objectAt(i)));
    }
    return Value(Dictionary(std::move(entries)));
}

/// Numbers stand in the table themselves; only writers of another kind make objects of them.
Result<Value> decodeNumber(const ArchivedObject& object) {
    for (const std::string_view key : {"NS.number", "NS.boolval", "NS.intval", "NS.dblval"}) {
        Value number = PV_TRY(object.objectForKey(key));
        if (number.doubleValue()) {
            return number;
        }
    }
    return object.opaque();
}

Result<Value> decodeUrl(const ArchivedObject& object) {
    return object.typed<URLReference>();
}

constexpr CodableClass kClasses[] = {
    {"NSString", decodeString},
    {"NSMutableString", decodeString},
    {"NSData", decodeData},
    {"NSMutableData", decodeData},
    {"NSNumber", decodeNumber},
    {"NSDate", decodeDate},
    {"NSURL", decodeUrl},
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
