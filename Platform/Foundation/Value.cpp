#include "Platform/Foundation/Value.h"

#include <algorithm>
#include <cassert>
#include <cmath>
#include <limits>

#include "Platform/Foundation/Unicode.h"

namespace platform {
namespace {

constexpr std::int64_t kMax = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t kMin = std::numeric_limits<std::int64_t>::min();

bool isWhiteSpace(char16_t unit) {
    return unit == u' ' || (unit >= 0x09 && unit <= 0x0D) || unit == 0x85 || unit == 0xA0 ||
           unit == 0x1680 || (unit >= 0x2000 && unit <= 0x200B) || unit == 0x2028 ||
           unit == 0x2029 || unit == 0x202F || unit == 0x205F || unit == 0x3000;
}

/// Reads decimal digits as far as they go; saturates.
std::int64_t integerFromString(std::u16string_view text) {
    std::size_t i = 0;
    while (i < text.size() && isWhiteSpace(text[i])) {
        ++i;
    }
    const bool negative = i < text.size() && text[i] == u'-';
    if (i < text.size() && (text[i] == u'-' || text[i] == u'+')) {
        ++i;
    }
    // Counted downwards, where the range reaches one further.
    std::int64_t value = 0;
    for (; i < text.size() && text[i] >= u'0' && text[i] <= u'9'; ++i) {
        const int digit = text[i] - u'0';
        if (value < (kMin + digit) / 10) {
            return negative ? kMin : kMax;
        }
        value = value * 10 - digit;
    }
    if (negative) {
        return value;
    }
    return value == kMin ? kMax : -value;
}

std::int64_t integerFromReal(double real) {
    if (std::isnan(real)) {
        return 0;
    }
    constexpr double kTwoTo63 = 9223372036854775808.0;
    if (real >= kTwoTo63) {
        return kMax;
    }
    return real < -kTwoTo63 ? kMin : static_cast<std::int64_t>(real);
}

}  // namespace

Value::Value(platform::Data data)
    : kind_(ValueKind::Data), shared_(std::make_shared<const platform::Data>(std::move(data))) {
}

Value::Value(std::u16string string)
    : kind_(ValueKind::String), shared_(std::make_shared<const std::u16string>(std::move(string))) {
}

Value::Value(Array array)
    : kind_(ValueKind::Array), shared_(std::make_shared<const Array>(std::move(array))) {
}

Value::Value(platform::Dictionary dictionary)
    : kind_(ValueKind::Dictionary),
      shared_(std::make_shared<const platform::Dictionary>(std::move(dictionary))) {
}

Value Value::fromUtf8(std::string_view text) {
    return Value(utf16FromUtf8Lossy(text));
}

std::optional<bool> Value::boolean() const {
    return kind_ == ValueKind::Boolean ? std::optional(bits_[0] != 0) : std::nullopt;
}

std::optional<std::int64_t> Value::integer() const {
    return kind_ == ValueKind::Integer && !isLarge_
               ? std::optional(static_cast<std::int64_t>(bits_[0]))
               : std::nullopt;
}

std::optional<std::uint64_t> Value::unsignedInteger() const {
    if (kind_ != ValueKind::Integer || (!isLarge_ && static_cast<std::int64_t>(bits_[0]) < 0)) {
        return std::nullopt;
    }
    return bits_[0];
}

std::optional<double> Value::real() const {
    return kind_ == ValueKind::Real ? std::optional(std::bit_cast<double>(bits_[0])) : std::nullopt;
}

std::optional<platform::Date> Value::date() const {
    return kind_ == ValueKind::Date ? std::optional(platform::Date{std::bit_cast<double>(bits_[0])})
                                    : std::nullopt;
}

std::optional<platform::Uid> Value::uid() const {
    return kind_ == ValueKind::Uid ? std::optional(platform::Uid{bits_[0]}) : std::nullopt;
}

std::optional<std::string> Value::utf8() const {
    const std::u16string* const text = string();
    return text != nullptr ? std::optional<std::string>(utf8FromUtf16(*text)) : std::nullopt;
}

std::optional<std::int64_t> Value::integerValue() const {
    if (const auto flag = boolean()) {
        return *flag ? 1 : 0;
    }
    if (const auto small = integer()) {
        return small;
    }
    if (const auto large = unsignedInteger()) {
        return kMax;
    }
    if (const auto number = real()) {
        return integerFromReal(*number);
    }
    if (const std::u16string* const text = string()) {
        return integerFromString(*text);
    }
    return std::nullopt;
}

std::optional<double> Value::doubleValue() const {
    if (const auto number = real()) {
        return number;
    }
    if (const auto large = unsignedInteger()) {
        return static_cast<double>(*large);
    }
    if (const auto small = integer()) {
        return static_cast<double>(*small);
    }
    const auto flag = boolean();
    return flag ? std::optional<double>(*flag ? 1 : 0) : std::nullopt;
}

bool operator==(const Value& first, const Value& second) {
    if (first.kind_ != second.kind_ || first.isLarge_ != second.isLarge_) {
        return false;
    }
    if (first.isShared() && first.shared_ == second.shared_) {
        return true;
    }
    switch (first.kind_) {
        case ValueKind::Real:
        case ValueKind::Date:
            // By value: 0 and -0 are equal, what is no number equals nothing.
            return std::bit_cast<double>(first.bits_[0]) == std::bit_cast<double>(second.bits_[0]);
        case ValueKind::Data:
            return *first.data() == *second.data();
        case ValueKind::String:
            return *first.string() == *second.string();
        case ValueKind::Array:
            return *first.array() == *second.array();
        case ValueKind::Dictionary:
            return *first.dictionary() == *second.dictionary();
        case ValueKind::Object:
            return false;
        default:
            return first.bits_[0] == second.bits_[0];
    }
}

Dictionary::Dictionary(std::initializer_list<Entry> entries)
    : Dictionary(std::vector<Entry>(entries)) {
}

Dictionary::Dictionary(std::vector<Entry> entries) {
    values_.reserve(entries.size());
    for (Entry& entry : entries) {
        set(std::move(entry.first), std::move(entry.second));
    }
}

Dictionary::Dictionary(SharedKeys keys, std::vector<Value> values)
    : keys_(std::move(keys)), values_(std::move(values)) {
    assert(keys_->isShared() && keys_->size() == values_.size());
}

Dictionary::Dictionary(const Dictionary& other)
    : keys_(other.keys_ && !other.keys_->isShared() ? std::make_shared<DictionaryKeys>(*other.keys_)
                                                    : other.keys_),
      values_(other.values_) {
}

Dictionary& Dictionary::operator=(Dictionary other) noexcept {
    keys_.swap(other.keys_);
    values_.swap(other.values_);
    return *this;
}

const Value* Dictionary::find(std::string_view key) const {
    const auto place = keys_ ? keys_->find(key) : std::nullopt;
    return place ? &values_[*place] : nullptr;
}

Value Dictionary::operator[](std::string_view key) const {
    const Value* const found = find(key);
    return found != nullptr ? *found : Value();
}

DictionaryKeys& Dictionary::ownKeys() {
    if (!keys_) {
        keys_ = std::make_shared<DictionaryKeys>();
        keys_->reserve(values_.capacity());
    } else if (keys_->isShared()) {
        keys_ = std::make_shared<DictionaryKeys>(*keys_);
    }
    return *keys_;
}

void Dictionary::set(std::string key, Value value) {
    if (const auto place = keys_ ? keys_->find(key) : std::nullopt) {
        values_[*place] = std::move(value);
        return;
    }
    // The value first; one whose key then found no memory goes the next time.
    values_.resize(size());
    values_.push_back(std::move(value));
    ownKeys().append(std::move(key));
}

bool operator==(const Dictionary& first, const Dictionary& second) {
    const auto entries = first.entries();
    return first.size() == second.size() &&
           std::all_of(entries.begin(), entries.end(), [&](const Dictionary::EntryView& entry) {
               const Value* const other = second.find(entry.first);
               return other != nullptr && *other == entry.second;
           });
}

}  // namespace platform
