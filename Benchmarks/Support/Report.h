// What the benchmarks have measured, and the table that holds it against the targets.
//
// Times are those of one run on one machine, so a target is a ratio: two measurements of the same
// run, taken in turn. One thread at a time.

#pragma once

#include <string>
#include <unordered_map>
#include <vector>

namespace bench {

/// What a measurement must be, seen from the one that it is compared with.
struct Target {
    enum class Kind {
        None,        ///< for information
        AtMost,      ///< at most `bound` times the other
        AtLeast,     ///< the other is at least `bound` times this
        AtMostMore,  ///< at most the other and `bound` on top
        Below        ///< at most `bound`, whatever the other
    };
    Kind kind = Kind::None;
    double bound = 0;

    static Target none() { return {}; }
    static Target atMost(double times) { return {Kind::AtMost, times}; }
    static Target atLeast(double times) { return {Kind::AtLeast, times}; }
    static Target atMostMore(double amount) { return {Kind::AtMostMore, amount}; }
    static Target below(double amount) { return {Kind::Below, amount}; }
};

/// One line of the table: two measurements by their names.
struct Row {
    std::string what;
    std::string ours;
    std::string other;
    Target target;
};

/// Collects measurements and the rows that compare them.
class Report {
public:
    /// Adds a line for two measurements; a title begins a new part of the table.
    void compare(Row row) { rows_.push_back(std::move(row)); }
    void begin(std::string title) { rows_.push_back({std::move(title), {}, {}, {}}); }

    /// Keeps a measurement: milliseconds, or megabytes of memory.
    void keep(const std::string& name, double measured) { measured_[name] = measured; }

    /// Prints the table; returns whether all targets are met. A row whose measurements were not
    /// taken is left out.
    [[nodiscard]] bool print() const;

private:
    [[nodiscard]] bool printRow(const Row& row) const;

    std::vector<Row> rows_;
    std::unordered_map<std::string, double> measured_;
};

}  // namespace bench
