#include "Platform/Text/Font.h"

#include <initializer_list>
#include <string_view>

#include "Platform/Foundation/KeyedArchiver.h"

namespace platform {
namespace {

/// The flags of a font that the user chose, as opposed to those that the system uses.
constexpr std::int64_t kOrdinaryFont = 16;

/// The attributes of the descriptor that newer fonts have; null for none.
std::shared_ptr<const Dictionary> descriptorAttributes(const OpaqueObject& font) {
    for (const std::string_view key :
         {"NSDescriptor", "NSTextStyleDescriptor", "UIFontDescriptor"}) {
        const auto object = font[key].object();
        if (const auto* const descriptor = dynamic_cast<const OpaqueObject*>(object.get())) {
            return (*descriptor)["NSFontDescriptorAttributes"].sharedDictionary();
        }
    }
    return nullptr;
}

}  // namespace

Result<std::shared_ptr<const Font>> Font::fromArchived(std::shared_ptr<const OpaqueObject> archived,
                                                       BuildBudget& budget) {
    const auto descriptor = descriptorAttributes(*archived);
    // The field itself, its other name, then what the descriptor says.
    const auto find = [&](std::string_view name, std::string_view otherName,
                          std::string_view attribute) {
        Value value = (*archived)[name];
        if (value.isNull()) {
            value = (*archived)[otherName];
        }
        return value.isNull() && descriptor ? (*descriptor)[attribute] : value;
    };
    auto name = PV_TRY(chargedUtf8(find("NSName", "UIFontName", "NSFontNameAttribute"), budget));
    if (!name) {
        return std::shared_ptr<const Font>();
    }
    const auto size = find("NSSize", "UIFontPointSize", "NSFontSizeAttribute").doubleValue();
    return std::shared_ptr<const Font>(
        new Font(std::move(archived), std::move(*name), size.value_or(0)));
}

std::shared_ptr<const ArchivedClassNames> Font::ownClass() const {
    return classNamed({"NSFont", "NSObject"});
}

void Font::encodeFields(KeyedArchiver& coder) const {
    coder.encodeObject(Value::fromUtf8(fontName_), "NSName");
    coder.encodeDouble(pointSize_, "NSSize");
    coder.encodeInteger(kOrdinaryFont, "NSfFlags");
}

}  // namespace platform
