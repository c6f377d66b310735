#include "Host/WorkerEnd.h"

#include <gtest/gtest.h>
#include <signal.h>

namespace host {
namespace {

using namespace std::chrono_literals;

constexpr std::size_t kMebibyte = 1 << 20;

struct Row {
    const char* name;
    ChildEnd end;
    Limits limits;
    const char* want;
};

// A signal is the status itself, an exit status its second byte.
constexpr Row kRows[] = {
    {"a signal", {SIGSEGV, 0}, {60s, 64}, "the importer crashed (segmentation fault)"},
    {"a core file does not matter",
     {SIGABRT | 0x80, 0},
     {60s, 64},
     "the importer crashed (aborted)"},
    {"the deadline", {SIGALRM, 0}, {60s, 64}, "took longer than 60 s"},
    {"part of a second", {SIGALRM, 0}, {1500ms, 0}, "took longer than 1.5 s"},
    {"an alarm of its own", {SIGALRM, 0}, {0s, 0}, "the importer crashed (alarm clock)"},
    {"the deadline, kept by the watcher",
     {SIGKILL, 0, Overrun::Time},
     {60s, 64},
     "took longer than 60 s"},
    {"disk", {SIGKILL, 60 * kMebibyte, Overrun::Disk}, {60s, 64, 8}, "used more disk than 8 MiB"},
    {"too large a file", {SIGXFSZ, 0}, {60s, 64, 8}, "used more disk than 8 MiB"},
    {"a bound on files of its own",
     {SIGXFSZ, 0},
     {60s, 64, 0},
     "the importer crashed (file size limit exceeded)"},
    {"an end before the watcher struck",
     {0, 0, Overrun::Time},
     {60s, 64},
     "the importer ended the process (exit status 0)"},
    {"memory used up", {SIGABRT, 60 * kMebibyte}, {60s, 64}, "used more memory than 64 MiB"},
    {"memory not used up", {SIGABRT, 40 * kMebibyte}, {60s, 64}, "the importer crashed (aborted)"},
    {"memory without a bound",
     {SIGABRT, 60 * kMebibyte},
     {60s, 0},
     "the importer crashed (aborted)"},
    {"an exit", {0, 0}, {60s, 64}, "the importer ended the process (exit status 0)"},
    {"an exit with a status",
     {3 << 8, 60 * kMebibyte},
     {60s, 64},
     "the importer ended the process (exit status 3)"},
};

TEST(WorkerEnd, IsToldInWords) {
    for (const Row& row : kRows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(describeEnd(row.end, row.limits), row.want);
    }
}

}  // namespace
}  // namespace host
