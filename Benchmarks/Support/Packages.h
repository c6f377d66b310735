// The documents that the benchmarks read, made by the builders that make the samples.
//
// Texts are words of one vocabulary, drawn the same way each time, so that they deflate about as
// well as prose does. One thread at a time.

#pragma once

#include <cstdint>
#include <string>

#include "Platform/Foundation/Data.h"
#include "Tests/Support/TemporaryFolder.h"

namespace bench {

/// The letters of a text: one byte each in the archive, or two.
enum class Script { Latin, Greek };

/// What the sets of attributes hold beside a font that many share.
enum class OwnValue { Number, String };

/// A document.
struct Shape {
    std::uint64_t units = 0;  ///< length of the text in UTF-16 units
    std::uint64_t runs = 1;   ///< stretches with attributes, all about as long
    std::uint64_t sets = 1;   ///< different sets of attributes; the runs take them in turn
    OwnValue own = OwnValue::Number;
    Script script = Script::Latin;

    /// A name for measurements and files.
    [[nodiscard]] std::string name() const;
};

/// Returns the keyed archive of a document's text.
[[nodiscard]] platform::Data archiveOf(const Shape& shape);

/// Returns that many letters of prose, one byte each.
[[nodiscard]] std::string prose(std::uint64_t size);

/// A folder of the documents that were asked for.
class Packages {
public:
    /// Returns the path of the package of this shape, which is made when it is first asked for.
    [[nodiscard]] std::string pathOf(const Shape& shape) const;

    /// Returns the path of an archive of `count` members of `size` bytes each, or so.
    [[nodiscard]] std::string pathOfMembers(std::uint64_t count, std::uint64_t size,
                                            bool areDeflated) const;

    [[nodiscard]] const std::string& folder() const { return folder_.path(); }

private:
    test::TemporaryFolder folder_;
};

}  // namespace bench
