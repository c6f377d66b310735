// Seeds that are made: small inputs of the kinds that matter, good ones and ones with one oddity.
//
// They are deterministic: made again, they are the same bytes.

#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "Platform/Foundation/Data.h"

namespace fuzz {

/// An input and the name of its file, which says what is odd in it.
struct Seed {
    std::string name;
    platform::Data contents;
};

/// The bytes of a text in little-endian UTF-16.
[[nodiscard]] inline std::string littleEndianBytes(std::u16string_view text) {
    std::string bytes;
    for (const char16_t unit : text) {
        bytes += static_cast<char>(unit & 0xFF);
        bytes += static_cast<char>(unit >> 8);
    }
    return bytes;
}

[[nodiscard]] std::vector<Seed> propertyListSeeds();
[[nodiscard]] std::vector<Seed> keyedArchiveSeeds();
[[nodiscard]] std::vector<Seed> fileWrapperSeeds();
[[nodiscard]] std::vector<Seed> markedUpTextSeeds();
[[nodiscard]] std::vector<Seed> pdfSeeds();
[[nodiscard]] std::vector<Seed> pdfLayoutSeeds();
[[nodiscard]] std::vector<Seed> textSeeds();
[[nodiscard]] std::vector<Seed> plainTextSeeds();
[[nodiscard]] std::vector<Seed> rtfSeeds();

/// Folders with a text in one run of bytes.
[[nodiscard]] std::vector<Seed> rtfdSeeds();
[[nodiscard]] std::vector<Seed> htmlSeeds();
[[nodiscard]] std::vector<Seed> languageSeeds();
[[nodiscard]] std::vector<Seed> rawDeflateSeeds();
[[nodiscard]] std::vector<Seed> zipSeeds();
[[nodiscard]] std::vector<Seed> treeSeeds();
[[nodiscard]] std::vector<Seed> documentSeeds();
[[nodiscard]] std::vector<Seed> textAnalysisSeeds();
[[nodiscard]] std::vector<Seed> importUtilsSeeds();

}  // namespace fuzz
