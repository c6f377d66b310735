#include "Host/ImporterInformation.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "Host/CoreFoundationOwner.h"
#include "Tests/Support/TemporaryFolder.h"

namespace host {
namespace {

using Names = std::vector<std::string>;

ImporterTypes typesOf(const std::string& entries) {
    const test::TemporaryFolder folder;
    folder.write("A.mdimporter/Contents/Info.plist",
                 "<plist version=\"1.0\"><dict>" + entries + "</dict></plist>");
    const std::string path = folder.path("A.mdimporter");
    const Owner<CFURLRef> url(CFURLCreateFromFileSystemRepresentation(
        kCFAllocatorDefault, reinterpret_cast<const UInt8*>(path.data()),
        static_cast<CFIndex>(path.size()), true));
    const Owner<CFBundleRef> bundle(CFBundleCreate(kCFAllocatorDefault, url.get()));
    return importerTypesOf(CFBundleGetInfoDictionary(bundle.get()));
}

TEST(ImporterInformation, TakesTheTypesOfTheImportersRole) {
    const ImporterTypes types = typesOf(
        "<key>CFBundleDocumentTypes</key><array>"
        "<dict><key>CFBundleTypeRole</key><string>MDImporter</string>"
        "<key>LSItemContentTypes</key><array><string>a</string><string>b</string></array></dict>"
        "<dict><key>CFBundleTypeRole</key><string>Editor</string>"
        "<key>LSItemContentTypes</key><array><string>c</string></array></dict>"
        "<dict><key>CFBundleTypeRole</key><string>MDImporter</string>"
        "<key>LSItemContentTypes</key><string>d</string></dict></array>");
    EXPECT_EQ(types.taken(), (Names{"a", "b", "d"}));
}

TEST(ImporterInformation, ReadsDeclarationsOfBothKinds) {
    const ImporterTypes types = typesOf(
        "<key>UTExportedTypeDeclarations</key><array><dict>"
        "<key>UTTypeIdentifier</key><string>a</string>"
        "<key>UTTypeDescription</key><string>An a</string>"
        "<key>UTTypeConformsTo</key><string>public.data</string>"
        "<key>UTTypeTagSp"
        "ecification</key><dict>"
        "<key>public.filename-extension</key><array><string>x</string><string>y</string></array>"
        "<key>public.mime-type</key><string>text/a</string></dict></dict></array>"
        "<key>UTImportedTypeDeclarations</key><array>"
        "<dict><key>UTTypeIdentifier</key><string>b</string></dict></array>");
    const DeclaredType a = types.describe("a");
    EXPECT_EQ(a.description, "An a");
    EXPECT_EQ(a.conformsTo, Names{"public.data"});
    EXPECT_EQ(a.extensions, (Names{"x", "y"}));
    EXPECT_EQ(a.mimeTypes, Names{"text/a"});
    EXPECT_EQ(types.describe("B").identifier, "b");
}

TEST(ImporterInformation, EntriesOfAWrongKindAreMissing) {
    const char* const kRows[] = {
        "",
        "<key>CFBundleDocumentTypes</key><string>a</string>",
        "<key>CFBundleDocumentTypes</key><array><integer>1</integer><array/></array>",
        "<key>CFBundleDocumentTypes</key><array><dict><key>CFBundleTypeRole</key><true/>"
        "<key>LSItemContentTypes</key><string>a</string></dict></array>",
        "<key>CFBundleDocumentTypes</key><array><dict>"
        "<key>CFBundleTypeRole</key><string>MDImporter</string>"
        "<key>LSItemContentTypes</key><array><integer>1</integer><string></string></array>"
        "</dict></array>",
        "<key>UTExportedTypeDeclarations</key><array><string>a</string>"
        "<dict><key>UTTypeTagSp"
        "ecification</key><string>a</string></dict></array>",
    };
    for (const char* row : kRows) {
        SCOPED_TRACE(row);
        EXPECT_EQ(typesOf(row).taken(), Names{});
        EXPECT_EQ(typesOf(row).typesForExtension("a"), Names{});
    }
}

}  // namespace
}  // namespace host
