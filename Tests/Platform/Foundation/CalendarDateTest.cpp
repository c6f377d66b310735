#include "Platform/Foundation/CalendarDate.h"

#include <gtest/gtest.h>

#include <limits>

namespace platform {
namespace {

TEST(CalendarDate, ReadsAndWritesTheSameText) {
    struct Row {
        const char* text;
        double seconds;
    };
    constexpr Row kRows[] = {
        {"2001-01-01T00:00:00Z", 0},
        {"2000-12-31T23:59:59Z", -1},
        {"1970-01-01T00:00:00Z", -978307200},
        {"2024-02-29T12:34:56Z", 730902896},
        {"0001-01-01T00:00:00Z", -63113904000},
        {"0000-12-31T23:59:59Z", -63113904001},
        {"-0001-01-01T00:00:00Z", -63177062400},
    };
    for (const Row& row : kRows) {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(dateFromText(row.text), Date{row.seconds});
        EXPECT_EQ(textFromDate(Date{row.seconds}), row.text);
    }
}

TEST(CalendarDate, DropsTheFractionAndBearsAnyNumber) {
    EXPECT_EQ(textFromDate(Date{0.999}), "2001-01-01T00:00:00Z");
    EXPECT_EQ(textFromDate(Date{-0.5}), "2000-12-31T23:59:59Z");
    EXPECT_FALSE(textFromDate(Date{std::numeric_limits<double>::infinity()}).empty());
    EXPECT_FALSE(textFromDate(Date{-1e300}).empty());
    EXPECT_EQ(textFromDate(Date{std::numeric_limits<double>::quiet_NaN()}), "2001-01-01T00:00:00Z");
}

TEST(CalendarDate, RefusesOtherForms) {
    for (const char* text :
         {"", "2001", "2001-01-01", "2001-01-01T00:00:00", "2001-02-29T00:00:00Z",
          "2001-00-01T00:00:00Z", "2001-01-01T24:00:00Z", "2001-01-01T00:60:00Z",
          "2001-01-01T00:00:00Zx", "2001-1-01T00:00:00Z", "20 1-01-01T00:00:00Z"}) {
        EXPECT_EQ(dateFromText(text), std::nullopt) << text;
    }
}

}  // namespace
}  // namespace platform
