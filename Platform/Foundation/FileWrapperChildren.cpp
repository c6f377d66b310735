#include "Platform/Foundation/FileWrapperChildren.h"

#include <algorithm>
#include <bit>
#include <limits>
#include <utility>

namespace platform {
namespace {

constexpr std::uint32_t kNone = std::numeric_limits<std::uint32_t>::max();

}  // namespace

FileWrapperChildren::Iterator::Iterator(const Node* node, const Node* end)
    : node_(node), end_(end) {
    skipRemoved();
}

FileWrapperChildren::Iterator& FileWrapperChildren::Iterator::operator++() {
    ++node_;
    skipRemoved();
    return *this;
}

FileWrapperChildren::Iterator FileWrapperChildren::Iterator::operator++(int) {
    Iterator before = *this;
    ++*this;
    return before;
}

void FileWrapperChildren::Iterator::skipRemoved() {
    while (node_ != end_ && node_->child == nullptr) {
        ++node_;
    }
}

FileWrapperChildren::Iterator FileWrapperChildren::begin() const {
    return {nodes_.data() + first_, nodes_.data() + nodes_.size()};
}

FileWrapperChildren::Iterator FileWrapperChildren::end() const {
    const Node* const end = nodes_.data() + nodes_.size();
    return {end, end};
}

std::shared_ptr<FileWrapper> FileWrapperChildren::find(std::string_view key) const {
    const Index index = nodeOfKey(key, hash_(key));
    return index == kNone ? nullptr : nodes_[index].child;
}

std::optional<std::string> FileWrapperChildren::keyOf(const FileWrapper& child) const {
    const Index index = nodeOfChild(&child);
    return index == kNone ? std::nullopt : std::optional(nodes_[index].key);
}

bool FileWrapperChildren::add(std::string key, std::shared_ptr<FileWrapper> child) {
    const std::size_t hash = hash_(key);
    if (nodeOfKey(key, hash) != kNone) {
        return false;
    }
    append(std::move(key), hash, std::move(child));
    return true;
}

std::string FileWrapperChildren::addUnderFreeKey(const std::string& name,
                                                 std::shared_ptr<FileWrapper> child) {
    const std::size_t hash = hash_(name);
    if (nodeOfKey(name, hash) == kNone) {
        append(name, hash, std::move(child));
        return name;
    }
    if (!collisionKeys_) {
        collisionKeys_ = std::make_unique<CollisionKeys>();
    }
    std::string key = collisionKeys_->keyForName(name, [this](const std::string& candidate) {
        return nodeOfKey(candidate, hash_(candidate)) != kNone;
    });
    append(key, hash_(key), std::move(child));
    return key;
}

bool FileWrapperChildren::remove(const FileWrapper& child) {
    Index index = nodeOfChild(&child);
    if (index == kNone) {
        return false;
    }
    unlinkFromChild(index);
    while (index != kNone) {
        unlinkFromName(index);
        Node& node = nodes_[index];
        const std::string key = std::exchange(node.key, std::string());
        node.child = nullptr;
        ++removed_;
        index = node.nextOfChild;
        if (collisionKeys_) {
            collisionKeys_->keyIsFree(key);
        }
    }
    while (first_ < nodes_.size() && nodes_[first_].child == nullptr) {
        ++first_;
    }
    constexpr std::size_t kWorthwhile = 16;
    if (empty() || removed_ > std::max(size(), kWorthwhile)) {
        rebuild();
    }
    return true;
}

FileWrapperChildren::Index FileWrapperChildren::nodeOfKey(std::string_view key,
                                                          std::size_t hash) const {
    if (nameBuckets_.empty()) {
        return kNone;
    }
    Index index = nameBuckets_[hash & (nameBuckets_.size() - 1)];
    while (index != kNone && (nodes_[index].hash != hash || nodes_[index].key != key)) {
        index = nodes_[index].nextByName;
    }
    return index;
}

FileWrapperChildren::Index FileWrapperChildren::nodeOfChild(const FileWrapper* child) const {
    if (childBuckets_.empty()) {
        return kNone;
    }
    Index index = childBuckets_[childBucket(child)];
    while (index != kNone && nodes_[index].child.get() != child) {
        index = nodes_[index].nextByChild;
    }
    return index;
}

FileWrapperChildren::Index& FileWrapperChildren::nameBucket(std::size_t hash) {
    return nameBuckets_[hash & (nameBuckets_.size() - 1)];
}

// Addresses differ in their middle bits, the product in its upper ones.
std::size_t FileWrapperChildren::childBucket(const FileWrapper* child) const {
    constexpr std::uint64_t kGoldenRatio = 0x9E3779B97F4A7C15;
    const auto address = static_cast<std::uint64_t>(reinterpret_cast<std::uintptr_t>(child));
    return (address * kGoldenRatio >> 32) & (childBuckets_.size() - 1);
}

void FileWrapperChildren::append(std::string key, std::size_t hash,
                                 std::shared_ptr<FileWrapper> child) {
    if (nodes_.size() == nameBuckets_.size()) {
        rebuild();
    }
    nodes_.push_back(Node{{std::move(key), std::move(child)}, hash, kNone, kNone, kNone});
    link(static_cast<Index>(nodes_.size() - 1));
}

void FileWrapperChildren::link(Index index) {
    Node& node = nodes_[index];
    node.nextByName = std::exchange(nameBucket(node.hash), index);
    node.nextByChild = kNone;
    node.nextOfChild = kNone;
    const Index oldest = nodeOfChild(node.child.get());
    if (oldest != kNone) {
        node.nextOfChild = std::exchange(nodes_[oldest].nextOfChild, index);
        return;
    }
    node.nextByChild = std::exchange(childBuckets_[childBucket(node.child.get())], index);
}

void FileWrapperChildren::unlinkFromName(Index index) {
    Index* place = &nameBucket(nodes_[index].hash);
    while (*place != index) {
        place = &nodes_[*place].nextByName;
    }
    *place = nodes_[index].nextByName;
}

void FileWrapperChildren::unlinkFromChild(Index index) {
    Index* place = &childBuckets_[childBucket(nodes_[index].child.get())];
    while (*place != index) {
        place = &nodes_[*place].nextByChild;
    }
    *place = nodes_[index].nextByChild;
}

// Drops removed nodes and makes room for as many as there are now. Each rebuilding is paid for by
// the additions or removals since the last one.
void FileWrapperChildren::rebuild() {
    constexpr std::size_t kFewest = 8;
    const std::size_t buckets = std::bit_ceil(std::max(size() * 2, kFewest));
    std::vector<Index> nameBuckets(buckets, kNone);
    std::vector<Index> childBuckets(buckets, kNone);
    nameBuckets_.swap(nameBuckets);
    childBuckets_.swap(childBuckets);
    std::erase_if(nodes_, [](const Node& node) { return node.child == nullptr; });
    removed_ = 0;
    first_ = 0;
    for (std::size_t i = 0; i < nodes_.size(); ++i) {
        link(static_cast<Index>(i));
    }
    if (nodes_.empty()) {
        collisionKeys_ = nullptr;
    }
}

}  // namespace platform
