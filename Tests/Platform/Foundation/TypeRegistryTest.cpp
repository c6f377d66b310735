#include "Platform/Foundation/TypeRegistry.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "Platform/Foundation/TypeTable.h"

namespace platform {
namespace {

using Types = std::vector<std::string_view>;

TEST(TypeRegistry, ConformanceIsReflexiveTransitiveAndIgnoresCase) {
    struct Row {
        const char* name;
        std::string_view type, other;
        bool want;
    };
    constexpr Row kRows[] = {
        {"to itself", "public.rtf", "public.rtf", true},
        {"to itself in another case", "public.rtf", "Public.RTF", true},
        {"directly", "public.rtf", "public.text", true},
        {"through another type", "public.rtf", "public.data", true},
        {"to the root", "public.utf8-plain-text", "public.item", true},
        {"through the second supertype", "public.rtf", "public.content", true},
        {"in any case", "ORG.OpenXMLFormats.WordprocessingML.document", "PUBLIC.CONTENT", true},
        {"not downward", "public.text", "public.rtf", false},
        {"not between siblings", "public.rtf", "public.html", false},
        {"an RTFD package is a directory", "com.apple.rtfd", "public.directory", true},
        {"an RTFD package is a document", "com.apple.rtfd", "public.composite-content", true},
        {"an RTFD package is no data", "com.apple.rtfd", "public.data", false},
        {"an RTFD package is no RTF", "com.apple.rtfd", "public.rtf", false},
        {"flat RTFD is no RTF", "com.apple.flat-rtfd", "public.rtf", false},
        {"flat RTFD is data", "com.apple.flat-rtfd", "public.data", true},
        {"an importer is a package", "com.apple.metadata-importer", "com.apple.package", true},
        {"a link is no data", "public.symlink", "public.data", false},
        {"our document", "com.brightmill.parlavox.parlavox", "public.composite-content", true},
        {"the foreign document", "com.fernleaf.scribo.scribo", "public.data", true},
        {"theirs is not ours", "com.fernleaf.scribo.scribo", "com.brightmill.parlavox.parlavox",
         false},
        {"RTF without tags", "com.brightmill.parlavox.rtf-no-tags", "public.rtf", true},
        {"text without tags", "com.brightmill.parlavox.txt-no-tags", "public.plain-text", true},
        {"unknown, to itself", "org.example.thing", "org.Example.Thing", true},
        {"unknown, to a root", "org.example.thing", "public.item", false},
        {"known, to an unknown", "public.rtf", "org.example.thing", false},
        {"the start of an identifier", "public.rt", "public.text", false},
        {"more than an identifier", "public.rtf2", "public.text", false},
        {"beyond ASCII only itself", "org.\xC3\x84", "org.\xC3\xA4", false},
        {"empty, to itself", "", "", true},
        {"empty, to a root", "", "public.item", false},
    };
    for (const Row& row : kRows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(TypeRegistry::typeConformsToType(row.type, row.other), row.want);
    }
}

TEST(TypeRegistry, EveryTypeConformsToAllThatItsSupertypesConformTo) {
    for (const TypeRow& row : kTypeTable) {
        SCOPED_TRACE(row.identifier);
        EXPECT_TRUE(TypeRegistry::isDeclared(row.identifier));
        EXPECT_TRUE(TypeRegistry::typeConformsToType(row.identifier, row.identifier));
        for (const std::string_view supertype : row.conformsTo) {
            EXPECT_FALSE(TypeRegistry::typeConformsToType(supertype, row.identifier));
            for (const TypeRow& other : kTypeTable) {
                if (TypeRegistry::typeConformsToType(supertype, other.identifier)) {
                    EXPECT_TRUE(TypeRegistry::typeConformsToType(row.identifier, other.identifier));
                }
            }
        }
    }
}

TEST(TypeRegistry, KnowsTheTypesOfTheTableAlone) {
    EXPECT_TRUE(TypeRegistry::isDeclared("com.adobe.pdf"));
    EXPECT_TRUE(TypeRegistry::isDeclared("COM.ADOBE.PDF"));
    EXPECT_FALSE(TypeRegistry::isDeclared("com.adobe.pdf2"));
    EXPECT_FALSE(TypeRegistry::isDeclared("zzz"));
    EXPECT_FALSE(TypeRegistry::isDeclared(""));
    EXPECT_FALSE(TypeRegistry::isDeclared(std::string_view("com.adobe.pdf\0", 14)));
}

TEST(TypeRegistry, FindsTypesByFilenameExtension) {
    struct Row {
        std::string_view filenameExtension;
        Types want;
    };
    const Row kRows[] = {
        {"parlavox", {"com.brightmill.parlavox.parlavox"}},
        {"PARLAVOX", {"com.brightmill.parlavox.parlavox"}},
        {"scribo", {"com.fernleaf.scribo.scribo"}},
        {"txt", {"public.plain-text"}},
        {"Text", {"public.plain-text"}},
        {"htm", {"public.html"}},
        {"rtfd", {"com.apple.rtfd"}},
        {"docx", {"org.openxmlformats.wordprocessingml.document"}},
        {".txt", {}},
        {"tx", {}},
        {"", {}},
    };
    for (const Row& row : kRows) {
        SCOPED_TRACE(row.filenameExtension);
        EXPECT_EQ(TypeRegistry::typesForFilenameExtension(row.filenameExtension), row.want);
    }
}

TEST(TypeRegistry, FindsTypesByMimeType) {
    struct Row {
        std::string_view mimeType;
        Types want;
    };
    const Row kRows[] = {
        {"application/vnd.brightmill.parlavox+zip", {"com.brightmill.parlavox.parlavox"}},
        {"Application/RTF", {"public.rtf"}},
        {"text/plain", {"public.plain-text"}},
        {"text/plain;charset=utf-8", {"public.utf8-plain-text"}},
        {"text/plain; charset=UTF-8", {"public.utf8-plain-text"}},
        {"text/plain; charset=latin1", {"public.plain-text"}},
        {"text/html;charset=utf-8", {"public.html"}},
        {"text/unheard-of", {}},
        {";charset=utf-8", {}},
        {"", {}},
    };
    for (const Row& row : kRows) {
        SCOPED_TRACE(row.mimeType);
        EXPECT_EQ(TypeRegistry::typesForMimeType(row.mimeType), row.want);
    }
}

TEST(TypeRegistry, PrefersTheFirstExtension) {
    EXPECT_EQ(TypeRegistry::preferredFilenameExtensionForType("public.plain-text"), "txt");
    EXPECT_EQ(TypeRegistry::preferredFilenameExtensionForType("Public.HTML"), "html");
    EXPECT_EQ(TypeRegistry::preferredFilenameExtensionForType("public.data"), std::nullopt);
    EXPECT_EQ(
        TypeRegistry::preferredFilenameExtensionForType("com.brightmill.parlavox.rtf-no-tags"),
        std::nullopt);
    EXPECT_EQ(TypeRegistry::preferredFilenameExtensionForType("org.example.thing"), std::nullopt);
}

}  // namespace
}  // namespace platform
