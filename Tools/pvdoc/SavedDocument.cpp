#include "Tools/pvdoc/SavedDocument.h"

#include <optional>

#include "Platform/Foundation/Failure.h"
#include "Platform/Foundation/MainQueue.h"
#include "Tools/pvdoc/Target.h"

namespace pvdoc {

using platform::Error;
using platform::Fault;
using platform::FaultCode;
using platform::Outcome;

Outcome saveDocument(parlavox::Document& document, const std::string& path, const std::string& type,
                     platform::SaveOperation operation) {
    bool hasEnded = false;
    std::optional<Error> failure;
    platform::clearFailure();
    document.saveToURL(platform::URL::fileURLWithPath(path), type, operation,
                       [&](const std::optional<Error>& error) {
                           failure = error;
                           hasEnded = true;
                       });
    platform::MainQueue::mainQueue().runUntil([&] { return hasEnded; });
    if (!failure) {
        return platform::done();
    }
    std::string cause = failure->description;
    if (cause.empty()) {
        cause = "can't be saved";
    }
    return Fault{FaultCode::System, withoutPath(path, cause)};
}

}  // namespace pvdoc
