// Seeds that are made: small inputs of the kinds that matter, good ones and ones with one oddity.
//
// They are deterministic: made again, they are the same bytes.

#pragma once

#include <string>
#include <vector>

#include "Platform/Foundation/Data.h"

namespace fuzz {

/// An input and the name of its file, which says what is odd in it.
struct Seed {
    std::string name;
    platform::Data contents;
};

[[nodiscard]] std::vector<Seed> propertyListSeeds();
[[nodiscard]] std::vector<Seed> keyedArchiveSeeds();
[[nodiscard]] std::vector<Seed> fileWrapperSeeds();
[[nodiscard]] std::vector<Seed> markedUpTextSeeds();
[[nodiscard]] std::vector<Seed> textSeeds();
[[nodiscard]] std::vector<Seed> rawDeflateSeeds();
[[nodiscard]] std::vector<Seed> zipSeeds();
[[nodiscard]] std::vector<Seed> documentSeeds();
[[nodiscard]] std::vector<Seed> textAnalysisSeeds();

}  // namespace fuzz
