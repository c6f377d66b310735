// The program over the importer that it belongs to.

#include <fcntl.h>
#include <gtest/gtest.h>
#include <pty.h>
#include <signal.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstring>
#include <filesystem>
#include <string>
#include <thread>

#include "Platform/Foundation/FileDescriptor.h"
#include "Tests/Host/Program.h"
#include "Tools/samples/ArchiveBuilder.h"
#include "Tools/samples/PackageBuilder.h"

namespace host {
namespace {

using platform::FileDescriptor;

/// Files to read, and the program's answers.
class ProgramTest : public testing::Test {
protected:
    void TearDown() override { std::filesystem::current_path("/"); }

    test::TemporaryFolder folder;
};

void expectRun(const ProgramRun& run, int status, const std::string& output,
               const std::string& error) {
    EXPECT_EQ(run.status, status);
    EXPECT_EQ(run.output, output);
    EXPECT_EQ(run.error, error);
    EXPECT_TRUE(run.leftBehind.empty());
    EXPECT_EQ(run.childrenLeft, 0);
}

TEST_F(ProgramTest, PrintsTheTextOfOneFileAndNothingElse) {
    expectRun(Program::run({"text", folder.write("a.txt", "One\ntwo")}), 0, "One\ntwo", "");
    expectRun(Program::run({"text", folder.write("b.txt", "")}), 0, "", "");
}

TEST_F(ProgramTest, PrintsHeadersBeforeTheTextsOfSeveralFiles) {
    folder.write("a", "One");
    folder.write("b", "Two\n");
    folder.write("c", "");
    std::filesystem::current_path(folder.path());
    expectRun(Program::run({"text", "a", "b", "c", "missing", "a"}), 1,
              "==> a <==\nOne\n\n==> b <==\nTwo\n\n==> c <==\n\n==> a <==\nOne",
              "pvindex: missing: No such file or directory\n");
}

TEST_F(ProgramTest, GoesOnAfterWhatIsNotToBeRead) {
    folder.write("a.txt", "One\n");
    folder.write("b.xml", "none");
    ASSERT_EQ(::mkfifo(folder.path("pipe").c_str(), 0600), 0);
    std::filesystem::create_directory(folder.path("folder"));
    std::filesystem::current_path(folder.path());
    expectRun(Program::run({"text", "pipe", "/dev/zero", "folder", "b.xml", "a.txt"}), 1,
              "==> a.txt <==\nOne\n",
              "pvindex: pipe: not a regular file\n"
              "pvindex: /dev/zero: not a regular file\n"
              "pvindex: folder: no importer takes public.folder (--type names another type)\n"
              "pvindex: b.xml: no importer takes public.xml (--type names another type)\n");
}

TEST_F(ProgramTest, FilesThatCannotBeReadAreNamedWithTheSystemsText) {
    const std::string path = folder.write("a.txt", "One\n");
    ::chmod(path.c_str(), 0);
    if (::access(path.c_str(), R_OK) == 0) {
        GTEST_SKIP() << "this user may read everything";
    }
    expectRun(Program::run({"text", path}), 1, "", "pvindex: " + path + ": Permission denied\n");
}

TEST_F(ProgramTest, NamesOfAnyBytesAreRead) {
    const platform::Data package = samples::package(samples::archiveOfText(u"One\n"));
    folder.write("\xFF.parlavox", package.view());
    folder.write("\xFF/a.txt", "Two\n");
    folder.write("-a.txt", "Three\n");
    folder.write("[a,b]", "Four\n");
    std::filesystem::current_path(folder.path());
    expectRun(Program::run({"text", "--", "\xFF.parlavox", "\xFF/a.txt", "-a.txt", "[a,b]"}), 0,
              "==> \xFF.parlavox <==\nOne\n\n==> \xFF/a.txt <==\nTwo\n\n"
              "==> -a.txt <==\nThree\n\n==> [a,b] <==\nFour\n",
              "");
}

TEST_F(ProgramTest, PackagesAreKnownByNameOrBytes) {
    const platform::Data package =
        samples::package(samples::archiveOfText({u"One\0\xFFFC\xD83D two", 10}));
    const std::string expected = "One\uFFFD two";
    for (const char* name : {"a.parlavox", "A.PARLAVOX", "without"}) {
        SCOPED_TRACE(name);
        expectRun(Program::run({"text", folder.write(name, package.view())}), 0, expected, "");
    }
}

TEST_F(ProgramTest, LinksAreFollowed) {
    folder.write("a.txt", "One\n");
    std::filesystem::create_symlink("a.txt", folder.path("link.txt"));
    expectRun(Program::run({"text", folder.path("link.txt")}), 0, "One\n", "");
}

TEST_F(ProgramTest, AGivenTypeIsTakenAsItIs) {
    const std::string path = folder.write("a.pdf", "One\n");
    expectRun(Program::run({"text", "--type", "public.plain-text", path}), 0, "One\n", "");
    const ProgramRun run = Program::run({"text", "--type", "unknown", path});
    EXPECT_EQ(run.error.find("no importer takes"), std::string::npos) << run.error;
}

TEST_F(ProgramTest, ADamagedPackageHasACause) {
    const std::string path = folder.write("a.parlavox", "no archive");
    const ProgramRun run = Program::run({"text", path});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.output, "");
    EXPECT_TRUE(run.error.starts_with("pvindex: " + path + ": ")) << run.error;
    EXPECT_EQ(run.error.find("the importer could not read it"), std::string::npos) << run.error;
}

TEST_F(ProgramTest, EndsTheLastLineOnATerminalOnly) {
    int terminal = -1;
    int line = -1;
    if (::openpty(&terminal, &line, nullptr, nullptr, nullptr) != 0) {
        GTEST_SKIP() << "no terminals here: " << std::strerror(errno);
    }
    const FileDescriptor terminalOwner(terminal);
    const FileDescriptor lineOwner(line);
    const std::string path = folder.write("a.txt", "One");
    expectRun(Program({"text", path}, line).finish(), 0, "", "");
    char text[16] = {};
    EXPECT_EQ(::read(terminal, text, sizeof text), 5);
    EXPECT_STREQ(text, "One\r\n");
}

TEST_F(ProgramTest, AClosedPipeEndsItQuietly) {
    int pipe[2] = {-1, -1};
    ASSERT_EQ(::pipe(pipe), 0);
    ::close(pipe[0]);
    const FileDescriptor writer(pipe[1]);
    const std::string path = folder.write("a.txt", "One");
    expectRun(Program({"text", path, path}, writer.number()).finish(), 128 + SIGPIPE, "", "");
}

TEST_F(ProgramTest, ASlowReaderCostsNoFile) {
    int pipe[2] = {-1, -1};
    ASSERT_EQ(::pipe(pipe), 0);
    const FileDescriptor reader(pipe[0]);
    FileDescriptor writer(pipe[1]);
    // Twice what a pipe holds; far less than any machine needs a second for.
    const std::string text(std::size_t{1} << 17, 'a');
    const std::string path = folder.write("a.txt", text);
    Program program({"text", "--timeout", "1", path}, writer.number());
    writer.close();
    std::this_thread::sleep_for(std::chrono::milliseconds(1500));
    std::string output(text.size() + 1, '\0');
    std::size_t size = 0;
    ssize_t step = 1;
    while (step > 0) {
        step = ::read(reader.number(), output.data() + size, output.size() - size);
        size += step > 0 ? static_cast<std::size_t>(step) : 0;
    }
    EXPECT_EQ(size, text.size());
    expectRun(program.finish(), 0, "", "");
}

TEST_F(ProgramTest, AFullDeviceIsNamed) {
    const FileDescriptor full(::open("/dev/full", O_WRONLY | O_CLOEXEC));
    ASSERT_TRUE(full.isOpen());
    const std::string path = folder.write("a.txt", "One");
    expectRun(Program({"text", path, path}, full.number()).finish(), 1, "",
              "pvindex: standard output: No space left on device\n");
}

TEST_F(ProgramTest, ListsWhatTheImporterTakes) {
    const ProgramRun run = Program::run({"types"});
    EXPECT_EQ(run.status, 0);
    EXPECT_NE(run.output.find(".parlavox    application/vnd.brightmill.parlavox+zip  Parlavox"),
              std::string::npos)
        << run.output;
    const ProgramRun json = Program::run({"types", "--json"});
    EXPECT_TRUE(
        json.output.starts_with(R"({"identifier":"public.plain-text","extensions":["txt","text"],)"
                                R"("mimeTypes":["text/plain"],"description":""})"))
        << json.output;
}

TEST_F(ProgramTest, AWrongCommandLineIsOneLine) {
    const std::vector<std::string> kRows[] = {
        {},
        {"text"},
        {"index", "a"},
        {"text", "--unknown", "a"},
        {"text", "--timeout", "soon", "a"},
        {"text", "--timeout=-1", "a"},
        {"text", "--memory", "-1", "a"},
        {"text", "--disk", "-1", "a"},
        {"text", "--type", "", "a"},
        {"text", "--type", "\xFF", "a"},
        {"types", "a"},
    };
    for (const std::vector<std::string>& row : kRows) {
        SCOPED_TRACE(row.empty() ? "nothing" : row.back());
        const ProgramRun run = Program::run(row);
        EXPECT_EQ(run.status, 2);
        EXPECT_EQ(run.output, "");
        EXPECT_TRUE(run.error.starts_with("pvindex: ")) << run.error;
        EXPECT_EQ(run.error.find('\n'), run.error.size() - 1) << run.error;
    }
}

TEST_F(ProgramTest, HelpNamesTheExitStatuses) {
    for (const std::vector<std::string>& row :
         {std::vector<std::string>{"--help"}, {"text", "--help"}}) {
        const ProgramRun run = Program::run(row);
        EXPECT_EQ(run.status, 0);
        EXPECT_NE(run.output.find("  3  the importer could not be loaded"), std::string::npos);
        EXPECT_EQ(run.error, "");
    }
    expectRun(Program::run({"--version"}), 0, "pvindex " PV_VERSION "\n", "");
}

}  // namespace
}  // namespace host
