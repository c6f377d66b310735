// The program over importers that do what importers must not do.

#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <unistd.h>

#include <nlohmann/json.hpp>
#include <sstream>
#include <string>
#include <thread>

#include "Host/TemporaryFolder.h"
#include "Tests/Host/Program.h"

namespace host {
namespace {

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr bool kIsSanitized = true;
#else
constexpr bool kIsSanitized = false;
#endif

std::string importer(const std::string& name) {
    return PV_MISBEHAVING_IMPORTERS "/" + name + ".mdimporter";
}

/// Files that an importer reads as it should, and one in their middle that it doesn't.
class MisbehaviourTest : public testing::Test {
protected:
    test::TemporaryFolder folder;
    const std::string before = folder.write("before.txt", "");
    const std::string bad = folder.write("bad.txt", "");
    const std::string after = folder.write("after.txt", "");

    [[nodiscard]] std::vector<std::string> arguments(const std::string& name) const {
        return {"text",        "--importer", importer(name), "--timeout", "1",
                "--memory=64", "--disk=1",   before,         bad,         after};
    }

    [[nodiscard]] std::string header(const std::string& path) const {
        return "==> " + path + " <==\n";
    }

    /// The good files' texts are their paths.
    [[nodiscard]] std::string othersText() const {
        return header(before) + before + "\n\n" + header(after) + after;
    }
};

void expectNothingLeft(const ProgramRun& run) {
    EXPECT_TRUE(run.leftBehind.empty());
    EXPECT_EQ(run.childrenLeft, 0);
}

struct Row {
    const char* importer;
    const char* error;
};

// Sanitizers report a crash themselves and exit.
constexpr Row kFailing[] = {
    {"Crash", "the importer crashed (segmentation fault)"},
    {"Abort", "the importer crashed (aborted)"},
    {"Exit", "the importer ended the process (exit status 0)"},
    {"Endless", "took longer than 1 s"},
    {"Hog", "used more memory than 64 MiB"},
    {"BlockAlarm", "took longer than 1 s"},
    {"Flood", "used more disk than 1 MiB"},
    {"LargeFile", "used more disk than 1 MiB"},
    {"ThrowError", "the seventh page is missing"},
    {"ThrowNumber", "unknown exception"},
    {"ThrowMemory", "out of memory"},
    {"Refuse", "the importer could not read it"},
};

bool isOutOfSanitizersReach(std::string_view name) {
    return name != "Crash" && name != "Abort" && name != "Hog";
}

TEST_F(MisbehaviourTest, CostsTheFileInHandAndNoOther) {
    for (const Row& row : kFailing) {
        SCOPED_TRACE(row.importer);
        if (kIsSanitized && !isOutOfSanitizersReach(row.importer)) {
            continue;
        }
        const ProgramRun run = Program::run(arguments(row.importer));
        EXPECT_EQ(run.status, 1);
        EXPECT_EQ(run.output, othersText());
        EXPECT_EQ(run.error, "pvindex: " + bad + ": " + row.error + "\n");
        expectNothingLeft(run);
    }
}

TEST_F(MisbehaviourTest, IsALineOfJsonLikeAnyOther) {
    for (const Row& row : kFailing) {
        SCOPED_TRACE(row.importer);
        if (kIsSanitized && !isOutOfSanitizersReach(row.importer)) {
            continue;
        }
        std::vector<std::string> asked = arguments(row.importer);
        asked.insert(asked.begin() + 1, "--json");
        const ProgramRun run = Program::run(asked);
        EXPECT_EQ(run.status, 1);
        std::istringstream lines(run.output);
        std::string line;
        for (const std::string& path : {before, bad, after}) {
            ASSERT_TRUE(std::getline(lines, line));
            const auto object = nlohmann::json::parse(line, nullptr, false);
            ASSERT_TRUE(object.is_object()) << line;
            EXPECT_EQ(object["path"], path);
            EXPECT_EQ(object["ok"], path != bad);
            EXPECT_EQ(object.value(path == bad ? "error" : "text", ""),
                      path == bad ? row.error : path);
        }
        EXPECT_FALSE(std::getline(lines, line)) << line;
        expectNothingLeft(run);
    }
}

TEST_F(MisbehaviourTest, FilesLeftByAStoppedWorkerAreNotItsSuccessors) {
    const ProgramRun run = Program::run(
        {"text", "--importer", importer("Flood"), "--timeout=20", "--disk=1", bad, bad, after});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.output, header(after) + after);
    const std::string line = "pvindex: " + bad + ": used more disk than 1 MiB\n";
    EXPECT_EQ(run.error, line + line);
    expectNothingLeft(run);
}

TEST_F(MisbehaviourTest, TheProgramsOwnOutputMayBeLargerThanTheBoundOnDisk) {
    // The output goes to a file, and begins behind the bound.
    const std::string path = folder.write("output", std::string(std::size_t{2} << 20, 'x'));
    const int output = ::open(path.c_str(), O_WRONLY | O_APPEND | O_CLOEXEC);
    const ProgramRun run =
        Program({"text", "--importer", importer("Flood"), "--disk=1", before, after}, output)
            .finish();
    ::close(output);
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.error, "");
}

TEST_F(MisbehaviourTest, NoBoundOnDiskLetsAllFilesBeWritten) {
    const ProgramRun run =
        Program::run({"text", "--importer", importer("LargeFile"), "--disk=0", bad});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.error, "");
}

TEST_F(MisbehaviourTest, SuccessWithoutTextIsAnEmptyText) {
    for (const char* name : {"NoText", "NumberText"}) {
        SCOPED_TRACE(name);
        const ProgramRun run = Program::run(arguments(name));
        EXPECT_EQ(run.status, 0);
        EXPECT_EQ(run.output,
                  header(before) + before + "\n\n" + header(bad) + "\n" + header(after) + after);
        EXPECT_EQ(run.error, "");
        expectNothingLeft(run);
    }
}

TEST_F(MisbehaviourTest, AnImporterThatCannotBeLoadedEndsTheRun) {
    constexpr Row kRows[] = {
        {"NoFactory", "its factory makes no importer"},
        {"NullFactory", "its factory makes no importer"},
        {"CrashingFactory", "the importer crashed (aborted) while it was loaded"},
        {"Missing", "No such file or directory"},
    };
    for (const Row& row : kRows) {
        SCOPED_TRACE(row.importer);
        if (kIsSanitized && std::string_view(row.importer) == "CrashingFactory") {
            continue;
        }
        const ProgramRun run = Program::run(arguments(row.importer));
        EXPECT_EQ(run.status, 3);
        EXPECT_EQ(run.output, "");
        // The C library may have had something to say before.
        const std::string last = "pvindex: " + importer(row.importer) + ": " + row.error + "\n";
        EXPECT_TRUE(run.error.ends_with(last)) << run.error;
        expectNothingLeft(run);
    }
}

TEST_F(MisbehaviourTest, AFolderThatIsNoImporterEndsTheRun) {
    const ProgramRun run = Program::run({"text", "--importer", folder.path(), before});
    EXPECT_EQ(run.status, 3);
    EXPECT_EQ(run.error, "pvindex: " + folder.path() +
                             ": is not an importer: it declares no factory of one\n");
    expectNothingLeft(run);
}

// Waits until the worker of an endless importer is at work: it leaves a file in its folder.
bool waitForWork(const test::TemporaryFolder& temporary) {
    for (int tries = 0; tries < 1000; ++tries) {
        for (const std::string& name : temporary.names()) {
            if (::access(temporary.path(name + "/left-behind").c_str(), F_OK) == 0) {
                return true;
            }
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    return false;
}

TEST_F(MisbehaviourTest, ASignalEndsTheProgramAndItsWorker) {
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
        SCOPED_TRACE(signal);
        Program program({"text", "--importer", importer("Endless"), "--timeout=20", before, bad});
        EXPECT_TRUE(waitForWork(program.temporary()));
        ::kill(program.process(), signal);
        const ProgramRun run = program.finish();
        EXPECT_EQ(run.status, 128 + signal);
        EXPECT_EQ(run.error, "");
        expectNothingLeft(run);
    }
}

TEST_F(MisbehaviourTest, AKilledProgramTakesItsWorkerAlongAndTheNextLongRunCleansUp) {
    Program program({"text", "--importer", importer("Endless"), "--timeout=20", bad});
    ASSERT_TRUE(waitForWork(program.temporary()));
    const auto killed = std::chrono::steady_clock::now();
    ::kill(program.process(), SIGKILL);
    EXPECT_EQ(program.finish().status, 128 + SIGKILL);
    EXPECT_LT(std::chrono::steady_clock::now() - killed, std::chrono::seconds(10));
    ASSERT_EQ(program.temporary().names().size(), 1u);
    const ProgramRun next =
        Program({"text", "--importer", importer("Endless"), "--timeout=1", bad}, program).finish();
    expectNothingLeft(next);
}

}  // namespace
}  // namespace host
