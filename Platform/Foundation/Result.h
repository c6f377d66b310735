// What a parser inside the platform answers: a value, or what is wrong with its input and where.
//
// A failure is born where the fact is known and passed on untouched; the operation that the outside
// calls gives it its outward shape, once.

#pragma once

#include <cassert>
#include <string>
#include <utility>
#include <variant>

namespace platform {

/// Why an input could not be read.
enum class FaultCode {
    Truncated,    ///< the input ends before what it announces
    Malformed,    ///< the bytes contradict the format
    Unsupported,  ///< the format allows it, this reader does not know it
    TooDeep,      ///< nested deeper than the reader follows
    Cyclic,       ///< something contains itself
    System,       ///< the operating system refused
};

/// What is wrong with an input: a code to decide by and a line for people that names the place.
struct Fault {
    FaultCode code;
    std::string detail;
    /// Whether the detail already names the part of the input that is at fault.
    bool isPlaced = false;
};

/// A value or a Fault.
template <class Value>
class [[nodiscard]] Result {
public:
    Result(const Value& value) : content_(std::in_place_index<0>, value) {}
    Result(Value&& value) : content_(std::in_place_index<0>, std::move(value)) {}
    Result(Fault fault) : content_(std::in_place_index<1>, std::move(fault)) {}

    explicit operator bool() const { return content_.index() == 0; }

    /// Requires: the result holds a value.
    [[nodiscard]] Value& value() & {
        assert(*this);
        return *std::get_if<0>(&content_);
    }
    [[nodiscard]] const Value& value() const& {
        assert(*this);
        return *std::get_if<0>(&content_);
    }
    Value&& value() && { return std::move(value()); }

    /// Requires: the result holds no value.
    [[nodiscard]] const Fault& fault() const& {
        assert(!*this);
        return *std::get_if<1>(&content_);
    }
    [[nodiscard]] Fault&& fault() && {
        assert(!*this);
        return std::move(*std::get_if<1>(&content_));
    }

private:
    std::variant<Value, Fault> content_;
};

/// Success without a value, or a Fault.
using Outcome = Result<std::monostate>;
inline Outcome done() {
    return std::monostate{};
}

}  // namespace platform

// Nested uses need names of their own.
#define PV_TRY_JOIN(first, second) first##second
#define PV_TRY_NAME(number) PV_TRY_JOIN(pv_result_, number)
// NOLINTBEGIN(bugprone-macro-parentheses): a name that is declared cannot stand in parentheses.
#define PV_TRY_AS(name, expression)         \
    __extension__({                         \
        auto name = (expression);           \
        if (!name)                          \
            return std::move(name).fault(); \
        std::move(name).value();            \
    })
// NOLINTEND(bugprone-macro-parentheses)

/// The value of a Result expression; when it has none, returns its Fault from the calling function.
#define PV_TRY(expression) PV_TRY_AS(PV_TRY_NAME(__COUNTER__), expression)
