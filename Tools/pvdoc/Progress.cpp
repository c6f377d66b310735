#include "Tools/pvdoc/Progress.h"

#include <unistd.h>

#include <cstdio>
#include <utility>

namespace pvdoc {
namespace {

/// Shorter texts are done before anybody could read the line.
constexpr std::uint64_t kLongText = 2'000'000;

}  // namespace

Progress::Progress(std::string what, std::uint64_t total, Printing printing)
    : what_(std::move(what)),
      total_(total),
      isShown_(total >= kLongText && ::isatty(STDERR_FILENO) != 0 &&
               (printing == Printing::AtTheEnd || ::isatty(STDOUT_FILENO) == 0)) {
    show("...");
}

Progress::~Progress() {
    if (isShown_) {
        std::fputs("\r\x1B[K", stderr);
    }
}

void Progress::reach(std::uint64_t position) {
    const std::uint64_t percent = position / (total_ / 100 + 1);
    if (percent != percent_) {
        percent_ = percent;
        show(std::to_string(percent) + " %");
    }
}

void Progress::show(const std::string& state) const {
    if (isShown_) {
        std::fprintf(stderr, "\rpvdoc: %s %s\x1B[K", what_.c_str(), state.c_str());
    }
}

}  // namespace pvdoc
