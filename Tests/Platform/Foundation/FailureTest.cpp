#include "Platform/Foundation/Failure.h"

#include <gtest/gtest.h>

#include <string>
#include <thread>

#include "Platform/Foundation/Exception.h"
#include "Platform/Foundation/Unicode.h"

namespace platform {
namespace {

TEST(Failure, IsNullUntilOneIsNoted) {
    clearFailure();
    EXPECT_EQ(lastFailure(), nullptr);
    noteFailure("no end record");
    EXPECT_STREQ(lastFailure(), "no end record");
    clearFailure();
    EXPECT_EQ(lastFailure(), nullptr);
}

TEST(Failure, ContextsStandInFront) {
    const FailureContext outer("text.plist");
    {
        const FailureContext inner("object 4");
        noteFailure("cycle");
        EXPECT_STREQ(lastFailure(), "text.plist: object 4: cycle");
    }
    noteFailure("cycle");
    EXPECT_STREQ(lastFailure(), "text.plist: cycle");
}

TEST(Failure, RaisingNotesTheReason) {
    const FailureContext context("a.parlavox");
    EXPECT_THROW(raise(RangeException("beyond the end")), RangeException);
    EXPECT_STREQ(lastFailure(), "a.parlavox: beyond the end");
}

TEST(Failure, IsOneShortLineOfWholeCharacters) {
    noteFailure("a\nb\tc");
    EXPECT_STREQ(lastFailure(), "a b c");
    std::string text = "x";
    for (int i = 0; i < 600; ++i) {
        text += "\u20AC";
    }
    noteFailure(text);
    const std::string line = lastFailure();
    EXPECT_LT(line.size(), 512u);
    EXPECT_EQ(line, text.substr(0, line.size()));
    EXPECT_EQ((line.size() - 1) % 3, 0u) << "cut inside a character";
}

TEST(Failure, IsUtf8WhateverBytesItIsMadeOf) {
    const FailureContext context("caf\xE9.parlavox");
    noteFailure("caf\xC3\xA9 \xE6\x97: no such file \xF0\x9F\x98\x80");
    EXPECT_STREQ(lastFailure(),
                 "caf\uFFFD.parlavox: caf\u00E9 \uFFFD\uFFFD: no such file \U0001F600");
    for (std::size_t size = 490; size < 520; ++size) {
        noteFailure(std::string(size, 'x') + "\xFF\xC3\xA9yz");
        EXPECT_TRUE(utf16FromUtf8(lastFailure())) << size;
        EXPECT_LT(std::string_view(lastFailure()).size(), 512u);
    }
}

TEST(Failure, NothingFollowsTheCut) {
    const FailureContext context("a");
    noteFailure(std::string(506, 'x') + "\U0001F600yz");
    EXPECT_EQ(lastFailure(), "a: " + std::string(506, 'x'));
}

TEST(Failure, BelongsToItsThread) {
    noteFailure("here");
    std::thread([] {
        EXPECT_EQ(lastFailure(), nullptr);
        noteFailure("there");
    }).join();
    EXPECT_STREQ(lastFailure(), "here");
}

}  // namespace
}  // namespace platform
