// A listing of stretches of a text: a table for people, or lines of JSON for programs.

#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "Platform/Foundation/Range.h"

namespace pvdoc {

/// Takes output as it is made.
using Output = std::function<void(std::string_view)>;

enum class ListingForm : bool { Table, JsonLines };

/// Writes one line for each stretch; locations and lengths count UTF-16 units. Texts are shown as
/// they stand, also where an attachment's place or a NUL is among them, so that they fit the
/// ranges.
class Listing {
public:
    /// `heading` names the table's last columns.
    Listing(ListingForm form, std::string_view heading, Output output);

    /// Adds a stretch with its text.
    void addText(platform::Range range, std::u16string_view text);

    /// Adds a stretch with its language; the table shows how its text begins, too.
    void addLanguage(platform::Range range, std::string_view language, std::u16string_view text);

private:
    void addRow(platform::Range range, std::string_view columns);

    const ListingForm form_;
    const Output output_;
};

}  // namespace pvdoc
