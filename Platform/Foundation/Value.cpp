#include "Platform/Foundation/Value.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <type_traits>

#include "Platform/Foundation/NameTable.h"
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

Value::Value(std::uint64_t integer) {
    if (integer <= static_cast<std::uint64_t>(kMax)) {
        content_ = static_cast<std::int64_t>(integer);
    } else {
        content_ = integer;
    }
}

Value::Value(std::u16string string)
    : content_(std::make_shared<const std::u16string>(std::move(string))) {
}

Value::Value(Array array) : content_(std::make_shared<const Array>(std::move(array))) {
}

Value::Value(platform::Dictionary dictionary)
    : content_(std::make_shared<const platform::Dictionary>(std::move(dictionary))) {
}

Value::Value(std::shared_ptr<const platform::Object> object) {
    if (object != nullptr) {
        content_ = std::move(object);
    }
}

Value::Value(std::shared_ptr<const std::u16string> string) {
    if (string != nullptr) {
        content_ = std::move(string);
    }
}

Value::Value(std::shared_ptr<const platform::Dictionary> dictionary) {
    if (dictionary != nullptr) {
        content_ = std::move(dictionary);
    }
}

Value Value::fromUtf8(std::string_view text) {
    return Value(utf16FromUtf8Lossy(text));
}

ValueKind Value::kind() const {
    constexpr ValueKind kKinds[] = {ValueKind::Null,       ValueKind::Boolean, ValueKind::Integer,
                                    ValueKind::Integer,    ValueKind::Real,    ValueKind::Date,
                                    ValueKind::Data,       ValueKind::String,  ValueKind::Array,
                                    ValueKind::Dictionary, ValueKind::Uid,     ValueKind::Object};
    static_assert(std::size(kKinds) == std::variant_size_v<decltype(content_)>);
    return kKinds[content_.index()];
}

namespace {

template <class T, class Variant>
std::optional<T> copyIf(const Variant& content) {
    const T* const held = std::get_if<T>(&content);
    return held != nullptr ? std::optional<T>(*held) : std::nullopt;
}

template <class T, class Variant>
const T* pointerIf(const Variant& content) {
    const auto* const held = std::get_if<std::shared_ptr<const T>>(&content);
    return held != nullptr ? held->get() : nullptr;
}

}  // namespace

std::optional<bool> Value::boolean() const {
    return copyIf<bool>(content_);
}

std::optional<std::int64_t> Value::integer() const {
    return copyIf<std::int64_t>(content_);
}

std::optional<std::uint64_t> Value::unsignedInteger() const {
    if (const auto small = integer()) {
        return *small >= 0 ? std::optional<std::uint64_t>(*small) : std::nullopt;
    }
    return copyIf<std::uint64_t>(content_);
}

std::optional<double> Value::real() const {
    return copyIf<double>(content_);
}

std::optional<platform::Date> Value::date() const {
    return copyIf<platform::Date>(content_);
}

const platform::Data* Value::data() const {
    return std::get_if<platform::Data>(&content_);
}

const std::u16string* Value::string() const {
    return pointerIf<std::u16string>(content_);
}

std::shared_ptr<const std::u16string> Value::sharedString() const {
    const auto* const held = std::get_if<std::shared_ptr<const std::u16string>>(&content_);
    return held != nullptr ? *held : nullptr;
}

const Array* Value::array() const {
    return pointerIf<Array>(content_);
}

const platform::Dictionary* Value::dictionary() const {
    return pointerIf<platform::Dictionary>(content_);
}

std::shared_ptr<const platform::Dictionary> Value::sharedDictionary() const {
    const auto* const held = std::get_if<std::shared_ptr<const platform::Dictionary>>(&content_);
    return held != nullptr ? *held : nullptr;
}

std::optional<platform::Uid> Value::uid() const {
    return copyIf<platform::Uid>(content_);
}

std::shared_ptr<const platform::Object> Value::object() const {
    const auto* const held = std::get_if<std::shared_ptr<const platform::Object>>(&content_);
    return held != nullptr ? *held : nullptr;
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
    if (first.content_.index() != second.content_.index()) {
        return false;
    }
    return std::visit(
        [&](const auto& held) {
            using Held = std::decay_t<decltype(held)>;
            const auto& other = std::get<Held>(second.content_);
            if constexpr (std::is_same_v<Held, std::shared_ptr<const Object>>) {
                return held == other;
            } else if constexpr (requires { *held == *other; }) {
                return held == other || *held == *other;
            } else {
                return held == other;
            }
        },
        first.content_);
}

namespace {

// Up to here a linear search is as fast as a hash look-up.
constexpr std::size_t kLargestUnindexed = 16;

}  // namespace

Dictionary::Dictionary() = default;
Dictionary::~Dictionary() = default;
Dictionary::Dictionary(Dictionary&&) noexcept = default;

Dictionary::Dictionary(std::initializer_list<Entry> entries)
    : Dictionary(std::vector<Entry>(entries)) {
}

Dictionary::Dictionary(std::vector<Entry> entries) {
    entries_.reserve(entries.size());
    for (Entry& entry : entries) {
        set(std::move(entry.first), std::move(entry.second));
    }
}

Dictionary::Dictionary(const Dictionary& other)
    : entries_(other.entries_),
      index_(other.index_ ? std::make_unique<NameTable>(*other.index_) : nullptr) {
}

Dictionary& Dictionary::operator=(Dictionary other) noexcept {
    entries_.swap(other.entries_);
    index_.swap(other.index_);
    return *this;
}

const Value* Dictionary::find(std::string_view key) const {
    if (index_) {
        const std::size_t* const place = index_->find(key);
        return place != nullptr ? &entries_[*place].second : nullptr;
    }
    const auto entry = std::find_if(entries_.begin(), entries_.end(),
                                    [&](const Entry& e) { return e.first == key; });
    return entry != entries_.end() ? &entry->second : nullptr;
}

Value Dictionary::operator[](std::string_view key) const {
    const Value* const found = find(key);
    return found != nullptr ? *found : Value();
}

void Dictionary::set(std::string key, Value value) {
    if (const Value* const found = find(key)) {
        *const_cast<Value*>(found) = std::move(value);
        return;
    }
    if (index_) {
        index_->add(key, entries_.size());
    }
    entries_.emplace_back(std::move(key), std::move(value));
    if (!index_ && entries_.size() > kLargestUnindexed) {
        index_ = std::make_unique<NameTable>();
        for (std::size_t i = 0; i < entries_.size(); ++i) {
            index_->add(entries_[i].first, i);
        }
    }
}

bool operator==(const Dictionary& first, const Dictionary& second) {
    return first.size() == second.size() &&
           std::all_of(first.entries_.begin(), first.entries_.end(), [&](const auto& entry) {
               const Value* const other = second.find(entry.first);
               return other != nullptr && *other == entry.second;
           });
}

}  // namespace platform
