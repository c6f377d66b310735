// Trees of files, as the round trip of archives takes them.

#include <string>
#include <string_view>

#include "Fuzz/Support/Seeds.h"

namespace fuzz {
namespace {

using platform::Data;

// Steps of a description: an end, a folder and a file, each with the number of its name.
std::string end() {
    return std::string(1, '\0');
}
std::string folder(char name) {
    return {'\1', name};
}
std::string file(char name, std::string_view part, int times = 0) {
    return std::string{'\2', name, static_cast<char>(part.size())} + std::string(part) +
           static_cast<char>(times);
}

Data tree(char level, const std::string& steps) {
    return Data::copyOf(level + steps);
}

}  // namespace

std::vector<Seed> treeSeeds() {
    const std::string noise = "\x93\x1F\xC7\x02\x5A\xEE\x71\x0D\xB8\x46";
    const std::string mixed = file(0, "one line\n", 40) + folder(1) + file(2, noise) + folder(2) +
                              end() + end() + file(3, "last");
    std::string nested;
    for (int i = 0; i < 30; ++i) {
        nested += folder(static_cast<char>(i % 8));
    }
    return {
        {"nothing", tree(6, "")},
        {"stored", tree(0, mixed)},
        {"fastest", tree(1, mixed)},
        {"usual", tree(6, mixed)},
        {"best", tree(9, mixed)},
        {"empty-file", tree(6, file(0, "") + file(1, "words"))},
        {"same-names", tree(1, file(0, "a") + file(0, "b") + folder(0) + file(0, "c"))},
        {"nested", tree(1, nested + file(0, "deep", 9))},
        {"name-of-a-record", tree(0, file(7, "PK\x05\x06") + file(6, "PK\x01\x02"))},
        {"large", tree(6, file(0, std::string(200, 'x') + noise, 255))},
    };
}

}  // namespace fuzz
