// Tells how often the hyphens that ends of lines leave in PDF files are decided right:
//
//     hyphen_score FOLDER_OR_FILE...
//
// Beside a file NAME.pdf stands the text that it is known to hold, NAME.pdf.expected.txt. A hyphen
// was to go when that text has the two parts as one word, and to stay when it has them with a
// hyphen between; where it has neither, or both, nobody can tell.

#include <algorithm>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "Platform/Foundation/Log.h"
#include "Platform/Foundation/Unicode.h"
#include "Platform/Text/CharacterSet.h"
#include "Platform/Text/PDFDocument.h"
#include "Platform/Text/SpellChecker.h"
#include "Sources/TextImport/LineEndHyphens.h"

namespace {

struct Score {
    unsigned joinedRight = 0;
    unsigned joinedWrong = 0;
    unsigned keptRight = 0;
    unsigned keptWrong = 0;
    unsigned unknown = 0;

    void add(const Score& other) {
        joinedRight += other.joinedRight;
        joinedWrong += other.joinedWrong;
        keptRight += other.keptRight;
        keptWrong += other.keptWrong;
        unknown += other.unknown;
    }
};

std::string bytesOf(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// The pages' text as it is before hyphens are looked at.
std::u16string textOf(const std::filesystem::path& path) {
    std::u16string text;
    const auto document = platform::PDFDocument::initWithData(platform::Data::adopt(bytesOf(path)));
    for (std::uint64_t i = 0; document != nullptr && i < document->pageCount(); i++) {
        if (const auto page = document->pageAtIndex(i)) {
            text += page->attributedString().string();
        }
    }
    return text;
}

bool isLetter(char16_t unit) {
    return platform::isLetter(unit);
}

/// Whether `text` has `word` with no letter at either end of it.
bool hasWord(const std::u16string& text, const std::u16string& word) {
    for (std::size_t at = text.find(word); at != std::u16string::npos;
         at = text.find(word, at + 1)) {
        const std::size_t end = at + word.size();
        if ((at == 0 || !isLetter(text[at - 1])) && (end == text.size() || !isLetter(text[end]))) {
            return true;
        }
    }
    return false;
}

void addHyphen(Score& score, const std::u16string& text, std::size_t hyphen, bool isDeleted,
               const std::u16string& wanted) {
    std::size_t start = hyphen;
    while (start > 0 && isLetter(text[start - 1])) {
        --start;
    }
    std::size_t end = hyphen + 2;
    while (end < text.size() && isLetter(text[end])) {
        ++end;
    }
    const std::u16string before = text.substr(start, hyphen - start);
    const std::u16string behind = text.substr(hyphen + 2, end - hyphen - 2);
    const bool isWhole = hasWord(wanted, before + behind);
    const bool isCompound = hasWord(wanted, before + u"-" + behind) ||
                            hasWord(wanted, before + u"- " + behind) ||
                            hasWord(wanted, before + u"\u2010" + behind);
    if (isWhole == isCompound) {
        score.unknown++;
    } else if (isWhole) {
        (isDeleted ? score.joinedRight : score.keptWrong)++;
    } else {
        (isDeleted ? score.joinedWrong : score.keptRight)++;
    }
    if (isWhole != isCompound && isWhole != isDeleted) {
        std::printf("    %s-%s\n", platform::utf8FromUtf16(before).c_str(),
                    platform::utf8FromUtf16(behind).c_str());
    }
}

Score scoreOf(const std::u16string& text, std::u16string wanted) {
    std::erase(wanted, u'\u00AD');
    const auto checker = platform::SpellChecker::sharedSpellChecker();
    const auto& languages = checker.availableLanguages();
    const auto deleted = parlavox::LineEndHyphens(text, checker, languages).rangesToDelete();
    Score score;
    for (std::size_t at = text.find(u"- "); at != std::u16string::npos;
         at = text.find(u"- ", at + 1)) {
        const bool isBroken =
            at > 0 && isLetter(text[at - 1]) && at + 2 < text.size() && isLetter(text[at + 2]);
        if (isBroken) {
            const bool isDeleted =
                std::any_of(deleted.begin(), deleted.end(),
                            [at](const platform::Range& range) { return range.location == at; });
            addHyphen(score, text, at, isDeleted, wanted);
        }
    }
    return score;
}

void print(const std::string& name, const Score& score) {
    std::printf("%-44s %7u %7u %7u %7u %7u\n", name.c_str(), score.joinedRight, score.joinedWrong,
                score.keptRight, score.keptWrong, score.unknown);
}

void addFile(Score& sum, const std::filesystem::path& path) {
    const std::string expected = path.string() + ".expected.txt";
    if (path.extension() != ".pdf" || !std::filesystem::exists(expected)) {
        return;
    }
    const Score score = scoreOf(textOf(path), platform::utf16FromUtf8Lossy(bytesOf(expected)));
    if (score.joinedRight + score.joinedWrong + score.keptRight + score.keptWrong > 0) {
        print(path.filename(), score);
        sum.add(score);
    }
}

}  // namespace

int main(int count, char** arguments) {
    platform::setLogSink([](std::string_view) {});
    try {
        std::printf("%-44s %15s %15s %7s\n", "", "joined", "kept", "");
        std::printf("%-44s %7s %7s %7s %7s %7s\n", "file", "right", "wrong", "right", "wrong",
                    "unknown");
        Score sum;
        for (int i = 1; i < count; i++) {
            std::vector<std::filesystem::path> files{arguments[i]};
            if (std::filesystem::is_directory(files.front())) {
                const std::filesystem::directory_iterator entries(files.front());
                files.assign(begin(entries), end(entries));
                std::sort(files.begin(), files.end());
            }
            for (const auto& file : files) {
                addFile(sum, file);
            }
        }
        print("all", sum);
        return 0;
    } catch (const std::exception& exception) {
        std::fprintf(stderr, "hyphen_score: %s\n", exception.what());
        return 1;
    }
}
