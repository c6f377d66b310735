#include "Platform/Foundation/BinaryPropertyListWriter.h"

#include <bit>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "Platform/Foundation/NameTable.h"
#include "Platform/Foundation/PropertyListDecoder.h"
#include "Platform/Foundation/Unicode.h"

namespace platform {
namespace {

void appendBigEndian(std::string& bytes, std::uint64_t value, unsigned width) {
    for (unsigned i = width; i-- > 0;) {
        bytes.push_back(static_cast<char>(value >> (8 * i)));
    }
}

/// The smallest of 1, 2, 4 and 8 bytes that holds `value`.
unsigned widthOf(std::uint64_t value) {
    return value <= 0xFF ? 1 : value <= 0xFFFF ? 2 : value <= 0xFFFFFFFF ? 4 : 8;
}

/// Appends an integer object; eight bytes are signed, larger values take sixteen.
void appendInteger(std::string& bytes, std::uint64_t bits, bool isUnsigned) {
    if (isUnsigned) {
        bytes.push_back('\x14');
        appendBigEndian(bytes, 0, 8);
        appendBigEndian(bytes, bits, 8);
        return;
    }
    const unsigned width = widthOf(bits);
    bytes.push_back(static_cast<char>(0x10 | std::countr_zero(width)));
    appendBigEndian(bytes, bits, width);
}

void appendMarker(std::string& bytes, unsigned kind, std::uint64_t count) {
    if (count < 0xF) {
        bytes.push_back(static_cast<char>(kind << 4 | count));
        return;
    }
    bytes.push_back(static_cast<char>(kind << 4 | 0xF));
    appendInteger(bytes, count, false);
}

void appendString(std::string& bytes, std::u16string_view text) {
    const std::string utf8 = utf8FromUtf16(text);
    if (isAscii(utf8)) {
        appendMarker(bytes, 0x5, utf8.size());
        bytes += utf8;
        return;
    }
    appendMarker(bytes, 0x6, text.size());
    for (const char16_t unit : text) {
        appendBigEndian(bytes, unit, 2);
    }
}

/// An object in the list: its bytes, or for containers its kind and what it refers to.
struct Entry {
    std::string bytes;
    unsigned containerKind = 0;
    std::uint64_t count = 0;
    std::vector<std::uint64_t> references;
};

class Writer {
public:
    /// Numbers `value` and everything in it.
    Result<std::uint64_t> add(const Value& value, unsigned depth) {
        if (depth > kMaxPropertyListDepth) {
            return Fault{FaultCode::TooDeep, "property list nested deeper than " +
                                                 std::to_string(kMaxPropertyListDepth) + " levels"};
        }
        if (const Array* const array = value.array()) {
            return addArray(*array, depth);
        }
        if (const Dictionary* const dictionary = value.dictionary()) {
            return addDictionary(*dictionary, depth);
        }
        return addScalar(PV_TRY(scalarBytes(value)));
    }

    std::string finish(std::uint64_t topObject) const {
        const unsigned referenceSize = widthOf(entries_.size());
        std::string file = "bplist00";
        std::vector<std::uint64_t> offsets;
        offsets.reserve(entries_.size());
        for (const Entry& entry : entries_) {
            offsets.push_back(file.size());
            if (entry.containerKind == 0) {
                file += entry.bytes;
                continue;
            }
            appendMarker(file, entry.containerKind, entry.count);
            for (const std::uint64_t reference : entry.references) {
                appendBigEndian(file, reference, referenceSize);
            }
        }
        const std::uint64_t tableOffset = file.size();
        const unsigned offsetSize = widthOf(tableOffset);
        for (const std::uint64_t offset : offsets) {
            appendBigEndian(file, offset, offsetSize);
        }
        file.append(6, '\0');
        appendBigEndian(file, offsetSize, 1);
        appendBigEndian(file, referenceSize, 1);
        appendBigEndian(file, entries_.size(), 8);
        appendBigEndian(file, topObject, 8);
        appendBigEndian(file, tableOffset, 8);
        return file;
    }

private:
    static Result<std::string> scalarBytes(const Value& value) {
        std::string bytes;
        switch (value.kind()) {
            case ValueKind::Boolean:
                bytes.push_back(*value.boolean() ? '\x09' : '\x08');
                break;
            case ValueKind::Integer:
                if (const auto integer = value.integer()) {
                    appendInteger(bytes, static_cast<std::uint64_t>(*integer), false);
                } else {
                    appendInteger(bytes, *value.unsignedInteger(), true);
                }
                break;
            case ValueKind::Real:
                bytes.push_back('\x23');
                appendBigEndian(bytes, std::bit_cast<std::uint64_t>(*value.real()), 8);
                break;
            case ValueKind::Date:
                bytes.push_back('\x33');
                appendBigEndian(
                    bytes, std::bit_cast<std::uint64_t>(value.date()->secondsSinceReferenceDate),
                    8);
                break;
            case ValueKind::Data:
                appendMarker(bytes, 0x4, value.data()->size());
                bytes += value.data()->view();
                break;
            case ValueKind::String:
                appendString(bytes, *value.string());
                break;
            case ValueKind::Uid: {
                const std::uint64_t index = value.uid()->index;
                const unsigned width = widthOf(index);
                bytes.push_back(static_cast<char>(0x80 | (width - 1)));
                appendBigEndian(bytes, index, width);
                break;
            }
            default:
                return Fault{FaultCode::Unsupported, "value that is no property list"};
        }
        return bytes;
    }

    std::uint64_t addScalar(std::string bytes) {
        const auto [number, isNew] = scalars_.add(bytes, entries_.size());
        if (isNew) {
            entries_.push_back({std::move(bytes), 0, 0, {}});
        }
        return number;
    }

    Result<std::uint64_t> addArray(const Array& array, unsigned depth) {
        const auto [place, isNew] = containers_.try_emplace(&array, entries_.size());
        const std::uint64_t number = place->second;
        if (!isNew) {
            return number;
        }
        entries_.push_back({{}, 0xA, array.size(), {}});
        std::vector<std::uint64_t> references;
        references.reserve(array.size());
        for (const Value& element : array) {
            references.push_back(PV_TRY(add(element, depth + 1)));
        }
        entries_[number].references = std::move(references);
        return number;
    }

    Result<std::uint64_t> addDictionary(const Dictionary& dictionary, unsigned depth) {
        const auto [place, isNew] = containers_.try_emplace(&dictionary, entries_.size());
        const std::uint64_t number = place->second;
        if (!isNew) {
            return number;
        }
        entries_.push_back({{}, 0xD, dictionary.size(), {}});
        std::vector<std::uint64_t> references;
        references.reserve(2 * dictionary.size());
        for (const auto& [key, value] : dictionary.entries()) {
            references.push_back(PV_TRY(add(Value::fromUtf8(key), depth + 1)));
        }
        for (const auto& [key, value] : dictionary.entries()) {
            references.push_back(PV_TRY(add(value, depth + 1)));
        }
        entries_[number].references = std::move(references);
        return number;
    }

    std::vector<Entry> entries_;
    NameTable scalars_;
    std::unordered_map<const void*, std::uint64_t> containers_;
};

}  // namespace

Result<Data> binaryPropertyListData(const Value& propertyList) {
    Writer writer;
    const std::uint64_t topObject = PV_TRY(writer.add(propertyList, 0));
    return Data::adopt(writer.finish(topObject));
}

}  // namespace platform
