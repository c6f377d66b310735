// The file that a command works on, read whole.

#pragma once

#include <string>

#include "Platform/Foundation/Data.h"
#include "Platform/Foundation/Result.h"

namespace pvdoc {

/// Returns the bytes of the regular file at `path`, or a Fault in the system's words. Pipes and
/// devices are refused before they could wait.
platform::Result<platform::Data> readFile(const std::string& path);

}  // namespace pvdoc
