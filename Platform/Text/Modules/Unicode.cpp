// The module `unicode`, over ICU. Words and sentences are those of the root locale's rules.

#include <unicode/ubrk.h>
#include <unicode/uchar.h>

#include <array>
#include <mutex>
#include <vector>

#include "Platform/Text/Modules/UnicodeModule.h"

namespace {

using platform::BoundaryIterator;
using platform::BoundaryKind;
using platform::UnicodeFunctions;

constexpr std::size_t kMostIdle = 16;

UBreakIterator* iteratorIn(BoundaryIterator* iterator) {
    return reinterpret_cast<UBreakIterator*>(iterator);
}

/// Iterators of one kind. The first is made by the library, which is slow, all others are its
/// clones.
class Pool {
public:
    explicit Pool(UBreakIteratorType type) : type_(type) {}

    UBreakIterator* take() {
        const std::lock_guard lock(mutex_);
        if (!idle_.empty()) {
            UBreakIterator* const iterator = idle_.back();
            idle_.pop_back();
            return iterator;
        }
        UErrorCode status = U_ZERO_ERROR;
        if (original_ == nullptr) {
            constexpr char kRootLocale[] = "";
            original_ = ubrk_open(type_, kRootLocale, nullptr, 0, &status);
        }
        UBreakIterator* const iterator = original_ ? ubrk_clone(original_, &status) : nullptr;
        return U_SUCCESS(status) ? iterator : nullptr;
    }

    void put(UBreakIterator* iterator) {
        const std::lock_guard lock(mutex_);
        if (idle_.size() < kMostIdle) {
            idle_.push_back(iterator);
        } else {
            ubrk_close(iterator);
        }
    }

    void clear() {
        const std::lock_guard lock(mutex_);
        for (UBreakIterator* iterator : idle_) {
            ubrk_close(iterator);
        }
        idle_ = {};
        if (original_ != nullptr) {
            ubrk_close(original_);
            original_ = nullptr;
        }
    }

private:
    std::mutex mutex_;
    const UBreakIteratorType type_;
    UBreakIterator* original_ = nullptr;
    std::vector<UBreakIterator*> idle_;
};

Pool& poolOf(BoundaryKind kind) {
    // Never destroyed: other threads may still be at work when the process ends.
    static auto& pools = *new std::array<Pool, 2>{Pool(UBRK_WORD), Pool(UBRK_SENTENCE)};
    return pools[static_cast<std::size_t>(kind)];
}

bool setText(UBreakIterator* iterator, const char16_t* text, std::int32_t length) {
    UErrorCode status = U_ZERO_ERROR;
    ubrk_setText(iterator, text, length, &status);
    return U_SUCCESS(status);
}

BoundaryIterator* lend(BoundaryKind kind, const char16_t* text, std::int32_t length) {
    UBreakIterator* const iterator = poolOf(kind).take();
    if (iterator != nullptr && !setText(iterator, text, length)) {
        ubrk_close(iterator);
        return nullptr;
    }
    return reinterpret_cast<BoundaryIterator*>(iterator);
}

void giveBack(BoundaryKind kind, BoundaryIterator* iterator) {
    // The text may go now, and an idle iterator must not point to it.
    setText(iteratorIn(iterator), u"", 0);
    poolOf(kind).put(iteratorIn(iterator));
}

bool isBehindWord(BoundaryIterator* iterator) {
    return ubrk_getRuleStatus(iteratorIn(iterator)) >= UBRK_WORD_NONE_LIMIT;
}

bool isLetter(char32_t codePoint) {
    constexpr std::uint32_t kLettersAndMarks = U_GC_L_MASK | U_GC_M_MASK;
    return (U_GET_GC_MASK(static_cast<UChar32>(codePoint)) & kLettersAndMarks) != 0;
}

constexpr UnicodeFunctions kFunctions = {
    {[] {
        poolOf(BoundaryKind::Word).clear();
        poolOf(BoundaryKind::Sentence).clear();
    }},
    lend,
    giveBack,
    [](BoundaryIterator* iterator) { return ubrk_next(iteratorIn(iterator)); },
    [](BoundaryIterator* iterator) { return ubrk_previous(iteratorIn(iterator)); },
    [](BoundaryIterator* iterator, std::int32_t position) {
        return ubrk_following(iteratorIn(iterator), position);
    },
    [](BoundaryIterator* iterator, std::int32_t boundary) {
        ubrk_isBoundary(iteratorIn(iterator), boundary);
    },
    isBehindWord,
    isLetter,
};
static_assert(UBRK_DONE == -1);

}  // namespace

extern "C" __attribute__((visibility("default"))) const platform::ModuleHead* parlavoxModule() {
    return &kFunctions;
}
