#include "Benchmarks/Support/Report.h"

#include <cstdio>

namespace bench {
namespace {

/// A target as it is printed.
std::string describe(const Target& target) {
    char text[32] = "";
    switch (target.kind) {
        case Target::Kind::None:
            break;
        case Target::Kind::AtMost:
            std::snprintf(text, sizeof text, "<= %.4g x", target.bound);
            break;
        case Target::Kind::AtLeast:
            std::snprintf(text, sizeof text, "<= 1/%.4g", target.bound);
            break;
        case Target::Kind::AtMostMore:
            std::snprintf(text, sizeof text, "<= +%.4g", target.bound);
            break;
        case Target::Kind::Below:
            std::snprintf(text, sizeof text, "<= %.4g", target.bound);
            break;
    }
    return text;
}

bool isMet(const Target& target, double ours, double other) {
    switch (target.kind) {
        case Target::Kind::AtMost:
            return ours <= target.bound * other;
        case Target::Kind::AtLeast:
            return target.bound * ours <= other;
        case Target::Kind::AtMostMore:
            return ours <= other + target.bound;
        case Target::Kind::Below:
            return ours <= target.bound;
        case Target::Kind::None:
            break;
    }
    return true;
}

const char* verdict(const Target& target, bool isTargetMet) {
    if (target.kind == Target::Kind::None) {
        return "";
    }
    return isTargetMet ? "met" : "NOT MET";
}

}  // namespace

bool Report::printRow(const Row& row) const {
    if (row.ours.empty()) {
        std::printf("\n%s\n", row.what.c_str());
        return true;
    }
    const auto ours = measured_.find(row.ours);
    const auto other = measured_.find(row.other);
    if (ours == measured_.end() || other == measured_.end()) {
        return true;
    }
    const bool isTargetMet = isMet(row.target, ours->second, other->second);
    std::printf("  %-54s %10.3f %10.3f %8.3f  %-10s %s\n", row.what.c_str(), ours->second,
                other->second, ours->second / other->second, describe(row.target).c_str(),
                verdict(row.target, isTargetMet));
    return isTargetMet;
}

bool Report::print() const {
    std::printf("\n  %-54s %10s %10s %8s  %s\n", "", "ours", "other", "ratio", "target");
    bool areAllMet = true;
    for (const Row& row : rows_) {
        areAllMet = printRow(row) && areAllMet;
    }
    std::printf(
        "\nTimes are processor time in ms, memory is in MB; each is the median of many.\n%s\n",
        areAllMet ? "All targets are met." : "Some targets are not met.");
    return areAllMet;
}

}  // namespace bench
