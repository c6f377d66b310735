#include "Platform/CoreFoundation/CFNumber.h"

#include <cmath>
#include <cstring>
#include <functional>
#include <limits>
#include <optional>
#include <type_traits>
#include <utility>
#include <variant>

#include "Platform/CoreFoundation/Object.h"

namespace platform::cf {
namespace {

constexpr double kTwoTo63 = 9223372036854775808.0;

/// The double as an integer, when it is one.
std::optional<SInt64> exactInteger(double value) noexcept {
    if (!(value >= -kTwoTo63 && value < kTwoTo63) || value != std::trunc(value)) {
        return std::nullopt;
    }
    return static_cast<SInt64>(value);
}

/// The number as a `Target`: cut toward zero, the nearest there is when it lies beyond.
template <class Target>
Target converted(SInt64 value) noexcept {
    if constexpr (std::is_integral_v<Target>) {
        using Limits = std::numeric_limits<Target>;
        if (std::cmp_less(value, Limits::min())) {
            return Limits::min();
        }
        return std::cmp_greater(value, Limits::max()) ? Limits::max() : static_cast<Target>(value);
    } else {
        return static_cast<Target>(value);
    }
}

template <class Target>
Target converted(double value) noexcept {
    if constexpr (std::is_integral_v<Target>) {
        if (std::isnan(value)) {
            return 0;
        }
        if (value >= kTwoTo63) {
            return std::numeric_limits<Target>::max();
        }
        if (value < -kTwoTo63) {
            return std::numeric_limits<Target>::min();
        }
        return converted<Target>(static_cast<SInt64>(value));
    } else {
        constexpr double kMost = std::numeric_limits<Target>::max();
        const bool beyond = std::isfinite(value) && std::abs(value) > kMost;
        return static_cast<Target>(beyond ? std::copysign(kMost, value) : value);
    }
}

/// The class behind CFNumberRef. Immutable; any thread.
class Number final : public PlainObject<Number> {
public:
    static constexpr TypeID kType = TypeID::Number;
    using Content = std::variant<SInt64, double>;

    explicit Number(Content content) : PlainObject(kType), content_(canonical(content)) {}

    [[nodiscard]] const Content& content() const noexcept { return content_; }

    [[nodiscard]] bool isEqual(const Object& other) const noexcept override {
        return sameValue(content_, static_cast<const Number&>(other).content_);
    }

    [[nodiscard]] CFHashCode hash() const noexcept override {
        const std::optional<SInt64> integer = integerOf(content_);
        return integer ? std::hash<SInt64>()(*integer)
                       : std::hash<double>()(std::get<double>(content_));
    }

    /// Whole doubles equal the integers of the same value; a NaN equals itself, as an object must.
    [[nodiscard]] static bool sameValue(const Content& first, const Content& second) noexcept {
        const std::optional<SInt64> integer = integerOf(first);
        const std::optional<SInt64> otherInteger = integerOf(second);
        if (integer || otherInteger) {
            return integer == otherInteger;
        }
        const double value = std::get<double>(first);
        const double other = std::get<double>(second);
        return value == other || (std::isnan(value) && std::isnan(other));
    }

private:
    [[nodiscard]] static std::optional<SInt64> integerOf(const Content& content) noexcept {
        const double* real = std::get_if<double>(&content);
        return real == nullptr ? std::get<SInt64>(content) : exactInteger(*real);
    }

    // One NaN for all, so that equal ones hash alike.
    [[nodiscard]] static Content canonical(const Content& content) noexcept {
        const double* real = std::get_if<double>(&content);
        return real != nullptr && std::isnan(*real)
                   ? Content(std::numeric_limits<double>::quiet_NaN())
                   : content;
    }

    Content content_;
};

/// Calls `use` with a value of the C type that `type` names, as the type of its argument; false for
/// an unknown type.
template <class Use>
bool withType(CFNumberType type, Use use) {
    switch (type) {
        case kCFNumberSInt8Type:
        case kCFNumberCharType:
            return use(SInt8{});
        case kCFNumberSInt16Type:
        case kCFNumberShortType:
            return use(SInt16{});
        case kCFNumberSInt32Type:
        case kCFNumberIntType:
            return use(SInt32{});
        case kCFNumberSInt64Type:
        case kCFNumberLongType:
        case kCFNumberLongLongType:
        case kCFNumberCFIndexType:
        case kCFNumberNSIntegerType:
            return use(SInt64{});
        case kCFNumberFloat32Type:
        case kCFNumberFloatType:
            return use(Float32{});
        case kCFNumberFloat64Type:
        case kCFNumberDoubleType:
        case kCFNumberCGFloatType:
            return use(Float64{});
        default:
            return false;
    }
}

CFNumberRef refOf(const Number* number) noexcept {
    return reinterpret_cast<CFNumberRef>(number);
}

template <class Source>
using Widest = std::conditional_t<std::is_integral_v<Source>, SInt64, double>;

}  // namespace
}  // namespace platform::cf

using platform::cf::converted;
using platform::cf::Number;
using platform::cf::objectAs;
using platform::cf::orNull;
using platform::cf::TypeID;
using platform::cf::Widest;
using platform::cf::withType;

extern "C" {

CFTypeID CFNumberGetTypeID(void) {
    return static_cast<CFTypeID>(TypeID::Number);
}

CFNumberRef CFNumberCreate(CFAllocatorRef, CFNumberType theType, const void* valuePtr) {
    return orNull([&]() -> CFNumberRef {
        const Number* number = nullptr;
        withType(theType, [&](auto value) {
            std::memcpy(&value, valuePtr, sizeof value);
            number = new Number(static_cast<Widest<decltype(value)>>(value));
            return true;
        });
        return refOf(number);
    });
}

Boolean CFNumberIsFloatType(CFNumberRef number) {
    const auto& object = objectAs<Number>(number, "CFNumberIsFloatType");
    return std::holds_alternative<double>(object.content());
}

Boolean CFNumberGetValue(CFNumberRef number, CFNumberType theType, void* valuePtr) {
    const Number::Content& content = objectAs<Number>(number, "CFNumberGetValue").content();
    return withType(theType, [&](auto value) {
        using Target = decltype(value);
        value = std::visit([](auto source) { return converted<Target>(source); }, content);
        std::memcpy(valuePtr, &value, sizeof value);
        return Number::sameValue(content, static_cast<Widest<Target>>(value));
    });
}

}  // extern "C"
