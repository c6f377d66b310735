#include "Host/SharedProgress.h"

#include <sys/mman.h>

#include <cerrno>
#include <cstring>
#include <new>
#include <utility>

namespace host {
namespace {

// The monotonic clock is the same for all processes.
std::int64_t now() {
    return std::chrono::nanoseconds(std::chrono::steady_clock::now().time_since_epoch()).count();
}

}  // namespace

platform::Result<SharedProgress> SharedProgress::make() {
    void* memory =
        ::mmap(nullptr, sizeof(Page), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    if (memory == MAP_FAILED) {
        return platform::Fault{platform::FaultCode::System, std::strerror(errno)};
    }
    return SharedProgress(new (memory) Page);
}

SharedProgress::SharedProgress(SharedProgress&& other) noexcept
    : page_(std::exchange(other.page_, nullptr)) {
}

SharedProgress::~SharedProgress() {
    if (page_ != nullptr) {
        ::munmap(page_, sizeof(Page));
    }
}

void SharedProgress::beginForeign(Phase phase) {
    // In this order: whoever sees the phase sees its time, too.
    page_->since = now();
    page_->phase = phase;
}

void SharedProgress::takeInHand(std::size_t file) {
    page_->file = file;
    beginForeign(Phase::InHand);
}

bool SharedProgress::isForeign() const {
    const Phase current = phase();
    return current == Phase::Loading || current == Phase::InHand || current == Phase::Releasing;
}

std::chrono::nanoseconds SharedProgress::timeInHand() const {
    return std::chrono::nanoseconds(now() - page_->since);
}

OutputState SharedProgress::output() const {
    return {page_->hasBegun, page_->endsLine};
}

void SharedProgress::setOutput(OutputState state) {
    page_->hasBegun = state.hasBegun;
    page_->endsLine = state.endsLine;
}

}  // namespace host
