#include "Platform/Foundation/CalendarDate.h"

#include <algorithm>
#include <charconv>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

namespace platform {
namespace {

using std::chrono::sys_days;

constexpr sys_days kReferenceDay = std::chrono::year{2001} / 1 / 1;
constexpr std::int64_t kSecondsPerDay = 86400;

/// Reads exactly `digits` digits and `delimiter` from the front of `text`.
std::optional<int> takeField(std::string_view& text, std::size_t digits, char delimiter) {
    int value = 0;
    if (text.size() <= digits || text[digits] != delimiter) {
        return std::nullopt;
    }
    const auto [end, error] = std::from_chars(text.data(), text.data() + digits, value);
    if (error != std::errc() || end != text.data() + digits || text[0] == '-') {
        return std::nullopt;
    }
    text.remove_prefix(digits + 1);
    return value;
}

}  // namespace

std::optional<Date> dateFromText(std::string_view text) {
    const bool negative = !text.empty() && text.front() == '-';
    if (negative) {
        text.remove_prefix(1);
    }
    const auto year = takeField(text, 4, '-');
    const auto month = year ? takeField(text, 2, '-') : std::nullopt;
    const auto day = month ? takeField(text, 2, 'T') : std::nullopt;
    const auto hour = day ? takeField(text, 2, ':') : std::nullopt;
    const auto minute = hour ? takeField(text, 2, ':') : std::nullopt;
    const auto second = minute ? takeField(text, 2, 'Z') : std::nullopt;
    if (!second || !text.empty() || *hour > 23 || *minute > 59 || *second > 60) {
        return std::nullopt;
    }
    const std::chrono::year_month_day date(std::chrono::year(negative ? -*year : *year),
                                           std::chrono::month(static_cast<unsigned>(*month)),
                                           std::chrono::day(static_cast<unsigned>(*day)));
    if (!date.ok()) {
        return std::nullopt;
    }
    const std::int64_t days = (sys_days(date) - kReferenceDay).count();
    const std::int64_t minutes = (days * 24 + *hour) * 60 + *minute;
    return Date{static_cast<double>(minutes * 60 + *second)};
}

std::string textFromDate(Date date) {
    constexpr double kFarthest = 30000.0 * 365 * kSecondsPerDay;
    const double seconds = std::isnan(date.secondsSinceReferenceDate)
                               ? 0
                               : std::clamp(date.secondsSinceReferenceDate, -kFarthest, kFarthest);
    const auto whole = static_cast<std::int64_t>(std::floor(seconds));
    const std::int64_t inDay = (whole % kSecondsPerDay + kSecondsPerDay) % kSecondsPerDay;
    const std::int64_t dayCount = (whole - inDay) / kSecondsPerDay;
    const std::chrono::year_month_day day(kReferenceDay + std::chrono::days(dayCount));
    const int year = static_cast<int>(day.year());
    char text[40];
    // The sign is not one of the four digits.
    std::snprintf(text, sizeof text, "%s%04d-%02u-%02uT%02d:%02d:%02dZ", year < 0 ? "-" : "",
                  std::abs(year), static_cast<unsigned>(day.month()),
                  static_cast<unsigned>(day.day()), static_cast<int>(inDay / 3600),
                  static_cast<int>(inDay / 60 % 60), static_cast<int>(inDay % 60));
    return text;
}

}  // namespace platform
