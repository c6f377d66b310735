// pvdoc save, export and pack: what they write, and what stays when they can't.

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "Sources/Document/Document.h"
#include "Sources/Document/PackageFormat.h"
#include "Tests/Support/BoundedChild.h"
#include "Tests/Support/TemporaryFolder.h"
#include "Tools/pvdoc/ArchiveListing.h"
#include "Tools/pvdoc/Export.h"
#include "Tools/pvdoc/Pack.h"
#include "Tools/pvdoc/Save.h"
#include "Tools/pvdoc/TextOfFile.h"
#include "Tools/pvdoc/Zip.h"
#include "Tools/samples/PackageBuilder.h"
#include "Tools/samples/ZipBuilder.h"

namespace pvdoc {
namespace {

using platform::Data;

std::vector<std::string> membersOf(const std::string& path) {
    std::vector<std::string> names;
    const auto listing = listArchiveFile(path);
    if (listing) {
        for (const ListedMember& member : listing.value().members) {
            names.push_back(member.name);
        }
    }
    return names;
}

PackOptions packing(const std::string& source, const std::string& target,
                    Overwrite overwrite = Overwrite::No) {
    PackOptions options;
    options.source = source;
    options.target = target;
    options.compatibilityVersion = 2;
    options.overwrite = overwrite;
    return options;
}

class PvdocSaving : public ::testing::Test {
protected:
    const test::TemporaryFolder disk;
    const std::string source = disk.write(
        "in.txt", "{{font F 9}}Gr\u00FC\u00DFe{{/font}} {{tag Pause AcmePause}}und{{/tag}}\n");
};

const std::vector<std::string> kSavedMembers{"documentSettings.plist", "contents.plist"};

TEST_F(PvdocSaving, SavesWithoutTheText) {
    for (const char* const name : {"out.parlavox", "out.scribo", "out"}) {
        SCOPED_TRACE(name);
        const auto saved = save({source, disk.path(name), Overwrite::No});
        ASSERT_TRUE(saved) << saved.fault().detail;
        EXPECT_EQ(membersOf(disk.path(name)), kSavedMembers);
        const auto document = parlavox::Document::init();
        EXPECT_TRUE(document->readFromURL(platform::URL::fileURLWithPath(disk.path(name)),
                                          parlavox::kDocumentType, nullptr));
        EXPECT_EQ(document->textStorage()->length(), 0u);
    }
}

TEST_F(PvdocSaving, NeverLosesAText) {
    samples::ZipBuilder hidden;
    hidden.add("contents.plist", "x").central.Signature = 0;
    hidden.add("text.plist", "x").isListed = false;
    const Data good = samples::package(Data::copyOf("text"));
    const std::string bytes(good.view());
    const struct {
        const char* name;
        std::string contents;
        const char* fault;
    } kRows[] = {
        {"a document with a text", bytes,
         "holds a text (text.plist), which saving would lose; not replaced"},
        {"an archive that is cut off", bytes.substr(0, bytes.size() - 1),
         "is an archive that can't be read and may hold a text, which saving would lose; not "
         "replaced"},
        {"a directory that can't be used", std::string(hidden.finish().view()),
         "is an archive that can't be read and may hold a text, which saving would lose; not "
         "replaced"},
    };
    for (const auto& row : kRows) {
        for (const Overwrite overwrite : {Overwrite::No, Overwrite::Yes}) {
            SCOPED_TRACE(row.name);
            const std::string target = disk.write("out.parlavox", row.contents);
            const auto refused = save({source, target, overwrite});
            ASSERT_FALSE(refused);
            EXPECT_EQ(refused.fault().detail, target + ": " + row.fault);
            EXPECT_EQ(disk.read("out.parlavox"), row.contents);
        }
    }
}

TEST_F(PvdocSaving, ReplacesWhatHoldsNoTextWhenTold) {
    samples::ZipBuilder other;
    other.add("contents.plist", "x");
    for (const std::string& old : {std::string("words"), std::string("PK in words"),
                                   std::string(other.finish().view()), std::string()}) {
        const std::string target = disk.write("out.parlavox", old);
        EXPECT_FALSE(save({source, target, Overwrite::No}));
        EXPECT_EQ(disk.read("out.parlavox"), old);
        if (old.starts_with("PK in")) {
            EXPECT_FALSE(save({source, target, Overwrite::Yes})) << "it may be a damaged archive";
            continue;
        }
        const auto saved = save({source, target, Overwrite::Yes});
        ASSERT_TRUE(saved) << saved.fault().detail;
        EXPECT_EQ(membersOf(target), kSavedMembers);
    }
}

TEST_F(PvdocSaving, ExportsTheTextWithoutTags) {
    ASSERT_TRUE(pack(packing(source, disk.path("a.parlavox"))));
    const struct {
        const char* name;
        ExportFormat format;
        std::string begin;
    } kRows[] = {
        {"a.txt", ExportFormat::Text, "Gr\u00FC\u00DFe und\n"},
        {"a.rtf", ExportFormat::Rtf, "{\\rtf1"},
    };
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.name);
        const Conversion conversion{disk.path("a.parlavox"), disk.path(row.name), Overwrite::No};
        const auto exported = exportText(conversion, row.format);
        ASSERT_TRUE(exported) << exported.fault().detail;
        EXPECT_TRUE(disk.read(row.name).starts_with(row.begin)) << disk.read(row.name);
        EXPECT_EQ(disk.read(row.name).find("Pause"), std::string::npos);
        const auto text = textOfFile(disk.path(row.name));
        ASSERT_TRUE(text);
        EXPECT_EQ(text.value().string(), u"Gr\u00FC\u00DFe und\n");
        EXPECT_FALSE(exportText(conversion, row.format)) << "it is there already";
    }
    EXPECT_EQ(disk.read("a.txt"), kRows[0].begin);
}

TEST_F(PvdocSaving, PacksAnyImportedFileAndObeysMarksInPlainTextAlone) {
    ASSERT_TRUE(pack(packing(source, disk.path("first.parlavox"))));
    disk.write("marks.rtf", "{\\rtf1 {\\b bold} \\{\\{underline\\}\\}}");
    disk.write("folder.rtfd/TXT.rtf", "{\\rtf1 in a folder}");
    const struct {
        const char* source;
        std::u16string text;
        std::size_t runs;
    } kRows[] = {
        {"folder.rtfd", u"in a folder", 1},
        {"first.parlavox", u"Gr\u00FC\u00DFe und\n", 4},
        {"marks.rtf", u"bold {{underline}}", 2},
        {"in.txt", u"Gr\u00FC\u00DFe und\n", 4},
    };
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.source);
        const auto packed =
            pack(packing(disk.path(row.source), disk.path("out.parlavox"), Overwrite::Yes));
        ASSERT_TRUE(packed) << packed.fault().detail;
        EXPECT_EQ(membersOf(disk.path("out.parlavox")),
                  (std::vector<std::string>{"contents.plist", "text.plist"}));
        const auto text = textOfFile(disk.path("out.parlavox"));
        ASSERT_TRUE(text);
        EXPECT_EQ(text.value().string(), row.text);
        EXPECT_EQ(text.value().runs().size(), row.runs);
    }
}

TEST_F(PvdocSaving, FollowsALinkToTheFileAndKeepsPermissions) {
    namespace fs = std::filesystem;
    disk.write("real/out.parlavox", "old");
    fs::permissions(disk.path("real/out.parlavox"), fs::perms::owner_read);
    fs::create_symlink("real/out.parlavox", disk.path("out.parlavox"));
    ASSERT_TRUE(pack(packing(source, disk.path("out.parlavox"), Overwrite::Yes)));
    EXPECT_TRUE(fs::is_symlink(disk.path("out.parlavox")));
    EXPECT_EQ(membersOf(disk.path("real/out.parlavox")).size(), 2u);
    EXPECT_EQ(fs::status(disk.path("real/out.parlavox")).permissions(), fs::perms::owner_read);
}

TEST_F(PvdocSaving, NeverReplacesWhatIsNoFile) {
    std::filesystem::create_directory(disk.path("folder"));
    disk.write("folder/a", "contents");
    for (const std::string& target : {disk.path("folder"), std::string("/dev/full")}) {
        const auto refused = pack(packing(source, target, Overwrite::Yes));
        ASSERT_FALSE(refused);
        EXPECT_EQ(refused.fault().detail, target + ": is no regular file and not replaced");
    }
    EXPECT_EQ(disk.read("folder/a"), "contents");
    EXPECT_TRUE(std::filesystem::is_character_file("/dev/full"));
}

/// What each command answers when it has to replace a file.
struct Replacing {
    const char* name;
    platform::Outcome (*run)(const std::string& source, const std::string& target);
};

const Replacing kReplacing[] = {
    {"pack",
     [](const std::string& source, const std::string& target) {
         return pack(packing(source, target, Overwrite::Yes));
     }},
    {"save",
     [](const std::string& source, const std::string& target) {
         return save({source, target, Overwrite::Yes});
     }},
    {"export",
     [](const std::string& source, const std::string& target) {
         return exportText({source, target, Overwrite::Yes}, ExportFormat::Rtf);
     }},
    {"zip",
     [](const std::string& source, const std::string& target) {
         const std::string folder = std::filesystem::path(source).parent_path();
         const auto zipped = zip({folder, target, 6, Overwrite::Yes});
         return zipped ? platform::done() : platform::Outcome(zipped.fault());
     }},
};

constexpr rlim_t kSeconds = 60;
constexpr rlim_t kBytes = rlim_t{4} << 30;

TEST_F(PvdocSaving, LeavesTheOldFileWhenTheDiskFillsAfterAnyNumberOfBytes) {
    const std::string in = disk.write("in/in.txt", disk.read("in.txt"));
    const std::string target = disk.path("out");
    for (const Replacing& command : kReplacing) {
        SCOPED_TRACE(command.name);
        disk.write("out", "old");
        ASSERT_TRUE(command.run(in, target));
        const rlim_t size = std::filesystem::file_size(target);
        disk.write("out", "old");
        const std::string failures = test::resultOfChild(kSeconds, kBytes, [&] {
            std::signal(SIGXFSZ, SIG_IGN);
            std::string result;
            // Any number of bytes; of those that the directory begins with, each.
            for (rlim_t most = 0; most<size - 3; most += size - most> 150 ? 11 : 1) {
                const rlimit limit{most, RLIM_INFINITY};
                setrlimit(RLIMIT_FSIZE, &limit);
                const auto outcome = command.run(in, target);
                if (outcome || !outcome.fault().detail.starts_with(target + ": ") ||
                    outcome.fault().detail.find(".write-") != std::string::npos ||
                    disk.read("out") != "old" || disk.count() != 3) {
                    result += std::to_string(most) + " ";
                }
            }
            return result;
        });
        EXPECT_EQ(failures, "");
        EXPECT_EQ(disk.read("out"), "old");
    }
}

TEST_F(PvdocSaving, LeavesTheOldFileWhereNothingMayBeWritten) {
    namespace fs = std::filesystem;
    const std::string in = disk.write("in/in.txt", disk.read("in.txt"));
    disk.write("closed/out", "old");
    fs::permissions(disk.path(), fs::perms(0755));
    fs::permissions(disk.path("closed"), fs::perms(0555));
    for (const Replacing& command : kReplacing) {
        SCOPED_TRACE(command.name);
        const std::string fault = test::resultOfChild(kSeconds, kBytes, [&] {
            // Nobody, as root may write everywhere.
            constexpr uid_t kNobody = 65534;
            if (geteuid() == 0 && setuid(kNobody) != 0) {
                return std::string("no other user");
            }
            const auto outcome = command.run(in, disk.path("closed/out"));
            return outcome ? std::string("written") : outcome.fault().detail;
        });
        EXPECT_EQ(fault, disk.path("closed/out") + ": Permission denied");
        EXPECT_EQ(disk.read("closed/out"), "old");
    }
    fs::permissions(disk.path("closed"), fs::perms(0755));
}

}  // namespace
}  // namespace pvdoc
