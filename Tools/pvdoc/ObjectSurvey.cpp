#include "Tools/pvdoc/ObjectSurvey.h"

#include <memory>
#include <unordered_set>

#include "Platform/Foundation/Codable.h"
#include "Platform/Foundation/OpaqueObject.h"
#include "Platform/Foundation/PreservedObject.h"

namespace pvdoc {

using platform::Codable;
using platform::OpaqueObject;
using platform::PreservedObject;
using platform::Value;

namespace {

class Surveyor {
public:
    void lookAt(const platform::Dictionary& attributes) {
        if (!seen_.insert(&attributes).second) {
            return;
        }
        for (const auto& [name, value] : attributes.entries()) {
            attribute_ = name;
            lookInto(value);
        }
    }

    ObjectSurvey survey;

private:
    void lookInto(const Value& value) {
        // What is shared is looked into once, whatever names it.
        const void* const container =
            value.array() != nullptr ? static_cast<const void*>(value.array()) : value.dictionary();
        if (container != nullptr && !seen_.insert(container).second) {
            return;
        }
        if (const auto* const array = value.array()) {
            for (const Value& element : *array) {
                lookInto(element);
            }
        } else if (const auto* const dictionary = value.dictionary()) {
            for (const auto& [key, element] : dictionary->entries()) {
                lookInto(element);
            }
        } else if (const auto object = value.object()) {
            lookIntoObject(*object);
        }
    }

    void lookIntoObject(const platform::Object& object) {
        const auto* const codable = dynamic_cast<const Codable*>(&object);
        if (codable == nullptr) {
            return;
        }
        const auto* opaque = dynamic_cast<const OpaqueObject*>(codable);
        const auto type = codable->archivedClass();
        SurveyedClass& found = survey[type != nullptr ? type->names.front() : std::string()];
        found.isKnown = opaque == nullptr;
        found.attributes.insert(attribute_);
        if (!seen_.insert(&object).second) {
            return;
        }
        ++found.count;
        if (const auto* const preserved = dynamic_cast<const PreservedObject*>(codable)) {
            opaque = preserved->archivedForm().get();
        }
        if (opaque != nullptr) {
            for (const platform::OpaqueField& field : opaque->fields) {
                lookInto(field.value);
            }
        }
    }

    std::unordered_set<const void*> seen_;
    std::string attribute_;
};

}  // namespace

ObjectSurvey surveyAttributes(const platform::AttributedString& text) {
    Surveyor surveyor;
    for (const platform::AttributeRun& run : text.runs()) {
        if (run.attributes != nullptr) {
            surveyor.lookAt(*run.attributes);
        }
    }
    return std::move(surveyor.survey);
}

}  // namespace pvdoc
