// Objects that can be had as a dictionary, and made of one.

#pragma once

#include <concepts>
#include <memory>
#include <type_traits>

#include "Platform/Foundation/Value.h"

namespace parlavox {

/// The protocol of such objects. Each class of them also has a static operation
/// `initWithDictionaryRepresentation`, which takes a dictionary and answers nothing where it makes
/// no object.
class FNLDictionaryRepresentation {
public:
    virtual ~FNLDictionaryRepresentation() = default;

    /// Returns a new dictionary that describes the object.
    ///
    /// Selector: dictionaryRepresentation
    [[nodiscard]] virtual platform::Dictionary dictionaryRepresentation() const = 0;

protected:
    FNLDictionaryRepresentation() = default;
    FNLDictionaryRepresentation(const FNLDictionaryRepresentation&) = default;
    FNLDictionaryRepresentation& operator=(const FNLDictionaryRepresentation&) = default;
};

/// A class whose objects can be had as a dictionary and made of one.
template <class Type>
concept DictionaryRepresentable = std::is_base_of_v<FNLDictionaryRepresentation, Type> &&
    requires(const platform::Dictionary& dictionary) {
    {
        Type::initWithDictionaryRepresentation(dictionary)
        } -> std::same_as<std::shared_ptr<const Type>>;
};

}  // namespace parlavox
