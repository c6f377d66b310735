// document_memory FILE TYPE: reads a document and prints the most memory that the process has had,
// in kB.

#include <cstdio>
#include <fstream>
#include <string>

#include "Platform/Foundation/URL.h"
#include "Sources/Document/Document.h"

int main(int argc, char** argv) {
    if (argc != 3) {
        return 2;
    }
    const auto document = parlavox::Document::init();
    if (!document->readFromURL(platform::URL::fileURLWithPath(argv[1]), argv[2], nullptr)) {
        return 1;
    }
    constexpr std::string_view kPeak = "VmHWM:";
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);) {
        if (line.starts_with(kPeak)) {
            std::puts(line.c_str() + kPeak.size());
            return 0;
        }
    }
    return 1;
}
