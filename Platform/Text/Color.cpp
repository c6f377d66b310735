#include "Platform/Text/Color.h"

#include <array>
#include <charconv>
#include <string_view>

#include "Platform/Foundation/Exception.h"
#include "Platform/Foundation/KeyedArchiver.h"

namespace platform {
namespace {

constexpr std::string_view kSpaceField = "NSColorSpace";

/// How many components a space has; 0 for those without.
std::size_t componentCount(ColorSpace space) {
    switch (space) {
        case ColorSpace::CalibratedRgb:
        case ColorSpace::DeviceRgb:
            return 3;
        case ColorSpace::CalibratedWhite:
        case ColorSpace::DeviceWhite:
            return 1;
        case ColorSpace::DeviceCmyk:
            return 4;
        default:
            return 0;
    }
}

/// The field that holds a space's components; the letters of the last stand in this order.
std::string_view componentsField(ColorSpace space) {
    constexpr std::array kFields{std::string_view(), std::string_view("NSWhite"),
                                 std::string_view(), std::string_view("NSRGB"),
                                 std::string_view("NSCYMK")};
    return kFields[componentCount(space)];
}

/// Reads decimal numbers with blanks between them, up to a NUL or the end.
std::vector<double> numbersIn(std::string_view text) {
    std::vector<double> numbers;
    while (!text.empty() && numbers.size() < 8) {
        double number = 0;
        const auto [stop, error] = std::from_chars(text.data(), text.data() + text.size(), number);
        if (error != std::errc()) {
            break;
        }
        numbers.push_back(number);
        text.remove_prefix(static_cast<std::size_t>(stop - text.data()));
        text.remove_prefix(text.starts_with(' ') ? 1 : 0);
    }
    return numbers;
}

std::string textOf(const std::vector<double>& numbers) {
    std::string text;
    for (const double number : numbers) {
        std::array<char, 32> digits{};
        const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
        text.append(text.empty() ? "" : " ").append(digits.data(), end);
    }
    return text;
}

}  // namespace

Color::Color(ColorSpace space, std::vector<double> components, double alpha)
    : space_(space), components_(std::move(components)), alpha_(alpha) {
    if (components_.empty() || components_.size() != componentCount(space)) {
        raise(InvalidArgumentException("a colour of " + std::to_string(components_.size()) +
                                       " components"));
    }
}

Result<std::shared_ptr<const Color>> Color::fromArchived(
    std::shared_ptr<const OpaqueObject> archived, BuildBudget& budget) {
    const auto number = (*archived)[kSpaceField].integer();
    if (!number) {
        return std::shared_ptr<const Color>();
    }
    const auto space = static_cast<ColorSpace>(*number);
    const OpaqueObject& fields = *archived;
    const auto color = std::shared_ptr<Color>(new Color(std::move(archived), space));
    switch (space) {
        case ColorSpace::Named:
            color->catalogName_ = PV_TRY(chargedUtf8(fields["NSCatalogName"], budget)).value_or("");
            color->colorName_ = PV_TRY(chargedUtf8(fields["NSColorName"], budget)).value_or("");
            color->namedColor_ = std::dynamic_pointer_cast<const Color>(fields["NSColor"].object());
            break;
        case ColorSpace::Pattern:
            break;
        default:
            if (!color->readComponents(fields)) {
                return std::shared_ptr<const Color>();
            }
    }
    return std::shared_ptr<const Color>(color);
}

bool Color::readComponents(const OpaqueObject& archived) {
    const std::size_t count = componentCount(space_);
    const Value field = archived[componentsField(space_)];
    if (count == 0 || field.data() == nullptr) {
        return false;
    }
    components_ = numbersIn(field.data()->view());
    if (components_.size() == count + 1) {
        alpha_ = components_.back();
        components_.pop_back();
    }
    return components_.size() == count;
}

std::optional<Rgb> Color::rgb() const {
    switch (components_.size()) {
        case 1:
            return Rgb{components_[0], components_[0], components_[0]};
        case 3:
            return Rgb{components_[0], components_[1], components_[2]};
        case 4: {
            const double light = 1 - components_[3];
            return Rgb{(1 - components_[0]) * light, (1 - components_[1]) * light,
                       (1 - components_[2]) * light};
        }
        default:
            return namedColor_ ? namedColor_->rgb() : std::nullopt;
    }
}

std::shared_ptr<const ArchivedClassNames> Color::ownClass() const {
    return classNamed({"NSColor", "NSObject"});
}

void Color::encodeFields(KeyedArchiver& coder) const {
    coder.encodeInteger(static_cast<std::int64_t>(space_), kSpaceField);
    std::vector<double> numbers = components_;
    if (alpha_ != 1) {
        numbers.push_back(alpha_);
    }
    // Readers expect a NUL at the end.
    coder.encodeBytes(Data::adopt(textOf(numbers).append(1, '\0')), componentsField(space_));
}

}  // namespace platform
