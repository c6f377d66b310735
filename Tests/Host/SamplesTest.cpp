// The program over real archives and over the sample documents.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "Tests/Host/Program.h"
#include "Tests/Support/TestData.h"
#include "Tools/samples/PackageBuilder.h"

namespace host {
namespace {

std::string contentsOf(const std::filesystem::path& path) {
    std::ifstream stream(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

TEST(Samples, PackagesOfRealArchivesPrintExactlyTheirText) {
    const test::TemporaryFolder folder;
    int count = 0;
    for (const auto& archive :
         std::filesystem::directory_iterator(test::dataPath("keyed-archives"))) {
        auto expected = archive.path();
        expected.replace_extension(".expected.txt");
        if (archive.path().extension() != ".archive" || !std::filesystem::exists(expected)) {
            continue;
        }
        SCOPED_TRACE(archive.path());
        const platform::Data text = platform::Data::adopt(contentsOf(archive.path()));
        for (const auto packing : {samples::Packing::Stored, samples::Packing::Deflated}) {
            const std::string package =
                folder.write("a.parlavox", std::string(samples::package(text, 2, packing).view()));
            const ProgramRun run = Program::run({"text", package});
            EXPECT_EQ(run.status, 0);
            EXPECT_EQ(run.output, contentsOf(expected));
            EXPECT_EQ(run.error, "");
        }
        ++count;
    }
    EXPECT_EQ(count, 4);
}

TEST(Samples, ArchivesOfOtherThingsAreRefusedByName) {
    const test::TemporaryFolder folder;
    struct Row {
        const char* archive;
        const char* cause;
    };
    constexpr Row kRows[] = {
        {"font.archive", "root object of class NSFont, which is no text"},
        {"colour-device-rgb.archive", "root object of class NSColor, which is no text"},
        {"array-shared-refs-xml.plist", "root object that is no text"},
        {"toplevel-other-key.plist", "root object of class NSMutableIndexSet, which is no text"},
    };
    for (const Row& row : kRows) {
        SCOPED_TRACE(row.archive);
        const platform::Data archive = platform::Data::adopt(
            contentsOf(test::dataPath(std::string("keyed-archives/") + row.archive)));
        const std::string package =
            folder.write("a.parlavox", std::string(samples::package(archive).view()));
        const ProgramRun run = Program::run({"text", package});
        EXPECT_EQ(run.status, 1);
        EXPECT_EQ(run.output, "");
        EXPECT_EQ(run.error, "pvindex: " + package + ": text.plist: " + row.cause + "\n");
    }
}

TEST(Samples, AllSamplesButTheNewerOneAreRead) {
    std::vector<std::string> arguments{"text"};
    for (const auto& sample : std::filesystem::directory_iterator(PV_SAMPLES)) {
        arguments.push_back(sample.path());
    }
    ASSERT_EQ(arguments.size(), 8u);
    const ProgramRun run = Program::run(arguments);
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.error, std::string("pvindex: ") + PV_SAMPLES +
                             "/needs-a-newer-reader.parlavox: needs a newer reader "
                             "(compatibility version 3)\n");
    for (const char* words : {"two hundred steps", "Der Leuchtturmw\u00E4rter", "\u706F\u53F0",
                              "\u039F \u03C6\u03AC\u03C1\u03BF\u03C2", "another name",
                              "eleven mebibytes stands here: . It"}) {
        EXPECT_NE(run.output.find(words), std::string::npos) << words;
    }
    EXPECT_TRUE(run.leftBehind.empty()) << "the large picture was spooled";
}

}  // namespace
}  // namespace host
