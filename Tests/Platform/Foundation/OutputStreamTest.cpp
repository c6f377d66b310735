#include "Platform/Foundation/OutputStream.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <cerrno>
#include <memory>
#include <string>
#include <string_view>

#include "Tests/Support/TemporaryFolder.h"

namespace platform {
namespace {

std::int64_t write(OutputStream& stream, std::string_view text) {
    return stream.write(std::as_bytes(std::span(text)));
}

// Runs a test of what all streams do on a file, an appended file and memory.
template <class Check>
void forEachKind(Check check) {
    const test::TemporaryFolder folder;
    const struct {
        const char* name;
        std::shared_ptr<OutputStream> stream;
    } kRows[] = {
        {"file", OutputStream::outputStreamToFileAtPath(folder.path("a"), FileAppending::No)},
        {"append", OutputStream::outputStreamToFileAtPath(folder.path("b"), FileAppending::Yes)},
        {"memory", OutputStream::outputStreamToMemory()},
    };
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.name);
        check(*row.stream);
    }
}

TEST(OutputStream, WritesOnlyWhileOpen) {
    forEachKind([](OutputStream& stream) {
        EXPECT_EQ(stream.streamStatus(), StreamStatus::NotOpen);
        EXPECT_EQ(write(stream, "early"), -1);
        stream.close();
        EXPECT_EQ(stream.streamStatus(), StreamStatus::NotOpen) << "closing does not open";
        stream.open();
        EXPECT_EQ(stream.streamStatus(), StreamStatus::Open);
        EXPECT_EQ(write(stream, "bytes"), 5);
        EXPECT_EQ(stream.streamStatus(), StreamStatus::Open);
        stream.close();
        EXPECT_EQ(stream.streamStatus(), StreamStatus::Closed);
        EXPECT_EQ(write(stream, "late"), -1);
        stream.open();
        EXPECT_EQ(stream.streamStatus(), StreamStatus::Closed) << "a stream opens once";
        EXPECT_FALSE(stream.streamError());
    });
}

TEST(OutputStream, WritingNoBytesEndsTheStream) {
    forEachKind([](OutputStream& stream) {
        stream.open();
        EXPECT_EQ(write(stream, "bytes"), 5);
        EXPECT_EQ(stream.write({}), 0);
        EXPECT_EQ(stream.streamStatus(), StreamStatus::AtEnd);
        EXPECT_EQ(write(stream, "more"), -1);
        EXPECT_EQ(stream.write({}), -1);
        EXPECT_EQ(stream.streamStatus(), StreamStatus::AtEnd);
        EXPECT_FALSE(stream.streamError()) << "an end is no error";
    });
}

TEST(OutputStream, FileIsEmptiedAtOpeningUnlessAppending) {
    const test::TemporaryFolder folder;
    const std::string path = folder.write("a", "before");
    const auto writing = OutputStream::outputStreamToFileAtPath(path, FileAppending::No);
    EXPECT_EQ(folder.read("a"), "before");
    writing->open();
    EXPECT_EQ(folder.read("a"), "");
    EXPECT_EQ(write(*writing, "new"), 3);
    writing->open();
    EXPECT_EQ(folder.read("a"), "new") << "opening again does nothing";
    const auto appending = OutputStream::outputStreamToFileAtPath(path, FileAppending::Yes);
    appending->open();
    EXPECT_EQ(write(*appending, "er"), 2);
    EXPECT_EQ(folder.read("a"), "newer");
}

TEST(OutputStream, OffsetIsKnownOfFilesWrittenFromTheStart) {
    const test::TemporaryFolder folder;
    const auto file = OutputStream::outputStreamToFileAtPath(folder.path("a"), FileAppending::No);
    EXPECT_EQ(file->currentFileOffset(), std::nullopt);
    file->open();
    EXPECT_EQ(file->currentFileOffset(), 0);
    EXPECT_EQ(write(*file, "bytes"), 5);
    EXPECT_EQ(file->currentFileOffset(), 5);
    file->close();
    EXPECT_EQ(file->currentFileOffset(), std::nullopt);
    for (const auto& stream :
         {OutputStream::outputStreamToFileAtPath(folder.path("a"), FileAppending::Yes),
          OutputStream::outputStreamToMemory()}) {
        stream->open();
        EXPECT_EQ(write(*stream, "bytes"), 5);
        EXPECT_EQ(stream->currentFileOffset(), std::nullopt);
    }
}

TEST(OutputStream, MemoryKeepsEverythingAlsoAfterClosing) {
    const auto stream = OutputStream::outputStreamToMemory();
    EXPECT_EQ(stream->dataWritten(), Data()) << "empty, not absent";
    stream->open();
    EXPECT_EQ(write(*stream, "by"), 2);
    const auto early = stream->dataWritten();
    EXPECT_EQ(write(*stream, "tes"), 3);
    EXPECT_EQ(early->view(), "by") << "what was handed out does not change";
    EXPECT_EQ(stream->dataWritten()->view(), "bytes");
    EXPECT_EQ(stream->write(stream->dataWritten()->span()), 5) << "its own bytes";
    stream->close();
    EXPECT_EQ(stream->dataWritten()->view(), "bytesbytes");
    EXPECT_EQ(stream->dataWritten()->bytes(), stream->dataWritten()->bytes()) << "not copied";
}

TEST(OutputStream, OnlyMemoryHandsOutWhatWasWritten) {
    const test::TemporaryFolder folder;
    const auto stream = OutputStream::outputStreamToFileAtPath(folder.path("a"), FileAppending::No);
    stream->open();
    EXPECT_EQ(write(*stream, "bytes"), 5);
    EXPECT_EQ(stream->dataWritten(), std::nullopt);
}

TEST(OutputStream, FailureToOpenShowsInStatusAndError) {
    const test::TemporaryFolder folder;
    const struct {
        const char* name;
        std::string path;
        int want;
    } kRows[] = {
        {"a folder", folder.path(), EISDIR},
        {"no such folder", folder.path("none/a"), ENOENT},
        {"a path that holds a NUL", folder.path() + std::string("/a\0b", 4), EINVAL},
    };
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.name);
        const auto stream = OutputStream::outputStreamToFileAtPath(row.path, FileAppending::No);
        stream->open();
        EXPECT_EQ(stream->streamStatus(), StreamStatus::Error);
        ASSERT_TRUE(stream->streamError());
        EXPECT_EQ(stream->streamError()->domain, kPosixErrorDomain);
        EXPECT_EQ(stream->streamError()->code, row.want);
        EXPECT_EQ(write(*stream, "a"), -1);
        stream->close();
        EXPECT_EQ(stream->streamStatus(), StreamStatus::Closed);
    }
    EXPECT_EQ(folder.count(), 0) << "nothing was made under a shortened name";
}

TEST(OutputStream, FullDiskEndsTheStream) {
    const auto stream = OutputStream::outputStreamToFileAtPath("/dev/full", FileAppending::No);
    stream->open();
    ASSERT_EQ(stream->streamStatus(), StreamStatus::Open);
    EXPECT_EQ(write(*stream, "bytes"), -1);
    EXPECT_EQ(stream->streamStatus(), StreamStatus::Error);
    EXPECT_EQ(stream->streamError()->code, ENOSPC);
    EXPECT_EQ(write(*stream, "bytes"), -1);
}

TEST(OutputStream, ProgramsThatAreStartedDoNotInheritTheFile) {
    const test::TemporaryFolder folder;
    const int lowest = ::open("/dev/null", O_RDONLY | O_CLOEXEC);
    ::close(lowest);
    const auto stream = OutputStream::outputStreamToFileAtPath(folder.path("a"), FileAppending::No);
    stream->open();
    EXPECT_EQ(::fcntl(lowest, F_GETFD), FD_CLOEXEC);
    stream->close();
    EXPECT_EQ(::fcntl(lowest, F_GETFD), -1) << "closed";
}

// Takes a number of bytes, then the disk is full.
class SmallDisk : public OutputStream {
public:
    explicit SmallDisk(std::size_t room) : room_(room) {}

    void open() override {
        if (beginOpening()) {
            setStatus(StreamStatus::Open);
        }
    }
    void close() override { endByClosing(); }
    std::int64_t write(std::span<const std::byte> bytes) override {
        if (streamStatus() != StreamStatus::Open) {
            return -1;
        }
        if (room_ == 0) {
            fail(ENOSPC);
            return -1;
        }
        const std::size_t count = std::min(room_, bytes.size());
        room_ -= count;
        return static_cast<std::int64_t>(count);
    }

private:
    std::size_t room_;
};

TEST(OutputStream, DerivedStreamFailsOnCue) {
    SmallDisk disk(3);
    disk.open();
    EXPECT_EQ(write(disk, "bytes"), 3);
    EXPECT_EQ(write(disk, "bytes"), -1);
    EXPECT_EQ(disk.streamStatus(), StreamStatus::Error);
    EXPECT_EQ(disk.streamError()->code, ENOSPC);
    EXPECT_EQ(disk.currentFileOffset(), std::nullopt);
}

}  // namespace
}  // namespace platform
