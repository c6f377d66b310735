#include "Platform/Text/LanguageTagger.h"

namespace platform {

std::string LanguageTagger::dominantLanguageForString(std::u16string_view) {
    // It knows no language yet.
    return "und";
}

}  // namespace platform
