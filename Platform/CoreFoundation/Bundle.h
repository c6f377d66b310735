// The class behind CFBundleRef. Immutable but for its code; any thread.

#pragma once

#include <optional>
#include <string>

#include "Platform/CoreFoundation/CFBundle.h"
#include "Platform/CoreFoundation/InfoDictionary.h"
#include "Platform/CoreFoundation/LoadedImage.h"
#include "Platform/CoreFoundation/Object.h"
#include "Platform/CoreFoundation/PlugInDescription.h"

namespace platform::cf {

class BundleRegistry;

class Bundle final : public Object {
public:
    static constexpr TypeID kType = TypeID::Bundle;

    /// Reads the bundle in the folder at `path`. May throw std::bad_alloc.
    explicit Bundle(std::string path);

    [[nodiscard]] const std::string& path() const noexcept { return path_; }
    [[nodiscard]] CFDictionaryRef info() const noexcept { return info_.get(); }
    [[nodiscard]] const FactoryDescriptions& factories() const noexcept { return factories_; }
    [[nodiscard]] bool isPlugInOnDemand() const noexcept;

    [[nodiscard]] std::optional<std::string> executablePath() const;

    /// Loads the code unless it is loaded. False, with a line in the log, when that fails.
    [[nodiscard]] bool load() const;

    [[nodiscard]] LoadedImage& image() const noexcept { return image_; }

private:
    friend class BundleRegistry;

    ~Bundle() = default;

    void lastRelease() const noexcept override;

    std::string path_;
    Owned<CFDictionaryRef> info_;
    FactoryDescriptions factories_;
    bool registersDynamically_;
    mutable LoadedImage image_;
};

inline CFBundleRef refOf(const Bundle* bundle) noexcept {
    return reinterpret_cast<CFBundleRef>(const_cast<Bundle*>(bundle));
}

}  // namespace platform::cf
