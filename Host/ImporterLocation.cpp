#include "Host/ImporterLocation.h"

#include <sys/stat.h>
#include <unistd.h>

#include <climits>

namespace host {

std::optional<std::string> importerBeside(const std::string& programs) {
    for (const char* place : {"/../Parlavox.mdimporter", "/../lib/parlavox/Parlavox.mdimporter"}) {
        const std::string path = programs + place;
        struct stat status {};
        if (::stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode)) {
            return path;
        }
    }
    return std::nullopt;
}

std::optional<std::string> folderOfProgram() {
    std::string path(PATH_MAX, '\0');
    const ssize_t size = ::readlink("/proc/self/exe", path.data(), path.size());
    if (size <= 0) {
        return std::nullopt;
    }
    path.resize(static_cast<std::size_t>(size));
    return path.substr(0, path.rfind('/'));
}

}  // namespace host
