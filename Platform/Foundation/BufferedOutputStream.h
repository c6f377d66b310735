// Gathers small writes for another stream.
//
// One thread at a time.

#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <utility>
#include <vector>

#include "Platform/Foundation/OutputStream.h"

namespace platform {

/// An output stream that hands on what it is given in large pieces. What was gathered may turn out
/// to be lost only later: flush() tells.
class BufferedOutputStream final : public OutputStream {
public:
    explicit BufferedOutputStream(std::shared_ptr<OutputStream> target)
        : target_(std::move(target)) {}

    void open() override { target_->open(); }

    /// Hands on what is left, as far as that can be done, and closes the target.
    void close() override;

    [[nodiscard]] StreamStatus streamStatus() const override { return target_->streamStatus(); }
    [[nodiscard]] std::optional<Error> streamError() const override {
        return target_->streamError();
    }

    [[nodiscard]] std::int64_t write(std::span<const std::byte> bytes) override;

    /// The target's place, and what has been gathered behind it.
    [[nodiscard]] std::optional<std::int64_t> currentFileOffset() const override;

    /// Hands on what has been gathered and returns whether the target took all of it. What it did
    /// not take is lost.
    [[nodiscard]] bool flush();

private:
    std::shared_ptr<OutputStream> target_;
    std::vector<std::byte> gathered_;
};

}  // namespace platform
