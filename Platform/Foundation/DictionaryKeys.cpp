#include "Platform/Foundation/DictionaryKeys.h"

#include <cassert>
#include <utility>

#include "Platform/Foundation/NameTable.h"

namespace platform {
namespace {

// Up to here a linear search is as fast as a hash look-up.
constexpr std::size_t kLargestUnindexed = 16;

}  // namespace

DictionaryKeys::DictionaryKeys() = default;
DictionaryKeys::~DictionaryKeys() = default;

DictionaryKeys::DictionaryKeys(const DictionaryKeys& other)
    : names_(other.names_),
      index_(other.index_ ? std::make_unique<NameTable>(*other.index_) : nullptr) {
}

SharedKeys DictionaryKeys::shared(std::vector<std::string> names) {
    auto keys = std::make_shared<DictionaryKeys>();
    keys->reserve(names.size());
    for (std::string& name : names) {
        if (keys->find(name)) {
            return nullptr;
        }
        keys->append(std::move(name));
    }
    keys->isShared_ = true;
    return keys;
}

std::optional<std::size_t> DictionaryKeys::find(std::string_view name) const {
    if (index_) {
        const std::size_t* const place = index_->find(name);
        return place != nullptr ? std::optional(*place) : std::nullopt;
    }
    for (std::size_t place = 0; place < names_.size(); ++place) {
        if (names_[place] == name) {
            return place;
        }
    }
    return std::nullopt;
}

void DictionaryKeys::append(std::string name) {
    assert(!isShared_);
    if (index_) {
        index_->add(name, names_.size());
    }
    names_.push_back(std::move(name));
    if (!index_ && names_.size() > kLargestUnindexed) {
        index_ = std::make_unique<NameTable>();
        for (std::size_t place = 0; place < names_.size(); ++place) {
            index_->add(names_[place], place);
        }
    }
}

}  // namespace platform
