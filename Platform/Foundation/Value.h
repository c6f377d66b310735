// A property-list value, or an object decoded from an archive.
//
// Strings are UTF-16; dictionary keys are UTF-8. Values are immutable and cheap to copy: containers
// and strings are shared, so one that is named many times costs its memory once.
// Immutable; any thread at once.

#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include "Platform/Foundation/Data.h"

namespace platform {

class Value;
class Dictionary;
class NameTable;

/// The root of all classes whose instances values can hold.
class Object {
public:
    virtual ~Object() = default;
};

/// A moment: seconds since 2001-01-01 00:00 UTC.
struct Date {
    double secondsSinceReferenceDate = 0;

    friend bool operator==(const Date&, const Date&) = default;
};

/// A reference to an entry of a keyed archive's object table.
struct Uid {
    std::uint64_t index = 0;

    friend bool operator==(const Uid&, const Uid&) = default;
};

using Array = std::vector<Value>;

/// What a Value holds.
enum class ValueKind {
    Null,
    Boolean,
    Integer,
    Real,
    Date,
    Data,
    String,
    Array,
    Dictionary,
    Uid,
    Object
};

/// One value of any kind; the accessors answer nothing (null) when the value is of another kind.
class Value {
public:
    /// Makes the null value.
    Value() = default;
    Value(bool boolean) : content_(boolean) {}
    Value(std::int64_t integer) : content_(integer) {}
    Value(int integer) : content_(static_cast<std::int64_t>(integer)) {}
    /// An integer that may lie above the signed range.
    Value(std::uint64_t integer);
    Value(double real) : content_(real) {}
    Value(platform::Date date) : content_(date) {}
    Value(platform::Data data) : content_(std::move(data)) {}
    Value(std::u16string string);
    Value(const char16_t* string) : Value(std::u16string(string)) {}
    Value(const char*) = delete;
    Value(Array array);
    Value(platform::Dictionary dictionary);
    /// A string or dictionary that is shared with others; a null pointer makes the null value.
    explicit Value(std::shared_ptr<const std::u16string> string);
    explicit Value(std::shared_ptr<const platform::Dictionary> dictionary);
    Value(platform::Uid uid) : content_(uid) {}
    /// An object; a null pointer makes the null value.
    Value(std::shared_ptr<const platform::Object> object);

    /// Makes a string from UTF-8; invalid bytes become U+FFFD.
    [[nodiscard]] static Value fromUtf8(std::string_view text);

    [[nodiscard]] ValueKind kind() const;
    [[nodiscard]] bool isNull() const { return content_.index() == 0; }

    [[nodiscard]] std::optional<bool> boolean() const;
    /// The integer, when it lies in the signed range.
    [[nodiscard]] std::optional<std::int64_t> integer() const;
    /// The integer, when it is not negative.
    [[nodiscard]] std::optional<std::uint64_t> unsignedInteger() const;
    [[nodiscard]] std::optional<double> real() const;
    [[nodiscard]] std::optional<platform::Date> date() const;
    [[nodiscard]] const platform::Data* data() const;
    [[nodiscard]] const std::u16string* string() const;
    /// The string, shared with this value.
    [[nodiscard]] std::shared_ptr<const std::u16string> sharedString() const;
    [[nodiscard]] const Array* array() const;
    [[nodiscard]] const platform::Dictionary* dictionary() const;
    /// The dictionary, shared with this value.
    [[nodiscard]] std::shared_ptr<const platform::Dictionary> sharedDictionary() const;
    [[nodiscard]] std::optional<platform::Uid> uid() const;
    [[nodiscard]] std::shared_ptr<const platform::Object> object() const;

    /// The string as UTF-8; nothing when the value is no string.
    [[nodiscard]] std::optional<std::string> utf8() const;

    /// The value as an integer the way the platform reads one: numbers are truncated toward zero
    /// and saturate, a boolean is 0 or 1, a string counts as far as it is decimal. Nothing when the
    /// value is neither a number nor a string.
    ///
    /// Selector: integerValue
    [[nodiscard]] std::optional<std::int64_t> integerValue() const;

    /// The value as a real number; nothing when it is no number. A boolean is 0 or 1.
    ///
    /// Selector: doubleValue
    [[nodiscard]] std::optional<double> doubleValue() const;

    /// Compares by content; objects compare by identity. Requires: no cycle through objects.
    friend bool operator==(const Value& first, const Value& second);

private:
    std::variant<std::monostate, bool, std::int64_t, std::uint64_t, double, platform::Date,
                 platform::Data, std::shared_ptr<const std::u16string>,
                 std::shared_ptr<const Array>, std::shared_ptr<const platform::Dictionary>,
                 platform::Uid, std::shared_ptr<const platform::Object>>
        content_;
};

/// Keys and values in the order in which they were added; a key added again replaces its value.
class Dictionary {
public:
    using Entry = std::pair<std::string, Value>;

    Dictionary();
    Dictionary(std::initializer_list<Entry> entries);
    /// Takes entries over; of equal keys the last one's value stays, at the first one's place.
    explicit Dictionary(std::vector<Entry> entries);
    ~Dictionary();
    Dictionary(const Dictionary&);
    Dictionary(Dictionary&&) noexcept;
    Dictionary& operator=(Dictionary) noexcept;

    [[nodiscard]] std::size_t size() const { return entries_.size(); }
    [[nodiscard]] const std::vector<Entry>& entries() const { return entries_; }

    /// The value under `key`, null when there is none. Costs a hash look-up at most.
    [[nodiscard]] const Value* find(std::string_view key) const;

    /// The value under `key`, the null value when there is none.
    [[nodiscard]] Value operator[](std::string_view key) const;

    void set(std::string key, Value value);

    /// Two dictionaries are equal when they hold equal values under equal keys, in any order.
    friend bool operator==(const Dictionary& first, const Dictionary& second);

private:
    friend class DictionaryTestPeer;

    std::vector<Entry> entries_;
    // The keys' places, only where a linear search would not do.
    std::unique_ptr<NameTable> index_;
};

}  // namespace platform
