#include "Platform/CoreFoundation/CFNumber.h"
#include "Platform/CoreFoundation/Object.h"

namespace platform::cf {
namespace {

/// The class behind CFBooleanRef: two objects, made before any code runs, that never go.
class Truth final : public Object {
public:
    static constexpr TypeID kType = TypeID::Boolean;

    constexpr explicit Truth(bool value) : Object(kType, kEternal), value_(value) {}

    [[nodiscard]] bool value() const noexcept { return value_; }

private:
    void lastRelease() const noexcept override {}

    bool value_;
};

constinit const Truth truth(true);
constinit const Truth falsehood(false);

}  // namespace
}  // namespace platform::cf

using platform::cf::falsehood;
using platform::cf::objectAs;
using platform::cf::Truth;
using platform::cf::truth;
using platform::cf::TypeID;

extern "C" {

const CFBooleanRef kCFBooleanTrue = reinterpret_cast<CFBooleanRef>(&truth);
const CFBooleanRef kCFBooleanFalse = reinterpret_cast<CFBooleanRef>(&falsehood);

CFTypeID CFBooleanGetTypeID(void) {
    return static_cast<CFTypeID>(TypeID::Boolean);
}

Boolean CFBooleanGetValue(CFBooleanRef boolean) {
    return objectAs<Truth>(boolean, "CFBooleanGetValue").value();
}

}  // extern "C"
