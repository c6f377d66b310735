#include "Tools/pvdoc/Listing.h"

#include <fmt/format.h>

#include <algorithm>
#include <nlohmann/json.hpp>
#include <utility>

#include "Platform/Foundation/Unicode.h"
#include "Platform/Text/CharacterSet.h"
#include "Tools/pvdoc/Report.h"

namespace pvdoc {

using platform::Range;
using Json = nlohmann::ordered_json;

namespace {

/// How much of a long stretch a table shows.
constexpr std::size_t kShownUnits = 60;

Json rangeObject(Range range) {
    return {{"location", range.location}, {"length", range.length}};
}

/// For a line of a table; white space of any kind is a blank.
std::string shown(std::u16string_view text) {
    std::u16string line(text);
    std::replace_if(line.begin(), line.end(), platform::isWhitespaceOrNewline, u' ');
    return shownInLine(platform::utf8FromUtf16(line));
}

std::string beginningOf(std::u16string_view text) {
    const bool isLong = text.size() > kShownUnits;
    const bool isCutInPair = isLong && platform::isHighSurrogate(text[kShownUnits - 1]);
    return shown(text.substr(0, kShownUnits - (isCutInPair ? 1 : 0))) + (isLong ? " ..." : "");
}

}  // namespace

Listing::Listing(ListingForm form, std::string_view heading, Output output)
    : form_(form), output_(std::move(output)) {
    if (form_ == ListingForm::Table) {
        output_(fmt::format("{:>10}  {:>8}  {}\n", "location", "length", heading));
    }
}

void Listing::addText(Range range, std::u16string_view text) {
    if (form_ == ListingForm::Table) {
        addRow(range, shown(text));
        return;
    }
    Json line = rangeObject(range);
    line["text"] = platform::utf8FromUtf16(text);
    output_(line.dump() + '\n');
}

void Listing::addLanguage(Range range, std::string_view language, std::u16string_view text) {
    if (form_ == ListingForm::Table) {
        addRow(range, fmt::format("{:<8}  {}", language, beginningOf(text)));
        return;
    }
    Json line = rangeObject(range);
    line["language"] = language;
    output_(line.dump() + '\n');
}

void Listing::addRow(Range range, std::string_view columns) {
    output_(fmt::format("{:>10}  {:>8}  {}\n", range.location, range.length, columns));
}

}  // namespace pvdoc
