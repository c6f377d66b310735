// The keys of a dictionary: names in the order in which they were added, each once.
//
// Many dictionaries of an archive have the same keys; those share them. Shared keys are immutable
// and may be read by any thread at once, others belong to one dictionary.

#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace platform {

class NameTable;
class DictionaryKeys;

using SharedKeys = std::shared_ptr<DictionaryKeys>;

/// An ordered set of names.
class DictionaryKeys {
public:
    DictionaryKeys();
    ~DictionaryKeys();
    /// A copy belongs to whoever made it, whether or not the original is shared.
    DictionaryKeys(const DictionaryKeys& other);
    DictionaryKeys& operator=(const DictionaryKeys&) = delete;

    /// Returns keys that dictionaries can share; null when a name occurs twice.
    [[nodiscard]] static SharedKeys shared(std::vector<std::string> names);

    [[nodiscard]] bool isShared() const { return isShared_; }
    [[nodiscard]] std::size_t size() const { return names_.size(); }
    [[nodiscard]] const std::string& nameAt(std::size_t place) const { return names_[place]; }

    /// The place of `name`; nothing when it is none of the keys. Costs a hash look-up at most.
    [[nodiscard]] std::optional<std::size_t> find(std::string_view name) const;

    void reserve(std::size_t size) { names_.reserve(size); }

    /// Adds `name` at the end.
    ///
    /// Requires: the keys are not shared, the name is none of them.
    void append(std::string name);

private:
    friend class DictionaryTestPeer;

    std::vector<std::string> names_;
    // The names' places, only where a linear search would not do.
    std::unique_ptr<NameTable> index_;
    bool isShared_ = false;
};

}  // namespace platform
