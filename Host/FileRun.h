// One file, from its path to what has come of it.
//
// Runs foreign code, which may crash or never return. One thread at a time.

#pragma once

#include <optional>
#include <string>

#include "Host/FileOutcome.h"
#include "Host/Importer.h"
#include "Host/ImporterTypes.h"

namespace host {

/// Runs files through an importer.
class FileRun {
public:
    /// Both must outlive this object. `type` is the content type of all files; without one, each
    /// file's own is found out, and must be one that the importer takes.
    FileRun(Importer& importer, const ImporterTypes& types, std::optional<std::string> type)
        : importer_(importer), types_(types), type_(std::move(type)) {}

    /// Opens and imports the file at `path`. Whatever goes wrong or is thrown is the outcome's
    /// error.
    [[nodiscard]] FileOutcome run(const std::string& path);

private:
    void import(FileOutcome& outcome);

    Importer& importer_;
    const ImporterTypes& types_;
    std::optional<std::string> type_;
};

}  // namespace host
