// What a document tells of itself through the default notification center.
//
// The object of each notification is the document.

#pragma once

namespace parlavox {

/// Posted when a save has succeeded; on the thread that was told of its end, and after that.
// NOLINTNEXTLINE(readability-identifier-naming): the name that the platform gives such constants.
inline constexpr char DocumentDidSaveNotification[] = "DocumentDidSaveNotification";

/// Posted when templates were inserted, removed or moved, with some of the following.
// NOLINTNEXTLINE(readability-identifier-naming): the same.
inline constexpr char DocumentCustomTagTemplatesDidChangeNotification[] =
    "DocumentCustomTagTemplatesDidChangeNotification";

/// An IndexSet: where templates were inserted or removed.
inline constexpr char kDocumentIndexSetKey[] = "kDocumentIndexSetKey";

/// An array: the templates that were inserted.
inline constexpr char kDocumentNewCustomTagTemplatesKey[] = "kDocumentNewCustomTagTemplatesKey";

/// Unsigned integers: from where to where a template was moved.
inline constexpr char kDocumentOldIndexOfCustomTagTemplateKey[] =
    "kDocumentOldIndexOfCustomTagTemplateKey";
inline constexpr char kDocumentNewIndexOfCustomTagTemplateKey[] =
    "kDocumentNewIndexOfCustomTagTemplateKey";

}  // namespace parlavox
