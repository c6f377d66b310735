#include "Tools/pvdoc/FileType.h"

#include <algorithm>
#include <string_view>

#include "Platform/Foundation/MagicBytes.h"
#include "Platform/Foundation/PathString.h"
#include "Platform/Foundation/TypeRegistry.h"

namespace pvdoc {

FileType typeOfFile(const std::string& path, const platform::Data& contents) {
    const std::string extension = platform::pathExtension(path);
    const std::string quoted = '"' + extension + '"';
    const auto types = platform::TypeRegistry::typesForFilenameExtension(extension);
    if (!types.empty()) {
        return {std::string(types.front()), "as the extension " + quoted + " says"};
    }
    const std::string_view bytes = contents.view();
    const std::size_t look = std::min(bytes.size(), platform::kMagicBytes);
    return {std::string(
                platform::typeOfBytes(bytes.substr(0, look), bytes.substr(bytes.size() - look))),
            "as the bytes look like it; the extension " + quoted + " says nothing"};
}

}  // namespace pvdoc
