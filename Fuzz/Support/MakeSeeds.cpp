// Writes the seeds that are made below the Fuzz folder that it is given.

#include <filesystem>
#include <fstream>
#include <iostream>

#include "Fuzz/Support/Seeds.h"

namespace {

bool write(const std::filesystem::path& folder, const std::vector<fuzz::Seed>& seeds) {
    std::filesystem::create_directories(folder);
    for (const fuzz::Seed& seed : seeds) {
        std::ofstream file(folder / seed.name, std::ios::binary);
        if (!(file << seed.contents.view() << std::flush)) {
            std::cerr << folder / seed.name << ": cannot be written\n";
            return false;
        }
    }
    return true;
}

bool writeAll(const std::filesystem::path& top) {
    const auto text = top / "Platform/Text/corpus";
    const auto zip = top / "Sources/CocoaExtensions/Zip/corpus";
    return write(top / "Platform/Foundation/corpus/property_list_fuzz",
                 fuzz::propertyListSeeds()) &&
           write(top / "Platform/Foundation/corpus/file_wrapper_fuzz", fuzz::fileWrapperSeeds()) &&
           write(text / "keyed_archive_fuzz", fuzz::keyedArchiveSeeds()) &&
           write(text / "language_tagger_fuzz", fuzz::languageSeeds()) &&
           write(text / "pdf_fuzz", fuzz::pdfSeeds()) &&
           write(text / "pdf_layout_fuzz", fuzz::pdfLayoutSeeds()) &&
           write(text / "html_fuzz", fuzz::htmlSeeds()) &&
           write(text / "rtf_fuzz", fuzz::rtfSeeds()) &&
           write(text / "rtfd_fuzz", fuzz::rtfdSeeds()) &&
           write(text / "text_reader_fuzz", fuzz::textSeeds()) &&
           write(text / "plain_text_fuzz", fuzz::textSeeds()) &&
           write(text / "plain_text_fuzz", fuzz::plainTextSeeds()) &&
           write(zip / "raw_inflater_fuzz", fuzz::rawDeflateSeeds()) &&
           write(zip / "zip_fuzz", fuzz::zipSeeds()) &&
           write(zip / "archive_round_trip_fuzz", fuzz::treeSeeds()) &&
           write(top / "Tools/pvdoc/corpus/marked_up_text_fuzz", fuzz::markedUpTextSeeds()) &&
           write(top / "Sources/TextAnalysis/corpus/text_analysis_fuzz",
                 fuzz::textAnalysisSeeds()) &&
           write(top / "Sources/TextImport/corpus/import_utils_fuzz", fuzz::importUtilsSeeds()) &&
           write(top / "Sources/Importer/corpus/importer_fuzz", fuzz::documentSeeds());
}

}  // namespace

int main(int count, char** arguments) {
    if (count != 2) {
        std::cerr << "usage: " << arguments[0] << " FUZZ-FOLDER\n";
        return 2;
    }
    return writeAll(arguments[1]) ? 0 : 1;
}
