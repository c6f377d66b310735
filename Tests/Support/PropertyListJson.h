// Property lists as JSON, to be compared with other readers' views of them.
//
// What JSON has no kind for stands in a dictionary of one key: {"$date": "2001-01-01T00:00:00"},
// {"$data-hex": "00ff"}, {"$uid": 7}; a moment that has no date is {"$seconds": ...}.

#pragma once

#include <cmath>
#include <cstdio>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <utility>

#include "Platform/Foundation/CalendarDate.h"
#include "Platform/Foundation/Value.h"

namespace test {

using Json = nlohmann::json;

inline Json jsonOfData(const platform::Data& data) {
    std::string digits;
    for (const std::byte byte : data.span()) {
        char pair[3];
        std::snprintf(pair, sizeof pair, "%02x", std::to_integer<unsigned>(byte));
        digits += pair;
    }
    return {{"$data-hex", digits}};
}

inline Json jsonOfDate(platform::Date date) {
    const double seconds = date.secondsSinceReferenceDate;
    if (!std::isfinite(seconds)) {
        return {{"$seconds", std::isnan(seconds) ? "nan" : seconds < 0 ? "-inf" : "inf"}};
    }
    constexpr double kMostSeconds = 1e11;
    if (std::abs(seconds) > kMostSeconds) {
        return {{"$seconds", seconds}};
    }
    std::string text = platform::textFromDate(date);
    text.pop_back();
    return {{"$date", text}};
}

/// A value that JSON has a kind for, containers apart; nothing for any other.
inline std::optional<Json> jsonOfPlain(const platform::Value& value) {
    switch (value.kind()) {
        case platform::ValueKind::Null:
            return Json(nullptr);
        case platform::ValueKind::Boolean:
            return Json(*value.boolean());
        case platform::ValueKind::Integer:
            return value.integer() ? Json(*value.integer()) : Json(*value.unsignedInteger());
        case platform::ValueKind::Real:
            return Json(*value.real());
        case platform::ValueKind::String:
            return Json(*value.utf8());
        default:
            return std::nullopt;
    }
}

inline Json jsonOf(const platform::Value& value);

inline Json jsonOfContainer(const platform::Value& value) {
    if (value.array() != nullptr) {
        Json json = Json::array();
        for (const platform::Value& element : *value.array()) {
            json.push_back(jsonOf(element));
        }
        return json;
    }
    Json json = Json::object();
    for (const auto& [key, element] : value.dictionary()->entries()) {
        json[key] = jsonOf(element);
    }
    return json;
}

/// Requires: the value holds no object, and nothing in it is shared so often that writing it out
/// would not end.
inline Json jsonOf(const platform::Value& value) {
    if (auto plain = jsonOfPlain(value)) {
        return *std::move(plain);
    }
    switch (value.kind()) {
        case platform::ValueKind::Date:
            return jsonOfDate(*value.date());
        case platform::ValueKind::Data:
            return jsonOfData(*value.data());
        case platform::ValueKind::Uid:
            return {{"$uid", value.uid()->index}};
        default:
            return jsonOfContainer(value);
    }
}

}  // namespace test
