// The font of a stretch of text: the value of the attribute "NSFont".
//
// Sizes are in points. Immutable; any thread at once.

#pragma once

#include <memory>
#include <string>
#include <utility>

#include "Platform/Foundation/BuildBudget.h"
#include "Platform/Foundation/PreservedObject.h"
#include "Platform/Foundation/Result.h"

namespace platform {

/// A font by name and size; nothing says that this machine has it.
class Font final : public PreservedObject {
public:
    /// Makes a font of its PostScript name, "Helvetica-Bold" for example.
    Font(std::string name, double size) : fontName_(std::move(name)), pointSize_(size) {}

    /// Returns the font that `archived` is; null when it states no name. A Fault when the copies
    /// are more than the budget has left.
    static Result<std::shared_ptr<const Font>> fromArchived(
        std::shared_ptr<const OpaqueObject> archived, BuildBudget& budget);

    /// Selector: fontName
    [[nodiscard]] const std::string& fontName() const { return fontName_; }

    /// The size; 0 when the archive that the font came from states none.
    ///
    /// Selector: pointSize
    [[nodiscard]] double pointSize() const { return pointSize_; }

private:
    Font(std::shared_ptr<const OpaqueObject> archived, std::string name, double size)
        : PreservedObject(std::move(archived)), fontName_(std::move(name)), pointSize_(size) {}

    [[nodiscard]] std::shared_ptr<const ArchivedClassNames> ownClass() const override;
    void encodeFields(KeyedArchiver& coder) const override;

    std::string fontName_;
    double pointSize_;
};

}  // namespace platform
