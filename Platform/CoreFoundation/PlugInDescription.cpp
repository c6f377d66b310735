#include "Platform/CoreFoundation/PlugInDescription.h"

#include <strings.h>

#include <optional>
#include <string_view>

#include "Platform/CoreFoundation/Array.h"
#include "Platform/CoreFoundation/Dictionary.h"
#include "Platform/CoreFoundation/String.h"
#include "Platform/Foundation/Log.h"

namespace platform::cf {
namespace {

/// The object as a `Class`, null when it is of another type.
template <class Class>
const Class* as(const void* object) {
    const auto* known = static_cast<const Object*>(object);
    return known != nullptr && known->typeID() == Class::kType ? static_cast<const Class*>(known)
                                                               : nullptr;
}

const Dictionary* dictionaryUnder(CFStringRef key, CFDictionaryRef info) {
    return as<Dictionary>(CFDictionaryGetValue(info, key));
}

std::optional<UUIDBytes> uuidIn(const void* object) {
    const String* text = as<String>(object);
    if (text == nullptr || text->length() == 0) {
        return std::nullopt;
    }
    if (!text->isNarrow()) {
        return uuidFromText(text->wide());
    }
    return uuidFromText(std::u16string(text->narrow().begin(), text->narrow().end()));
}

/// The name of a function, as the loader takes it; nothing when it is none.
std::optional<std::string> functionNameIn(const void* object) {
    const String* text = as<String>(object);
    std::optional<std::string> name = text == nullptr ? std::nullopt : text->utf8();
    return name && name->find('\0') == std::string::npos ? std::move(name) : std::nullopt;
}

/// What a template for plug-ins leaves behind in a bundle that is none.
bool isTemplateResidue(const UUIDBytes& uuid, std::string_view functionName) {
    return uuid == UUIDBytes{} && functionName == "MyFactoryFunction";
}

FactoryDescriptions factoriesWithoutTypes(CFDictionaryRef info) {
    FactoryDescriptions factories;
    const Dictionary* declared = dictionaryUnder(CFSTR("CFPlugInFactories"), info);
    if (declared == nullptr) {
        return factories;
    }
    for (const auto& [key, value] : declared->pairs()) {
        const std::optional<UUIDBytes> uuid = uuidIn(key);
        std::optional<std::string> name = functionNameIn(value);
        if (uuid && name && !isTemplateResidue(*uuid, *name)) {
            factories.emplace(*uuid, FactoryDescription{std::move(*name), {}});
        }
    }
    return factories;
}

/// Gives factories their types, up to a number that no plug-in reaches: types that share one long
/// array would otherwise cost far more than the file that declares them.
class TypeAdder {
public:
    explicit TypeAdder(FactoryDescriptions& factories) : factories_(factories) {}

    void add(const UUIDBytes& type, const void* factoryIDs) {
        const Array* list = as<Array>(factoryIDs);
        if (list == nullptr) {
            addOne(type, factoryIDs);
            return;
        }
        for (const void* factoryID : list->values()) {
            if (!addOne(type, factoryID)) {
                return;
            }
        }
    }

private:
    bool addOne(const UUIDBytes& type, const void* factoryID) {
        if (left_ == 0) {
            return false;
        }
        --left_;
        const std::optional<UUIDBytes> uuid = uuidIn(factoryID);
        const auto factory = uuid ? factories_.find(*uuid) : factories_.end();
        if (factory == factories_.end()) {
            platform::log("CFPlugIn: a type in Info.plist names a factory that is not there");
        } else {
            factory->second.types.insert(type);
        }
        return true;
    }

    FactoryDescriptions& factories_;
    int left_ = 10000;
};

}  // namespace

FactoryDescriptions factoriesIn(CFDictionaryRef info) {
    FactoryDescriptions factories = factoriesWithoutTypes(info);
    const Dictionary* types = dictionaryUnder(CFSTR("CFPlugInTypes"), info);
    if (types == nullptr || factories.empty()) {
        return factories;
    }
    TypeAdder adder(factories);
    for (const auto& [key, value] : types->pairs()) {
        if (const std::optional<UUIDBytes> type = uuidIn(key)) {
            adder.add(*type, value);
        }
    }
    return factories;
}

bool registersDynamically(CFDictionaryRef info) {
    const String* word =
        as<String>(CFDictionaryGetValue(info, CFSTR("CFPlugInDynamicRegistration")));
    return word != nullptr && word->isNarrow() && word->length() == 3 &&
           strcasecmp(word->narrow().data(), "YES") == 0;
}

}  // namespace platform::cf
