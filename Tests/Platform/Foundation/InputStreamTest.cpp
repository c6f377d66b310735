#include "Platform/Foundation/InputStream.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <array>
#include <cerrno>
#include <memory>
#include <string>

#include "Platform/Foundation/Failure.h"
#include "Platform/Foundation/FileDescriptor.h"
#include "Tests/Support/TemporaryFolder.h"

namespace platform {
namespace {

// What one read of up to `count` bytes gives; "-1" for a failed one.
std::string readOnce(InputStream& stream, std::size_t count) {
    std::string buffer(count, '\0');
    const std::int64_t got = stream.read(std::as_writable_bytes(std::span(buffer)));
    return got < 0 ? std::to_string(got) : buffer.substr(0, static_cast<std::size_t>(got));
}

TEST(InputStream, ReadsNothingBeforeOpeningAndAfterClosing) {
    const test::TemporaryFolder folder;
    for (const auto& stream : {InputStream::inputStreamWithFileAtPath(folder.write("a", "bytes")),
                               InputStream::inputStreamWithData(Data::copyOf("bytes"))}) {
        EXPECT_EQ(stream->streamStatus(), StreamStatus::NotOpen);
        EXPECT_EQ(readOnce(*stream, 4), "-1");
        EXPECT_FALSE(stream->hasBytesAvailable());
        stream->close();
        EXPECT_EQ(stream->streamStatus(), StreamStatus::NotOpen) << "closing does not open";
        stream->open();
        EXPECT_TRUE(stream->hasBytesAvailable());
        EXPECT_EQ(readOnce(*stream, 2), "by");
        EXPECT_EQ(stream->streamStatus(), StreamStatus::Open);
        stream->close();
        EXPECT_EQ(stream->streamStatus(), StreamStatus::Closed);
        EXPECT_EQ(readOnce(*stream, 2), "-1");
        stream->open();
        EXPECT_EQ(stream->streamStatus(), StreamStatus::Closed) << "a stream opens once";
        EXPECT_FALSE(stream->streamError());
    }
}

TEST(InputStream, OpeningAgainDoesNotStartOver) {
    const auto stream = InputStream::inputStreamWithData(Data::copyOf("bytes"));
    stream->open();
    EXPECT_EQ(readOnce(*stream, 2), "by");
    stream->open();
    EXPECT_EQ(readOnce(*stream, 9), "tes");
}

TEST(InputStream, FileEndsWithAReadThatGaveNothing) {
    const test::TemporaryFolder folder;
    const auto stream = InputStream::inputStreamWithFileAtPath(folder.write("a", "bytes"));
    stream->open();
    EXPECT_EQ(readOnce(*stream, 5), "bytes");
    EXPECT_EQ(stream->streamStatus(), StreamStatus::Open);
    EXPECT_TRUE(stream->hasBytesAvailable()) << "the end is not known yet";
    EXPECT_EQ(readOnce(*stream, 5), "");
    EXPECT_EQ(stream->streamStatus(), StreamStatus::AtEnd);
    EXPECT_FALSE(stream->hasBytesAvailable());
    EXPECT_EQ(readOnce(*stream, 5), "");
}

TEST(InputStream, PipesDontKeepItWaiting) {
    const test::TemporaryFolder folder;
    ASSERT_EQ(::mkfifo(folder.path("pipe").c_str(), 0600), 0);
    const auto alone = InputStream::inputStreamWithFileAtPath(folder.path("pipe"));
    alone->open();
    EXPECT_EQ(alone->streamStatus(), StreamStatus::Open);
    EXPECT_EQ(readOnce(*alone, 5), "") << "at its end without a writer";

    const auto early = InputStream::inputStreamWithFileAtPath(folder.path("pipe"));
    early->open();
    const auto writer = FileDescriptor::open(folder.path("pipe"), O_WRONLY | O_NONBLOCK);
    ASSERT_TRUE(writer.isOpen());
    EXPECT_EQ(readOnce(*early, 5), "-1") << "nothing was written yet";
    EXPECT_EQ(early->streamStatus(), StreamStatus::Error);
}

TEST(InputStream, DataEndsWithItsLastByte) {
    const auto stream = InputStream::inputStreamWithData(Data::copyOf("bytes"));
    stream->open();
    EXPECT_EQ(readOnce(*stream, 5), "bytes");
    EXPECT_EQ(stream->streamStatus(), StreamStatus::AtEnd);
    EXPECT_FALSE(stream->hasBytesAvailable());
    EXPECT_EQ(readOnce(*stream, 5), "");
}

TEST(InputStream, EmptyDataHasNothingToGive) {
    const auto stream = InputStream::inputStreamWithData(Data());
    stream->open();
    EXPECT_FALSE(stream->hasBytesAvailable());
    EXPECT_EQ(readOnce(*stream, 5), "");
    EXPECT_EQ(stream->streamStatus(), StreamStatus::AtEnd);
}

TEST(InputStream, EmptyBufferSaysNothingAboutTheEnd) {
    const test::TemporaryFolder folder;
    const auto stream = InputStream::inputStreamWithFileAtPath(folder.write("a", "bytes"));
    stream->open();
    EXPECT_EQ(stream->read({}), 0);
    EXPECT_EQ(stream->streamStatus(), StreamStatus::Open);
    EXPECT_EQ(readOnce(*stream, 9), "bytes");
}

TEST(InputStream, OneReadFillsTheBuffer) {
    const test::TemporaryFolder folder;
    const std::string contents(300'000, 'x');
    const auto stream = InputStream::inputStreamWithFileAtPath(folder.write("a", contents));
    stream->open();
    EXPECT_EQ(readOnce(*stream, 400'000), contents);
}

TEST(InputStream, FailureToOpenShowsInStatusAndError) {
    const test::TemporaryFolder folder;
    struct Row {
        const char* name;
        std::string path;
        int want;
    };
    const Row kRows[] = {
        {"no file", folder.path("none"), ENOENT},
        {"a file on the way", folder.write("a", "") + "/b", ENOTDIR},
        {"empty path", "", ENOENT},
        {"a path that holds a NUL", folder.path() + std::string("/a\0b", 4), EINVAL},
        {"name too long", folder.path(std::string(300, 'n')), ENAMETOOLONG},
    };
    for (const Row& row : kRows) {
        SCOPED_TRACE(row.name);
        const auto stream = InputStream::inputStreamWithFileAtPath(row.path);
        clearFailure();
        stream->open();
        EXPECT_EQ(stream->streamStatus(), StreamStatus::Error);
        ASSERT_TRUE(stream->streamError());
        EXPECT_EQ(stream->streamError()->domain, kPosixErrorDomain);
        EXPECT_EQ(stream->streamError()->code, row.want);
        ASSERT_NE(lastFailure(), nullptr);
        EXPECT_NE(std::string(lastFailure()).find(stream->streamError()->description),
                  std::string::npos);
        EXPECT_EQ(readOnce(*stream, 1), "-1");
        stream->close();
        EXPECT_EQ(stream->streamStatus(), StreamStatus::Closed);
        EXPECT_TRUE(stream->streamError()) << "the error outlives closing";
    }
}

TEST(InputStream, FailureToReadEndsTheStream) {
    const test::TemporaryFolder folder;
    const auto stream = InputStream::inputStreamWithFileAtPath(folder.path());
    stream->open();
    ASSERT_EQ(stream->streamStatus(), StreamStatus::Open) << "a folder can be opened, not read";
    EXPECT_EQ(readOnce(*stream, 1), "-1");
    EXPECT_EQ(stream->streamStatus(), StreamStatus::Error);
    EXPECT_EQ(stream->streamError()->code, EISDIR);
    EXPECT_EQ(readOnce(*stream, 1), "-1");
}

// Gives one byte a read, and an error after a number of them.
class FailingInputStream : public InputStream {
public:
    explicit FailingInputStream(int bytesBeforeError) : left_(bytesBeforeError) {}

    void open() override {
        if (beginOpening()) {
            statusWhileOpening = streamStatus();
            setStatus(StreamStatus::Open);
        }
    }
    void close() override { endByClosing(); }
    std::int64_t read(std::span<std::byte> buffer) override {
        if (const auto answer = answerWithoutReading(buffer.size())) {
            return *answer;
        }
        if (left_-- == 0) {
            fail(EIO);
            return -1;
        }
        buffer.front() = std::byte{'x'};
        return 1;
    }

    StreamStatus statusWhileOpening = StreamStatus::NotOpen;

private:
    int left_;
};

TEST(InputStream, DerivedStreamFailsOnCue) {
    FailingInputStream stream(2);
    stream.open();
    EXPECT_EQ(stream.statusWhileOpening, StreamStatus::Opening);
    EXPECT_EQ(readOnce(stream, 9), "x");
    EXPECT_EQ(readOnce(stream, 9), "x");
    EXPECT_TRUE(stream.hasBytesAvailable());
    EXPECT_EQ(readOnce(stream, 9), "-1");
    EXPECT_EQ(stream.streamStatus(), StreamStatus::Error);
    EXPECT_EQ(stream.streamError()->code, EIO);
    EXPECT_FALSE(stream.hasBytesAvailable());
}

}  // namespace
}  // namespace platform
