// A colour: the value of "NSColor" and of the other attributes that colour text.
//
// Components go from 0 to 1, though archives may hold any number. Immutable; any thread at once.

#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "Platform/Foundation/BuildBudget.h"
#include "Platform/Foundation/PreservedObject.h"
#include "Platform/Foundation/Result.h"

namespace platform {

/// How a colour is given, with the platform's numbers.
enum class ColorSpace : std::int64_t {
    CalibratedRgb = 1,
    DeviceRgb = 2,
    CalibratedWhite = 3,
    DeviceWhite = 4,
    DeviceCmyk = 5,
    Named = 6,
    Pattern = 10,
};

/// Red, green and blue.
struct Rgb {
    double red = 0;
    double green = 0;
    double blue = 0;

    friend bool operator==(const Rgb&, const Rgb&) = default;
};

/// A colour in one of the spaces.
class Color final : public PreservedObject {
public:
    /// Makes a colour of its components: three for red, green and blue, one for white (0 is black),
    /// four for cyan, magenta, yellow and black.
    ///
    /// Raises InvalidArgumentException when the space has another number of components.
    Color(ColorSpace space, std::vector<double> components, double alpha = 1);

    /// Returns the colour that `archived` is; null when its space is unknown or its components are
    /// not what the space demands. A Fault when the copies are more than the budget has left.
    static Result<std::shared_ptr<const Color>> fromArchived(
        std::shared_ptr<const OpaqueObject> archived, BuildBudget& budget);

    [[nodiscard]] ColorSpace colorSpace() const { return space_; }

    /// The components without alpha; none for named colours and patterns.
    [[nodiscard]] const std::vector<double>& components() const { return components_; }

    /// 1 is opaque.
    ///
    /// Selector: alphaComponent
    [[nodiscard]] double alphaComponent() const { return alpha_; }

    /// A named colour's list and name; empty for others.
    ///
    /// Selector: catalogNameComponent
    [[nodiscard]] const std::string& catalogNameComponent() const { return catalogName_; }
    /// Selector: colorNameComponent
    [[nodiscard]] const std::string& colorNameComponent() const { return colorName_; }

    /// The colour on a screen, as far as that can be said without profiles: that of a named colour
    /// is the one that was archived with it. Nothing for patterns and for names alone.
    [[nodiscard]] std::optional<Rgb> rgb() const;

private:
    Color(std::shared_ptr<const OpaqueObject> archived, ColorSpace space)
        : PreservedObject(std::move(archived)), space_(space) {}

    [[nodiscard]] bool readComponents(const OpaqueObject& archived);
    [[nodiscard]] std::shared_ptr<const ArchivedClassNames> ownClass() const override;
    void encodeFields(KeyedArchiver& coder) const override;

    ColorSpace space_;
    std::vector<double> components_;
    double alpha_ = 1;
    std::string catalogName_;
    std::string colorName_;
    std::shared_ptr<const Color> namedColor_;
};

}  // namespace platform
