// CLD2 alone, behind one C function: the code of its first answer.

// CLD2's headers want it first.
#include <cstdio>

#include <cld2/public/compact_lang_det.h>
#include <cld2/public/encodings.h>

#include <array>

extern "C" __attribute__((visibility("default"))) const char* askCld2(const char* utf8,
                                                                      std::size_t size) {
    constexpr bool kIsPlainText = true;
    const CLD2::CLDHints hints{nullptr, nullptr, CLD2::UNKNOWN_ENCODING, CLD2::UNKNOWN_LANGUAGE};
    std::array<CLD2::Language, 3> languages{};
    std::array<int, 3> percents{};
    std::array<double, 3> scores{};
    int letters = 0;
    bool isReliable = false;
    int validBytes = 0;
    CLD2::ExtDetectLanguageSummaryCheckUTF8(utf8, static_cast<int>(size), kIsPlainText, &hints,
                                            CLD2::kCLDFlagBestEffort, languages.data(),
                                            percents.data(), scores.data(), nullptr, &letters,
                                            &isReliable, &validBytes);
    return CLD2::LanguageCode(languages[0]);
}
