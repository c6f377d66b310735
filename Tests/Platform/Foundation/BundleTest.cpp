#include "Platform/Foundation/Bundle.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <thread>
#include <vector>

#include "Platform/Foundation/Exception.h"
#include "Platform/Foundation/Failure.h"
#include "Platform/Foundation/PropertyListSerialization.h"
#include "Tests/Support/MainBundleTestPeer.h"
#include "Tests/Support/TemporaryFolder.h"

namespace platform {
namespace {

namespace fs = std::filesystem;

/// A folder of its own for each test, with a few words to fill it.
class BundleTest : public testing::Test {
protected:
    void SetUp() override {
        std::string pattern = (fs::temp_directory_path() / "bundle-XXXXXX").string();
        ASSERT_NE(::mkdtemp(pattern.data()), nullptr);
        folder_ = pattern;
    }
    void TearDown() override { fs::remove_all(folder_); }

    void write(const std::string& name, std::string_view content) {
        fs::create_directories((folder_ / name).parent_path());
        std::ofstream(folder_ / name, std::ios::binary) << content;
    }

    void writeInformation(const std::string& name, Dictionary information,
                          PropertyListFormat format = PropertyListFormat::Xml) {
        const Result<Data> bytes =
            PropertyListSerialization::dataWithPropertyList(std::move(information), format);
        ASSERT_TRUE(bytes);
        write(name, bytes.value().view());
    }

    [[nodiscard]] std::string path(const std::string& name) const { return folder_ / name; }

private:
    fs::path folder_;
};

TEST_F(BundleTest, ReadsItsInformationFromContentsFirst) {
    writeInformation("A.mdimporter/Contents/Info.plist",
                     {{"CFBundleIdentifier", u"org.example.a"}});
    writeInformation("A.mdimporter/Info.plist", {{"CFBundleIdentifier", u"org.example.flat"}});
    const auto bundle = Bundle::bundleWithPath(path("A.mdimporter"));
    ASSERT_NE(bundle, nullptr);
    EXPECT_EQ(bundle->bundleIdentifier(), "org.example.a");
    EXPECT_EQ(bundle->bundlePath(), path("A.mdimporter"));
    EXPECT_EQ(bundle->infoDictionary().size(), 1u);
    EXPECT_EQ(bundle->objectForInfoDictionaryKey("CFBundleIdentifier"), Value(u"org.example.a"));
    EXPECT_TRUE(bundle->objectForInfoDictionaryKey("CFBundleName").isNull());
}

TEST_F(BundleTest, ReadsBinaryInformationOfAFlatBundle) {
    writeInformation("flat/Info.plist", {{"CFBundleIdentifier", u"org.example.flat"}},
                     PropertyListFormat::Binary);
    const auto bundle = Bundle::bundleWithPath(path("flat") + "//");
    ASSERT_NE(bundle, nullptr);
    EXPECT_EQ(bundle->bundleIdentifier(), "org.example.flat");
    EXPECT_EQ(bundle->bundlePath(), path("flat"));
}

TEST_F(BundleTest, IsNullWhereThereIsNoFolder) {
    write("file", "text");
    EXPECT_EQ(Bundle::bundleWithPath(path("file")), nullptr);
    EXPECT_EQ(Bundle::bundleWithPath(path("missing")), nullptr);
    EXPECT_EQ(Bundle::bundleWithPath(""), nullptr);
    EXPECT_EQ(Bundle::bundleWithPath(std::string("/tmp\0x", 6)), nullptr);
}

TEST_F(BundleTest, UnreadableInformationIsEmptyAndTheCauseIsNoted) {
    fs::create_directories(path("none"));
    write("damaged/Contents/Info.plist", "<plist><dict><key>a</key>");
    write("array/Contents/Info.plist", "<plist version=\"1.0\"><array/></plist>");
    fs::create_directories(path("pipe"));
    ASSERT_EQ(::mkfifo(path("pipe/Info.plist").c_str(), 0600), 0);
    fs::create_directories(path("folder/Info.plist"));
    write("huge/Info.plist", "");
    fs::resize_file(path("huge/Info.plist"), 17u << 20);
    for (const char* name : {"none", "damaged", "array", "pipe", "folder", "huge"}) {
        SCOPED_TRACE(name);
        clearFailure();
        const auto bundle = Bundle::bundleWithPath(path(name));
        ASSERT_NE(bundle, nullptr);
        EXPECT_EQ(bundle->infoDictionary().size(), 0u);
        EXPECT_EQ(bundle->bundleIdentifier(), std::nullopt);
        ASSERT_NE(lastFailure(), nullptr);
        EXPECT_NE(std::string(lastFailure()).find("Info.plist: "), std::string::npos);
    }
}

TEST_F(BundleTest, AnIdentifierThatIsNoStringIsNone) {
    writeInformation("a/Info.plist", {{"CFBundleIdentifier", 7}});
    EXPECT_EQ(Bundle::bundleWithPath(path("a"))->bundleIdentifier(), std::nullopt);
}

TEST_F(BundleTest, FindsTheExecutableInTheLayoutsOfThePlatform) {
    struct Row {
        const char* name;
        const char* information;
        const char* executableKey;
        std::vector<const char*> files;
        const char* want;
    };
    const Row kRows[] = {
        {"the layout that we ship",
         "Contents/Info.plist",
         "X",
         {"Contents/Linux/X"},
         "Contents/Linux/X"},
        {"a library's name",
         "Contents/Info.plist",
         "X",
         {"Contents/Linux/libX.so"},
         "Contents/Linux/libX.so"},
        {"the plain name goes first",
         "Contents/Info.plist",
         "X",
         {"Contents/Linux/libX.so", "Contents/Linux/X"},
         "Contents/Linux/X"},
        {"a suffix alone is not tried",
         "Contents/Info.plist",
         "X",
         {"Contents/Linux/X.so"},
         nullptr},
        {"the key may have the suffix",
         "Contents/Info.plist",
         "X.so",
         {"Contents/Linux/X.so"},
         "Contents/Linux/X.so"},
        {"another platform's folder", "Contents/Info.plist", "X", {"Contents/MacOS/X"}, nullptr},
        {"beside the information", "Contents/Info.plist", "X", {"Contents/X"}, "Contents/X"},
        {"in the bundle folder", "Contents/Info.plist", "X", {"Contents/a", "libX.so"}, "libX.so"},
        {"Linux goes before Contents",
         "Contents/Info.plist",
         "X",
         {"Contents/X", "Contents/Linux/X"},
         "Contents/Linux/X"},
        {"without the key, the folder's name",
         "Contents/Info.plist",
         nullptr,
         {"Contents/Linux/Name"},
         "Contents/Linux/Name"},
        {"flat", "Info.plist", "X", {"X"}, "X"},
        {"flat, a library's name", "Info.plist", "X", {"libX.so"}, "libX.so"},
        {"flat, in Linux", "Info.plist", "X", {"Linux/X", "X"}, "Linux/X"},
        {"a name that leads out",
         "Contents/Info.plist",
         "../Linux/X",
         {"Contents/Linux/X"},
         nullptr},
        {"an empty name", "Contents/Info.plist", "", {"Contents/Linux/lib.so"}, nullptr},
        {"no file", "Contents/Info.plist", "X", {}, nullptr},
        {"a folder of the name", "Contents/Info.plist", "X", {"Contents/Linux/X/file"}, nullptr},
    };
    int number = 0;
    for (const Row& row : kRows) {
        SCOPED_TRACE(row.name);
        const std::string folder = std::to_string(number++) + "/Name.mdimporter";
        Dictionary information;
        if (row.executableKey != nullptr) {
            information.set("CFBundleExecutable", Value::fromUtf8(row.executableKey));
        }
        writeInformation(folder + "/" + row.information, information);
        for (const char* file : row.files) {
            write(folder + "/" + file, "code");
        }
        const auto found = Bundle::bundleWithPath(path(folder))->executablePath();
        EXPECT_EQ(found.value_or("none"),
                  row.want == nullptr ? "none" : path(folder + "/" + row.want));
    }
}

TEST_F(BundleTest, AnExecutableMayBeALink) {
    writeInformation("a/Contents/Info.plist", {{"CFBundleExecutable", u"X"}});
    write("a/Contents/MacOS/X", "code");
    fs::create_directories(path("a/Contents/Linux"));
    fs::create_symlink("../MacOS/X", path("a/Contents/Linux/X"));
    EXPECT_EQ(Bundle::bundleWithPath(path("a"))->executablePath(), path("a/Contents/Linux/X"));
}

TEST(MainBundle, HasNoNameUntilTheProgramGivesOne) {
    const MainBundleTestPeer unnamed;
    EXPECT_EQ(Bundle::mainBundle()->bundleIdentifier(), std::nullopt);
    EXPECT_TRUE(
        Bundle::mainBundle()->objectForInfoDictionaryKey("CFBundleShortVersionString").isNull());
    EXPECT_EQ(Bundle::mainBundle()->executablePath(), std::nullopt);
    Bundle::setMainBundle("org.example.program", "1.2");
    EXPECT_EQ(Bundle::mainBundle()->bundleIdentifier(), "org.example.program");
    EXPECT_EQ(Bundle::mainBundle()->objectForInfoDictionaryKey("CFBundleShortVersionString"),
              Value(u"1.2"));
    EXPECT_EQ(Bundle::mainBundle(), Bundle::mainBundle());
}

TEST(Bundle, HasStringsInTheUsersLanguage) {
    const test::TemporaryFolder folder;
    folder.write("a.app/Contents/Resources/en.lproj/Localizable.strings",
                 "\"Move\" = \"Move it\"; Only = \"English\";");
    folder.write("a.app/Contents/Resources/de.lproj/Localizable.strings", "Move = Bewegen;");
    folder.write("a.app/Contents/Resources/Other.strings", "Move = Other;");
    const auto bundle = Bundle::bundleWithPath(folder.path("a.app"));
    const struct {
        const char* language;
        const char* key;
        const char* value;
        const char* table;
        const char* found;
    } kRows[] = {
        {"de_AT.UTF-8", "Move", "", "", "Bewegen"}, {"de", "Move", "", "Localizable", "Bewegen"},
        {"de_AT.UTF-8", "Only", "", "", "English"}, {"fr_FR@euro", "Move", "", "", "Move it"},
        {"C", "Move", "", "", "Move it"},           {"de", "Move", "", "Other", "Other"},
        {"de", "None", "value", "", "value"},       {"de", "None", "", "", "None"},
        {"de", "Move", "", "../Other", "Move"},     {"../../x", "Move", "", "", "Move it"},
    };
    const char* const before = std::getenv("LC_ALL");
    const std::string kept = before != nullptr ? before : "";
    for (const auto& row : kRows) {
        ::setenv("LC_ALL", row.language, 1);
        EXPECT_EQ(bundle->localizedStringForKey(row.key, row.value, row.table), row.found);
    }
    before != nullptr ? ::setenv("LC_ALL", kept.c_str(), 1) : ::unsetenv("LC_ALL");
    EXPECT_EQ(Bundle::mainBundle()->localizedStringForKey("Move", "", ""), "Move");
}

TEST(MainBundle, IsNamedOnce) {
    const MainBundleTestPeer unnamed;
    Bundle::setMainBundle("org.example.first", "1");
    EXPECT_THROW(Bundle::setMainBundle("org.example.second", "2"), AssertionFailure);
    EXPECT_EQ(Bundle::mainBundle()->bundleIdentifier(), "org.example.first");
}

TEST(MainBundle, IsSeenWholeByOtherThreads) {
    const MainBundleTestPeer unnamed;
    std::vector<std::thread> readers;
    for (int i = 0; i < 4; ++i) {
        readers.emplace_back([] {
            for (;;) {
                const auto bundle = Bundle::mainBundle();
                if (bundle->bundleIdentifier()) {
                    EXPECT_EQ(bundle->infoDictionary().size(), 2u);
                    return;
                }
            }
        });
    }
    Bundle::setMainBundle("org.example.program", "1");
    for (std::thread& reader : readers) {
        reader.join();
    }
}

}  // namespace
}  // namespace platform
