// The MIME package that tells a desktop about the document types of our bundle.
//
// Pure functions; any thread.

#pragma once

#include <string>

namespace packaging {

/// Returns the package in the XML of the desktops' shared MIME database, as UTF-8: each type that
/// our bundle declares and that has a MIME type, with its file name patterns.
///
/// A type whose name ends in "+zip" is a sub-class of application/zip: services that look into a
/// file first believe its extension only then. There are no rules about content, because writers
/// may put the entries of an archive in any order.
[[nodiscard]] std::string mimePackage();

}  // namespace packaging
