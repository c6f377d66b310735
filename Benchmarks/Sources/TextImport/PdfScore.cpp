// Tells how much of the text of PDF files is found:
//
//     pdf_score FOLDER_OR_FILE...
//
// Beside a file NAME.pdf stands the text that it is known to hold, NAME.pdf.expected.txt, with a
// line for each paragraph. Words are the platform's, without regard to ligatures and marks of
// direction; recall is the share of the expected words that are found, precision the share of the
// found ones that are expected, pairs the share of words that are found behind the word that they
// are expected behind. Paragraphs count where their words are found in a paragraph of their own, in
// files that were made so that these are known: their names begin with "made-".

#include <algorithm>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "Platform/Foundation/Failure.h"
#include "Platform/Foundation/Log.h"
#include "Platform/Foundation/Unicode.h"
#include "Platform/Text/Modules/UnicodeModule.h"
#include "Platform/Text/SubstringEnumeration.h"
#include "Sources/TextImport/PDFImporter.h"

namespace {

using Words = std::vector<std::u16string>;

struct Share {
    std::size_t found = 0;
    std::size_t all = 0;

    [[nodiscard]] double percent() const { return all == 0 ? 100 : 100.0 * found / all; }
    void add(const Share& other) {
        found += other.found;
        all += other.all;
    }
};

struct Score {
    Share recall;
    Share precision;
    Share pairs;
    Share paragraphs;
};

std::string bytesOf(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// Ligatures as letters, and no characters that are not seen.
std::u16string foldedText(const std::u16string& text) {
    std::u16string folded;
    for (const char16_t unit : text) {
        const bool isUnseen = unit == 0xAD || unit == 0x200E || unit == 0x200F ||
                              (unit >= 0x202A && unit <= 0x202E) || unit == 0x0C;
        if (unit >= 0xFB00 && unit <= 0xFB06) {
            char16_t letters[4];
            const std::size_t count =
                platform::moduleFunctions<platform::UnicodeFunctions>().plainForm(unit, letters, 4);
            folded.append(letters, count);
        } else if (!isUnseen) {
            folded += unit;
        }
    }
    return folded;
}

Words wordsOf(const std::u16string& text) {
    constexpr unsigned kWords = 3;
    Words words;
    platform::enumerateSubstringsInRange(
        text, {0, text.size()}, kWords, [&](const platform::EnumeratedSubstring& unit, bool&) {
            words.push_back(text.substr(unit.substringRange.location, unit.substringRange.length));
        });
    return words;
}

/// The words of each line that has any.
std::vector<Words> paragraphsOf(const std::u16string& text) {
    std::vector<Words> paragraphs;
    std::size_t start = 0;
    while (start < text.size()) {
        const std::size_t end = std::min(text.find(u'\n', start), text.size());
        Words words = wordsOf(text.substr(start, end - start));
        if (!words.empty()) {
            paragraphs.push_back(std::move(words));
        }
        start = end + 1;
    }
    return paragraphs;
}

std::vector<std::pair<std::u16string, std::u16string>> pairsOf(const Words& words) {
    std::vector<std::pair<std::u16string, std::u16string>> pairs;
    for (std::size_t i = 1; i < words.size(); i++) {
        pairs.emplace_back(words[i - 1], words[i]);
    }
    return pairs;
}

/// How many of the wanted items are found, each as often as it is wanted at most.
template <class Item>
Share shareOf(const std::vector<Item>& wanted, const std::vector<Item>& found) {
    std::map<Item, std::size_t> left;
    for (const Item& item : found) {
        left[item]++;
    }
    Share share{0, wanted.size()};
    for (const Item& item : wanted) {
        const auto place = left.find(item);
        if (place != left.end() && place->second > 0) {
            place->second--;
            share.found++;
        }
    }
    return share;
}

Score scoreOf(const std::u16string& wanted, const std::u16string& found, bool isMade) {
    const Words wantedWords = wordsOf(wanted);
    const Words foundWords = wordsOf(found);
    Score score;
    score.recall = shareOf(wantedWords, foundWords);
    score.precision = {score.recall.found, foundWords.size()};
    score.pairs = shareOf(pairsOf(wantedWords), pairsOf(foundWords));
    if (isMade) {
        score.paragraphs = shareOf(paragraphsOf(wanted), paragraphsOf(found));
    }
    return score;
}

void print(const std::string& name, const Score& score) {
    std::printf("%-52s %6zu %8.2f %10.2f %8.2f", name.c_str(), score.recall.all,
                score.recall.percent(), score.precision.percent(), score.pairs.percent());
    if (score.paragraphs.all > 0) {
        std::printf("  %zu of %zu", score.paragraphs.found, score.paragraphs.all);
    }
    std::puts("");
}

void addFile(Score& sum, const std::filesystem::path& path) {
    const std::string expected = path.string() + ".expected.txt";
    if (path.extension() != ".pdf" || !std::filesystem::exists(expected)) {
        return;
    }
    const std::string name = path.filename();
    const auto text =
        parlavox::PDFImporter::createStringFromPDFData(platform::Data::adopt(bytesOf(path)));
    if (!text) {
        std::printf("%-52s %s\n", name.c_str(), platform::lastFailure());
    }
    const std::u16string wanted = platform::utf16FromUtf8Lossy(bytesOf(expected));
    const Score score = scoreOf(foldedText(wanted), foldedText(text ? text->string() : u""),
                                name.starts_with("made-"));
    print(name, score);
    sum.recall.add(score.recall);
    sum.precision.add(score.precision);
    sum.pairs.add(score.pairs);
    sum.paragraphs.add(score.paragraphs);
}

void addFiles(Score& sum, const std::filesystem::path& path) {
    std::vector<std::filesystem::path> files{path};
    if (std::filesystem::is_directory(path)) {
        const std::filesystem::directory_iterator entries(path);
        files.assign(begin(entries), end(entries));
        std::sort(files.begin(), files.end());
    }
    for (const auto& file : files) {
        addFile(sum, file);
    }
}

}  // namespace

int main(int count, char** arguments) {
    platform::setLogSink([](std::string_view) {});
    try {
        std::printf("%-52s %6s %8s %10s %8s  %s\n", "file", "words", "recall", "precision", "pairs",
                    "paragraphs");
        Score sum;
        for (int i = 1; i < count; i++) {
            addFiles(sum, arguments[i]);
        }
        print("all", sum);
        return 0;
    } catch (const std::exception& exception) {
        std::fprintf(stderr, "pdf_score: %s\n", exception.what());
        return 1;
    }
}
