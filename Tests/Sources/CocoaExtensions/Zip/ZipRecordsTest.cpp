#include "Sources/CocoaExtensions/Zip/ZipRecords.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "Platform/Foundation/Exception.h"
#include "Platform/Foundation/OutputStream.h"
#include "Sources/CocoaExtensions/Zip/ZipFileHeader.h"
#include "Tests/Sources/CocoaExtensions/Zip/RecordingHandler.h"

namespace parlavox {
namespace {

using namespace std::string_view_literals;
using platform::Data;
using platform::OutputStream;

/// Remembers the size of each write; one of them may be refused.
class RecordingStream final : public OutputStream {
public:
    explicit RecordingStream(std::size_t refused = 0) : refused_(refused) {}

    void open() override { setStatus(platform::StreamStatus::Open); }
    void close() override { setStatus(platform::StreamStatus::Closed); }
    std::int64_t write(std::span<const std::byte> bytes) override {
        sizes.push_back(bytes.size());
        return sizes.size() == refused_ ? -1 : static_cast<std::int64_t>(bytes.size());
    }

    std::vector<std::size_t> sizes;

private:
    std::size_t refused_;
};

std::string written(std::int64_t (*write)(OutputStream*, SLocalFileHeader),
                    const SLocalFileHeader& header) {
    const auto stream = OutputStream::outputStreamToMemory();
    stream->open();
    EXPECT_EQ(write(stream.get(), header), 30);
    return std::string(stream->dataWritten()->view());
}

SLocalFileHeader sampleLocalHeader() {
    return {kLocalFileHeaderSignature, 10, 0, 8, 0, 0, {0x12345678, 3, 5}, 9, 0};
}

TEST(ZipRecords, LocalHeaderIsWrittenAsThirtyBytes) {
    EXPECT_EQ(written(FLWriteSLocalFileHeader, sampleLocalHeader()),
              "\x50\x4B\x03\x04\x0A\x00\x00\x00\x08\x00\x00\x00\x00\x00\x78\x56\x34\x12"
              "\x03\x00\x00\x00\x05\x00\x00\x00\x09\x00\x00\x00"sv);
}

TEST(ZipRecords, EachFieldIsOneWrite) {
    RecordingStream local;
    EXPECT_EQ(FLWriteSLocalFileHeader(&local, {}), 30);
    EXPECT_EQ(local.sizes, (std::vector<std::size_t>{4, 2, 2, 2, 2, 2, 4, 4, 4, 2, 2}));
    RecordingStream central;
    EXPECT_EQ(FLWriteSFileHeader(&central, {}), 46);
    EXPECT_EQ(central.sizes,
              (std::vector<std::size_t>{4, 2, 2, 2, 2, 2, 2, 4, 4, 4, 2, 2, 2, 2, 2, 4, 4}));
    RecordingStream end;
    EXPECT_EQ(FLWriteSDirectory(&end, {}), 22);
    EXPECT_EQ(end.sizes, (std::vector<std::size_t>{4, 4, 2, 2, 4, 4, 2}));
}

TEST(ZipRecords, RefusedFieldsAreAddedAsTheyAreAndLaterOnesStillTried) {
    RecordingStream local(2);
    EXPECT_EQ(FLWriteSLocalFileHeader(&local, {}), 30 - 2 - 1);
    EXPECT_EQ(local.sizes.size(), 11u);
    RecordingStream central(17);
    EXPECT_EQ(FLWriteSFileHeader(&central, {}), 46 - 4 - 1);
    RecordingStream end(1);
    EXPECT_EQ(FLWriteSDirectory(&end, {}), 22 - 4 - 1);
    EXPECT_EQ(end.sizes.size(), 7u);
}

TEST(ZipRecords, NothingIsWrittenWithoutAStream) {
    EXPECT_EQ(FLWriteSLocalFileHeader(nullptr, {}), 0);
    EXPECT_EQ(FLWriteSFileHeader(nullptr, {}), 0);
    EXPECT_EQ(FLWriteSDirectory(nullptr, {}), 0);
}

TEST(ZipRecords, EndRecordOfAnEmptyArchive) {
    const auto stream = OutputStream::outputStreamToMemory();
    stream->open();
    SDirectory end{};
    end.Signature = kDirectorySignature;
    FLWriteSDirectory(stream.get(), end);
    EXPECT_EQ(stream->dataWritten()->view(), "PK\x05\x06" + std::string(18, '\0'));
}

TEST(ZipRecords, ReadingFillsEveryFieldWhateverTheSignature) {
    std::string bytes;
    for (char c = 1; c <= 46; ++c) {
        bytes += c;
    }
    SFileHeader central{};
    FLReadSFileHeader(&central, bytes.data());
    EXPECT_EQ(central.Signature, 0x04030201u);
    EXPECT_EQ(central.VersionPacked, 0x0605);
    EXPECT_EQ(central.VersionToExtract, 0x0807);
    EXPECT_EQ(central.GeneralBitFlag, 0x0A09);
    EXPECT_EQ(central.CompressionMethod, 0x0C0B);
    EXPECT_EQ(central.LastModFileTime, 0x0E0D);
    EXPECT_EQ(central.LastModFileDate, 0x100F);
    EXPECT_EQ(central.DataDescriptor.CRC32, 0x14131211u);
    EXPECT_EQ(central.DataDescriptor.CompressedSize, 0x18171615u);
    EXPECT_EQ(central.DataDescriptor.UncompressedSize, 0x1C1B1A19u);
    EXPECT_EQ(central.FilenameLength, 0x1E1D);
    EXPECT_EQ(central.ExtraFieldLength, 0x201F);
    EXPECT_EQ(central.CommentLength, 0x2221);
    EXPECT_EQ(central.DiskNumberStart, 0x2423);
    EXPECT_EQ(central.InternalFileAttr, 0x2625);
    EXPECT_EQ(central.ExternalFileAttr, 0x2A292827u);
    EXPECT_EQ(central.LocalHeaderOffset, 0x2E2D2C2Bu);

    SLocalFileHeader local{};
    FLReadSLocalFileHeader(&local, bytes.data());
    EXPECT_EQ(local.Signature, 0x04030201u);
    EXPECT_EQ(local.VersionToExtract, 0x0605);
    EXPECT_EQ(local.GeneralBitFlag, 0x0807);
    EXPECT_EQ(local.CompressionMethod, 0x0A09);
    EXPECT_EQ(local.LastModFileTime, 0x0C0B);
    EXPECT_EQ(local.LastModFileDate, 0x0E0D);
    EXPECT_EQ(local.DataDescriptor.CRC32, 0x1211100Fu);
    EXPECT_EQ(local.DataDescriptor.CompressedSize, 0x16151413u);
    EXPECT_EQ(local.DataDescriptor.UncompressedSize, 0x1A191817u);
    EXPECT_EQ(local.FilenameLength, 0x1C1B);
    EXPECT_EQ(local.ExtraFieldLength, 0x1E1D);

    const SDirectory end = directoryFromBytes(bytes.data());
    EXPECT_EQ(end.Signature, 0x04030201u);
    EXPECT_EQ(end.DiskNumbers, 0x08070605u);
    EXPECT_EQ(end.EntriesOnDisk, 0x0A09);
    EXPECT_EQ(end.TotalEntries, 0x0C0B);
    EXPECT_EQ(end.DirectorySize, 0x100F0E0Du);
    EXPECT_EQ(end.DirectoryOffset, 0x14131211u);
    EXPECT_EQ(end.CommentLength, 0x1615);
}

TEST(ZipRecords, WrittenRecordsReadBackEqual) {
    const std::string bytes = written(FLWriteSLocalFileHeader, sampleLocalHeader());
    SLocalFileHeader back{};
    FLReadSLocalFileHeader(&back, bytes.data());
    EXPECT_EQ(written(FLWriteSLocalFileHeader, back), bytes);
}

TEST(ZipFileHeader, KeepsTheRecordAndTheName) {
    SFileHeader record{};
    record.LocalHeaderOffset = 77;
    const auto header = ZipFileHeader::initWithFileHeader(record, Data::copyOf("a.txt"));
    ASSERT_NE(header, nullptr);
    EXPECT_EQ(header->fileHeader().LocalHeaderOffset, 77u);
    EXPECT_EQ(header->fileNameData().view(), "a.txt");
}

TEST(ZipFileHeader, NeedsNameBytes) {
    try {
        (void)ZipFileHeader::initWithFileHeader({}, std::nullopt);
        FAIL() << "nothing was raised";
    } catch (const platform::AssertionFailure& failure) {
        EXPECT_EQ(failure.reason(), "Invalid parameter not satisfying: fileNameData != nil");
        EXPECT_EQ(failure.file(), "Sources/CocoaExtensions/Zip/ZipWrapper");
        EXPECT_EQ(failure.line(), 39u);
    }
    RecordingHandler handler;
    const platform::AssertionHandlerScope scope(handler);
    EXPECT_EQ(ZipFileHeader::initWithFileHeader({}, std::nullopt), nullptr);
    EXPECT_EQ(handler.reported, (std::vector<std::string>{"fileNameData != nil @39"}));
}

}  // namespace
}  // namespace parlavox
