// A file or folder that is made beside its place and put there in one step.
//
// One thread at a time.

#pragma once

#include <string>

namespace platform {

/// A place on the same disk as another one. What is left there goes with this object.
class StagedItem {
public:
    /// Makes a folder beside `path` for the item, under the same name. An error shows in isMade().
    explicit StagedItem(std::string path);
    ~StagedItem();
    StagedItem(const StagedItem&) = delete;
    StagedItem& operator=(const StagedItem&) = delete;

    /// False, with errno, when the folder could not be made.
    [[nodiscard]] bool isMade() const { return isMade_; }

    /// Where the item is to be made.
    [[nodiscard]] const std::string& path() const { return staged_; }

    /// Puts the item in its place, of which it takes the permissions when a file replaces a file;
    /// what was there goes. Returns false, with errno and all as it was, when that fails.
    [[nodiscard]] bool putInPlace();

private:
    std::string target_;
    std::string folder_;
    std::string staged_;
    bool isMade_;
};

}  // namespace platform
