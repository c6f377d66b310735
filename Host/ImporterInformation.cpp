#include "Host/ImporterInformation.h"

#include <string>
#include <utility>
#include <vector>

#include "Host/CoreFoundationOwner.h"

namespace host {
namespace {

template <class Ref>
Ref valueOfType(CFTypeRef value, CFTypeID type) {
    return value != nullptr && CFGetTypeID(value) == type
               ? static_cast<Ref>(const_cast<void*>(value))
               : nullptr;
}

CFDictionaryRef asDictionary(CFTypeRef value) {
    return valueOfType<CFDictionaryRef>(value, CFDictionaryGetTypeID());
}

std::string asText(CFTypeRef value) {
    const auto* string = valueOfType<CFStringRef>(value, CFStringGetTypeID());
    return string == nullptr ? std::string() : platform::utf8FromUtf16(unitsOf(string));
}

// Calls `visit` with each value of an array, or with a value that is no array.
template <class Visit>
void forEach(CFTypeRef value, const Visit& visit) {
    const auto* array =
        value == nullptr ? nullptr : valueOfType<CFArrayRef>(value, CFArrayGetTypeID());
    if (array == nullptr) {
        visit(value);
        return;
    }
    for (CFIndex i = 0; i < CFArrayGetCount(array); ++i) {
        visit(CFArrayGetValueAtIndex(array, i));
    }
}

void appendTexts(CFTypeRef value, std::vector<std::string>& texts) {
    forEach(value, [&](CFTypeRef one) {
        if (std::string text = asText(one); !text.empty()) {
            texts.push_back(std::move(text));
        }
    });
}

std::vector<std::string> textsOf(CFTypeRef value) {
    std::vector<std::string> texts;
    appendTexts(value, texts);
    return texts;
}

std::vector<std::string> takenTypes(CFDictionaryRef information) {
    std::vector<std::string> taken;
    forEach(
        CFDictionaryGetValue(information, CFSTR("CFBundleDocumentTypes")), [&](CFTypeRef value) {
            CFDictionaryRef entry = asDictionary(value);
            if (entry != nullptr &&
                asText(CFDictionaryGetValue(entry, CFSTR("CFBundleTypeRole"))) == "MDImporter") {
                appendTexts(CFDictionaryGetValue(entry, CFSTR("LSItemContentTypes")), taken);
            }
        });
    return taken;
}

DeclaredType declaredType(CFDictionaryRef declaration) {
    DeclaredType type;
    type.identifier = asText(CFDictionaryGetValue(declaration, CFSTR("UTTypeIdentifier")));
    type.conformsTo = textsOf(CFDictionaryGetValue(declaration, CFSTR("UTTypeConformsTo")));
    type.description = asText(CFDictionaryGetValue(declaration, CFSTR("UTTypeDescription")));
    CFStringRef tagsKey = CFSTR(
        "UTTypeTagSp"
        "ecification");
    if (CFDictionaryRef tags = asDictionary(CFDictionaryGetValue(declaration, tagsKey))) {
        type.extensions = textsOf(CFDictionaryGetValue(tags, CFSTR("public.filename-extension")));
        type.mimeTypes = textsOf(CFDictionaryGetValue(tags, CFSTR("public.mime-type")));
    }
    return type;
}

void appendDeclarations(CFTypeRef declarations, std::vector<DeclaredType>& types) {
    forEach(declarations, [&](CFTypeRef value) {
        if (CFDictionaryRef declaration = asDictionary(value)) {
            if (DeclaredType type = declaredType(declaration); !type.identifier.empty()) {
                types.push_back(std::move(type));
            }
        }
    });
}

}  // namespace

ImporterTypes importerTypesOf(CFDictionaryRef information) {
    std::vector<DeclaredType> declared;
    appendDeclarations(CFDictionaryGetValue(information, CFSTR("UTExportedTypeDeclarations")),
                       declared);
    appendDeclarations(CFDictionaryGetValue(information, CFSTR("UTImportedTypeDeclarations")),
                       declared);
    return {takenTypes(information), std::move(declared)};
}

}  // namespace host
