// Modules: shared objects that hide a large library each and cost nothing until they are needed.
//
// A module lies in the folder `Modules` beside the plug-in; programs find it in the bundle that
// lies beside them. It exports one C function, `parlavoxModule`, which answers its table of
// functions: a struct that begins with a ModuleHead. Once it is open it stays, whatever becomes of
// the plug-in. Any thread.

#pragma once

namespace platform {

/// What every module's table begins with.
struct ModuleHead {
    /// Frees what the module keeps for its next use. Any thread.
    void (*releaseIdle)();
};

/// Opens the module `name` and returns its table.
///
/// Raises InternalInconsistencyException when it cannot be opened.
[[nodiscard]] const ModuleHead* openModule(const char* name);

/// The table of the module that `Functions::kName` names.
template <class Functions>
[[nodiscard]] const Functions& moduleFunctions() {
    // The library that holds the code may go, the module does not.
    static const auto* const functions =
        static_cast<const Functions*>(openModule(Functions::kName));
    return *functions;
}

}  // namespace platform
