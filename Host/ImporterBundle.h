// An importer's bundle, opened the way a search service opens it.
//
// One thread at a time.

#pragma once

#include <string>

#include "Host/CoreFoundationOwner.h"
#include "Host/Importer.h"
#include "Host/ImporterTypes.h"
#include "Platform/CoreFoundation/CoreFoundation.h"
#include "Platform/Foundation/Result.h"

namespace host {

/// A plug-in of the importer type.
class ImporterBundle {
public:
    /// Opens the bundle in the folder at `path` without loading its code. The Fault says what is
    /// wrong with the bundle.
    [[nodiscard]] static platform::Result<ImporterBundle> open(const std::string& path);

    /// What the importer takes.
    [[nodiscard]] const ImporterTypes& types() const { return types_; }

    /// Loads the code and makes an importer, which must not outlive this object. The Fault says
    /// what is wrong with the bundle. Runs foreign code, see Importer.
    [[nodiscard]] platform::Result<Importer> makeImporter() const;

private:
    ImporterBundle(Owner<CFPlugInRef> plugIn, Owner<CFArrayRef> factories, ImporterTypes types)
        : plugIn_(std::move(plugIn)), factories_(std::move(factories)), types_(std::move(types)) {}

    [[nodiscard]] void* makeInstance() const;
    [[nodiscard]] LastFailureFunction lastFailureFunction() const;

    Owner<CFPlugInRef> plugIn_;
    Owner<CFArrayRef> factories_;
    ImporterTypes types_;
};

}  // namespace host
