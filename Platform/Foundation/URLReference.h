// Where a link leads: a URL as it was written, and what it is relative to.
//
// Immutable; any thread at once.

#pragma once

#include <memory>
#include <string>
#include <utility>

#include "Platform/Foundation/BuildBudget.h"
#include "Platform/Foundation/PreservedObject.h"
#include "Platform/Foundation/Result.h"
#include "Platform/Foundation/Value.h"

namespace platform {

/// A URL of any kind, as an object that texts can hold.
class URLReference final : public PreservedObject {
public:
    /// Makes a URL of its text, relative to `base` if there is one.
    ///
    /// Selector: initWithString:relativeToURL:
    explicit URLReference(std::string string,
                          std::shared_ptr<const URLReference> relativeToURL = {})
        : string_(std::move(string)), base_(std::move(relativeToURL)) {}

    /// Returns the URL that `archived` is; null when it states none. A Fault when the copies are
    /// more than the budget has left.
    static Result<std::shared_ptr<const URLReference>> fromArchived(
        std::shared_ptr<const OpaqueObject> archived, BuildBudget& budget);

    /// The URL as it was written, without its base.
    ///
    /// Selector: relativeString
    [[nodiscard]] const std::string& relativeString() const { return string_; }

    /// What the URL is relative to; null when it stands for itself.
    ///
    /// Selector: baseURL
    [[nodiscard]] const std::shared_ptr<const URLReference>& baseURL() const { return base_; }

private:
    URLReference(std::shared_ptr<const OpaqueObject> archived, std::string string,
                 std::shared_ptr<const URLReference> base)
        : PreservedObject(std::move(archived)),
          string_(std::move(string)),
          base_(std::move(base)) {}

    [[nodiscard]] std::shared_ptr<const ArchivedClassNames> ownClass() const override;
    void encodeFields(KeyedArchiver& coder) const override;

    std::string string_;
    std::shared_ptr<const URLReference> base_;
};

}  // namespace platform
