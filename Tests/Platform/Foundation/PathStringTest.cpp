#include "Platform/Foundation/PathString.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "Platform/Foundation/Log.h"

namespace platform {
namespace {

struct Row {
    const char* name;
    const char* path;
    const char* want;
};

struct PairRow {
    const char* name;
    const char* path;
    const char* part;
    const char* want;
};

TEST(PathString, ComponentsKeepTheRootAndATrailingSeparator) {
    struct ComponentsRow {
        const char* name;
        const char* path;
        std::vector<std::string> want;
    };
    const ComponentsRow kRows[] = {
        {"empty", "", {}},
        {"root", "/", {"/"}},
        {"several separators are the root", "//", {"/"}},
        {"root and end", "/a/b/", {"/", "a", "b", "/"}},
        {"runs of separators", "//a//b", {"/", "a", "b"}},
        {"relative with a run", "a//b", {"a", "b"}},
        {"one name", "a", {"a"}},
        {"a run at the end", "a//", {"a", "/"}},
        {"dots are names", "./../.a", {".", "..", ".a"}},
        {"bytes that are no UTF-8", "/\xFF/\xC3", {"/", "\xFF", "\xC3"}},
    };
    for (const ComponentsRow& row : kRows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(pathComponents(row.path), row.want);
    }
}

TEST(PathString, LastComponentIgnoresTrailingSeparators) {
    constexpr Row kRows[] = {
        {"one name", "a", "a"},
        {"separator behind", "a/", "a"},
        {"several behind", "b/a//", "a"},
        {"root", "/", "/"},
        {"several are the root", "//", "/"},
        {"empty", "", ""},
        {"below the root", "/a", "a"},
        {"deep", "/a/b.c", "b.c"},
    };
    for (const Row& row : kRows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(lastPathComponent(row.path), row.want);
    }
}

TEST(PathString, AppendingLeavesExactlyOneSeparator) {
    constexpr PairRow kRows[] = {
        {"separators on both sides of the part", "a", "/b/", "a/b"},
        {"to the root", "/", "b", "/b"},
        {"to nothing", "", "b", "b"},
        {"nothing", "a", "", "a"},
        {"separator to a separator", "a/", "/", "a"},
        {"rooted part to nothing", "", "/b", "/b"},
        {"nothing to nothing", "", "", ""},
        {"nothing to the root", "/", "", "/"},
        {"runs everywhere", "//a//b//", "//c//d//", "/a/b/c/d"},
    };
    for (const PairRow& row : kRows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(stringByAppendingPathComponent(row.path, row.part), row.want);
    }
}

TEST(PathString, ExtensionFollowsTheLastDotOfTheLastComponent) {
    constexpr Row kRows[] = {
        {"plain", "a.jpg", "jpg"},
        {"no dot", "a", ""},
        {"empty", "", ""},
        {"root", "/", ""},
        {"the only dot is first", ".hid", ""},
        {"first and another", ".hid.txt", "txt"},
        {"dot at the end", "a.", ""},
        {"trailing separators", "a.jpg/", "jpg"},
        {"two dots", "a..jpg", "jpg"},
        {"parent folder", "..", ""},
        {"the dot of a folder", "a.b/c", ""},
        {"case is kept", "/x/a.JPG", "JPG"},
        {"a blank", "Dr. Who", ""},
        {"a blank before the dot", "a b.txt", "txt"},
        {"right-to-left override", "a.\u202Etxt", ""},
        {"right-to-left mark at the end", "a.txt\u200F", ""},
        {"Arabic letter mark", "a.t\u061Cxt", ""},
        {"isolate", "a.t\u2067xt", ""},
        {"direction turned before the dot", "a\u202E.txt", "txt"},
        {"no control: U+202F", "a.t\u202Fxt", "t\u202Fxt"},
        {"no control: U+206A", "a.\u206A", "\u206A"},
    };
    for (const Row& row : kRows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(pathExtension(row.path), row.want);
    }
}

TEST(PathString, AppendingAnExtensionDropsTrailingSeparators) {
    constexpr PairRow kRows[] = {
        {"plain", "a", "t", "a.t"},
        {"separator behind", "/a/", "t", "/a.t"},
        {"dot behind", "a.", "t", "a..t"},
        {"no extension", "a", "", "a."},
        {"blanks are allowed here", "a", "b c", "a.b c"},
    };
    for (const PairRow& row : kRows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(stringByAppendingPathExtension(row.path, row.part), row.want);
    }
}

std::string& lastLine() {
    static std::string line;
    return line;
}

TEST(PathString, WhatCannotTakeAnExtensionGivesNothingAndALogLine) {
    constexpr PairRow kRows[] = {
        {"empty path", "", "t", "cannot append extension 't' to path ''"},
        {"root", "/", "t", "cannot append extension 't' to path '/'"},
        {"several separators", "//", "t", "cannot append extension 't' to path '//'"},
        {"rooted extension", "a", "/t", "cannot append extension '/t' to path 'a'"},
    };
    const LogSink before = setLogSink([](std::string_view line) { lastLine() = line; });
    for (const PairRow& row : kRows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(stringByAppendingPathExtension(row.path, row.part), std::nullopt);
        EXPECT_EQ(lastLine(), row.want);
    }
    setLogSink(before);
}

TEST(PathString, DeletingAnExtensionTakesOneAndItsDot) {
    constexpr Row kRows[] = {
        {"plain", "/x/a.jpg", "/x/a"},
        {"the only dot is first", ".t", ".t"},
        {"two dots", "a..t", "a."},
        {"separator behind", "/a/", "/a"},
        {"behind an extension", "a.t/", "a"},
        {"one of two", "a.tar.gz", "a.tar"},
        {"root", "/", "/"},
        {"empty", "", ""},
        {"no extension after the dot", "a.", "a."},
        {"no extension with a blank", "Dr. Who", "Dr. Who"},
        {"dot of a folder", "a.b/c", "a.b/c"},
    };
    for (const Row& row : kRows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(stringByDeletingPathExtension(row.path), row.want);
    }
}

TEST(PathString, DeletingTheLastComponentStopsAtTheRoot) {
    constexpr Row kRows[] = {
        {"one name", "a", ""},
        {"below the root", "/a", "/"},
        {"separator behind", "/a/b/", "/a"},
        {"relative", "a/b", "a"},
        {"runs", "a//b//", "a"},
        {"root", "/", "/"},
        {"several are the root", "//", "/"},
        {"empty", "", ""},
    };
    for (const Row& row : kRows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(stringByDeletingLastPathComponent(row.path), row.want);
    }
}

}  // namespace
}  // namespace platform
