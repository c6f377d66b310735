#include "Host/ContentTypes.h"

#include <algorithm>
#include <vector>

#include "Platform/Foundation/MagicBytes.h"

namespace host {

std::string_view extensionOf(std::string_view path) {
    path = path.substr(0, path.find_last_not_of('/') + 1);
    const std::string_view name = path.substr(path.rfind('/') + 1);
    const std::size_t dot = name.rfind('.');
    return dot == std::string_view::npos || dot == 0 ? std::string_view() : name.substr(dot + 1);
}

std::string contentTypeOf(const InputFile& file, const ImporterTypes& types) {
    const std::string_view extension = extensionOf(file.path());
    if (!extension.empty()) {
        const std::vector<std::string> candidates = types.typesForExtension(extension);
        const auto taken = std::find_if(candidates.begin(), candidates.end(),
                                        [&](const std::string& type) { return types.takes(type); });
        if (!candidates.empty()) {
            return taken != candidates.end() ? *taken : candidates.front();
        }
    }
    if (file.isFolder()) {
        return "public.folder";
    }
    const std::string beginning = file.firstBytes(platform::kMagicBytes);
    const bool isArchive = beginning.starts_with("PK");
    return std::string(platform::typeOfBytes(
        beginning, isArchive ? file.lastBytes(platform::kMagicBytes) : std::string()));
}

}  // namespace host
