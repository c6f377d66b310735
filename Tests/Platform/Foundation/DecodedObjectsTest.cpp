#include "Platform/Foundation/DecodedObjects.h"

#include <gtest/gtest.h>

namespace platform {
namespace {

using State = DecodedObjects::State;

TEST(DecodedObjects, TellsWhatHasBecomeOfEach) {
    DecodedObjects objects(100, 10);
    for (const std::uint64_t number : {0, 50, 99}) {
        SCOPED_TRACE(number);
        EXPECT_EQ(objects.find(number), nullptr);
        objects.begin(number);
        ASSERT_NE(objects.find(number), nullptr);
        EXPECT_EQ(objects.find(number)->state, State::Open);
    }
    objects.finish(0, Value(7), 3);
    objects.damage(50, {FaultCode::Malformed, "broken"});
    objects.forget(99);
    EXPECT_EQ(objects.find(0)->state, State::Decoded);
    EXPECT_EQ(objects.find(0)->value, Value(7));
    EXPECT_EQ(objects.find(0)->height, 3u);
    EXPECT_EQ(objects.find(50)->state, State::Damaged);
    EXPECT_EQ(objects.faultOf(50).detail, "broken");
    EXPECT_EQ(objects.find(99), nullptr);
}

TEST(DecodedObjects, AnObjectThatWasForgottenCanBeDecodedAgain) {
    DecodedObjects objects(2, 2);
    for (int i = 0; i < 3; ++i) {
        objects.begin(1);
        objects.forget(1);
        EXPECT_EQ(objects.find(1), nullptr);
    }
    objects.begin(1);
    objects.finish(1, Value(u"text"), 0);
    EXPECT_EQ(objects.find(1)->value, Value(u"text"));
}

TEST(DecodedObjects, KnowsNothingOfNumbersThatAreNone) {
    const DecodedObjects none(0, 0);
    EXPECT_EQ(none.find(0), nullptr);
    const DecodedObjects few(3, 3);
    EXPECT_EQ(few.find(3), nullptr);
    EXPECT_EQ(few.find(~std::uint64_t{0}), nullptr);
}

}  // namespace
}  // namespace platform
