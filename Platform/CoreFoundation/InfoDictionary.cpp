#include "Platform/CoreFoundation/InfoDictionary.h"

#include <cstdio>
#include <memory>
#include <optional>
#include <string_view>
#include <unordered_map>
#include <utility>

#include "Platform/CoreFoundation/CFData.h"
#include "Platform/CoreFoundation/CFDate.h"
#include "Platform/CoreFoundation/CFNumber.h"
#include "Platform/CoreFoundation/Dictionary.h"
#include "Platform/CoreFoundation/String.h"
#include "Platform/Foundation/Log.h"
#include "Platform/Foundation/PropertyListSerialization.h"
#include "Platform/Foundation/Value.h"

namespace platform::cf {
namespace {

/// Makes objects of one value. What the value names many times is made once; otherwise a small file
/// could ask for more memory than there is.
class ObjectMaker {
public:
    [[nodiscard]] Owned<CFTypeRef> make(const Value& value) {
        switch (value.kind()) {
            case ValueKind::Boolean:
                return Owned<CFTypeRef>(*value.boolean() ? kCFBooleanTrue : kCFBooleanFalse);
            case ValueKind::Integer:
                return ofInteger(value);
            case ValueKind::Real:
                return ofReal(*value.real());
            case ValueKind::Date:
                return made(CFDateCreate(nullptr, value.date()->secondsSinceReferenceDate));
            case ValueKind::Data:
                return ofData(*value.data());
            case ValueKind::String:
                return once(value.string(), [&] {
                    return Owned<CFTypeRef>(refOf(String::ofUnits(*value.string())));
                });
            case ValueKind::Array:
                return once(value.array(), [&] { return ofArray(*value.array()); });
            case ValueKind::Dictionary:
                return once(value.dictionary(), [&] { return ofDictionary(*value.dictionary()); });
            case ValueKind::Uid:
                return ofUid(*value.uid());
            default:
                return {};
        }
    }

private:
    // The functions of the C interface answer NULL only for want of memory here.
    [[nodiscard]] static Owned<CFTypeRef> made(CFTypeRef object) {
        if (object == nullptr) {
            throw std::bad_alloc();
        }
        return Owned<CFTypeRef>(object);
    }

    template <class Make>
    [[nodiscard]] Owned<CFTypeRef> once(const void* shared, Make makeIt) {
        const auto known = objects_.find(shared);
        if (known != objects_.end()) {
            return Owned<CFTypeRef>(CFRetain(known->second.get()));
        }
        Owned<CFTypeRef> object = makeIt();
        objects_.emplace(shared, Owned<CFTypeRef>(CFRetain(object.get())));
        return object;
    }

    [[nodiscard]] static Owned<CFTypeRef> ofInteger(const Value& value) {
        const std::optional<std::int64_t> integer = value.integer();
        // Beyond the signed range a double comes closest.
        return integer ? made(CFNumberCreate(nullptr, kCFNumberSInt64Type, &*integer))
                       : ofReal(static_cast<double>(value.unsignedInteger().value_or(0)));
    }

    [[nodiscard]] static Owned<CFTypeRef> ofReal(double real) {
        return made(CFNumberCreate(nullptr, kCFNumberDoubleType, &real));
    }

    [[nodiscard]] static Owned<CFTypeRef> ofData(const Data& data) {
        const auto* bytes = reinterpret_cast<const UInt8*>(data.bytes());
        return made(CFDataCreate(nullptr, bytes, static_cast<CFIndex>(data.size())));
    }

    [[nodiscard]] Owned<CFTypeRef> ofArray(const platform::Array& values) {
        auto array = std::make_unique<Array>(Changes::Never, &kCFTypeArrayCallBacks);
        for (const Value& value : values) {
            if (const Owned<CFTypeRef> object = make(value)) {
                array->append(object.get());
            }
        }
        return Owned<CFTypeRef>(refOf(array.release()));
    }

    [[nodiscard]] Owned<CFTypeRef> ofDictionary(const platform::Dictionary& entries) {
        auto dictionary = std::make_unique<Dictionary>(
            Changes::Never, &kCFTypeDictionaryKeyCallBacks, &kCFTypeDictionaryValueCallBacks);
        for (const auto& [key, value] : entries.entries()) {
            const Owned<CFStringRef> name(refOf(String::ofUtf8(key)));
            const Owned<CFTypeRef> object = make(value);
            if (name && object) {
                dictionary->set(name.get(), object.get());
            }
        }
        return Owned<CFTypeRef>(refOf(dictionary.release()));
    }

    // As the XML form of a property list writes one.
    [[nodiscard]] Owned<CFTypeRef> ofUid(Uid uid) {
        return ofDictionary({{"CF$UID", Value(uid.index)}});
    }

    std::unordered_map<const void*, Owned<CFTypeRef>> objects_;
};

std::optional<std::string> readFile(const std::string& path) {
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(path.c_str(), "rbe"),
                                                               std::fclose);
    if (!file) {
        return std::nullopt;
    }
    std::string content;
    char block[16384];
    std::size_t count = 0;
    while ((count = std::fread(block, 1, sizeof block, file.get())) > 0) {
        content.append(block, count);
    }
    if (std::ferror(file.get()) != 0) {
        return std::nullopt;
    }
    return content;
}

Owned<CFDictionaryRef> damaged(const std::string& path, std::string_view why) {
    platform::log(path + ": " + std::string(why));
    return emptyDictionary();
}

}  // namespace

Owned<CFTypeRef> objectFromValue(const Value& value) {
    return ObjectMaker().make(value);
}

Owned<CFDictionaryRef> emptyDictionary() {
    return Owned<CFDictionaryRef>(refOf(new Dictionary(
        Changes::Never, &kCFTypeDictionaryKeyCallBacks, &kCFTypeDictionaryValueCallBacks)));
}

Owned<CFDictionaryRef> readInfoDictionary(const std::string& path) {
    std::optional<std::string> content = readFile(path);
    if (!content) {
        return damaged(path, "cannot be read");
    }
    const Result<Value> list =
        PropertyListSerialization::propertyListWithData(Data::adopt(std::move(*content)));
    if (!list) {
        return damaged(path, list.fault().detail);
    }
    if (list.value().kind() != ValueKind::Dictionary) {
        return damaged(path, "holds no dictionary");
    }
    Owned<CFTypeRef> object = objectFromValue(list.value());
    return Owned<CFDictionaryRef>(static_cast<CFDictionaryRef>(object.take()));
}

}  // namespace platform::cf
