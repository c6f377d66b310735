// Runs a fuzz target once over each file that it is given and each file in the folders among them,
// where there is no engine that would do it.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size);

namespace {

using Paths = std::vector<std::filesystem::path>;

void collect(const std::filesystem::path& path, Paths& files) {
    if (!std::filesystem::is_directory(path)) {
        files.push_back(path);
        return;
    }
    for (const auto& entry : std::filesystem::recursive_directory_iterator(path)) {
        if (entry.is_regular_file()) {
            files.push_back(entry.path());
        }
    }
}

bool replay(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    const std::vector<char> bytes{std::istreambuf_iterator<char>(file), {}};
    if (!file) {
        std::cerr << path << ": cannot be read\n";
        return false;
    }
    // Before the run: the name is what a crash leaves behind.
    std::cout << path.string() << std::endl;
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
    return true;
}

}  // namespace

int main(int count, char** arguments) {
    Paths files;
    for (int i = 1; i < count; ++i) {
        collect(arguments[i], files);
    }
    std::sort(files.begin(), files.end());
    if (files.empty()) {
        std::cerr << "usage: " << arguments[0] << " FILE-OR-FOLDER...; there was no file\n";
        return 2;
    }
    return std::all_of(files.begin(), files.end(), replay) ? 0 : 1;
}
