// Decoded object graphs as JSON, to be compared with other readers' views of an archive.
//
// Objects are {"<Class>": {field: value}}, an array or set of a class of its own is {"<Class>":
// [...]}; data are "<N bytes: 00ff...>". With `SharedObjects::Numbered`, an object that occurs
// again is {"<seen>": n}, so that graphs in which much is shared stay small.

#pragma once

#include <cstdio>
#include <map>
#include <memory>
#include <nlohmann/json.hpp>
#include <set>
#include <string>
#include <utility>

#include "Platform/Foundation/OpaqueObject.h"
#include "Platform/Foundation/PreservedObject.h"
#include "Platform/Text/AttributedString.h"
#include "Tests/Support/PropertyListJson.h"

namespace test {

enum class SharedObjects : bool { Repeated, Numbered };

class GraphJson {
public:
    using Json = test::Json;

    explicit GraphJson(SharedObjects shared) : shared_(shared) {}

    Json of(const platform::Value& value) {
        if (auto plain = jsonOfPlain(value)) {
            return *std::move(plain);
        }
        switch (value.kind()) {
            case platform::ValueKind::Date:
                return {{"<date>", value.date()->secondsSinceReferenceDate}};
            case platform::ValueKind::Data:
                return ofData(*value.data());
            case platform::ValueKind::Uid:
                return {{"<uid>", value.uid()->index}};
            case platform::ValueKind::Array:
                return ofArray(*value.array());
            case platform::ValueKind::Dictionary:
                return ofDictionary(*value.dictionary());
            default:
                return ofObject(value.object());
        }
    }

    /// The attributed texts met so far: each with the lengths and attribute names of its runs.
    [[nodiscard]] const std::multiset<Json>& texts() const { return texts_; }

private:
    static Json ofData(const platform::Data& data) {
        std::string text = "<" + std::to_string(data.size()) + " bytes: ";
        constexpr std::size_t kShown = 24;
        for (std::size_t i = 0; i < data.size() && i < kShown; ++i) {
            char digits[3];
            std::snprintf(digits, sizeof digits, "%02x", static_cast<unsigned>(data.span()[i]));
            text += digits;
        }
        return text + (data.size() > kShown ? "...>" : ">");
    }

    Json ofArray(const platform::Array& array) {
        Json json = Json::array();
        for (const platform::Value& element : array) {
            json.push_back(of(element));
        }
        return json;
    }

    /// In the order of the names, so that the numbers of shared objects don't depend on another.
    Json ofDictionary(const platform::Dictionary& dictionary) {
        std::map<std::string, platform::Value> sorted;
        for (const auto& [key, value] : dictionary.entries()) {
            sorted.insert_or_assign(key, value);
        }
        Json json = Json::object();
        for (const auto& [key, value] : sorted) {
            json[key] = of(value);
        }
        return json;
    }

    /// An object as it was archived; null for one that has no such form.
    static const platform::OpaqueObject* archivedForm(const platform::Object* object) {
        if (const auto* const typed = dynamic_cast<const platform::PreservedObject*>(object)) {
            return typed->archivedForm().get();
        }
        return dynamic_cast<const platform::OpaqueObject*>(object);
    }

    Json ofObject(std::shared_ptr<const platform::Object> object) {
        if (const auto* const back = dynamic_cast<const platform::BackReference*>(object.get())) {
            object = back->target.lock();
        }
        const platform::OpaqueObject* const opaque = archivedForm(object.get());
        const platform::Object* const identity = opaque != nullptr ? opaque : object.get();
        const auto [place, isNew] = seen_.try_emplace(identity, seen_.size());
        if (!isNew && shared_ == SharedObjects::Numbered) {
            return {{"<seen>", place->second}};
        }
        if (const auto* const text =
                dynamic_cast<const platform::AttributedString*>(object.get())) {
            return ofText(*text);
        }
        return opaque != nullptr ? ofOpaque(*opaque) : Json("<object>");
    }

    Json ofOpaque(const platform::OpaqueObject& opaque) {
        platform::Dictionary named;
        for (const platform::OpaqueField& field : opaque.fields) {
            named.set(field.name, field.value);
        }
        Json fields = ofDictionary(named);
        const std::string name = opaque.type != nullptr ? opaque.type->names.front() : "";
        if (fields.size() == 1 && fields.contains("NS.objects")) {
            fields = fields["NS.objects"];
        }
        return fields.empty() ? Json("<" + name + ">") : Json{{"<" + name + ">", fields}};
    }

    Json ofText(const platform::AttributedString& text) {
        Json runs = Json::array();
        Json attributes = Json::array();
        for (const platform::AttributeRun& run : text.runs()) {
            std::set<std::string> names;
            if (run.attributes != nullptr) {
                for (const auto& [name, value] : run.attributes->entries()) {
                    names.insert(name);
                }
            }
            runs.push_back({run.length, names});
            attributes.push_back(run.attributes != nullptr ? ofDictionary(*run.attributes)
                                                           : Json::object());
        }
        const Json words = {{"text", *platform::Value(text.string()).utf8()}, {"runs", runs}};
        texts_.insert(words);
        return {{"<text>", words}, {"attributes", attributes}};
    }

    SharedObjects shared_;
    std::map<const platform::Object*, std::size_t> seen_;
    std::multiset<Json> texts_;
};

}  // namespace test
