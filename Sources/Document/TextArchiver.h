// Writes a document's text as an archive.
//
// One thread at a time.

#pragma once

#include <memory>
#include <string_view>

#include "Platform/Foundation/Data.h"
#include "Platform/Foundation/KeyedArchiver.h"
#include "Platform/Foundation/Value.h"

namespace parlavox {

/// A keyed archiver by which objects can tell, while they encode themselves, that they are archived
/// as a document's text. It does nothing else of its own.
class TextArchiver final : public platform::KeyedArchiver {
public:
    /// Begins an empty archive.
    ///
    /// Selector: init
    [[nodiscard]] static std::shared_ptr<TextArchiver> init();

    /// Returns an archive whose root object is `root`.
    ///
    /// Selector: archivedDataWithRootObject:
    [[nodiscard]] static platform::Data archivedDataWithRootObject(const platform::Value& root);

private:
    TextArchiver() = default;

    [[nodiscard]] std::string_view archiverName() const override { return "TextArchiver"; }
};

}  // namespace parlavox
