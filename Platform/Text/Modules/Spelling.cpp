// The module `spelling`, over Hunspell.

#include <iconv.h>
#include <unistd.h>
#include <hunspell.hxx>

#include <algorithm>
#include <bit>
#include <cstring>
#include <functional>
#include <memory>
#include <mutex>
#include <new>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "Platform/Text/Modules/SpellingModule.h"

/// The library's own count of those who need its table of letters; not in its headers.
int initialize_utf_tbl() __attribute__((weak));

namespace {

using platform::SpellingFunctions;
using platform::SpellingVerdict;

/// Dictionaries take some ten megabytes each.
constexpr std::size_t kMostLoaded = 4;

/// Longer words are in no dictionary. The library has the same bound, in bytes; with less, its
/// search for compounds takes too long.
constexpr std::size_t kLongestWord = 100;

/// The name that iconv has for an encoding of dictionaries.
std::string encodingNamed(std::string_view name) {
    constexpr std::string_view kCodePage = "microsoft-cp";
    if (name.starts_with(kCodePage)) {
        return std::string("CP").append(name.substr(kCodePage.size()));
    }
    constexpr std::string_view kThai = "TIS620";
    return std::string(name.starts_with(kThai) ? "TIS-620" : name);
}

/// Turns words into the encoding of a dictionary. One thread at a time.
class Encoder {
public:
    explicit Encoder(std::string_view encoding)
        : converter_(::iconv_open(encodingNamed(encoding).c_str(), kUtf16)) {}
    ~Encoder() {
        if (isUsable()) {
            ::iconv_close(converter_);
        }
    }
    Encoder(const Encoder&) = delete;
    Encoder& operator=(const Encoder&) = delete;

    [[nodiscard]] bool isUsable() const {
        return converter_ != reinterpret_cast<iconv_t>(-1);  // NOLINT(performance-no-int-to-ptr)
    }

    /// The word's bytes; nothing when it has a character that the encoding lacks.
    std::optional<std::string> encode(std::u16string_view word) {
        // No encoding of dictionaries takes more than four bytes for a unit.
        std::string bytes(4 * word.size(), '\0');
        char* input = reinterpret_cast<char*>(const_cast<char16_t*>(word.data()));
        std::size_t inputLeft = word.size() * sizeof(char16_t);
        char* output = bytes.data();
        std::size_t outputLeft = bytes.size();
        ::iconv(converter_, nullptr, nullptr, nullptr, nullptr);
        // Anything but 0 is a failure, or a number of characters that were replaced.
        if (::iconv(converter_, &input, &inputLeft, &output, &outputLeft) != 0) {
            return std::nullopt;
        }
        bytes.resize(bytes.size() - outputLeft);
        return bytes;
    }

private:
    static constexpr const char* kUtf16 =
        std::endian::native == std::endian::little ? "UTF-16LE" : "UTF-16BE";

    iconv_t converter_;
};

/// Remembers verdicts, the last one of each place in a table: words that share a place put each
/// other out, so that no choice of words makes it slow or large.
class Memo {
public:
    std::optional<bool> isRight(std::u16string_view word) const {
        const std::lock_guard lock(mutex_);
        const Entry& entry = entries_[placeOf(word)];
        return entry.word == word ? std::optional(entry.isRight) : std::nullopt;
    }

    void remember(std::u16string_view word, bool isRight) {
        const std::lock_guard lock(mutex_);
        Entry& entry = entries_[placeOf(word)];
        entry.word = word;
        entry.isRight = isRight;
    }

private:
    struct Entry {
        std::u16string word;
        bool isRight = false;
    };
    static constexpr std::size_t kPlaces = 4096;

    static std::size_t placeOf(std::u16string_view word) {
        return std::hash<std::u16string_view>()(word) % kPlaces;
    }

    mutable std::mutex mutex_;
    std::vector<Entry> entries_ = std::vector<Entry>(kPlaces);
};

/// What serves one thread at a time.
struct Checker {
    explicit Checker(const std::string& path)
        : words((path + ".aff").c_str(), (path + ".dic").c_str()),
          encoder(words.get_dict_encoding()) {}

    Hunspell words;
    Encoder encoder;
};

/// The library keeps one table of letters for all dictionaries in UTF-8 and counts them without a
/// lock, so that dictionaries come and go one after the other. Words may be looked up meanwhile.
std::mutex coming;

struct Unload {
    void operator()(Checker* checker) const {
        const std::lock_guard lock(coming);
        // The library counts those in UTF-8 when they come, but all when they go. Without this, the
        // table would go before its time.
        if (checker->words.get_dict_encoding() != "UTF-8" && initialize_utf_tbl != nullptr) {
            initialize_utf_tbl();
        }
        delete checker;
    }
};

using LoadedChecker = std::unique_ptr<Checker, Unload>;

/// Null when there is no such dictionary, or none that can be used.
LoadedChecker load(const std::string& path) {
    // The library takes a file that it cannot read for an empty one.
    if (::access((path + ".aff").c_str(), R_OK) != 0 ||
        ::access((path + ".dic").c_str(), R_OK) != 0) {
        return nullptr;
    }
    LoadedChecker checker;
    {
        const std::lock_guard lock(coming);
        checker.reset(new Checker(path));
    }
    return checker->encoder.isUsable() ? std::move(checker) : nullptr;
}

class Dictionary {
public:
    explicit Dictionary(std::string path) : path_(std::move(path)) {}

    [[nodiscard]] const std::string& path() const { return path_; }

    SpellingVerdict check(std::u16string_view word) {
        if (word.empty() || word.size() > kLongestWord) {
            return isLoadable() ? SpellingVerdict::Misspelled : SpellingVerdict::NoDictionary;
        }
        std::optional<bool> isRight = memo_.isRight(word);
        if (!isRight) {
            isRight = lookUp(word);
            if (!isRight) {
                return SpellingVerdict::NoDictionary;
            }
            memo_.remember(word, *isRight);
        }
        return *isRight ? SpellingVerdict::Right : SpellingVerdict::Misspelled;
    }

private:
    /// Null when the dictionary cannot be loaded. Requires: mutex_ is held.
    Checker* checker() {
        if (!wasLoaded_) {
            checker_ = load(path_);
            wasLoaded_ = true;
        }
        return checker_.get();
    }

    bool isLoadable() {
        const std::lock_guard lock(mutex_);
        return checker() != nullptr;
    }

    /// Whether the word is right; nothing without a dictionary.
    std::optional<bool> lookUp(std::u16string_view word) {
        const std::lock_guard lock(mutex_);
        Checker* const loaded = checker();
        if (loaded == nullptr) {
            return std::nullopt;
        }
        const auto bytes = loaded->encoder.encode(word);
        return bytes && loaded->words.spell(*bytes);
    }

    const std::string path_;
    Memo memo_;
    std::mutex mutex_;
    /// Guarded by mutex_, as the next.
    LoadedChecker checker_;
    bool wasLoaded_ = false;
};

/// The dictionaries that were asked last.
class Shelf {
public:
    std::shared_ptr<Dictionary> dictionaryAt(std::string_view path) {
        // To free a dictionary takes a while, so it goes when the lock is gone.
        std::shared_ptr<Dictionary> last;
        const std::lock_guard lock(mutex_);
        auto found = std::find_if(recent_.begin(), recent_.end(), [&](const auto& dictionary) {
            return dictionary->path() == path;
        });
        if (found == recent_.end()) {
            if (recent_.size() == kMostLoaded) {
                last = std::move(recent_.back());
                recent_.pop_back();
            }
            found = recent_.insert(recent_.end(), std::make_shared<Dictionary>(std::string(path)));
        }
        std::rotate(recent_.begin(), found, found + 1);
        return recent_.front();
    }

    void clear() {
        std::vector<std::shared_ptr<Dictionary>> all;
        const std::lock_guard lock(mutex_);
        all.swap(recent_);
    }

private:
    std::mutex mutex_;
    /// The last one first. One that is put out lives on with those who still ask it.
    std::vector<std::shared_ptr<Dictionary>> recent_;
};

Shelf& shelf() {
    // Never destroyed: other threads may still be at work when the process ends.
    static auto& shelf = *new Shelf;
    return shelf;
}

SpellingVerdict check(const char* path, const char16_t* word, std::size_t length) {
    try {
        return shelf().dictionaryAt(path)->check({word, length});
    } catch (const std::bad_alloc&) {
        return SpellingVerdict::NoMemory;
    }
}

constexpr SpellingFunctions kFunctions = {{[] {
                                              shelf().clear();
                                          }},
                                          check};

}  // namespace

extern "C" __attribute__((visibility("default"))) const platform::ModuleHead* parlavoxModule() {
    return &kFunctions;
}
