// Writes the documents that the host in C reads into the folder it is given.

#include <filesystem>
#include <fstream>
#include <iostream>
#include <string_view>

#include "Tools/samples/ArchiveBuilder.h"
#include "Tools/samples/PackageBuilder.h"
#include "Tools/samples/ZipBuilder.h"

namespace {

bool write(const std::filesystem::path& path, std::string_view bytes) {
    std::ofstream file(path, std::ios::binary);
    return static_cast<bool>(file << bytes << std::flush);
}

bool write(const std::filesystem::path& path, const platform::Data& data) {
    return write(path, {reinterpret_cast<const char*>(data.bytes()), data.size()});
}

bool writeSamples(const std::filesystem::path& folder) {
    const auto text = samples::archiveOfText(u"The caf\u00E9 opens \U0001F558 at ten.\n");
    samples::ZipBuilder textless;
    textless.add("contents.plist", samples::contentsPlist());
    return write(folder / "good.parlavox", samples::package(text)) &&
           write(folder / "textless.parlavox", textless.finish()) &&
           write(folder / "newer.parlavox", samples::package(text, 3)) &&
           write(folder / "plain.parlavox", "Only a letter, and no archive at all.\n");
}

}  // namespace

int main(int count, char** arguments) {
    if (count != 2) {
        std::cerr << "usage: " << arguments[0] << " FOLDER\n";
        return 2;
    }
    std::filesystem::create_directories(arguments[1]);
    if (!writeSamples(arguments[1])) {
        std::cerr << "cannot write to " << arguments[1] << '\n';
        return 1;
    }
    return 0;
}
