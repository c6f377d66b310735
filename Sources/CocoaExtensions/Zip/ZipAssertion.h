// How the zip container states its conditions.

#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

#include "Platform/Foundation/AssertionHandler.h"

namespace parlavox {

/// The source file that all of the container's assertions are reported for.
inline constexpr std::string_view kZipSourceFile = "Sources/CocoaExtensions/Zip/ZipWrapper";

/// Returns `holds`; tells the assertion handler first when it is false.
[[nodiscard]] inline bool zipRequire(bool holds, std::string_view condition, std::uint32_t line) {
    return platform::require(holds, condition, {kZipSourceFile, line});
}

/// Reports an internal failure to the assertion handler.
inline void zipFail(std::string description, std::uint32_t line) {
    platform::failAssertion(std::move(description), {kZipSourceFile, line});
}

}  // namespace parlavox
