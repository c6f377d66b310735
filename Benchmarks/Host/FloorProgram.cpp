// floor PACKAGE: prints a package's text the shortest way there is.

#include <cstdio>
#include <string>

#include "Benchmarks/Support/Floor.h"

namespace {

/// Requires: no surrogates, which the benchmarks' texts don't have.
std::string utf8Of(const std::u16string& text) {
    std::string bytes;
    bytes.reserve(text.size());
    for (const char16_t unit : text) {
        if (unit < 0x80) {
            bytes += static_cast<char>(unit);
            continue;
        }
        if (unit < 0x800) {
            bytes += static_cast<char>(0xC0 | unit >> 6);
        } else {
            bytes += static_cast<char>(0xE0 | unit >> 12);
            bytes += static_cast<char>(0x80 | (unit >> 6 & 0x3F));
        }
        bytes += static_cast<char>(0x80 | (unit & 0x3F));
    }
    return bytes;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        return 2;
    }
    const bench::FloorPackage package = bench::floorPackage(argv[1]);
    const std::string text = utf8Of(bench::floorString(package.text.view()));
    return std::fwrite(text.data(), 1, text.size(), stdout) == text.size() ? 0 : 1;
}
