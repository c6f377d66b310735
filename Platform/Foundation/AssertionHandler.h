// What happens when a condition that the code relies on does not hold.
//
// Code states its conditions through `require`. The default handler throws an AssertionFailure; a
// thread can have a handler of its own, and when that returns, `require` answers false and the
// operation gives its failure result.

#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "Platform/Foundation/Exception.h"

namespace platform {

/// Receives the broken conditions of one thread.
class AssertionHandler {
public:
    virtual ~AssertionHandler() = default;

    /// Called with each broken condition. May throw, or return to let the operation fail.
    virtual void handleFailure(const AssertionFailure& failure) = 0;
};

/// While it lives, `handler` receives the broken conditions of the thread that made it.
///
/// The handler is borrowed and must outlive the scope.
class AssertionHandlerScope {
public:
    explicit AssertionHandlerScope(AssertionHandler& handler);
    ~AssertionHandlerScope();
    AssertionHandlerScope(const AssertionHandlerScope&) = delete;
    AssertionHandlerScope& operator=(const AssertionHandlerScope&) = delete;

private:
    AssertionHandler* outer_;
};

/// Where a condition stands in the source. `file` must live as long as the code.
struct SourcePlace {
    std::string_view file;
    std::uint32_t line;
};

/// Hands a failure described by `description` to the thread's handler, or throws it as an
/// AssertionFailure when the thread has none.
void failAssertion(std::string description, SourcePlace place);

/// Returns `holds`. When it is false, the assertion handler is first told
/// "Invalid parameter not satisfying: " and the text of the condition.
[[nodiscard]] bool require(bool holds, std::string_view condition, SourcePlace place);

}  // namespace platform
