#include "Tools/pvdoc/Progress.h"

#include <unistd.h>

#include <cstdio>
#include <utility>

namespace pvdoc {
namespace {

// What is shorter is done before anybody could read the line.
constexpr std::uint64_t kLongText = 2'000'000;
constexpr std::uint64_t kLongFiles = 100'000'000;

}  // namespace

Progress::Progress(std::string what, std::uint64_t total, Printing printing, Unit unit)
    : what_(std::move(what)),
      total_(total),
      isShown_(total >= (unit == Unit::Byte ? kLongFiles : kLongText) &&
               ::isatty(STDERR_FILENO) != 0 &&
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
