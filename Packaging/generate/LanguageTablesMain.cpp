// Writes the tables of the language tagger:
//
//     generate_language_tables languages LANGUAGES.TXT FOLDER FILE
//     generate_language_tables han FILE
//
// FOLDER holds libexttextcat's n-grams. The exit code is 0 when the file is written, 1 when
// something cannot be read or written, 2 for other arguments.

#include <cstdio>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "Packaging/generate/HanTables.h"
#include "Packaging/generate/LanguageSource.h"
#include "Packaging/generate/LanguageTables.h"

namespace {

using packaging::Grams;
using packaging::LanguageRecord;

std::string contentOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    std::string content{std::istreambuf_iterator<char>(file), {}};
    if (!file) {
        throw std::runtime_error("cannot read " + path);
    }
    return content;
}

void writeFile(const std::string& path, std::string_view content) {
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    file.write(content.data(), static_cast<std::streamsize>(content.size()));
    file.close();
    if (!file) {
        throw std::runtime_error("cannot write " + path);
    }
}

std::vector<Grams> gramsOf(const LanguageRecord& language, const std::string& folder) {
    std::vector<Grams> grams;
    for (const std::string& model : language.models) {
        const auto path = std::filesystem::path(folder) / model;
        grams.push_back(packaging::gramsFromModel(contentOf(path.string() + ".lm")));
    }
    return grams;
}

std::string tablesFromFiles(const std::string& languagesPath, const std::string& folder) {
    const auto languages = packaging::languagesFromText(contentOf(languagesPath));
    if (!languages) {
        throw std::runtime_error(languagesPath + ": " + languages.fault().detail);
    }
    std::vector<std::vector<Grams>> grams;
    for (const LanguageRecord& language : languages.value()) {
        grams.push_back(gramsOf(language, folder));
    }
    return packaging::languageTables(languages.value(), grams);
}

int run(const std::vector<std::string>& arguments) {
    const std::string what = arguments.empty() ? "" : arguments.front();
    if (what == "languages" && arguments.size() == 4) {
        writeFile(arguments[3], tablesFromFiles(arguments[1], arguments[2]));
        return 0;
    }
    if (what == "han" && arguments.size() == 2) {
        writeFile(arguments[1], packaging::hanTables());
        return 0;
    }
    std::fputs(
        "usage: generate_language_tables languages LANGUAGES.TXT FOLDER FILE\n"
        "       generate_language_tables han FILE\n",
        stderr);
    return 2;
}

}  // namespace

int main(int count, char** arguments) {
    try {
        return run({arguments + 1, arguments + count});
    } catch (const std::exception& exception) {
        std::fprintf(stderr, "generate_language_tables: %s\n", exception.what());
        return 1;
    }
}
