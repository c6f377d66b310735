// pvdoc save: a document in the own format as the reading application saves it, without its text.

#pragma once

#include <string>

#include "Platform/Foundation/Result.h"
#include "Tools/pvdoc/Target.h"

namespace pvdoc {

/// A file that is read and one that is written.
struct Conversion {
    std::string source;
    std::string target;
    Overwrite overwrite = Overwrite::No;
};

/// Saves the document of any file that is imported at `target`, in the type that the name there
/// says, else in the own one. A Fault names the file, and what was there is as it was.
///
/// The format's own save leaves the text out. So a document that has a text is never replaced, nor
/// is an archive that may have one and can't be read.
platform::Outcome save(const Conversion& conversion);

}  // namespace pvdoc
