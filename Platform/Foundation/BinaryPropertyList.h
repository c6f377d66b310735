// A view of a binary property list ("bplist00"), object by object.
//
// Nothing is built and nothing is copied: an object is looked up by its number when it is asked
// for, and every offset, count and reference is checked then. The view keeps the bytes alive.
// Immutable; any thread at once.

#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>

#include "Platform/Foundation/Data.h"
#include "Platform/Foundation/Range.h"
#include "Platform/Foundation/Result.h"

namespace platform {

/// What an object of a binary property list is. Sets are read as arrays.
enum class BinaryKind : std::uint8_t {
    Null,
    Boolean,
    Integer,
    Real,
    Date,
    Data,
    AsciiString,
    Utf16String,
    Uid,
    Array,
    Dictionary
};

/// One object: its kind, and where the view finds its content.
struct BinaryItem {
    BinaryKind kind = BinaryKind::Null;
    /// Whether an integer lies above the signed range.
    bool isUnsigned = false;
    /// Booleans and references: the value. Integers: the bits, to be read as signed or not as
    /// `isUnsigned` says. Reals and dates: the bits of a double.
    std::uint64_t bits = 0;
    /// Data, strings: the bytes. Containers: the references (a dictionary's keys, then its values).
    Range bytes;
    /// Strings: UTF-16 units. Data: bytes. Arrays: elements. Dictionaries: pairs.
    std::uint64_t count = 0;
};

/// The objects of one binary property list.
class BinaryPropertyList {
public:
    /// Whether `data` begins like a binary property list.
    [[nodiscard]] static bool hasSignature(const Data& data);

    /// Checks the frame (signature, trailer, offset table) and returns the view.
    static Result<BinaryPropertyList> open(Data data);

    [[nodiscard]] std::uint64_t objectCount() const { return objectCount_; }
    [[nodiscard]] std::uint64_t topObject() const { return topObject_; }
    [[nodiscard]] std::size_t size() const { return data_.size(); }

    /// Returns the object with number `index`, which must be below objectCount() or is a Fault. The
    /// object's own bytes lie within the data; what is in them is not looked at.
    Result<BinaryItem> itemAt(std::uint64_t index) const {
        Result<BinaryItem> result = BinaryItem();
        if (Outcome outcome = readItem(index, result.value()); !outcome) {
            result = std::move(outcome).fault();
        }
        return result;
    }

    /// The same, for those who read very many: fills `item`, which must be as it was made.
    Outcome readItem(std::uint64_t index, BinaryItem& item) const;

    /// Returns the reference that the object with number `index` is; nothing when it is none, or
    /// one that only itemAt can judge. A short cut for archives, which are full of references.
    [[nodiscard]] std::optional<std::uint64_t> uidAt(std::uint64_t index) const;

    /// Returns the number of an array's element.
    ///
    /// Requires: the item is an array, `position` is below its count.
    [[nodiscard]] std::uint64_t elementAt(const BinaryItem& array, std::uint64_t position) const {
        return referenceAt(array.bytes.location, position);
    }

    /// Returns the numbers of a dictionary's key and value.
    ///
    /// Requires: the item is a dictionary, `position` is below its count.
    [[nodiscard]] std::uint64_t keyAt(const BinaryItem& dictionary, std::uint64_t position) const {
        return referenceAt(dictionary.bytes.location, position);
    }
    [[nodiscard]] std::uint64_t valueAt(const BinaryItem& dictionary,
                                        std::uint64_t position) const {
        return referenceAt(dictionary.bytes.location, dictionary.count + position);
    }

    /// The bytes of a data or string object; valid as long as the view lives.
    [[nodiscard]] std::string_view bytesOf(const BinaryItem& item) const {
        return data_.view().substr(item.bytes.location, item.bytes.length);
    }

    /// The bytes of a data object, shared with the view.
    [[nodiscard]] Data dataOf(const BinaryItem& item) const {
        return data_.subdataWithRange(item.bytes);
    }

    /// Returns the text of a string object, a Fault when its bytes are not what it says.
    ///
    /// Requires: the item is a string.
    Result<std::shared_ptr<const std::u16string>> stringOf(const BinaryItem& item) const;

    /// Whether a string object's text equals `ascii`. False for other objects.
    [[nodiscard]] bool equalsAscii(const BinaryItem& item, std::string_view ascii) const;

private:
    explicit BinaryPropertyList(Data data) : data_(std::move(data)) {}

    /// Takes eight bytes at once and drops what is too much: the trailer lies behind all that is
    /// read so.
    [[nodiscard]] std::uint64_t bigEndianAt(std::uint64_t offset, std::uint64_t width) const {
        static_assert(std::endian::native == std::endian::little);
        std::uint64_t bytes = 0;
        std::memcpy(&bytes, data_.bytes() + offset, sizeof bytes);
        return __builtin_bswap64(bytes) >> (64 - 8 * width);
    }
    [[nodiscard]] std::uint64_t referenceAt(std::uint64_t offset, std::uint64_t position) const {
        return bigEndianAt(offset + position * referenceSize_, referenceSize_);
    }
    /// Returns where an object begins; 0, where none can, when the table does not lead to one.
    [[nodiscard]] std::uint64_t offsetOf(std::uint64_t index) const {
        if (index >= objectCount_) {
            return 0;
        }
        const std::uint64_t offset = bigEndianAt(tableOffset_ + index * offsetSize_, offsetSize_);
        return offset >= kHeaderSize && offset < tableOffset_ ? offset : 0;
    }
    [[nodiscard]] Fault misplaced(std::uint64_t index) const;
    Outcome readScalar(std::uint64_t offset, unsigned marker, BinaryItem& item) const;
    Outcome readInteger(std::uint64_t offset, unsigned marker, BinaryItem& item) const;
    Outcome readUid(std::uint64_t offset, unsigned marker, BinaryItem& item) const;
    Outcome readCounted(std::uint64_t offset, unsigned marker, BinaryItem& item) const;

    static constexpr std::uint64_t kHeaderSize = 8;

    Data data_;
    std::uint64_t objectCount_ = 0;
    std::uint64_t topObject_ = 0;
    std::uint64_t tableOffset_ = 0;
    std::uint64_t offsetSize_ = 0;
    std::uint64_t referenceSize_ = 0;
};

}  // namespace platform
