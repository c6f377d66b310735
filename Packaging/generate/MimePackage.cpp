#include "Packaging/generate/MimePackage.h"

#include <string_view>

#include "Platform/Foundation/TypeTable.h"

namespace packaging {
namespace {

using platform::TypeRow;

std::string escaped(std::string_view text) {
    std::string xml;
    for (const char unit : text) {
        switch (unit) {
            case '&':
                xml += "&amp;";
                break;
            case '<':
                xml += "&lt;";
                break;
            case '>':
                xml += "&gt;";
                break;
            case '"':
                xml += "&quot;";
                break;
            default:
                xml += unit;
        }
    }
    return xml;
}

std::string mimeType(const TypeRow& row) {
    const std::string_view* name = row.mimeTypes.begin();
    std::string xml = "  <mime-type type=\"" + escaped(*name) + "\">\n";
    xml += "    <comment>" + escaped(row.description) + "</comment>\n";
    if (name->ends_with("+zip")) {
        xml += "    <sub-class-of type=\"application/zip\"/>\n";
    }
    xml += "    <generic-icon name=\"x-office-document\"/>\n";
    for (const std::string_view extension : row.filenameExtensions) {
        xml += "    <glob pattern=\"*." + escaped(extension) + "\"/>\n";
    }
    while (++name != row.mimeTypes.end()) {
        xml += "    <alias type=\"" + escaped(*name) + "\"/>\n";
    }
    return xml + "  </mime-type>\n";
}

}  // namespace

std::string mimePackage() {
    std::string xml =
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
        "<mime-info xmlns=\"http://www.freedesktop.org/standards/shared-mime-info\">\n";
    for (const TypeRow& row : platform::kTypeTable) {
        if (row.origin != platform::TypeOrigin::Platform && !row.mimeTypes.empty()) {
            xml += mimeType(row);
        }
    }
    return xml + "</mime-info>\n";
}

}  // namespace packaging
