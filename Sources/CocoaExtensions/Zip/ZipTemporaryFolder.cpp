#include "Sources/CocoaExtensions/Zip/ZipTemporaryFolder.h"

#include <limits.h>

#include <array>
#include <atomic>

namespace parlavox {
namespace {

enum class State { Absent, Claimed, Published };

std::atomic<State> state = State::Absent;
std::array<char, PATH_MAX> text;

}  // namespace

const char* ZipTemporaryFolder::cachedPath() {
    return state.load(std::memory_order_acquire) == State::Published ? text.data() : nullptr;
}

void ZipTemporaryFolder::publish(std::string_view path) {
    State expected = State::Absent;
    if (path.size() >= text.size() || !state.compare_exchange_strong(expected, State::Claimed)) {
        return;
    }
    text[path.copy(text.data(), path.size())] = '\0';
    state.store(State::Published, std::memory_order_release);
}

void ZipTemporaryFolder::forget() {
    state.store(State::Absent);
}

}  // namespace parlavox
