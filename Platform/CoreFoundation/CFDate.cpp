#include "Platform/CoreFoundation/CFDate.h"

#include <functional>

#include "Platform/CoreFoundation/Object.h"

namespace platform::cf {
namespace {

/// The class behind CFDateRef. Immutable; any thread.
class Moment final : public PlainObject<Moment> {
public:
    static constexpr TypeID kType = TypeID::Date;

    explicit Moment(CFAbsoluteTime time) : PlainObject(kType), time_(time) {}

    [[nodiscard]] CFAbsoluteTime time() const noexcept { return time_; }

    [[nodiscard]] bool isEqual(const Object& other) const noexcept override {
        return time_ == static_cast<const Moment&>(other).time_;
    }
    [[nodiscard]] CFHashCode hash() const noexcept override { return std::hash<double>()(time_); }

private:
    CFAbsoluteTime time_;
};

}  // namespace
}  // namespace platform::cf

using platform::cf::Moment;
using platform::cf::objectAs;
using platform::cf::orNull;
using platform::cf::TypeID;

extern "C" {

CFTypeID CFDateGetTypeID(void) {
    return static_cast<CFTypeID>(TypeID::Date);
}

CFDateRef CFDateCreate(CFAllocatorRef, CFAbsoluteTime at) {
    return orNull([&] { return reinterpret_cast<CFDateRef>(new Moment(at)); });
}

CFAbsoluteTime CFDateGetAbsoluteTime(CFDateRef theDate) {
    return objectAs<Moment>(theDate, "CFDateGetAbsoluteTime").time();
}

}  // extern "C"
