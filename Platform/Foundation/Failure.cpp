#include "Platform/Foundation/Failure.h"

#include <array>
#include <cstddef>

#include "Platform/Foundation/Unicode.h"

namespace platform {
namespace {

/// One line of text in a fixed place.
struct Line {
    std::array<char, 512> text;
    std::size_t size;
    bool isFull;

    void clear() noexcept {
        size = 0;
        isFull = false;
        text[0] = '\0';
    }

    void append(std::string_view part) noexcept {
        while (!part.empty() && !isFull) {
            const std::size_t length = utf8FormLength(part);
            const auto first = static_cast<unsigned char>(part.front());
            if (length == 0) {
                // Causes quote paths, which may hold any bytes.
                appendForm("\uFFFD");
            } else {
                appendForm(first < 0x20 || first == 0x7F ? " " : part.substr(0, length));
            }
            part.remove_prefix(length == 0 ? 1 : length);
        }
    }

private:
    void appendForm(std::string_view form) noexcept {
        isFull = form.size() >= text.size() - size;
        if (!isFull) {
            size += form.copy(text.data() + size, form.size());
            text[size] = '\0';
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
    line.clear();
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
