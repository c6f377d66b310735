#include "Platform/Foundation/Log.h"

#include <atomic>
#include <cstdio>
#include <string>

namespace platform {
namespace {

std::atomic<LogSink> currentSink = nullptr;

}  // namespace

void log(std::string_view line) {
    if (const LogSink sink = currentSink.load()) {
        sink(line);
        return;
    }
    // One call a line, so that lines of several threads do not mix.
    std::string text(line);
    text += '\n';
    std::fwrite(text.data(), 1, text.size(), stderr);
}

LogSink setLogSink(LogSink sink) {
    return currentSink.exchange(sink);
}

}  // namespace platform
