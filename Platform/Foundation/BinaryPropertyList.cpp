#include "Platform/Foundation/BinaryPropertyList.h"

#include <bit>
#include <cstring>
#include <limits>
#include <string>
#include <utility>

#include "Platform/Foundation/Unicode.h"

namespace platform {
namespace {

constexpr std::string_view kSignature = "bplist";
constexpr std::string_view kVersion = "0";  // the digit after it does not matter
constexpr std::uint64_t kTrailerSize = 32;

// Marker nibbles, from the high half of an object's first byte.
constexpr unsigned kInteger = 0x1;
constexpr unsigned kReal = 0x2;
constexpr unsigned kDate = 0x3;
constexpr unsigned kData = 0x4;
constexpr unsigned kAsciiString = 0x5;
constexpr unsigned kUtf16String = 0x6;
constexpr unsigned kUid = 0x8;
constexpr unsigned kArray = 0xA;
constexpr unsigned kOrderedSet = 0xB;
constexpr unsigned kSet = 0xC;
constexpr unsigned kDictionary = 0xD;

Fault malformed(std::string what, std::uint64_t offset) {
    return {FaultCode::Malformed, std::move(what) + " at offset " + std::to_string(offset)};
}

Fault truncated(std::string what, std::uint64_t offset) {
    return {FaultCode::Truncated, std::move(what) + " at offset " + std::to_string(offset) +
                                      " reaches beyond the objects"};
}

}  // namespace

bool BinaryPropertyList::hasSignature(const Data& data) {
    return data.view().substr(0, kSignature.size()) == kSignature;
}

Result<BinaryPropertyList> BinaryPropertyList::open(Data data) {
    if (!hasSignature(data)) {
        return Fault{FaultCode::Malformed, "no binary property list"};
    }
    const std::string_view version = data.view().substr(kSignature.size(), 2);
    if (!version.starts_with(kVersion)) {
        return Fault{FaultCode::Unsupported, "binary property list of another version"};
    }
    const std::uint64_t size = data.size();
    if (size < kHeaderSize + 1 + kTrailerSize) {
        return Fault{FaultCode::Truncated,
                     "binary property list of " + std::to_string(size) + " bytes"};
    }
    BinaryPropertyList list(std::move(data));
    // Five unused bytes and the sort version come first.
    const std::uint64_t trailer = size - kTrailerSize;
    list.offsetSize_ = list.bigEndianAt(trailer + 6, 1);
    list.referenceSize_ = list.bigEndianAt(trailer + 7, 1);
    list.objectCount_ = list.bigEndianAt(trailer + 8, 8);
    list.topObject_ = list.bigEndianAt(trailer + 16, 8);
    list.tableOffset_ = list.bigEndianAt(trailer + 24, 8);
    if (list.offsetSize_ < 1 || list.offsetSize_ > 8 || list.referenceSize_ < 1 ||
        list.referenceSize_ > 8) {
        return malformed("trailer with offsets of " + std::to_string(list.offsetSize_) +
                             " and references of " + std::to_string(list.referenceSize_) + " bytes",
                         trailer);
    }
    if (list.tableOffset_ <= kHeaderSize || list.tableOffset_ > trailer) {
        return malformed("offset table", list.tableOffset_);
    }
    if (list.objectCount_ > (trailer - list.tableOffset_) / list.offsetSize_) {
        return malformed("offset table of " + std::to_string(list.objectCount_) + " objects",
                         list.tableOffset_);
    }
    if (list.topObject_ >= list.objectCount_) {
        return malformed("top object " + std::to_string(list.topObject_) + " of " +
                             std::to_string(list.objectCount_),
                         trailer);
    }
    return list;
}

/// What is wrong with an object that offsetOf does not find.
Fault BinaryPropertyList::misplaced(std::uint64_t index) const {
    if (index >= objectCount_) {
        return {FaultCode::Malformed,
                "object " + std::to_string(index) + " of " + std::to_string(objectCount_)};
    }
    return malformed("object " + std::to_string(index),
                     bigEndianAt(tableOffset_ + index * offsetSize_, offsetSize_));
}

std::optional<std::uint64_t> BinaryPropertyList::uidAt(std::uint64_t index) const {
    const std::uint64_t offset = offsetOf(index);
    if (offset == 0) {
        return std::nullopt;
    }
    const std::uint64_t marker = bigEndianAt(offset, 1);
    const std::uint64_t width = (marker & 0xF) + 1;
    const bool isShortUid = (marker >> 4) == kUid && width <= 8;
    return isShortUid && width < tableOffset_ - offset
               ? std::optional(bigEndianAt(offset + 1, width))
               : std::nullopt;
}

Outcome BinaryPropertyList::readItem(std::uint64_t index, BinaryItem& item) const {
    const std::uint64_t offset = offsetOf(index);
    if (offset == 0) {
        return misplaced(index);
    }
    const auto marker = static_cast<unsigned>(bigEndianAt(offset, 1));
    switch (marker >> 4) {
        case kInteger:
            return readInteger(offset, marker, item);
        case kUid:
            return readUid(offset, marker, item);
        case kData:
        case kAsciiString:
        case kUtf16String:
        case kArray:
        case kOrderedSet:
        case kSet:
        case kDictionary:
            return readCounted(offset, marker, item);
        default:
            return readScalar(offset, marker, item);
    }
}

Outcome BinaryPropertyList::readScalar(std::uint64_t offset, unsigned marker,
                                       BinaryItem& item) const {
    if (marker == 0x00) {
        return done();
    }
    if (marker == 0x08 || marker == 0x09) {
        item.kind = BinaryKind::Boolean;
        item.bits = marker & 1;
        return done();
    }
    const bool isReal = (marker >> 4) == kReal && ((marker & 0xF) == 2 || (marker & 0xF) == 3);
    const bool isDate = (marker >> 4) == kDate && (marker & 0xF) == 3;
    if (!isReal && !isDate) {
        return malformed("unknown marker " + std::to_string(marker), offset);
    }
    const std::uint64_t width = std::uint64_t{1} << (marker & 0xF);
    if (!Range{offset + 1, width}.liesWithin(tableOffset_)) {
        return truncated("number", offset);
    }
    item.kind = isDate ? BinaryKind::Date : BinaryKind::Real;
    item.bits = bigEndianAt(offset + 1, width);
    if (width == 4) {
        const auto single = std::bit_cast<float>(static_cast<std::uint32_t>(item.bits));
        item.bits = std::bit_cast<std::uint64_t>(static_cast<double>(single));
    }
    return done();
}

Outcome BinaryPropertyList::readInteger(std::uint64_t offset, unsigned marker,
                                        BinaryItem& item) const {
    const std::uint64_t width = std::uint64_t{1} << (marker & 0xF);
    if (width > 16) {
        return malformed("integer of " + std::to_string(width) + " bytes", offset);
    }
    if (!Range{offset + 1, width}.liesWithin(tableOffset_)) {
        return truncated("integer", offset);
    }
    item.kind = BinaryKind::Integer;
    if (width < 16) {
        // One, two and four bytes are unsigned, eight are signed.
        item.bits = bigEndianAt(offset + 1, width);
        return done();
    }
    const std::uint64_t high = bigEndianAt(offset + 1, 8);
    item.bits = bigEndianAt(offset + 9, 8);
    const bool topBit = (item.bits >> 63) != 0;
    item.isUnsigned = high == 0 && topBit;
    const bool isSignExtension = high == std::numeric_limits<std::uint64_t>::max() && topBit;
    if (high != 0 && !isSignExtension) {
        return Fault{FaultCode::Unsupported,
                     "integer of more than 64 bits at offset " + std::to_string(offset)};
    }
    return done();
}

Outcome BinaryPropertyList::readUid(std::uint64_t offset, unsigned marker, BinaryItem& item) const {
    const std::uint64_t width = (marker & 0xF) + 1;
    if (!Range{offset + 1, width}.liesWithin(tableOffset_)) {
        return truncated("reference", offset);
    }
    const std::uint64_t excess = width > 8 ? width - 8 : 0;
    for (std::uint64_t i = 0; i < excess; ++i) {
        if (bigEndianAt(offset + 1 + i, 1) != 0) {
            return malformed("reference of more than 64 bits", offset);
        }
    }
    item.kind = BinaryKind::Uid;
    item.bits = bigEndianAt(offset + 1 + excess, width - excess);
    return done();
}

Outcome BinaryPropertyList::readCounted(std::uint64_t offset, unsigned marker,
                                        BinaryItem& item) const {
    std::uint64_t start = offset + 1;
    item.count = marker & 0xF;
    if (item.count == 0xF) {
        // A larger count follows as an integer object.
        if (start >= tableOffset_) {
            return truncated("count", offset);
        }
        const auto countMarker = static_cast<unsigned>(bigEndianAt(start, 1));
        if ((countMarker >> 4) != kInteger || (countMarker & 0xF) > 3) {
            return malformed("count that is no integer", start);
        }
        BinaryItem count;
        PV_TRY(readInteger(start, countMarker, count));
        item.count = count.bits;
        start += 1 + (std::uint64_t{1} << (countMarker & 0xF));
    }
    std::uint64_t unitSize = 1;
    switch (marker >> 4) {
        case kData:
            item.kind = BinaryKind::Data;
            break;
        case kAsciiString:
            item.kind = BinaryKind::AsciiString;
            break;
        case kUtf16String:
            item.kind = BinaryKind::Utf16String;
            unitSize = 2;
            break;
        case kDictionary:
            item.kind = BinaryKind::Dictionary;
            unitSize = 2 * referenceSize_;
            break;
        default:
            item.kind = BinaryKind::Array;
            unitSize = referenceSize_;
    }
    if (start > tableOffset_ || item.count > (tableOffset_ - start) / unitSize) {
        return truncated("object of " + std::to_string(item.count) + " units", offset);
    }
    item.bytes = {start, item.count * unitSize};
    return done();
}

Result<std::shared_ptr<const std::u16string>> BinaryPropertyList::stringOf(
    const BinaryItem& item) const {
    const std::string_view bytes = bytesOf(item);
    if (item.kind == BinaryKind::AsciiString) {
        if (!isAscii(bytes)) {
            return malformed("string that is not ASCII", item.bytes.location);
        }
        // Made where it stays: texts are long, and short strings are many.
        return std::make_shared<const std::u16string>(bytes.begin(), bytes.end());
    }
    const auto text = std::make_shared<std::u16string>(item.count, u'\0');
    std::memcpy(text->data(), bytes.data(), bytes.size());
    for (char16_t& unit : *text) {
        unit = static_cast<char16_t>((unit << 8) | (unit >> 8));
    }
    return std::shared_ptr<const std::u16string>(text);
}

bool BinaryPropertyList::equalsAscii(const BinaryItem& item, std::string_view ascii) const {
    if (item.kind == BinaryKind::AsciiString) {
        return bytesOf(item) == ascii;
    }
    if (item.kind != BinaryKind::Utf16String || item.count != ascii.size()) {
        return false;
    }
    const std::string_view bytes = bytesOf(item);
    for (std::size_t i = 0; i < ascii.size(); ++i) {
        if (bytes[2 * i] != '\0' || bytes[2 * i + 1] != ascii[i]) {
            return false;
        }
    }
    return true;
}

}  // namespace platform
