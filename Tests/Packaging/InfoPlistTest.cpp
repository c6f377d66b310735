#include "Packaging/generate/InfoPlist.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "Platform/Foundation/Bundle.h"
#include "Platform/Foundation/TypeTable.h"

namespace packaging {
namespace {

using platform::Array;
using platform::Bundle;
using platform::Dictionary;
using platform::TypeRow;
using platform::Value;

/// Returns the strings of an array; a failure of the test where there is no such array.
std::vector<std::string> strings(const Value& value) {
    std::vector<std::string> texts;
    if (value.array() == nullptr) {
        ADD_FAILURE() << "no array";
        return texts;
    }
    for (const Value& element : *value.array()) {
        texts.push_back(element.utf8().value_or("no string"));
    }
    return texts;
}

/// Returns the declaration of a type under a key of the information, null when there is none.
const Dictionary* declaration(const Dictionary& information, const char* key,
                              const std::string& identifier) {
    const Value* const declarations = information.find(key);
    if (declarations == nullptr || declarations->array() == nullptr) {
        return nullptr;
    }
    for (const Value& element : *declarations->array()) {
        if (element.dictionary() != nullptr &&
            (*element.dictionary())["UTTypeIdentifier"].utf8() == identifier) {
            return element.dictionary();
        }
    }
    return nullptr;
}

TEST(InfoPlist, NamesTheBundleAndItsVersion) {
    const Dictionary information = infoPlist("1.2.3");
    struct Row {
        const char* key;
        const char* want;
    };
    constexpr Row kRows[] = {
        {"CFBundleIdentifier", "com.brightmill.parlavox.importer"},
        {"CFBundleName", "Parlavox"},
        {"CFBundleExecutable", "Parlavox"},
        {"CFBundlePackageType", "BNDL"},
        {"CFBundleInfoDictionaryVersion", "6.0"},
        {"CFBundleShortVersionString", "1.2.3"},
        {"CFBundleVersion", "1.2.3"},
    };
    for (const Row& row : kRows) {
        SCOPED_TRACE(row.key);
        EXPECT_EQ(information[row.key].utf8(), row.want);
    }
}

TEST(InfoPlist, OffersOneFactoryOfImporters) {
    const Dictionary information = infoPlist("1");
    const Value factories = information["CFPlugInFactories"];
    EXPECT_EQ(factories, Value(Dictionary{{"03247F2E-55F1-41D0-9F94-2CA3EB8E3A51",
                                           u"MetadataImporterPluginFactory"}}));
    EXPECT_EQ(information["CFPlugInTypes"],
              Value(Dictionary{{"8B08C4BF-415B-11D8-B3F9-0003936726FC",
                                Array{u"03247F2E-55F1-41D0-9F94-2CA3EB8E3A51"}}}));
    EXPECT_EQ(information["CFPlugInDynamicRegistration"], Value(u"NO")) << "text, no boolean";
}

TEST(InfoPlist, TakesTheTypesThatTheTableSays) {
    const Dictionary information = infoPlist("1");
    const Array* const types = information.find("CFBundleDocumentTypes")->array();
    ASSERT_NE(types, nullptr);
    ASSERT_EQ(types->size(), 1u);
    const Dictionary& type = *types->front().dictionary();
    EXPECT_EQ(type["CFBundleTypeRole"], Value(u"MDImporter"));
    std::vector<std::string> want;
    for (const TypeRow& row : platform::kTypeTable) {
        if (row.taken == platform::TakenByImporter::Yes) {
            want.emplace_back(row.identifier);
        }
    }
    EXPECT_EQ(strings(type["LSItemContentTypes"]), want);
    EXPECT_NE(std::find(want.begin(), want.end(), "com.brightmill.parlavox.parlavox"), want.end());
}

TEST(InfoPlist, DeclaresOurTypeWithItsTags) {
    const Dictionary information = infoPlist("1");
    const Dictionary* const own =
        declaration(information, "UTExportedTypeDeclarations", "com.brightmill.parlavox.parlavox");
    ASSERT_NE(own, nullptr);
    EXPECT_EQ((*own)["UTTypeDescription"], Value(u"Parlavox document"));
    EXPECT_EQ((*own)["UTTypeConformsTo"],
              Value(Array{u"public.data", u"public.composite-content"}));
    EXPECT_EQ(
        (*own)["UTTypeTagSp"
               "ecification"],
        Value(Dictionary{{"public.filename-extension", Array{u"parlavox"}},
                         {"public.mime-type", Array{u"application/vnd.brightmill.parlavox+zip"}}}));
}

TEST(InfoPlist, DeclaresTheForeignTypeOnBehalfOfItsOwner) {
    const Dictionary information = infoPlist("1");
    const char* const kForeign = "com.fernleaf.scribo.scribo";
    EXPECT_NE(declaration(information, "UTImportedTypeDeclarations", kForeign), nullptr);
    EXPECT_EQ(declaration(information, "UTExportedTypeDeclarations", kForeign), nullptr);
}

TEST(InfoPlist, ATypeWithoutExtensionsHasNoTags) {
    const Dictionary information = infoPlist("1");
    const Dictionary* const type = declaration(information, "UTExportedTypeDeclarations",
                                               "com.brightmill.parlavox.rtf-no-tags");
    ASSERT_NE(type, nullptr);
    EXPECT_EQ(type->size(), 3u);
    EXPECT_EQ((*type)["UTTypeConformsTo"], Value(Array{u"public.rtf"}));
}

TEST(InfoPlist, DeclaresNoTypeOfThePlatform) {
    const Dictionary information = infoPlist("1");
    EXPECT_EQ(information.find("UTExportedTypeDeclarations")->array()->size(), 3u);
    EXPECT_EQ(information.find("UTImportedTypeDeclarations")->array()->size(), 1u);
}

TEST(InfoPlist, IsWhatABundleMadeByTheBuildReads) {
    const auto bundle = Bundle::bundleWithPath(PV_GENERATED_BUNDLE);
    ASSERT_NE(bundle, nullptr);
    EXPECT_EQ(Value(bundle->infoDictionary()), Value(infoPlist(PV_PROJECT_VERSION)));
    EXPECT_EQ(bundle->bundleIdentifier(), "com.brightmill.parlavox.importer");
}

}  // namespace
}  // namespace packaging
