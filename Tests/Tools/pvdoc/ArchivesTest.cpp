// pvdoc zip and pvdoc unzip: folders that become archives, and archives that become folders.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <random>
#include <string>
#include <vector>

#include "Tests/Support/DiskTree.h"
#include "Tests/Support/TemporaryFolder.h"
#include "Tools/pvdoc/ArchiveListing.h"
#include "Tools/pvdoc/ArchiveWriting.h"
#include "Tools/pvdoc/Unzip.h"
#include "Tools/pvdoc/Zip.h"
#include "Tools/samples/ZipBuilder.h"

namespace pvdoc {
namespace {

using platform::Data;
using Tree = std::map<std::string, std::string>;

platform::Outcome unzipped(const std::string& archive, const std::string& folder,
                           Overwrite overwrite = Overwrite::No) {
    return unzip({archive, folder, overwrite});
}

bool isAscii(const std::string& text) {
    return std::all_of(text.begin(), text.end(),
                       [](char letter) { return static_cast<unsigned char>(letter) < 0x80; });
}

/// Without empty files, which the format doesn't list.
Tree listed(Tree tree) {
    std::erase_if(
        tree, [](const auto& item) { return item.second.empty() && !item.first.ends_with('/'); });
    return tree;
}

/// Without names beyond ASCII, which are not flagged as UTF-8, so that others take them for names
/// in another code page.
Tree withPlainNames(Tree tree) {
    std::erase_if(tree, [](const auto& item) { return !isAscii(item.first); });
    return tree;
}

class PvdocArchives : public ::testing::Test {
protected:
    /// Writes a folder of small and larger files, some in folders, some that don't deflate.
    void writeTree(int count) const {
        std::mt19937 random(1);
        disk.write("in/empty", "");
        disk.write("in/\u00E4\u706F.txt", "a name beyond ASCII");
        disk.write("in/sub/.hidden", std::string(70'000, 'h'));
        std::filesystem::create_directories(disk.path("in/sub/nothing/below"));
        for (int i = 0; i < count; ++i) {
            std::string contents(random() % 300 + 1, '\0');
            std::generate(contents.begin(), contents.end(), [&, i] {
                return static_cast<char>(i % 2 == 0 ? random() : 'a' + random() % 3);
            });
            disk.write("in/d" + std::to_string(i % 10) + "/f" + std::to_string(i), contents);
        }
    }

    void zipAt(std::uint32_t level) const {
        const auto emptyFiles = zip({disk.path("in"), disk.path("a.zip"), level, Overwrite::Yes});
        ASSERT_TRUE(emptyFiles) << emptyFiles.fault().detail;
        EXPECT_EQ(emptyFiles.value(), std::vector{disk.path("in/empty")});
    }

    const test::TemporaryFolder disk;
};

TEST_F(PvdocArchives, ComeBackAtEveryLevel) {
    writeTree(100);
    for (std::uint32_t level = 0; level <= kHighestLevel; ++level) {
        SCOPED_TRACE(level);
        zipAt(level);
        const std::string folder = disk.path("out" + std::to_string(level));
        const auto out = unzipped(disk.path("a.zip"), folder);
        ASSERT_TRUE(out) << out.fault().detail;
        EXPECT_EQ(test::treeOf(folder), listed(test::treeOf(disk.path("in"))));
    }
}

TEST_F(PvdocArchives, OfLargeFilesComeBack) {
    disk.write("in/large", std::string(std::size_t{11} * 1024 * 1024, 'l') + "end");
    disk.write("in/empty", "");
    for (const std::uint32_t level : {0U, 1U}) {
        SCOPED_TRACE(level);
        zipAt(level);
        const std::string folder = disk.path("out" + std::to_string(level));
        ASSERT_TRUE(unzipped(disk.path("a.zip"), folder));
        EXPECT_TRUE(test::treeOf(folder) == listed(test::treeOf(disk.path("in"))));
    }
}

TEST_F(PvdocArchives, AreReadEquallyByOthers) {
    writeTree(300);
    const Tree wanted = listed(test::treeOf(disk.path("in")));
    const struct {
        const char* name;
        const char* command;
    } kRows[] = {
        {"unzip", "unzip -q ../a.zip"},
        {"bsdtar", "bsdtar -xf ../a.zip"},
        {"python", "python3 -m zipfile -e ../a.zip ."},
    };
    zipAt(kUsualLevel);
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.name);
        const std::string folder = disk.path(row.name);
        std::filesystem::create_directory(folder);
        const std::string command = "cd '" + folder + "' && " + row.command;
        ASSERT_EQ(std::system(command.c_str()), 0);  // NOLINT(concurrency-mt-unsafe)
        const Tree found = test::treeOf(folder);
        EXPECT_EQ(withPlainNames(found), withPlainNames(wanted));
        EXPECT_EQ(found.size(), wanted.size()) << "the odd name comes under another";
    }
}

/// What a command prints.
std::string outputOf(const std::string& command) {
    std::FILE* const pipe = ::popen(command.c_str(), "r");
    std::string output;
    std::array<char, 65536> part;
    while (const std::size_t count = std::fread(part.data(), 1, part.size(), pipe)) {
        output.append(part.data(), count);
    }
    return ::pclose(pipe) == 0 ? output : "failed: " + output;
}

TEST_F(PvdocArchives, OfTenThousandFilesAreReadByOthersInTheirOrder) {
    std::vector<platform::FileWrapperEntry> children;
    std::string wanted;
    for (int i = 0; i < 10'000; ++i) {
        const std::string contents(static_cast<std::size_t>(i % 97 + 1),
                                   static_cast<char>('a' + i % 26));
        children.push_back(
            {"f" + std::to_string(i),
             platform::FileWrapper::initRegularFileWithContents(Data::copyOf(contents))});
        wanted += contents;
    }
    ASSERT_TRUE(
        writeArchive(disk.path("a.zip"), children, [](const TreeMember&) { return kUsualLevel; }));
    for (const char* const command : {"unzip -p ", "bsdtar -xOf "}) {
        SCOPED_TRACE(command);
        EXPECT_TRUE(outputOf(command + disk.path("a.zip")) == wanted);
    }
}

TEST_F(PvdocArchives, ListFilesByNameWithTheirMethod) {
    disk.write("in/b", std::string(1000, 'b'));
    disk.write("in/a/z", "z");
    disk.write("in/empty", "");
    zipAt(9);
    const auto listing = listArchiveFile(disk.path("a.zip"));
    ASSERT_TRUE(listing);
    std::vector<std::string> names;
    for (const ListedMember& member : listing.value().members) {
        names.push_back(member.name + ' ' + methodName(member.method));
    }
    EXPECT_EQ(names, (std::vector<std::string>{"a/ stored", "a/z stored", "b deflated"}));
}

TEST_F(PvdocArchives, DontHoldTheArchiveThatIsReplaced) {
    disk.write("in/a", "contents");
    const std::string archive = disk.write("in/old.zip", "old");
    ASSERT_TRUE(zip({disk.path("in"), archive, 0, Overwrite::Yes}));
    const auto listing = listArchiveFile(archive);
    ASSERT_TRUE(listing);
    ASSERT_EQ(listing.value().members.size(), 1u);
    EXPECT_EQ(listing.value().members[0].name, "a");
}

TEST_F(PvdocArchives, RefuseWhatTheyCannotHold) {
    namespace fs = std::filesystem;
    std::string deep = "deep";
    for (int i = 0; i < 140; ++i) {
        deep += "/d";
    }
    disk.write("link/a", "");
    fs::create_symlink("a", disk.path("link/to"));
    disk.write("odd/\xFF", "");
    disk.write("slash/a\\", "");
    fs::create_directories(disk.path(deep));
    disk.write("there", "");
    const struct {
        const char* folder;
        std::string fault;
    } kRows[] = {
        {"link", "link/to: neither file nor folder"},
        {"odd", "odd/\xFF: a name that is no UTF-8"},
        {"slash", "slash/a\\: a name that readers take for a folder's"},
        {"none", "none: No such file or directory"},
        {"there", "there: Not a directory"},
    };
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.folder);
        const auto refused = zip({disk.path(row.folder), disk.path("a.zip"), 0, Overwrite::No});
        ASSERT_FALSE(refused);
        EXPECT_EQ(refused.fault().detail, disk.path(row.fault));
    }
    const auto tooDeep = zip({disk.path("deep"), disk.path("a.zip"), 0, Overwrite::No});
    ASSERT_FALSE(tooDeep);
    EXPECT_TRUE(tooDeep.fault().detail.ends_with(": folders are nested too deep"));
    EXPECT_FALSE(fs::exists(disk.path("a.zip")));
}

TEST_F(PvdocArchives, AreNotTakenWhenTheyAreDangerousOrDamaged) {
    const auto archiveOf = [](const std::vector<std::string>& names) {
        samples::ZipBuilder zip;
        for (const std::string& name : names) {
            zip.add(name, "contents");
        }
        return zip;
    };
    samples::ZipBuilder method = archiveOf({"good"});
    method.add("a", "contents").central.CompressionMethod = 12;
    samples::ZipBuilder encrypted = archiveOf({"good"});
    encrypted.add("a", "contents").central.GeneralBitFlag = 1;
    samples::ZipBuilder checksum = archiveOf({"good"});
    checksum.add("a", "contents").central.DataDescriptor.CRC32 += 1;
    samples::ZipBuilder empty = archiveOf({"good"});
    empty.add("a", "");
    samples::ZipBuilder fileAsFolder = archiveOf({"good", "a", "a/b"});
    const Data good = archiveOf({"good"}).finish();
    const struct {
        const char* name;
        Data archive;
        std::string fault;
    } kRows[] = {
        {"a way up", archiveOf({"good", "../a"}).finish(),
         "../a: a name that leaves the folder; nothing unpacked"},
        {"a way up in the middle", archiveOf({"good", "b/../../a"}).finish(),
         "b/../../a: a name that leaves the folder; nothing unpacked"},
        {"a way up as a folder", archiveOf({"good", "b/../"}).finish(),
         "b/../: a name that leaves the folder; nothing unpacked"},
        {"from the root", archiveOf({"good", "/a"}).finish(),
         "/a: a name that leaves the folder; nothing unpacked"},
        {"twice", archiveOf({"good", "a", "a"}).finish(), "a: a name that occurs twice"},
        {"another method", method.finish(), "a: is neither stored nor deflated"},
        {"encrypted", encrypted.finish(), "a: is neither stored nor deflated"},
        {"an empty file that is listed", empty.finish(),
         "a: an empty file, which archives of this form don't list"},
        {"a wrong checksum", checksum.finish(),
         "a: is damaged: the contents are not what is listed"},
        {"cut off", good.subdataWithRange({0, good.size() - 1}),
         "no end record in its last 22 bytes"},
        {"something behind the directory",
         archiveOf({"good"}).finish([](auto& end) { end.DirectorySize -= 1; }), "is damaged: "},
        {"no archive", Data::copyOf("text"), "shorter than an end record"},
    };
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.name);
        const std::string archive = disk.write("a.zip", row.archive.view());
        const auto refused = unzipped(archive, disk.path("out"));
        ASSERT_FALSE(refused);
        EXPECT_TRUE(refused.fault().detail.starts_with(archive + ": " + row.fault))
            << refused.fault().detail;
        EXPECT_EQ(disk.names(), std::vector<std::string>{"a.zip"}) << "nothing is left";
    }
    const std::string archive = disk.write("a.zip", fileAsFolder.finish().view());
    EXPECT_FALSE(unzipped(archive, disk.path("out")));
    EXPECT_EQ(disk.count(), 1);
}

TEST_F(PvdocArchives, GoIntoAFolderThatIsThereOnlyWhenTold) {
    namespace fs = std::filesystem;
    disk.write("in/a", "new");
    disk.write("in/sub/b", "new");
    ASSERT_TRUE(zip({disk.path("in"), disk.path("a.zip"), 0, Overwrite::No}));
    fs::create_directory(disk.path("empty"));
    ASSERT_TRUE(unzipped(disk.path("a.zip"), disk.path("empty")));
    EXPECT_EQ(test::treeOf(disk.path("empty")), test::treeOf(disk.path("in")));

    disk.write("out/a", "old");
    disk.write("out/sub/c", "old");
    const auto refused = unzipped(disk.path("a.zip"), disk.path("out"));
    ASSERT_FALSE(refused);
    EXPECT_EQ(refused.fault().detail,
              disk.path("out") + ": is not empty; --force puts files between those that are there");
    EXPECT_EQ(disk.read("out/a"), "old");
    ASSERT_TRUE(unzipped(disk.path("a.zip"), disk.path("out"), Overwrite::Yes));
    EXPECT_EQ(test::treeOf(disk.path("out")),
              (Tree{{"a", "new"}, {"sub/", ""}, {"sub/b", "new"}, {"sub/c", "old"}}));

    disk.write("file", "");
    const auto noFolder = unzipped(disk.path("a.zip"), disk.path("file"), Overwrite::Yes);
    ASSERT_FALSE(noFolder);
    EXPECT_EQ(noFolder.fault().detail, disk.path("file") + ": is there already and no folder");
}

TEST_F(PvdocArchives, NeverFollowLinksOutOfTheFolderOrTakeAFoldersPlace) {
    namespace fs = std::filesystem;
    disk.write("in/a", "new");
    disk.write("in/sub/b", "new");
    ASSERT_TRUE(zip({disk.path("in"), disk.path("a.zip"), 0, Overwrite::No}));
    fs::create_directories(disk.path("elsewhere"));
    fs::create_directories(disk.path("linked"));
    fs::create_symlink("../elsewhere", disk.path("linked/sub"));
    fs::create_directories(disk.path("taken/a"));
    for (const auto& [folder, item] : {std::pair{"linked", "sub"}, {"taken", "a"}}) {
        SCOPED_TRACE(folder);
        const Tree before = test::treeOf(disk.path(folder));
        const auto refused = unzipped(disk.path("a.zip"), disk.path(folder), Overwrite::Yes);
        ASSERT_FALSE(refused);
        EXPECT_EQ(refused.fault().detail, disk.path(folder) + "/" + item +
                                              ": is in the way; nothing takes a folder's place");
        EXPECT_EQ(test::treeOf(disk.path(folder)), before);
    }
    EXPECT_TRUE(fs::is_empty(disk.path("elsewhere")));
}

/// A file whose contents differ each time they are asked for.
class Fickle final : public platform::FileWrapper {
public:
    static std::shared_ptr<Fickle> init() {
        auto file = std::make_shared<Fickle>(Creation());
        file->initRegular();
        return file;
    }
    explicit Fickle(Creation key) : FileWrapper(key) {}
    std::optional<Data> regularFileContents() const override {
        return Data::copyOf("contents " + std::to_string(count_++));
    }

private:
    mutable int count_ = 0;
};

TEST_F(PvdocArchives, ThatDifferFromWhatWasToBeWrittenTakeNoPlace) {
    const std::string target = disk.write("a.zip", "old");
    const auto refused =
        writeArchive(target, {{"a", Fickle::init()}}, [](const TreeMember&) { return 0; });
    ASSERT_FALSE(refused);
    EXPECT_EQ(refused.fault().detail, target + ": read back, the archive differs: a");
    EXPECT_EQ(disk.read("a.zip"), "old");
    EXPECT_EQ(disk.count(), 1);
}

TEST_F(PvdocArchives, ListNoMoreMembersThanTheirDirectoryCanCount) {
    const auto file = platform::FileWrapper::initRegularFileWithContents(Data::copyOf("x"));
    const auto written = [&](int count) {
        std::vector<platform::FileWrapperEntry> children;
        for (int i = 0; i < count; ++i) {
            children.push_back(
                {std::to_string(i),
                 platform::FileWrapper::initRegularFileWithContents(Data::copyOf("x"))});
        }
        return writeArchive(disk.path("a.zip"), children, [](const TreeMember&) { return 0; });
    };
    EXPECT_TRUE(written(65'535));
    const auto refused = written(65'536);
    ASSERT_FALSE(refused);
    EXPECT_EQ(refused.fault().detail,
              disk.path("a.zip") + ": 65536 members, and an archive lists 65535 at most");
}

}  // namespace
}  // namespace pvdoc
