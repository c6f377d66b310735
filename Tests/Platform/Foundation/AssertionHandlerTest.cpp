#include "Platform/Foundation/AssertionHandler.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace platform {
namespace {

constexpr SourcePlace kPlace{"Sources/Some/File", 42};

TEST(AssertionHandler, DefaultThrowsWithConditionFileAndLine) {
    try {
        (void)require(false, "count > 0", kPlace);
        FAIL() << "nothing was thrown";
    } catch (const AssertionFailure& failure) {
        EXPECT_EQ(failure.name(), "NSInternalInconsistencyException");
        EXPECT_EQ(failure.reason(), "Invalid parameter not satisfying: count > 0");
        EXPECT_STREQ(failure.what(), "Invalid parameter not satisfying: count > 0");
        EXPECT_EQ(failure.file(), "Sources/Some/File");
        EXPECT_EQ(failure.line(), 42u);
    }
}

TEST(AssertionHandler, ConditionThatHoldsReachesNobody) {
    EXPECT_TRUE(require(true, "count > 0", kPlace));
}

TEST(AssertionHandler, HandlerThatReturnsLetsTheOperationFail) {
    struct Recorder : AssertionHandler {
        std::vector<std::string> reasons;
        void handleFailure(const AssertionFailure& failure) override {
            reasons.push_back(failure.reason());
        }
    } recorder;
    {
        const AssertionHandlerScope scope(recorder);
        EXPECT_FALSE(require(false, "bytes", kPlace));
        failAssertion("inflateInit2 failed with code: 4", kPlace);
    }
    EXPECT_EQ(recorder.reasons, (std::vector<std::string>{"Invalid parameter not satisfying: bytes",
                                                          "inflateInit2 failed with code: 4"}));
    EXPECT_THROW((void)require(false, "bytes", kPlace), AssertionFailure);
}

}  // namespace
}  // namespace platform
