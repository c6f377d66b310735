#include "Host/ImporterTypes.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace host {
namespace {

using Names = std::vector<std::string>;

DeclaredType declared(std::string identifier, Names conformsTo, Names extensions = {}) {
    return {std::move(identifier), std::move(conformsTo), std::move(extensions), {}, {}};
}

TEST(ImporterTypes, TakeATypeAndAllThatConformsToIt) {
    const ImporterTypes types({"public.plain-text", "org.example.base"},
                              {declared("org.example.kind", {"org.example.BASE"}),
                               declared("org.example.note", {"public.utf8-plain-text"}),
                               declared("org.example.other", {"public.data"})});
    struct Row {
        const char* identifier;
        bool want;
    };
    constexpr Row kRows[] = {
        {"public.plain-text", true},
        {"PUBLIC.Plain-Text", true},
        {"public.utf8-plain-text", true},
        {"public.text", false},
        {"org.example.base", true},
        {"org.example.kind", true},
        {"org.example.note", true},
        {"org.example.other", false},
        {"public.data", false},
        {"unknown", false},
        {"com.brightmill.parlavox.txt-no-tags", true},
    };
    for (const Row& row : kRows) {
        SCOPED_TRACE(row.identifier);
        EXPECT_EQ(types.takes(row.identifier), row.want);
    }
}

TEST(ImporterTypes, DeclarationsMayGoInCircles) {
    const ImporterTypes types({"org.example.taken"},
                              {declared("a", {"b"}), declared("b", {"a", "b"}),
                               declared("c", {"a", "org.example.taken"})});
    EXPECT_FALSE(types.takes("a"));
    EXPECT_TRUE(types.takes("c"));
}

TEST(ImporterTypes, TheBundlesTypesOfAnExtensionGoFirst) {
    const ImporterTypes types({}, {declared("org.example.note", {}, {"note", "txt"})});
    EXPECT_EQ(types.typesForExtension("NOTE"), Names{"org.example.note"});
    EXPECT_EQ(types.typesForExtension("txt"), (Names{"org.example.note", "public.plain-text"}));
    EXPECT_EQ(types.typesForExtension("pdf"), Names{"com.adobe.pdf"});
    EXPECT_EQ(types.typesForExtension("unknown"), Names{});
}

TEST(ImporterTypes, DescribeByTheBundleOrElseThePlatform) {
    const ImporterTypes types(
        {"public.rtf", "public.RTF"},
        {{"org.example.note", {"public.data"}, {"note"}, {"text/note"}, "A note"}});
    EXPECT_EQ(types.taken(), Names{"public.rtf"});
    EXPECT_EQ(types.describe("org.example.NOTE").description, "A note");
    EXPECT_EQ(types.describe("org.example.note").mimeTypes, Names{"text/note"});
    EXPECT_EQ(types.describe("public.rtf").extensions, Names{"rtf"});
    EXPECT_EQ(types.describe("public.rtf").mimeTypes, (Names{"text/rtf", "application/rtf"}));
    EXPECT_EQ(types.describe("unknown").identifier, "unknown");
    EXPECT_EQ(types.describe("unknown").extensions, Names{});
    // Another bundle's type is not the platform's.
    EXPECT_EQ(types.describe("com.brightmill.parlavox.parlavox").extensions, Names{});
}

}  // namespace
}  // namespace host
