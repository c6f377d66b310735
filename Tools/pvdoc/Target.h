// The file that a command writes: whether it may, and how nothing is lost when that fails.
//
// One thread.

#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "Platform/Foundation/Result.h"

namespace pvdoc {

/// Whether a file that is there already may be replaced.
enum class Overwrite : bool { No, Yes };

/// Returns a Fault when a file can't be written at `path` as things are: one is there that may not
/// be replaced, or something that is no file and is never replaced.
platform::Outcome checkTarget(const std::string& path, Overwrite overwrite);

/// Writes a file to the path that it is given.
using Writing = std::function<platform::Outcome(const std::string& path)>;

/// Lets `write` make a file beside `path`, waits until the disk has it and then puts it in its
/// place in one step; where a link leads to the file, the link stays. A Fault names the file, and
/// what was there is as it was.
platform::Outcome writeBeside(const std::string& path, const Writing& write);

/// Returns the fault with the name of its file in front.
[[nodiscard]] platform::Fault inFile(std::string_view path, const platform::Fault& fault);

/// Returns `cause` without the path in front of it that leads to the file at `path`, or to one of
/// its name that is made beside it.
[[nodiscard]] std::string withoutPath(std::string_view path, std::string_view cause);

/// Returns the cause of the thread's last failure, `otherwise` when nobody has noted one, without
/// the name of the file at `written`.
[[nodiscard]] std::string causeOfFailure(std::string_view written, std::string_view otherwise);

/// Returns a Fault in the system's words for `error`, a value of errno.
[[nodiscard]] platform::Fault systemFault(int error);

}  // namespace pvdoc
