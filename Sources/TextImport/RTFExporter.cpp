#include "Sources/TextImport/RTFExporter.h"

#include "Sources/TextImport/ImportUtils.h"

namespace parlavox {

platform::AttributedString RTFExporter::stringByRemovingTags(
    const platform::AttributedString& string) {
    // A tag is an attachment, and importing leaves those out in the same way.
    return ImportUtils::createCopyWithoutAttachments(string);
}

}  // namespace parlavox
