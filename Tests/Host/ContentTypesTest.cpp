#include "Host/ContentTypes.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <string>

#include "Tests/Support/TemporaryFolder.h"

namespace host {
namespace {

struct ExtensionRow {
    const char* path;
    const char* want;
};

constexpr ExtensionRow kExtensionRows[] = {
    {"a.txt", "txt"}, {"/b.c/a.TXT", "TXT"}, {"a.tar.gz", "gz"},   {"a", ""},
    {"b.c/a", ""},    {".hidden", ""},       {"a.", ""},           {"", ""},
    {"/", ""},        {"a.rtfd//", "rtfd"},  {"b/.hidden.x", "x"}, {"..", ""},
};

TEST(ContentTypes, AnExtensionBelongsToTheLastName) {
    for (const ExtensionRow& row : kExtensionRows) {
        SCOPED_TRACE(row.path);
        EXPECT_EQ(extensionOf(row.path), row.want);
    }
}

const ImporterTypes& testTypes() {
    static const ImporterTypes types({"org.example.second", "public.plain-text"},
                                     {{"org.example.first", {"public.data"}, {"two"}, {}, {}},
                                      {"org.example.second", {"public.data"}, {"two"}, {}, {}}});
    return types;
}

std::string typeOf(const std::string& path) {
    const platform::Result<InputFile> file = InputFile::open(path);
    return file ? contentTypeOf(file.value(), testTypes()) : "not opened";
}

TEST(ContentTypes, TheNameGoesBeforeTheBytes) {
    const test::TemporaryFolder folder;
    struct Row {
        const char* name;
        const char* content;
        const char* want;
    };
    constexpr Row kRows[] = {
        {"a.TXT", "%PDF-1.4", "public.plain-text"},
        {"a.pdf", "plain", "com.adobe.pdf"},
        {"a.unknown", "%PDF-1.4", "com.adobe.pdf"},
        {"README", "plain", "public.plain-text"},
        {"a.two", "of two types, the taken one", "org.example.second"},
        {"blob", "\x01", "public.data"},
    };
    for (const Row& row : kRows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(typeOf(folder.write(row.name, row.content)), row.want);
    }
}

TEST(ContentTypes, AFolderIsWhatItsNameSays) {
    const test::TemporaryFolder folder;
    std::filesystem::create_directories(folder.path("a.rtfd"));
    std::filesystem::create_directories(folder.path("plain"));
    EXPECT_EQ(typeOf(folder.path("a.rtfd") + "/"), "com.apple.rtfd");
    EXPECT_EQ(typeOf(folder.path("plain")), "public.folder");
}

TEST(ContentTypes, TheEndOfALongArchiveCounts) {
    const test::TemporaryFolder folder;
    std::string archive("PK\3\4", 4);
    archive.resize(std::size_t{200} * 1024, 'x');
    std::string header("PK\1\2", 4);
    header.resize(46, '\0');
    header[28] = 14;
    archive += header + "contents.plist";
    EXPECT_EQ(typeOf(folder.write("archive", archive)), "com.brightmill.parlavox.parlavox");
}

TEST(InputFile, OpensNothingThatCouldWaitOrAct) {
    const test::TemporaryFolder folder;
    ASSERT_EQ(::mkfifo(folder.path("pipe").c_str(), 0600), 0);
    for (const std::string& path : {folder.path("pipe"), std::string("/dev/null")}) {
        const platform::Result<InputFile> file = InputFile::open(path);
        ASSERT_FALSE(file);
        EXPECT_EQ(file.fault().detail, "not a regular file");
    }
    const platform::Result<InputFile> missing = InputFile::open(folder.path("missing"));
    ASSERT_FALSE(missing);
    EXPECT_EQ(missing.fault().detail, "No such file or directory");
}

TEST(InputFile, HasAPathOfTextWhateverItsName) {
    const test::TemporaryFolder folder;
    std::filesystem::current_path(folder.path());
    struct Row {
        const char* path;
        const char* want;  // the path's beginning
    };
    constexpr Row kRows[] = {
        {"\u00E4.txt", "\u00E4.txt"},
        {"\xE4.txt", "/proc/self/fd/"},
        {"\xE4/a.txt", "/proc/self/fd/"},
        // The mark would not come through at the beginning of a path.
        {"\xEF\xBB\xBFmark.txt", "/proc/self/fd/"},
    };
    for (const Row& row : kRows) {
        SCOPED_TRACE(row.path);
        folder.write(row.path, row.path);
        const platform::Result<InputFile> file = InputFile::open(row.path);
        ASSERT_TRUE(file);
        const std::string path = file.value().pathAsText();
        EXPECT_TRUE(path.starts_with(row.want)) << path;
        EXPECT_EQ(InputFile::open(path).value().firstBytes(100), row.path);
    }
    std::filesystem::current_path("/");
}

}  // namespace
}  // namespace host
