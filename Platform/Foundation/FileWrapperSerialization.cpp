#include "Platform/Foundation/FileWrapperSerialization.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "Platform/Foundation/NameTable.h"

namespace platform {
namespace {

using namespace std::string_view_literals;

constexpr std::string_view kSignature = "rtfd\0\0\0\0"sv;

constexpr std::uint32_t kFileRecord = 1;
constexpr std::uint32_t kFolderRecord = 3;
/// Stands where a file's length would, when padding comes before its bytes.
constexpr std::uint32_t kPadded = 0x80000000;

// What a record says of itself, under names that no file has.
constexpr std::string_view kContentsName = "..";
constexpr std::string_view kAttributesName = ".";
constexpr std::string_view kPreferredName = "__@PreferredName@__";
constexpr std::string_view kUtf8PreferredName = "__@UTF8PreferredName@__";

constexpr unsigned kMaxDepth = 128;

/// Reads numbers and bytes one after the other, never past the end of its part.
class Cursor {
public:
    Cursor(Data data, std::uint64_t start) : data_(std::move(data)), start_(start) {}

    [[nodiscard]] std::uint64_t remaining() const { return data_.size() - position_; }

    Result<std::uint32_t> number() {
        const Data bytes = PV_TRY(take(4, "number"));
        std::uint32_t value = 0;
        for (unsigned i = 0; i < 4; ++i) {
            value |= static_cast<std::uint32_t>(bytes.span()[i]) << (8 * i);
        }
        return value;
    }

    Result<Data> take(std::uint64_t count, std::string_view what) {
        if (count > remaining()) {
            return fault(FaultCode::Truncated,
                         std::string(what) + " of " + std::to_string(count) + " bytes");
        }
        Data bytes = data_.subdataWithRange({position_, count});
        position_ += count;
        return bytes;
    }

    /// The next `count` bytes as a part of its own.
    Result<Cursor> part(std::uint64_t count) {
        const std::uint64_t start = start_ + position_;
        return Cursor(PV_TRY(take(count, "record")), start);
    }

    [[nodiscard]] Fault fault(FaultCode code, std::string what) const {
        return {code, "serialized file: " + std::move(what) + " at offset " +
                          std::to_string(start_ + position_)};
    }

private:
    Data data_;
    std::uint64_t start_;
    std::uint64_t position_ = 0;
};

/// The bytes of a file's record, after its kind.
Result<Data> readContents(Cursor& record) {
    std::uint32_t length = PV_TRY(record.number());
    if (length == kPadded) {
        length = PV_TRY(record.number());
        const std::uint32_t padding = PV_TRY(record.number());
        PV_TRY(record.take(padding, "padding"));
    }
    return record.take(length, "file");
}

/// One name in a folder's record, and how long the record under it is.
struct Listed {
    std::string name;
    std::uint32_t size = 0;
};

Result<std::vector<Listed>> readNames(Cursor& record) {
    const std::uint32_t count = PV_TRY(record.number());
    // Each takes the lengths of its name and of its record at least.
    if (count > record.remaining() / 8) {
        return record.fault(FaultCode::Truncated, std::to_string(count) + " names");
    }
    std::vector<Listed> names(count);
    for (Listed& listed : names) {
        const std::uint32_t length = PV_TRY(record.number());
        listed.name = PV_TRY(record.take(length, "name")).view();
    }
    for (Listed& listed : names) {
        listed.size = PV_TRY(record.number());
    }
    return names;
}

/// What a folder's record says: of itself, and its children.
struct Folder {
    std::optional<Data> contents;
    std::string preferredName;
    std::vector<FileWrapperEntry> children;
    /// Children whose name is taken; they get another key.
    std::vector<FileWrapperEntry> namesakes;
    NameTable names;
};

Result<std::shared_ptr<FileWrapper>> readRecord(Cursor& record, unsigned depth);

Outcome readChild(Folder& folder, std::string name, Cursor& record, unsigned depth) {
    auto child = PV_TRY(readRecord(record, depth + 1));
    if (child == nullptr || name.empty()) {
        return done();
    }
    auto& list = folder.names.add(name, 0).second ? folder.children : folder.namesakes;
    list.push_back({std::move(name), std::move(child)});
    return done();
}

Outcome readListed(Folder& folder, Listed listed, Cursor& record, unsigned depth) {
    Cursor part = PV_TRY(record.part(listed.size));
    if (listed.name == kAttributesName) {
        return done();
    }
    const bool isName = listed.name == kPreferredName || listed.name == kUtf8PreferredName;
    if (!isName && listed.name != kContentsName) {
        return readChild(folder, std::move(listed.name), part, depth);
    }
    if (PV_TRY(part.number()) != kFileRecord) {
        return part.fault(FaultCode::Malformed, listed.name + " that is no file");
    }
    Data contents = PV_TRY(readContents(part));
    if (!isName) {
        folder.contents = std::move(contents);
    } else if (listed.name == kUtf8PreferredName || folder.preferredName.empty()) {
        folder.preferredName = contents.view();
    }
    return done();
}

std::shared_ptr<FileWrapper> wrapperOf(Folder folder) {
    auto wrapper = folder.contents
                       ? FileWrapper::initRegularFileWithContents(*folder.contents)
                       : FileWrapper::initDirectoryWithFileWrappers(std::move(folder.children));
    if (!folder.contents) {
        for (FileWrapperEntry& namesake : folder.namesakes) {
            namesake.child->setPreferredFilename(std::move(namesake.key));
            wrapper->addFileWrapper(std::move(namesake.child));
        }
    }
    if (!folder.preferredName.empty()) {
        wrapper->setPreferredFilename(std::move(folder.preferredName));
    }
    return wrapper;
}

/// The wrapper of a record; null for a kind that is not known.
Result<std::shared_ptr<FileWrapper>> readRecord(Cursor& record, unsigned depth) {
    if (depth > kMaxDepth) {
        return record.fault(FaultCode::TooDeep, "folders nested deeper than 128 levels");
    }
    const std::uint32_t kind = PV_TRY(record.number());
    if (kind == kFileRecord) {
        return FileWrapper::initRegularFileWithContents(PV_TRY(readContents(record)));
    }
    if (kind != kFolderRecord) {
        return std::shared_ptr<FileWrapper>();
    }
    Folder folder;
    auto names = PV_TRY(readNames(record));
    for (Listed& listed : names) {
        PV_TRY(readListed(folder, std::move(listed), record, depth));
    }
    return wrapperOf(std::move(folder));
}

// Writing.

void appendNumber(std::string& bytes, std::uint64_t number) {
    for (unsigned i = 0; i < 4; ++i) {
        bytes.push_back(static_cast<char>(number >> (8 * i)));
    }
}

/// Whether a length or size can be said: from 2 GiB on it would look like the mark for padding.
bool isSayable(std::uint64_t number) {
    return number < kPadded;
}

std::string fileRecord(std::string_view contents) {
    std::string record;
    appendNumber(record, kFileRecord);
    appendNumber(record, contents.size());
    return record.append(contents);
}

std::string asciiForm(std::string_view name) {
    std::string ascii;
    for (const char unit : name) {
        // One for each character, whose further bytes begin with the bits 10.
        if ((unit & 0xC0) != 0x80) {
            ascii.push_back((unit & 0x80) != 0 ? '_' : unit);
        }
    }
    return ascii;
}

/// The records of a folder with their names.
using Records = std::vector<std::pair<std::string, std::string>>;

std::optional<std::string> folderRecord(const Records& records) {
    std::string folder;
    appendNumber(folder, kFolderRecord);
    appendNumber(folder, records.size());
    for (const auto& [name, record] : records) {
        appendNumber(folder, name.size());
        folder += name;
    }
    for (const auto& [name, record] : records) {
        appendNumber(folder, record.size());
    }
    for (const auto& [name, record] : records) {
        folder += record;
    }
    return isSayable(folder.size()) ? std::optional(std::move(folder)) : std::nullopt;
}

void addOwnNames(Records& records, const FileWrapper& wrapper) {
    if (const auto& name = wrapper.preferredFilename()) {
        records.emplace_back(kPreferredName, fileRecord(asciiForm(*name)));
        records.emplace_back(kUtf8PreferredName, fileRecord(*name));
    }
}

/// Whether a child of that name would be taken for what its folder says of itself.
bool isReserved(std::string_view name) {
    return name == kContentsName || name == kAttributesName || name == kPreferredName ||
           name == kUtf8PreferredName;
}

bool isLeftOut(const FileWrapper& child) {
    return !child.isDirectory() && !(child.isRegularFile() && child.regularFileContents());
}

std::optional<std::string> recordOf(const FileWrapper& wrapper, unsigned depth) {
    if (wrapper.isRegularFile()) {
        const auto contents = wrapper.regularFileContents();
        return contents && isSayable(contents->size()) ? std::optional(fileRecord(contents->view()))
                                                       : std::nullopt;
    }
    if (!wrapper.isDirectory() || depth > kMaxDepth) {
        return std::nullopt;
    }
    Records records;
    addOwnNames(records, wrapper);
    for (const auto& [key, child] : wrapper.fileWrappers()) {
        if (isLeftOut(*child)) {
            continue;
        }
        auto record = isReserved(key) ? std::nullopt : recordOf(*child, depth + 1);
        if (!record) {
            return std::nullopt;
        }
        records.emplace_back(key, std::move(*record));
    }
    return folderRecord(records);
}

}  // namespace

Result<std::shared_ptr<FileWrapper>> fileWrapperFromSerializedRepresentation(const Data& data) {
    Cursor cursor(data, 0);
    if (data.view().substr(0, kSignature.size()) != kSignature) {
        return cursor.fault(FaultCode::Malformed, "no signature");
    }
    PV_TRY(cursor.take(kSignature.size(), "signature"));
    auto wrapper = PV_TRY(readRecord(cursor, 0));
    if (wrapper == nullptr) {
        return cursor.fault(FaultCode::Unsupported, "neither file nor folder");
    }
    return wrapper;
}

std::optional<Data> serializedRepresentationOf(const FileWrapper& wrapper) {
    auto record = recordOf(wrapper, 0);
    if (record && wrapper.isRegularFile()) {
        // A file that stands alone lies in a record that also has its name.
        Records records;
        records.emplace_back(kContentsName, std::move(*record));
        addOwnNames(records, wrapper);
        record = folderRecord(records);
    }
    return record ? std::optional(Data::adopt(std::string(kSignature).append(*record)))
                  : std::nullopt;
}

}  // namespace platform
