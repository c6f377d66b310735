#include "Platform/Foundation/Failure.h"

#include <array>
#include <cstddef>

namespace platform {
namespace {

/// One line of text in a fixed place.
struct Line {
    std::array<char, 512> text;
    std::size_t size;

    void append(std::string_view part) noexcept {
        for (const char c : part) {
            if (size + 1 >= text.size()) {
                cutInsideCharacter();
                break;
            }
            const auto byte = static_cast<unsigned char>(c);
            text[size++] = byte < 0x20 || byte == 0x7F ? ' ' : c;
        }
        text[size] = '\0';
    }

    // A full line may end in the first bytes of a character: they go.
    void cutInsideCharacter() noexcept {
        std::size_t start = size;
        while (start > 0 && (static_cast<unsigned char>(text[start - 1]) & 0xC0) == 0x80) {
            --start;
        }
        if (start > 0 && static_cast<unsigned char>(text[start - 1]) >= 0xC0) {
            size = start - 1;
        }
    }
};

thread_local Line line;
thread_local bool noted = false;
thread_local const FailureContext* innermost = nullptr;

}  // namespace

void noteFailure(std::string_view cause) noexcept {
    constexpr std::size_t kMaxContexts = 8;
    std::array<std::string_view, kMaxContexts> contexts;
    std::size_t count = 0;
    for (const FailureContext* c = innermost; c != nullptr && count < kMaxContexts; c = c->outer_) {
        contexts[count++] = c->what_;
    }
    line.size = 0;
    while (count > 0) {
        line.append(contexts[--count]);
        line.append(": ");
    }
    line.append(cause);
    noted = true;
}

void noteFailureUnlessNoted(std::string_view cause) noexcept {
    if (!noted) {
        noteFailure(cause);
    }
}

const char* lastFailure() noexcept {
    return noted ? line.text.data() : nullptr;
}

void clearFailure() noexcept {
    noted = false;
}

FailureContext::FailureContext(std::string_view what) noexcept : what_(what), outer_(innermost) {
    innermost = this;
}

FailureContext::~FailureContext() {
    innermost = outer_;
}

}  // namespace platform
