// Tells how often the language tagger is right, and CLD2 alone beside it:
//
//     language_score FOLDER_OR_FILE...
//
// The files are tables, *.tsv, of texts whose language is known: its code, then anything, then the
// text, with tabs between. A language that the platform cannot name is no part of the percentages;
// it has a line of its own.

#include <algorithm>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "Benchmarks/Support/Cld2.h"
#include "Platform/Text/LanguageTagger.h"
#include "Tests/Support/LanguageRows.h"

namespace {

using test::LanguageRow;

/// How many texts there are, and how many of them each of the two is right about.
struct Line {
    unsigned all = 0;
    unsigned ours = 0;
    unsigned cld2 = 0;
};

struct Score {
    Line lengths[std::size(test::kLengthClasses)];
    Line unnamed;
    std::map<std::pair<std::string, std::string>, unsigned> confusions;
};

/// CLD2 answers Chinese in simplified characters without a script.
std::string cld2Answer(const std::string& utf8) {
    const std::string code = bench::cld2Language(utf8);
    return code == "zh" ? "zh-Hans" : code == "un" ? "und" : test::platformLanguage(code);
}

void add(Score& score, const LanguageRow& row) {
    const bool isNamed = test::isNamedLanguage(row.language);
    Line& line = isNamed ? score.lengths[test::lengthClassOf(row)] : score.unnamed;
    const std::string cld2 = cld2Answer(platform::utf8FromUtf16(row.text));
    const std::string ours = platform::LanguageTagger::dominantLanguageForString(row.text);
    const bool isRight = test::isRightLanguage(row.language, ours);
    line.all++;
    line.ours += isRight ? 1 : 0;
    // CLD2 names languages that the platform does not; that is right, too.
    line.cld2 += test::isRightLanguage(row.language, cld2) || cld2 == row.language ? 1 : 0;
    if (!isRight) {
        score.confusions[{row.language, ours}]++;
    }
}

double percent(unsigned part, unsigned all) {
    return all == 0 ? 0 : 100.0 * part / all;
}

void print(const char* name, const Line& line) {
    std::printf("%-10s %7u %9.2f %9.2f\n", name, line.all, percent(line.ours, line.all),
                percent(line.cld2, line.all));
}

void print(const Score& score) {
    std::printf("%-10s %7s %9s %9s\n", "length", "texts", "right, %", "CLD2, %");
    Line all;
    for (std::size_t i = 0; i < std::size(score.lengths); i++) {
        const Line& line = score.lengths[i];
        print(test::kLengthClasses[i], line);
        all = {all.all + line.all, all.ours + line.ours, all.cld2 + line.cld2};
    }
    print("all", all);
    print("unnamed", score.unnamed);
    std::vector<std::pair<unsigned, std::string>> confusions;
    for (const auto& [pair, count] : score.confusions) {
        confusions.emplace_back(count, pair.first + " taken for " + pair.second);
    }
    std::sort(confusions.begin(), confusions.end(), std::greater<>());
    std::puts("");
    for (const auto& [count, what] : confusions) {
        std::printf("%6u  %s\n", count, what.c_str());
    }
}

void addTables(Score& score, const std::filesystem::path& path) {
    std::vector<std::filesystem::path> tables{path};
    if (std::filesystem::is_directory(path)) {
        const std::filesystem::directory_iterator files(path);
        tables.assign(begin(files), end(files));
    }
    for (const auto& table : tables) {
        if (table.extension() == ".tsv") {
            for (const LanguageRow& row : test::languageRows(table)) {
                add(score, row);
            }
        }
    }
}

}  // namespace

int main(int count, char** arguments) {
    try {
        Score score;
        for (int i = 1; i < count; i++) {
            addTables(score, arguments[i]);
        }
        print(score);
        return 0;
    } catch (const std::exception& exception) {
        std::fprintf(stderr, "language_score: %s\n", exception.what());
        return 1;
    }
}
