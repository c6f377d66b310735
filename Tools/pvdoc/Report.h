// What a command tells of a file: lines of a label and a text.

#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace pvdoc {

/// Collects lines. Labels stand in a column of their own, texts in one line: control characters and
/// bytes that are no UTF-8 are shown as question marks.
class Report {
public:
    /// Adds a line; without a label it belongs to the one before.
    void add(std::string_view label, std::string_view text);

    [[nodiscard]] const std::string& text() const { return text_; }

private:
    std::string text_;
};

/// Returns `count` and the noun in the singular or plural, "1 run", "2 runs". Without a plural it
/// is the singular with an s.
[[nodiscard]] std::string counted(std::uint64_t count, std::string_view noun,
                                  std::string_view plural = {});

/// Returns the text with what would leave its line, or is no UTF-8, shown as question marks.
[[nodiscard]] std::string shownInLine(std::string_view text);

}  // namespace pvdoc
