#include "Platform/Foundation/AssertionHandler.h"

#include <utility>

namespace platform {
namespace {

thread_local AssertionHandler* currentHandler = nullptr;

}  // namespace

AssertionHandlerScope::AssertionHandlerScope(AssertionHandler& handler) : outer_(currentHandler) {
    currentHandler = &handler;
}

AssertionHandlerScope::~AssertionHandlerScope() {
    currentHandler = outer_;
}

void failAssertion(std::string description, SourcePlace place) {
    AssertionFailure failure(std::move(description), place.file, place.line);
    if (currentHandler == nullptr) {
        raise(std::move(failure));
    }
    currentHandler->handleFailure(failure);
}

bool require(bool holds, std::string_view condition, SourcePlace place) {
    if (!holds) {
        failAssertion("Invalid parameter not satisfying: " + std::string(condition), place);
    }
    return holds;
}

}  // namespace platform
