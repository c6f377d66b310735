#include "Platform/Text/CodePageConverter.h"

#include <array>

namespace platform {

std::unique_ptr<CodePageConverter> CodePageConverter::converterNamed(const char* name) {
    const auto& functions = moduleFunctions<UnicodeFunctions>();
    CodePage* const codePage = functions.openCodePage(name);
    if (codePage == nullptr) {
        return nullptr;
    }
    return std::unique_ptr<CodePageConverter>(new CodePageConverter(functions, codePage));
}

CodePageConverter::~CodePageConverter() {
    functions_.closeCodePage(codePage_);
}

std::size_t CodePageConverter::append(std::u16string& text, std::string_view bytes,
                                      BytesFollow follow) {
    std::array<char16_t, 512> units;
    std::size_t replaced = 0;
    const char* next = bytes.data();
    const char* const end = next + bytes.size();
    for (bool isDone = false; !isDone;) {
        char16_t* unitsEnd = units.data();
        replaced +=
            functions_.convert(codePage_, &next, end, &unitsEnd, units.data() + units.size(),
                               follow == BytesFollow::No, &isDone);
        text.append(units.data(), unitsEnd);
    }
    return replaced;
}

}  // namespace platform
