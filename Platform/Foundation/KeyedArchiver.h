// Writes keyed archives: object graphs as property lists.
//
// Every object is written once and referred to wherever it occurs again; equal numbers, short
// strings and keys are written once, too. Values are written as objects of the platform's standard
// classes, objects write themselves (Codable.h). What an archive may not hold (references to
// another archive's objects, objects that are not Codable, nesting deeper than readers follow)
// raises ArchiveException. One thread at a time; it needs some 512 KiB of stack.

#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "Platform/Foundation/Codable.h"
#include "Platform/Foundation/Data.h"
#include "Platform/Foundation/OpaqueObject.h"
#include "Platform/Foundation/PropertyListSerialization.h"
#include "Platform/Foundation/Result.h"
#include "Platform/Foundation/Value.h"

namespace platform {

/// One archive while it is being written.
class KeyedArchiver {
public:
    /// Begins an empty archive.
    ///
    /// Selector: init
    [[nodiscard]] static std::shared_ptr<KeyedArchiver> init();

    virtual ~KeyedArchiver();
    KeyedArchiver(const KeyedArchiver&) = delete;
    KeyedArchiver& operator=(const KeyedArchiver&) = delete;

    /// Returns an archive whose root object is `root`; null is an object, too.
    ///
    /// Selector: archivedDataWithRootObject:
    [[nodiscard]] static Data archivedDataWithRootObject(const Value& root);

    /// Does the same, but answers a Fault where the other raises ArchiveException: for a root with
    /// something in it that has no archived form, or that is nested too deep.
    [[nodiscard]] static Result<Data> archiveOfRootObject(const Value& root);

    /// The format of the finished archive; binary until it is set, XML is the other.
    [[nodiscard]] PropertyListFormat outputFormat() const { return format_; }
    void setOutputFormat(PropertyListFormat format) { format_ = format; }

    // Each of these gives a field to the object that is being encoded, or at top level to the
    // archive. A key that was given before gets the new value.

    /// Gives an object.
    ///
    /// Selector: encodeObject:forKey:
    void encodeObject(const Value& object, std::string_view forKey);

    /// Gives an object under the next number instead of a key.
    ///
    /// Selector: encodeObject:
    void encodeObject(const Value& object);

    /// Selector: encodeInteger:forKey:
    void encodeInteger(std::int64_t integer, std::string_view forKey);

    /// Selector: encodeDouble:forKey:
    void encodeDouble(double number, std::string_view forKey);

    /// Selector: encodeBool:forKey:
    void encodeBool(bool flag, std::string_view forKey);

    /// Gives bytes that stand in the field itself.
    ///
    /// Selector: encodeBytes:forKey:
    void encodeBytes(const Data& bytes, std::string_view forKey);

    /// Gives a field as it stood in another archive, its name spelt as on disk. Elements of inline
    /// containers that are objects are references, whatever its form says.
    void encodeField(const OpaqueField& field);

    /// Ends the archive and returns its bytes.
    ///
    /// Selector: encodedData
    [[nodiscard]] Data encodedData();

protected:
    KeyedArchiver();

    /// The name under which the archive says it was written; derived classes state their own.
    [[nodiscard]] virtual std::string_view archiverName() const { return "NSKeyedArchiver"; }

private:
    class Archive;

    std::unique_ptr<Archive> archive_;
    PropertyListFormat format_ = PropertyListFormat::Binary;
};

}  // namespace platform
