// Writes down the broken conditions of a test instead of throwing them.

#pragma once

#include <string>
#include <vector>

#include "Platform/Foundation/AssertionHandler.h"

namespace parlavox {

/// A handler that returns. One thread at a time.
class RecordingHandler final : public platform::AssertionHandler {
public:
    void handleFailure(const platform::AssertionFailure& failure) override {
        const std::string& reason = failure.reason();
        const std::size_t colon = reason.rfind(": ");
        reported.push_back(reason.substr(colon == std::string::npos ? 0 : colon + 2) + " @" +
                           std::to_string(failure.line()));
    }

    /// What each condition says, an "@" and its line.
    std::vector<std::string> reported;
};

}  // namespace parlavox
