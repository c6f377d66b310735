// The exceptions of the platform: programming errors and failures whose required form is an
// exception.
//
// Each has a name, the one that the platform documents, and a reason for people. They are all
// std::exceptions, so a host that knows nothing of them can still stop them; what() is the reason.
// Immutable; any thread.

#pragma once

#include <cstdint>
#include <exception>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

namespace platform {

/// What all exceptions of the platform have in common.
class Exception : public std::exception {
public:
    [[nodiscard]] const std::string& name() const { return text_->name; }
    [[nodiscard]] const std::string& reason() const { return text_->reason; }
    [[nodiscard]] const char* what() const noexcept override { return text_->reason.c_str(); }

protected:
    Exception(std::string_view name, std::string reason)
        : text_(std::make_shared<const Text>(Text{std::string(name), std::move(reason)})) {}

private:
    // Shared, because copying an exception must not throw.
    struct Text {
        std::string name;
        std::string reason;
    };
    std::shared_ptr<const Text> text_;
};

/// A position or range outside of what it indexes: "NSRangeException".
class RangeException : public Exception {
public:
    explicit RangeException(std::string reason)
        : Exception("NSRangeException", std::move(reason)) {}
};

/// An argument that the operation cannot take: "NSInvalidArgumentException".
class InvalidArgumentException : public Exception {
public:
    explicit InvalidArgumentException(std::string reason)
        : Exception("NSInvalidArgumentException", std::move(reason)) {}
};

/// A state that should not have come about: "NSInternalInconsistencyException".
class InternalInconsistencyException : public Exception {
public:
    explicit InternalInconsistencyException(std::string reason)
        : Exception("NSInternalInconsistencyException", std::move(reason)) {}
};

/// Bytes that are no keyed archive, or whose root cannot be had:
/// "NSInvalidUnarchiveOperationException".
class UnarchiveException : public Exception {
public:
    explicit UnarchiveException(std::string reason)
        : Exception("NSInvalidUnarchiveOperationException", std::move(reason)) {}
};

/// An object that cannot be archived: "NSInvalidArchiveOperationException".
class ArchiveException : public Exception {
public:
    explicit ArchiveException(std::string reason)
        : Exception("NSInvalidArchiveOperationException", std::move(reason)) {}
};

/// A condition of the code that does not hold, with the place in the source that states it.
class AssertionFailure : public InternalInconsistencyException {
public:
    AssertionFailure(std::string description, std::string_view file, std::uint32_t line)
        : InternalInconsistencyException(std::move(description)), file_(file), line_(line) {}

    /// The source file, as the assertion states it; lives as long as the program's code.
    [[nodiscard]] std::string_view file() const { return file_; }
    [[nodiscard]] std::uint32_t line() const { return line_; }

private:
    std::string_view file_;
    std::uint32_t line_;
};

/// Notes the reason as the thread's last failure.
void noteException(const Exception& exception);

/// Throws `exception` after noting its reason as the thread's last failure. Every exception of the
/// platform is thrown this way.
template <class ExceptionType>
[[noreturn]] void raise(ExceptionType exception) {
    noteException(exception);
    throw exception;  // NOLINT(misc-throw-by-value-catch-by-reference)
}

}  // namespace platform
