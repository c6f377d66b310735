// Which objects the attributes of a text hold, by class.

#pragma once

#include <cstdint>
#include <map>
#include <set>
#include <string>

#include "Platform/Foundation/Value.h"
#include "Platform/Text/AttributedString.h"

namespace pvdoc {

/// What was found of one class.
struct SurveyedClass {
    std::uint64_t count = 0;           ///< objects, each counted once
    bool isKnown = false;              ///< whether the reader understands it, or only keeps it
    std::set<std::string> attributes;  ///< the attributes that its objects are in
};

/// The classes by name; objects without one count under the empty name.
using ObjectSurvey = std::map<std::string, SurveyedClass>;

/// Looks through all attributes of the text, each set once.
[[nodiscard]] ObjectSurvey surveyAttributes(const platform::AttributedString& text);

}  // namespace pvdoc
