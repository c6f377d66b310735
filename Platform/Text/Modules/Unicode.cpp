// The module `unicode`, over ICU. Words and sentences are those of the root locale's rules.

#include <unicode/ubrk.h>
#include <unicode/uchar.h>
#include <unicode/ucnv.h>
#include <unicode/ucnv_cb.h>
#include <unicode/unorm2.h>

#include <array>
#include <memory>
#include <mutex>

#include "Platform/Text/Modules/UnicodeModule.h"

namespace {

using platform::BoundaryIterator;
using platform::BoundaryKind;
using platform::CharacterDirection;
using platform::CodePage;
using platform::UnicodeFunctions;

UBreakIterator* iteratorIn(BoundaryIterator* iterator) {
    return reinterpret_cast<UBreakIterator*>(iterator);
}

/// Iterators of one kind. The first is made by the library, which is slow, all others are its
/// clones.
class Pool {
public:
    explicit Pool(UBreakIteratorType type) : type_(type) {}

    UBreakIterator* take() {
        std::shared_ptr<UBreakIterator> original;
        {
            const std::lock_guard lock(mutex_);
            if (idleCount_ > 0) {
                return idle_[--idleCount_];
            }
            original = original_;
        }
        if (original == nullptr) {
            original = makeOriginal();
        }
        UErrorCode status = U_ZERO_ERROR;
        UBreakIterator* const iterator =
            original != nullptr ? ubrk_clone(original.get(), &status) : nullptr;
        return U_SUCCESS(status) ? iterator : nullptr;
    }

    void put(UBreakIterator* iterator) {
        {
            const std::lock_guard lock(mutex_);
            if (idleCount_ < idle_.size()) {
                idle_[idleCount_++] = iterator;
                return;
            }
        }
        ubrk_close(iterator);
    }

    void clear() {
        const std::lock_guard lock(mutex_);
        while (idleCount_ > 0) {
            ubrk_close(idle_[--idleCount_]);
        }
        original_.reset();
    }

private:
    std::shared_ptr<UBreakIterator> makeOriginal() {
        constexpr char kRootLocale[] = "";
        UErrorCode status = U_ZERO_ERROR;
        UBreakIterator* const made = ubrk_open(type_, kRootLocale, nullptr, 0, &status);
        if (U_FAILURE(status)) {
            return nullptr;
        }
        // Where two threads were first, the one that comes last is kept.
        const std::lock_guard lock(mutex_);
        return original_ = std::shared_ptr<UBreakIterator>(made, ubrk_close);
    }

    static constexpr std::size_t kMostIdle = 16;

    std::mutex mutex_;
    const UBreakIteratorType type_;
    std::shared_ptr<UBreakIterator> original_;
    std::array<UBreakIterator*, kMostIdle> idle_{};
    std::size_t idleCount_ = 0;
};

Pool& poolOf(BoundaryKind kind) {
    // Never destroyed: other threads may still be at work when the process ends.
    static auto& pools = *new std::array<Pool, 2>{Pool(UBRK_WORD), Pool(UBRK_SENTENCE)};
    return pools[static_cast<std::size_t>(kind)];
}

bool setText(BoundaryIterator* iterator, const char16_t* text, std::int32_t length) {
    UErrorCode status = U_ZERO_ERROR;
    ubrk_setText(iteratorIn(iterator), text, length, &status);
    return U_SUCCESS(status);
}

void giveBack(BoundaryKind kind, BoundaryIterator* iterator) {
    // The text may go now, and an idle iterator must not point to it.
    setText(iterator, u"", 0);
    poolOf(kind).put(iteratorIn(iterator));
}

bool isBehindWord(BoundaryIterator* iterator) {
    return ubrk_getRuleStatus(iteratorIn(iterator)) >= UBRK_WORD_NONE_LIMIT;
}

bool isLetter(char32_t codePoint) {
    constexpr std::uint32_t kLettersAndMarks = U_GC_L_MASK | U_GC_M_MASK;
    return (U_GET_GC_MASK(static_cast<UChar32>(codePoint)) & kLettersAndMarks) != 0;
}

bool isBaseLetter(char32_t codePoint) {
    return (U_GET_GC_MASK(static_cast<UChar32>(codePoint)) & U_GC_L_MASK) != 0;
}

bool startsSentencesOver(char32_t codePoint) {
    switch (u_getIntPropertyValue(static_cast<UChar32>(codePoint), UCHAR_SENTENCE_BREAK)) {
        case U_SB_LOWER:
        case U_SB_UPPER:
        case U_SB_OLETTER:
        case U_SB_NUMERIC:
        case U_SB_SCONTINUE:
        case U_SB_OTHER:
            return true;
        default:
            return false;
    }
}

bool startsWordsOver(char32_t codePoint) {
    switch (u_getIntPropertyValue(static_cast<UChar32>(codePoint), UCHAR_WORD_BREAK)) {
        case U_WB_EXTEND:
        case U_WB_FORMAT:
        case U_WB_ZWJ:
        case U_WB_WSEGSPACE:
            return false;
        default:
            return true;
    }
}

CharacterDirection directionOf(char32_t codePoint) {
    switch (u_charDirection(static_cast<UChar32>(codePoint))) {
        case U_LEFT_TO_RIGHT:
            return CharacterDirection::FromTheLeft;
        case U_RIGHT_TO_LEFT:
        case U_RIGHT_TO_LEFT_ARABIC:
            return CharacterDirection::FromTheRight;
        case U_EUROPEAN_NUMBER:
        case U_ARABIC_NUMBER:
            return CharacterDirection::Number;
        case U_DIR_NON_SPACING_MARK:
            return CharacterDirection::Mark;
        default:
            return CharacterDirection::Neutral;
    }
}

char32_t composed(char32_t letter, char32_t mark) {
    UErrorCode status = U_ZERO_ERROR;
    const UNormalizer2* const forms = unorm2_getNFCInstance(&status);
    if (U_FAILURE(status)) {
        return 0;
    }
    const UChar32 pair =
        unorm2_composePair(forms, static_cast<UChar32>(letter), static_cast<UChar32>(mark));
    return pair < 0 ? 0 : static_cast<char32_t>(pair);
}

std::size_t plainForm(char32_t codePoint, char16_t* units, std::size_t room) {
    UErrorCode status = U_ZERO_ERROR;
    const UNormalizer2* const forms = unorm2_getNFKCInstance(&status);
    if (U_FAILURE(status)) {
        return 0;
    }
    const std::int32_t length = unorm2_getDecomposition(
        forms, static_cast<UChar32>(codePoint), units, static_cast<std::int32_t>(room), &status);
    return U_SUCCESS(status) && length > 0 ? static_cast<std::size_t>(length) : 0;
}

UConverter* converterIn(CodePage* codePage) {
    return reinterpret_cast<UConverter*>(codePage);
}

/// Writes U+FFFD for bytes that are no character and counts it in the `context` of one conversion.
void replaceAndCount(const void* context, UConverterToUnicodeArgs* arguments, const char*,
                     std::int32_t, UConverterCallbackReason reason, UErrorCode* status) {
    if (reason <= UCNV_IRREGULAR) {
        constexpr char16_t kReplacement = 0xFFFD;
        *status = U_ZERO_ERROR;
        // Callbacks get their context as a pointer to a constant.
        ++*static_cast<std::size_t*>(const_cast<void*>(context));
        ucnv_cbToUWriteUChars(arguments, &kReplacement, 1, 0, status);
    }
}

std::size_t convert(CodePage* codePage, const char** bytes, const char* end, char16_t** units,
                    char16_t* unitsEnd, bool areLast, bool* isDone) {
    std::size_t replaced = 0;
    UErrorCode status = U_ZERO_ERROR;
    ucnv_setToUCallBack(converterIn(codePage), replaceAndCount, &replaced, nullptr, nullptr,
                        &status);
    ucnv_toUnicode(converterIn(codePage), units, unitsEnd, bytes, end, nullptr,
                   static_cast<UBool>(areLast), &status);
    *isDone = status != U_BUFFER_OVERFLOW_ERROR;
    return replaced;
}

constexpr UnicodeFunctions kFunctions = {
    {[] {
        ucnv_flushCache();
        poolOf(BoundaryKind::Word).clear();
        poolOf(BoundaryKind::Sentence).clear();
    }},
    [](BoundaryKind kind) { return reinterpret_cast<BoundaryIterator*>(poolOf(kind).take()); },
    giveBack,
    setText,
    [](BoundaryIterator* iterator) { return ubrk_next(iteratorIn(iterator)); },
    isBehindWord,
    isLetter,
    isBaseLetter,
    startsSentencesOver,
    startsWordsOver,
    directionOf,
    [](char32_t codePoint) {
        return static_cast<char32_t>(u_charMirror(static_cast<UChar32>(codePoint)));
    },
    composed,
    plainForm,
    [](const char* name) {
        UErrorCode status = U_ZERO_ERROR;
        return reinterpret_cast<CodePage*>(ucnv_open(name, &status));
    },
    [](CodePage* codePage) { ucnv_close(converterIn(codePage)); },
    convert,
};
static_assert(UBRK_DONE == -1);

}  // namespace

extern "C" __attribute__((visibility("default"))) const platform::ModuleHead* parlavoxModule() {
    return &kFunctions;
}
