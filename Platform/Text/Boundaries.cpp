#include "Platform/Text/Boundaries.h"

#include <limits>
#include <new>
#include <string>

#include "Platform/Foundation/Exception.h"

namespace platform {
namespace {

std::int32_t lengthOf(std::u16string_view text) {
    if (text.size() >= std::numeric_limits<std::int32_t>::max()) {
        raise(InvalidArgumentException("a text of " + std::to_string(text.size()) +
                                       " units is too long to be divided"));
    }
    return static_cast<std::int32_t>(text.size());
}

}  // namespace

Boundaries::Boundaries(BoundaryKind kind, std::u16string_view text)
    : functions_(moduleFunctions<UnicodeFunctions>()),
      kind_(kind),
      iterator_(functions_.lend(kind, text.data(), lengthOf(text))) {
    if (iterator_ == nullptr) {
        throw std::bad_alloc();
    }
}

Boundaries::~Boundaries() {
    functions_.giveBack(kind_, iterator_);
}

std::int32_t Boundaries::next() {
    return moveTo(functions_.next(iterator_));
}

std::int32_t Boundaries::previous() {
    return moveTo(functions_.previous(iterator_));
}

std::int32_t Boundaries::following(std::int32_t position) {
    return moveTo(functions_.following(iterator_, position));
}

void Boundaries::goTo(std::int32_t boundary) {
    if (position_ != boundary) {
        functions_.goTo(iterator_, boundary);
        position_ = boundary;
    }
}

bool Boundaries::isBehindWord() const {
    return functions_.isBehindWord(iterator_);
}

std::int32_t Boundaries::moveTo(std::int32_t boundary) {
    if (boundary != kNone) {
        position_ = boundary;
    }
    return boundary;
}

}  // namespace platform
