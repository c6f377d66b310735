#include "Platform/Foundation/TypeTable.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string_view>
#include <vector>

namespace platform {
namespace {

TEST(TypeTable, TheImporterTakesDocumentsOfBothProgramsAndTexts) {
    std::vector<std::string_view> taken;
    for (const TypeRow& row : kTypeTable) {
        if (row.taken == TakenByImporter::Yes) {
            taken.push_back(row.identifier);
        }
    }
    const std::vector<std::string_view> want = {
        "public.plain-text",
        "public.utf8-plain-text",
        "public.utf16-plain-text",
        "public.utf16-external-plain-text",
        "public.rtf",
        "public.html",
        "com.apple.rtfd",
        "com.apple.flat-rtfd",
        "com.adobe.pdf",
        "com.brightmill.parlavox.parlavox",
        "com.fernleaf.scribo.scribo",
    };
    EXPECT_EQ(taken, want);
}

TEST(TypeTable, AnExtensionOrMimeTypeStandsForOneType) {
    std::vector<std::string_view> tags;
    for (const TypeRow& row : kTypeTable) {
        tags.insert(tags.end(), row.filenameExtensions.begin(), row.filenameExtensions.end());
        tags.insert(tags.end(), row.mimeTypes.begin(), row.mimeTypes.end());
    }
    std::sort(tags.begin(), tags.end());
    const auto twice = std::adjacent_find(tags.begin(), tags.end());
    EXPECT_EQ(twice, tags.end()) << *twice;
}

}  // namespace
}  // namespace platform
