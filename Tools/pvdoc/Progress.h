// Tells a person at a terminal how far a long piece of work is.

#pragma once

#include <cstdint>
#include <string>

namespace pvdoc {

/// A line on the standard error that changes while the work goes on and is gone at its end.
///
/// It shows only for long work, and where the standard error is a terminal but the standard
/// output, which would be mixed with it, is not.
class Progress {
public:
    /// Whether output is written while the work goes on, or only behind its end.
    enum class Printing : bool { Meanwhile, AtTheEnd };

    /// What the work goes over: the UTF-16 units of a text, or the bytes of files.
    enum class Unit : bool { Character, Byte };

    /// `total` is how many units the work goes over.
    Progress(std::string what, std::uint64_t total, Printing printing, Unit unit = Unit::Character);
    ~Progress();
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    /// Tells that the work has come to `position`.
    void reach(std::uint64_t position);

private:
    void show(const std::string& state) const;

    const std::string what_;
    const std::uint64_t total_;
    const bool isShown_;
    std::uint64_t percent_ = 0;
};

}  // namespace pvdoc
