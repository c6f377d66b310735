// Reads keyed archives: object graphs as property lists.
//
// An archive is binary or XML; both are read the same way. Objects are decoded on demand, each
// once. Classes that the unarchiver knows become values or objects of their own; all others become
// OpaqueObjects, so that an unknown attribute never costs a person the text that carries it.
// Hostile archives end in a Fault or an UnarchiveException: cycles, references out of range and
// wrong types are found, nesting is bounded, and what is decoded is bounded by the archive's size.
// One thread at a time; it needs some 512 KiB of stack.

#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "Platform/Foundation/Codable.h"
#include "Platform/Foundation/Data.h"
#include "Platform/Foundation/OpaqueObject.h"
#include "Platform/Foundation/Result.h"
#include "Platform/Foundation/Value.h"

namespace platform {

class ArchivedObject;

/// Decodes an instance of one class from its archived fields.
using ObjectDecoder = Result<Value> (*)(const ArchivedObject& object);

/// A class that an unarchiver can decode: the name on disk and what to do with its fields.
struct CodableClass {
    std::string_view name;
    ObjectDecoder decode;
};

/// How deep archived objects may nest.
inline constexpr unsigned kMaxArchiveDepth = 128;

/// One archive while it is being read.
class KeyedUnarchiver {
public:
    /// Begins to read the archive `data`. Knows strings, numbers, data, dates, arrays and
    /// dictionaries.
    ///
    /// Raises UnarchiveException when the bytes are no property list or hold no object table.
    ///
    /// Selector: initForReadingWithData:
    [[nodiscard]] static std::shared_ptr<KeyedUnarchiver> initForReadingWithData(const Data& data);

    virtual ~KeyedUnarchiver();
    KeyedUnarchiver(const KeyedUnarchiver&) = delete;
    KeyedUnarchiver& operator=(const KeyedUnarchiver&) = delete;

    /// Makes further classes known, before any object is decoded; a name that is known already gets
    /// the new decoder.
    ///
    /// `classes` is borrowed and must outlive the unarchiver.
    void addClasses(std::span<const CodableClass> classes);

    /// Returns the next top-level object: the first unkeyed one, else the one under "root", else
    /// the only one. Null when it is the null object.
    ///
    /// Raises UnarchiveException when there is no such object or it can't be decoded.
    ///
    /// Selector: decodeObject
    [[nodiscard]] Value decodeObject();

    /// Returns the top-level object under `key`; null when there is none or it is the null object.
    ///
    /// Raises UnarchiveException when it can't be decoded.
    ///
    /// Selector: decodeObjectForKey:
    [[nodiscard]] Value decodeObjectForKey(std::string_view key);

    /// Whether a top-level value stands under `key`.
    ///
    /// Selector: containsValueForKey:
    [[nodiscard]] bool containsValueForKey(std::string_view key) const;

    /// Ends the reading; the archive's bytes and all that was decoded so far are let go. Later
    /// calls find nothing.
    ///
    /// Selector: finishDecoding
    void finishDecoding();

protected:
    /// Opens the archive; raises as initForReadingWithData does.
    explicit KeyedUnarchiver(const Data& data);

private:
    friend class ArchivedObject;
    class Archive;

    Value decodeTopLevel(std::uint64_t number);

    std::unique_ptr<Archive> archive_;
};

}  // namespace platform
