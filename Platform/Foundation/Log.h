// The system log: fixed English sentences, one a line, no levels.
//
// Any thread. The sink is the process's: set it once, before other threads log.

#pragma once

#include <string_view>

namespace platform {

/// Receives one line without its end. It may be called on any thread.
using LogSink = void (*)(std::string_view line);

/// Writes `line` to the sink.
void log(std::string_view line);

/// Makes `sink` receive all further lines; null restores the default, standard error.
/// Returns the sink in use before, null for the default.
LogSink setLogSink(LogSink sink);

}  // namespace platform
