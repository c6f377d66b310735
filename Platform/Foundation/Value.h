// A property-list value, or an object decoded from an archive.
//
// Strings are UTF-16; dictionary keys are UTF-8. Values are immutable and cheap to copy: containers
// and strings are shared, so one that is named many times costs its memory once.
// Immutable; any thread at once.

#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <iterator>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "Platform/Foundation/Data.h"
#include "Platform/Foundation/DictionaryKeys.h"

namespace platform {

class Value;
class Dictionary;

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
enum class ValueKind : std::uint8_t {
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
    Value() : bits_{} {}
    Value(bool boolean) : kind_(ValueKind::Boolean), bits_{boolean ? 1U : 0U} {}
    Value(std::int64_t integer)
        : kind_(ValueKind::Integer), bits_{static_cast<std::uint64_t>(integer)} {}
    Value(int integer) : Value(static_cast<std::int64_t>(integer)) {}
    /// An integer that may lie above the signed range.
    Value(std::uint64_t integer)
        : kind_(ValueKind::Integer), isLarge_((integer >> 63) != 0), bits_{integer} {}
    Value(double real) : kind_(ValueKind::Real), bits_{std::bit_cast<std::uint64_t>(real)} {}
    Value(platform::Date date)
        : kind_(ValueKind::Date),
          bits_{std::bit_cast<std::uint64_t>(date.secondsSinceReferenceDate)} {}
    Value(platform::Data data);
    Value(std::u16string string);
    Value(const char16_t* string) : Value(std::u16string(string)) {}
    Value(const char*) = delete;
    Value(Array array);
    Value(platform::Dictionary dictionary);
    /// A string or dictionary that is shared with others; a null pointer makes the null value.
    explicit Value(std::shared_ptr<const std::u16string> string)
        : Value(ValueKind::String, std::move(string)) {}
    explicit Value(std::shared_ptr<const platform::Dictionary> dictionary)
        : Value(ValueKind::Dictionary, std::move(dictionary)) {}
    Value(platform::Uid uid) : kind_(ValueKind::Uid), bits_{uid.index} {}
    /// An object; a null pointer makes the null value.
    Value(std::shared_ptr<const platform::Object> object)
        : Value(ValueKind::Object, std::move(object)) {}

    Value(const Value& other) : kind_(other.kind_), isLarge_(other.isLarge_) {
        if (isShared()) {
            std::construct_at(&shared_, other.shared_);
        } else {
            bits_ = other.bits_;
        }
    }
    Value(Value&& other) noexcept : kind_(other.kind_), isLarge_(other.isLarge_) {
        if (isShared()) {
            std::construct_at(&shared_, std::move(other.shared_));
        } else {
            bits_ = other.bits_;
        }
    }
    Value& operator=(Value other) noexcept {
        std::destroy_at(this);
        std::construct_at(this, std::move(other));
        return *this;
    }
    ~Value() {
        if (isShared()) {
            std::destroy_at(&shared_);
        }
    }

    /// Makes a string from UTF-8; invalid bytes become U+FFFD.
    [[nodiscard]] static Value fromUtf8(std::string_view text);

    [[nodiscard]] ValueKind kind() const { return kind_; }
    [[nodiscard]] bool isNull() const { return kind_ == ValueKind::Null; }

    [[nodiscard]] std::optional<bool> boolean() const;
    /// The integer, when it lies in the signed range.
    [[nodiscard]] std::optional<std::int64_t> integer() const;
    /// The integer, when it is not negative.
    [[nodiscard]] std::optional<std::uint64_t> unsignedInteger() const;
    [[nodiscard]] std::optional<double> real() const;
    [[nodiscard]] std::optional<platform::Date> date() const;
    [[nodiscard]] const platform::Data* data() const {
        return pointer<platform::Data>(ValueKind::Data);
    }
    [[nodiscard]] const std::u16string* string() const {
        return pointer<std::u16string>(ValueKind::String);
    }
    /// The string, shared with this value.
    [[nodiscard]] std::shared_ptr<const std::u16string> sharedString() const {
        return shared<std::u16string>(ValueKind::String);
    }
    [[nodiscard]] const Array* array() const { return pointer<Array>(ValueKind::Array); }
    [[nodiscard]] const platform::Dictionary* dictionary() const {
        return pointer<platform::Dictionary>(ValueKind::Dictionary);
    }
    /// The dictionary, shared with this value.
    [[nodiscard]] std::shared_ptr<const platform::Dictionary> sharedDictionary() const {
        return shared<platform::Dictionary>(ValueKind::Dictionary);
    }
    [[nodiscard]] std::optional<platform::Uid> uid() const;
    [[nodiscard]] std::shared_ptr<const platform::Object> object() const {
        return shared<platform::Object>(ValueKind::Object);
    }

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
    /// Holds what is shared; nothing shared makes the null value.
    Value(ValueKind kind, std::shared_ptr<const void> shared) : bits_{} {
        if (shared != nullptr) {
            kind_ = kind;
            std::construct_at(&shared_, std::move(shared));
        }
    }

    [[nodiscard]] bool isShared() const {
        return kind_ == ValueKind::Data || kind_ == ValueKind::String ||
               kind_ == ValueKind::Array || kind_ == ValueKind::Dictionary ||
               kind_ == ValueKind::Object;
    }

    template <class Held>
    [[nodiscard]] const Held* pointer(ValueKind kind) const {
        return kind_ == kind ? static_cast<const Held*>(shared_.get()) : nullptr;
    }

    template <class Held>
    [[nodiscard]] std::shared_ptr<const Held> shared(ValueKind kind) const {
        return kind_ == kind ? std::static_pointer_cast<const Held>(shared_) : nullptr;
    }

    ValueKind kind_ = ValueKind::Null;
    /// Whether an integer lies above the signed range.
    bool isLarge_ = false;
    // Archives make many values: one of three words is worth its union.
    union {
        /// The bits of a number, a date or a reference, 0 for null. The second word is there for
        /// compilers that cannot see that it is not read.
        std::array<std::uint64_t, 2> bits_;
        /// Whatever is larger, as its kind tells.
        std::shared_ptr<const void> shared_;
    };
};

/// Keys and values in the order in which they were added; a key added again replaces its value.
class Dictionary {
public:
    using Entry = std::pair<std::string, Value>;

    /// An entry as it stands in a dictionary; valid until that changes.
    using EntryView = std::pair<const std::string&, const Value&>;

    /// The entries of a dictionary, in their order.
    class Entries {
    public:
        class Iterator {
        public:
            using iterator_category = std::input_iterator_tag;
            using value_type = EntryView;
            using difference_type = std::ptrdiff_t;
            using pointer = void;
            using reference = EntryView;

            EntryView operator*() const { return dictionary_->entries()[place_]; }
            Iterator& operator++() {
                ++place_;
                return *this;
            }
            Iterator operator++(int) { return {dictionary_, place_++}; }
            friend bool operator==(const Iterator&, const Iterator&) = default;

        private:
            friend class Entries;
            Iterator(const Dictionary* dictionary, std::size_t place)
                : dictionary_(dictionary), place_(place) {}

            const Dictionary* dictionary_;
            std::size_t place_;
        };

        [[nodiscard]] std::size_t size() const { return dictionary_->size(); }
        [[nodiscard]] EntryView operator[](std::size_t place) const {
            return {dictionary_->keys_->nameAt(place), dictionary_->values_[place]};
        }
        /// Requires: there is an entry.
        [[nodiscard]] EntryView front() const { return (*this)[0]; }
        [[nodiscard]] Iterator begin() const { return {dictionary_, 0}; }
        [[nodiscard]] Iterator end() const { return {dictionary_, size()}; }

    private:
        friend class Dictionary;
        explicit Entries(const Dictionary* dictionary) : dictionary_(dictionary) {}

        const Dictionary* dictionary_;
    };

    Dictionary() = default;
    Dictionary(std::initializer_list<Entry> entries);
    /// Takes entries over; of equal keys the last one's value stays, at the first one's place.
    explicit Dictionary(std::vector<Entry> entries);
    /// Takes values over for keys that other dictionaries may have, too.
    ///
    /// Requires: the keys are shared, there are as many values.
    Dictionary(SharedKeys keys, std::vector<Value> values);
    ~Dictionary() = default;
    Dictionary(const Dictionary& other);
    Dictionary(Dictionary&&) noexcept = default;
    Dictionary& operator=(Dictionary other) noexcept;

    [[nodiscard]] std::size_t size() const { return keys_ ? keys_->size() : 0; }
    [[nodiscard]] Entries entries() const { return Entries(this); }

    /// The value under `key`, null when there is none. Costs a hash look-up at most.
    [[nodiscard]] const Value* find(std::string_view key) const;

    /// The value under `key`, the null value when there is none.
    [[nodiscard]] Value operator[](std::string_view key) const;

    void set(std::string key, Value value);

    /// Two dictionaries are equal when they hold equal values under equal keys, in any order.
    friend bool operator==(const Dictionary& first, const Dictionary& second);

private:
    friend class DictionaryTestPeer;

    /// The keys, to be added to; copies them when they are shared.
    DictionaryKeys& ownKeys();

    /// Null when there are none. Shared keys are never changed.
    SharedKeys keys_;
    std::vector<Value> values_;
};

}  // namespace platform
