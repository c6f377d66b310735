#include "Tools/samples/ZipBuilder.h"

#include <array>
#include <memory>
#include <span>
#include <utility>

#include "Platform/Foundation/OutputStream.h"
#include "Sources/CocoaExtensions/Zip/ZipWrapper.h"

namespace samples {

using parlavox::SDirectory;
using parlavox::SFileHeader;
using platform::Data;
using platform::OutputStream;

namespace {

constexpr std::uint16_t kVersionPacked = 0x0317;
constexpr std::uint16_t kVersionToExtract = 10;
constexpr std::uint32_t kFileAttributes = 0x81A40000;
constexpr std::uint32_t kFolderAttributes = 0x41ED0000;

/// The CRC-32 of zip archives, four bits at a time.
std::uint32_t checksum(const Data& data) {
    constexpr auto kTable = [] {
        std::array<std::uint32_t, 16> table{};
        for (std::uint32_t i = 0; i < table.size(); ++i) {
            std::uint32_t value = i;
            for (int bit = 0; bit < 4; ++bit) {
                value = (value >> 1) ^ ((value & 1) != 0 ? 0xEDB88320 : 0);
            }
            table[i] = value;
        }
        return table;
    }();
    std::uint32_t sum = 0xFFFFFFFF;
    for (const std::byte byte : data.span()) {
        sum ^= static_cast<std::uint32_t>(byte);
        sum = (sum >> 4) ^ kTable[sum & 0xF];
        sum = (sum >> 4) ^ kTable[sum & 0xF];
    }
    return ~sum;
}

}  // namespace

ZipEntry& ZipBuilder::add(std::string_view name, std::string_view contents, Packing packing) {
    return add(name, Data::copyOf(contents), packing);
}

ZipEntry& ZipBuilder::add(std::string_view name, const Data& contents, Packing packing) {
    ZipEntry entry{};
    entry.name = name;
    entry.data = contents;
    std::uint16_t method = 0;
    if (packing == Packing::Deflated && !contents.empty()) {
        const auto archive = parlavox::ZipWrapper::initWithData(Data(), nullptr);
        if (auto deflated = archive->compressedData(contents, 6)) {
            entry.data = std::move(*deflated);
            method = 8;
        }
    }
    const auto nameLength = static_cast<std::uint16_t>(name.size());
    const parlavox::SZIPFileDataDescriptor descriptor{checksum(contents),
                                                      static_cast<std::uint32_t>(entry.data.size()),
                                                      static_cast<std::uint32_t>(contents.size())};
    entry.local = {parlavox::kLocalFileHeaderSignature,
                   kVersionToExtract,
                   0,
                   method,
                   0,
                   0,
                   descriptor,
                   nameLength,
                   0};
    entry.central = {};
    entry.central.Signature = parlavox::kFileHeaderSignature;
    entry.central.VersionPacked = kVersionPacked;
    entry.central.VersionToExtract = kVersionToExtract;
    entry.central.CompressionMethod = method;
    entry.central.DataDescriptor = descriptor;
    entry.central.FilenameLength = nameLength;
    entry.central.ExternalFileAttr = name.ends_with('/') ? kFolderAttributes : kFileAttributes;
    return entries_.emplace_back(std::move(entry));
}

Data ZipBuilder::finish(EndHook hook) const {
    const auto stream = OutputStream::outputStreamToMemory();
    stream->open();
    std::uint64_t position = 0;
    const auto write = [&](const auto& bytes) {
        // A stream that is asked to write nothing would end.
        if (bytes.size() > 0) {
            position += static_cast<std::uint64_t>(stream->write(std::as_bytes(std::span(bytes))));
        }
    };
    std::vector<const ZipEntry*> listed;
    std::vector<std::uint32_t> offsets;
    for (const ZipEntry& entry : entries_) {
        if (entry.isListed) {
            listed.push_back(&entry);
            offsets.push_back(static_cast<std::uint32_t>(position));
        }
        position += static_cast<std::uint64_t>(FLWriteSLocalFileHeader(stream.get(), entry.local));
        write(entry.name);
        write(entry.data.span());
    }
    const std::uint64_t directoryOffset = position;
    for (std::size_t i = 0; i < listed.size(); ++i) {
        SFileHeader header = listed[i]->central;
        header.LocalHeaderOffset += offsets[i];
        position += static_cast<std::uint64_t>(FLWriteSFileHeader(stream.get(), header));
        write(listed[i]->name);
    }
    SDirectory end{};
    end.Signature = parlavox::kDirectorySignature;
    end.EntriesOnDisk = end.TotalEntries = static_cast<std::uint16_t>(listed.size());
    end.DirectorySize = static_cast<std::uint32_t>(position - directoryOffset);
    end.DirectoryOffset = static_cast<std::uint32_t>(directoryOffset);
    if (hook != nullptr) {
        hook(end);
    }
    FLWriteSDirectory(stream.get(), end);
    return *stream->dataWritten();
}

}  // namespace samples
