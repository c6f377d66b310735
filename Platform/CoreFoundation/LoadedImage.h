// The code of one bundle: whether it is loaded, and who needs it to stay.
//
// Any thread. The lock is held for a look and a note only, never while the loader or code of the
// image runs.

#pragma once

#include <mutex>
#include <string>

namespace platform::cf {

class LoadedImage {
public:
    /// What the loader knows the code by; null for none.
    using Handle = void*;

    LoadedImage() = default;
    LoadedImage(const LoadedImage&) = delete;
    LoadedImage& operator=(const LoadedImage&) = delete;

    /// Loads the file at `path` unless the image is loaded. False, with a line in the log, when
    /// that fails.
    [[nodiscard]] bool load(const std::string& path);

    [[nodiscard]] bool isLoaded() const;

    /// The address of `name`, null when the image is not loaded or has no such name.
    [[nodiscard]] void* symbol(const std::string& name) const;

    /// Keeps the image as it is until a matching unpin.
    void pin();
    /// Returns whether nothing pins the image any more.
    bool unpin();

    /// Gives the code up to the caller, who is to pass it to `close`: null when the image is not
    /// loaded or is pinned.
    [[nodiscard]] Handle giveUpUnlessPinned();

    /// Lets the loader unmap what giveUpUnlessPinned gave; null does nothing.
    static void close(Handle handle);

private:
    mutable std::mutex mutex_;
    Handle handle_ = nullptr;  // guarded by mutex_
    int pins_ = 0;             // guarded by mutex_
};

/// Keeps an image as it is.
class ImagePin {
public:
    explicit ImagePin(LoadedImage& image) : image_(image) { image_.pin(); }
    ~ImagePin() { image_.unpin(); }
    ImagePin(const ImagePin&) = delete;
    ImagePin& operator=(const ImagePin&) = delete;

private:
    LoadedImage& image_;
};

}  // namespace platform::cf
