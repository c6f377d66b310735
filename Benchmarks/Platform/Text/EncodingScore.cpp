// Tells how well the text of files in old encodings is read, and ICU's and uchardet's detectors
// alone beside it:
//
//     encoding_score FOLDER_OR_TABLE...
//
// In a folder, each file NAME.expected.txt holds, in UTF-8, the text of the file NAME. For each the
// shares of its words that are found (recall) and of the words found that are right (precision) are
// printed. A table, *.tsv, has texts of known language (see LanguageScore.cpp); they are encoded in
// the encodings that the language was once written in, and the shares that are read without a
// mistake are printed. Texts that are ASCII alone are left out.

#include <unicode/ucnv.h>
#include <unicode/ucsdet.h>

#include <uchardet/uchardet.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "Platform/Foundation/Unicode.h"
#include "Platform/Text/CodePageConverter.h"
#include "Platform/Text/PlainText.h"
#include "Platform/Text/Scripts.h"
#include "Tests/Support/LanguageRows.h"

namespace {

constexpr std::size_t kReaderCount = 3;
constexpr std::array<const char*, kReaderCount> kReaders = {"ours", "ICU", "uchardet"};
using Texts = std::array<std::u16string, kReaderCount>;

std::string bytesOf(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// The text in the encoding that a detector names; as windows-1252 when it names none.
std::u16string converted(const std::string& bytes, std::string name) {
    static const std::map<std::string, std::string> kNames = {
        {"", "windows-1252"},         {"ASCII", "utf-8"},
        {"UHC", "windows-949"},       {"TIS-620", "windows-874"},
        {"SHIFT_JIS", "windows-932"}, {"BIG5", "windows-950"},
        {"GB18030", "gb18030"},       {"MAC-CYRILLIC", "x-mac-cyrillic"}};
    if (const auto other = kNames.find(name); other != kNames.end()) {
        name = other->second;
    }
    auto converter = platform::CodePageConverter::converterNamed(name.c_str());
    if (converter == nullptr) {
        converter = platform::CodePageConverter::converterNamed("windows-1252");
    }
    std::u16string text;
    converter->append(text, bytes);
    return text.starts_with(u'\uFEFF') ? text.substr(1) : text;
}

std::string icuAnswer(const std::string& bytes) {
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<UCharsetDetector, void (*)(UCharsetDetector*)> detector(
        ucsdet_open(&status), ucsdet_close);
    ucsdet_setText(detector.get(), bytes.data(), static_cast<std::int32_t>(bytes.size()), &status);
    const UCharsetMatch* const match = ucsdet_detect(detector.get(), &status);
    const char* const name = match != nullptr ? ucsdet_getName(match, &status) : "";
    return U_SUCCESS(status) ? name : "";
}

std::string uchardetAnswer(const std::string& bytes) {
    const std::unique_ptr<uchardet, void (*)(uchardet_t)> detector(uchardet_new(), uchardet_delete);
    uchardet_handle_data(detector.get(), bytes.data(), bytes.size());
    uchardet_data_end(detector.get());
    return uchardet_get_charset(detector.get());
}

Texts textsOf(const std::string& bytes) {
    auto ours = platform::plainTextFromBytes(bytes);
    return {ours ? std::move(ours.value()) : std::u16string(), converted(bytes, icuAnswer(bytes)),
            converted(bytes, uchardetAnswer(bytes))};
}

/// Words; of scripts that are written without blanks each character.
std::multiset<std::u16string> wordsOf(std::u16string_view text) {
    std::multiset<std::u16string> words;
    std::u16string word;
    for (const char16_t unit : text) {
        const platform::Script script = platform::scriptOf(unit);
        const bool isAlone =
            (script >= platform::Script::Han && script <= platform::Script::Hangul) ||
            script == platform::Script::Thai;
        if (script == platform::Script::None || isAlone) {
            if (!word.empty()) {
                words.insert(std::exchange(word, {}));
            }
            if (isAlone) {
                words.insert(std::u16string(1, unit));
            }
        } else {
            word += unit;
        }
    }
    if (!word.empty()) {
        words.insert(word);
    }
    return words;
}

double percent(std::size_t part, std::size_t all) {
    return all == 0 ? 100 : 100.0 * static_cast<double>(part) / static_cast<double>(all);
}

std::array<double, 2> recallAndPrecision(const std::multiset<std::u16string>& wanted,
                                         const std::u16string& text) {
    const std::multiset<std::u16string> found = wordsOf(text);
    std::vector<std::u16string> common;
    std::set_intersection(wanted.begin(), wanted.end(), found.begin(), found.end(),
                          std::back_inserter(common));
    return {percent(common.size(), wanted.size()), percent(common.size(), found.size())};
}

void scoreFolder(const std::filesystem::path& folder) {
    constexpr std::string_view kExpected = ".expected.txt";
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        std::string name = entry.path().filename();
        if (name.ends_with(kExpected)) {
            names.push_back(name.substr(0, name.size() - kExpected.size()));
        }
    }
    std::sort(names.begin(), names.end());
    std::printf("%-44s", "recall and precision, %");
    for (const char* const reader : kReaders) {
        std::printf(" %15s", reader);
    }
    std::puts("");
    std::array<std::array<double, 2>, kReaderCount> sums{};
    for (const std::string& name : names) {
        const auto wanted = wordsOf(
            platform::utf16FromUtf8Lossy(bytesOf(folder / (name + std::string(kExpected)))));
        const Texts texts = textsOf(bytesOf(folder / name));
        std::printf("%-44s", name.c_str());
        for (std::size_t i = 0; i < kReaderCount; i++) {
            const auto [recall, precision] = recallAndPrecision(wanted, texts[i]);
            std::printf("   %6.2f %6.2f", recall, precision);
            sums[i] = {sums[i][0] + recall, sums[i][1] + precision};
        }
        std::puts("");
    }
    std::printf("%-44s", "mean");
    const auto count = static_cast<double>(std::max<std::size_t>(names.size(), 1));
    for (const auto& [recall, precision] : sums) {
        std::printf("   %6.2f %6.2f", recall / count, precision / count);
    }
    std::puts("");
}

/// The encodings that languages were once written in.
struct OldEncodings {
    std::vector<const char*> languages;
    std::vector<const char*> encodings;
};

const std::vector<OldEncodings>& oldEncodings() {
    static const std::vector<OldEncodings> kOld = {
        {{"de", "fr", "es", "it", "pt", "nl", "sv", "da", "nb", "fi", "ca", "is"},
         {"windows-1252", "iso-8859-15", "macintosh", "ibm-850"}},
        {{"pl", "cs", "sk", "hu", "hr", "sl"},
         {"windows-1250", "iso-8859-2", "ibm-852", "x-mac-centraleurroman"}},
        {{"ro"}, {"windows-1250", "iso-8859-2"}},
        {{"ru", "bg"}, {"windows-1251", "koi8-r", "iso-8859-5", "ibm866", "x-mac-cyrillic"}},
        {{"uk"}, {"windows-1251", "koi8-u"}},
        {{"el"}, {"windows-1253", "iso-8859-7"}},
        {{"tr"}, {"windows-1254"}},
        {{"he"}, {"windows-1255"}},
        {{"ar"}, {"windows-1256", "iso-8859-6"}},
        {{"lt", "lv", "et"}, {"windows-1257"}},
        {{"th"}, {"windows-874"}},
        {{"ja"}, {"windows-932", "euc-jp", "iso-2022-jp"}},
        {{"ko"}, {"windows-949"}},
        {{"zh", "zh-Hans"}, {"gb18030"}},
        {{"zh", "zh-Hant"}, {"windows-950"}},
    };
    return kOld;
}

/// The text in an encoding; nothing when that lacks one of its characters.
std::optional<std::string> encoded(const std::u16string& text, const char* name) {
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<UConverter, void (*)(UConverter*)> converter(ucnv_open(name, &status),
                                                                       ucnv_close);
    ucnv_setFromUCallBack(converter.get(), UCNV_FROM_U_CALLBACK_STOP, nullptr, nullptr, nullptr,
                          &status);
    std::string bytes(text.size() * 8 + 16, '\0');
    const std::int32_t size =
        ucnv_fromUChars(converter.get(), bytes.data(), static_cast<std::int32_t>(bytes.size()),
                        text.data(), static_cast<std::int32_t>(text.size()), &status);
    if (U_FAILURE(status)) {
        return std::nullopt;
    }
    bytes.resize(static_cast<std::size_t>(size));
    return bytes;
}

/// How many texts there are, and how many each reader reads without a mistake.
struct Line {
    std::size_t all = 0;
    std::array<std::size_t, kReaderCount> right{};
};

struct TableScore {
    std::map<std::string, Line> encodings;
    std::array<Line, std::size(test::kLengthClasses)> lengths;
};

void add(Line& line, const Texts& texts, const std::u16string& wanted) {
    line.all++;
    for (std::size_t i = 0; i < kReaderCount; i++) {
        line.right[i] += texts[i] == wanted ? 1 : 0;
    }
}

void add(TableScore& score, const test::LanguageRow& row) {
    for (const OldEncodings& old : oldEncodings()) {
        if (std::find(old.languages.begin(), old.languages.end(), row.language) ==
            old.languages.end()) {
            continue;
        }
        for (const char* const name : old.encodings) {
            const auto bytes = encoded(row.text, name);
            const bool isAscii = platform::isAscii(platform::utf8FromUtf16(row.text));
            if (bytes && !isAscii) {
                const Texts texts = textsOf(*bytes);
                add(score.encodings[name], texts, row.text);
                add(score.lengths[test::lengthClassOf(row)], texts, row.text);
            }
        }
    }
}

void print(const std::string& name, const Line& line) {
    std::printf("%-24s %7zu", name.c_str(), line.all);
    for (const std::size_t right : line.right) {
        std::printf(" %9.2f", percent(right, line.all));
    }
    std::puts("");
}

void scoreTable(const std::filesystem::path& table) {
    TableScore score;
    for (const test::LanguageRow& row : test::languageRows(table)) {
        add(score, row);
    }
    std::printf("%-24s %7s", "read without mistake, %", "texts");
    for (const char* const reader : kReaders) {
        std::printf(" %9s", reader);
    }
    std::puts("");
    Line all;
    for (const auto& [name, line] : score.encodings) {
        print(name, line);
        all.all += line.all;
        for (std::size_t i = 0; i < kReaderCount; i++) {
            all.right[i] += line.right[i];
        }
    }
    for (std::size_t i = 0; i < std::size(test::kLengthClasses); i++) {
        print(test::kLengthClasses[i], score.lengths[i]);
    }
    print("all", all);
}

}  // namespace

int main(int count, char** arguments) {
    try {
        for (int i = 1; i < count; i++) {
            if (std::filesystem::is_directory(arguments[i])) {
                scoreFolder(arguments[i]);
            } else {
                scoreTable(arguments[i]);
            }
        }
        return 0;
    } catch (const std::exception& exception) {
        std::fprintf(stderr, "encoding_score: %s\n", exception.what());
        return 1;
    }
}
