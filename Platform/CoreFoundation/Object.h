// The root of the library's objects: a count of owners, a type, a value to compare.
//
// The classes behind the Refs are seen by the library's own sources alone. Counting is atomic and
// takes no lock; an object's own file says what else about it is safe on several threads.

#pragma once

#include <atomic>
#include <limits>
#include <new>
#include <utility>

#include "Platform/CoreFoundation/CFBase.h"

namespace platform::cf {

/// The types, with the numbers that CFGetTypeID answers.
enum class TypeID : CFTypeID {
    String = 1,
    UUID,
    Array,
    Dictionary,
    Boolean,
    Number,
    Data,
    Date,
    URL,
    Bundle
};

/// Ends the process: `function` was called in a way that its description rules out.
[[noreturn]] void endForBrokenCall(const char* function) noexcept;

/// Ends the process unless `holds`.
inline void expect(bool holds, const char* function) noexcept {
    if (!holds) [[unlikely]] {
        endForBrokenCall(function);
    }
}

/// What all objects have in common.
class Object {
public:
    Object(const Object&) = delete;
    Object& operator=(const Object&) = delete;

    [[nodiscard]] TypeID typeID() const noexcept { return typeID_; }
    [[nodiscard]] CFIndex owners() const noexcept {
        return owners_.load(std::memory_order_relaxed);
    }

    /// Adds an owner.
    void retain() const noexcept;

    /// Takes an owner away and, with the last one, the object.
    void release() const noexcept;

    /// Makes the object one that never goes.
    void makeEternal() const noexcept { owners_.store(kEternal, std::memory_order_relaxed); }

    [[nodiscard]] bool isEternal() const noexcept { return isEternal(owners()); }

    /// Compares values. Requires: `other` is of the same type.
    [[nodiscard]] virtual bool isEqual(const Object& other) const noexcept {
        return this == &other;
    }

    /// Equal objects have the same.
    [[nodiscard]] virtual CFHashCode hash() const noexcept {
        return reinterpret_cast<CFHashCode>(this) >> 4;
    }

protected:
    // In the middle of what counts as eternal, so that owners who come and go while an object is
    // made eternal do not matter.
    static constexpr CFIndex kEternal = std::numeric_limits<CFIndex>::max() / 2;

    constexpr explicit Object(TypeID typeID, CFIndex owners = 1) noexcept
        : owners_(owners), typeID_(typeID) {}
    // Not virtual, so that eternal objects need no exit hook; lastRelease knows the class.
    ~Object() = default;

    [[nodiscard]] static bool isEternal(CFIndex owners) noexcept { return owners > kEternal / 2; }

    /// Takes one owner away without a look at how many there are; true when it was the last.
    [[nodiscard]] bool dropOwner() const noexcept {
        return owners_.fetch_sub(1, std::memory_order_acq_rel) == 1;
    }

private:
    /// Called instead of counting down by an owner who seems to be the last: takes that owner away
    /// and deletes the object if nobody became an owner meanwhile.
    virtual void lastRelease() const noexcept = 0;

    mutable std::atomic<CFIndex> owners_;
    TypeID typeID_;
};

/// An object that only its owners can reach, so that nobody can come in between the last one and
/// the end.
template <class Self>
class PlainObject : public Object {
protected:
    using Object::Object;
    ~PlainObject() = default;

private:
    void lastRelease() const noexcept override { delete static_cast<const Self*>(this); }
};

/// The object behind a Ref. Ends the process in the name of `function` for NULL.
inline const Object& objectOf(CFTypeRef ref, const char* function) noexcept {
    expect(ref != nullptr, function);
    return *static_cast<const Object*>(ref);
}

/// The object behind a Ref as a `Class`. Ends the process in the name of `function` for NULL and
/// for an object of another type.
template <class Class>
const Class& objectAs(CFTypeRef ref, const char* function) noexcept {
    const Object& object = objectOf(ref, function);
    expect(object.typeID() == Class::kType, function);
    return static_cast<const Class&>(object);
}

/// What `make` answers, NULL when there is no memory for it.
template <class Make>
auto orNull(Make make) noexcept -> decltype(make()) {
    try {
        return make();
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

/// What `change` answers. Without memory for it, the process ends.
template <class Change>
auto orEnd(Change change) noexcept -> decltype(change()) {
    return change();
}

/// Owns one Ref.
template <class Ref>
class Owned {
public:
    Owned() = default;
    explicit Owned(Ref ref) noexcept : ref_(ref) {}
    Owned(Owned&& other) noexcept : ref_(other.take()) {}
    Owned& operator=(Owned&& other) noexcept {
        std::swap(ref_, other.ref_);
        return *this;
    }
    ~Owned() {
        if (ref_ != nullptr) {
            CFRelease(ref_);
        }
    }

    [[nodiscard]] Ref get() const noexcept { return ref_; }
    [[nodiscard]] Ref take() noexcept {
        const Ref ref = ref_;
        ref_ = nullptr;
        return ref;
    }
    explicit operator bool() const noexcept { return ref_ != nullptr; }

private:
    Ref ref_ = nullptr;
};

}  // namespace platform::cf
