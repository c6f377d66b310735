// The cause of a failure, for a person.
//
// Most operations report a failure as a false or absent result and nothing else. The code that
// knows the cause notes it here, and whoever talks to a person can ask for it: one line, such as
// "text.plist: object 17: reference 90 of 42".
// State is per thread; none of it needs a destructor, so the code that holds it can be unloaded.

#pragma once

#include <string_view>

namespace platform {

/// Keeps `cause` as the calling thread's last failure, with the open contexts in front of it. It is
/// cut to a few hundred bytes, between characters; control characters become blanks, bytes that are
/// no UTF-8 become U+FFFD.
void noteFailure(std::string_view cause) noexcept;

/// Does the same unless the thread has a failure already, which then tells more.
void noteFailureUnlessNoted(std::string_view cause) noexcept;

/// Returns the calling thread's last failure as UTF-8, or null when there was none since
/// `clearFailure`. Valid until the thread notes or clears a failure.
[[nodiscard]] const char* lastFailure() noexcept;

/// Forgets the calling thread's last failure.
void clearFailure() noexcept;

/// While it lives, failures of its thread are noted with `what` in front: `what: cause`.
///
/// `what` must outlive the context. Contexts end in the reverse order of their making.
class FailureContext {
public:
    explicit FailureContext(std::string_view what) noexcept;
    ~FailureContext();
    FailureContext(const FailureContext&) = delete;
    FailureContext& operator=(const FailureContext&) = delete;

private:
    friend void noteFailure(std::string_view cause) noexcept;

    std::string_view what_;
    const FailureContext* outer_;
};

}  // namespace platform
