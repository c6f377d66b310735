// The children of a folder: in the order in which they were added, found by key and by identity.
//
// Adding, finding and removing cost the same however many children there are, and names that were
// chosen to collide don't change that. One thread at a time; changes end all iterations.

#pragma once

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Platform/Foundation/CollisionKeys.h"
#include "Platform/Foundation/NameHash.h"

namespace platform {

class FileWrapper;

/// A child and the key it is stored under.
struct FileWrapperEntry {
    std::string key;
    std::shared_ptr<FileWrapper> child;
};

/// A dictionary of file wrappers; iterating gives FileWrapperEntry values.
class FileWrapperChildren {
    struct Node;

public:
    /// Walks over the entries; one that is given out is never without a child.
    class Iterator {
    public:
        using iterator_category = std::forward_iterator_tag;
        using value_type = FileWrapperEntry;
        using difference_type = std::ptrdiff_t;
        using pointer = const FileWrapperEntry*;
        using reference = const FileWrapperEntry&;

        Iterator() = default;
        reference operator*() const { return *node_; }
        pointer operator->() const { return node_; }
        Iterator& operator++();
        Iterator operator++(int);
        friend bool operator==(const Iterator&, const Iterator&) = default;

    private:
        friend class FileWrapperChildren;
        Iterator(const Node* node, const Node* end);
        void skipRemoved();

        const Node* node_ = nullptr;
        const Node* end_ = nullptr;
    };

    FileWrapperChildren() = default;
    FileWrapperChildren(const FileWrapperChildren&) = delete;
    FileWrapperChildren& operator=(const FileWrapperChildren&) = delete;

    [[nodiscard]] std::size_t size() const { return nodes_.size() - removed_; }
    [[nodiscard]] bool empty() const { return size() == 0; }
    [[nodiscard]] Iterator begin() const;
    [[nodiscard]] Iterator end() const;

    /// Returns the child under `key`, null when there is none.
    [[nodiscard]] std::shared_ptr<FileWrapper> find(std::string_view key) const;

    /// Returns the key of `child`, the oldest one when it has several.
    [[nodiscard]] std::optional<std::string> keyOf(const FileWrapper& child) const;

    /// Stores `child` under `key`. Returns false, and does nothing, when the key is taken.
    ///
    /// Requires: child is not null.
    bool add(std::string key, std::shared_ptr<FileWrapper> child);

    /// Stores `child` under `name`, or under a numbered key when that is taken; returns the key.
    ///
    /// Requires: child is not null.
    std::string addUnderFreeKey(const std::string& name, std::shared_ptr<FileWrapper> child);

    /// Removes all keys of `child` and returns whether there were any.
    ///
    /// Requires: the caller holds the child as well.
    bool remove(const FileWrapper& child);

private:
    using Index = std::uint32_t;

    struct Node : FileWrapperEntry {
        std::size_t hash;
        // The next nodes of the same bucket of names, of the same bucket of children (which holds
        // the oldest node of each), and of the same child.
        Index nextByName;
        Index nextByChild;
        Index nextOfChild;
    };

    [[nodiscard]] Index nodeOfKey(std::string_view key, std::size_t hash) const;
    [[nodiscard]] Index nodeOfChild(const FileWrapper* child) const;
    [[nodiscard]] Index& nameBucket(std::size_t hash);
    [[nodiscard]] std::size_t childBucket(const FileWrapper* child) const;
    void append(std::string key, std::size_t hash, std::shared_ptr<FileWrapper> child);
    void link(Index index);
    void unlinkFromName(Index index);
    void unlinkFromChild(Index index);
    void rebuild();

    NameHash hash_;
    // Removed nodes stay, without a child, until they are the majority.
    std::vector<Node> nodes_;
    std::size_t removed_ = 0;
    // The first node that has a child, so that taking children from the front needs no search.
    std::size_t first_ = 0;
    std::vector<Index> nameBuckets_;
    std::vector<Index> childBuckets_;
    // Made at the first collision.
    std::unique_ptr<CollisionKeys> collisionKeys_;
};

}  // namespace platform
