// Reads the command line of pvdoc.
//
// Paths are bytes. One thread.

#pragma once

#include <optional>
#include <string>

#include "Platform/Text/TextUnits.h"
#include "Sources/TextAnalysis/TextAnalyzeUtils.h"
#include "Tools/pvdoc/Clean.h"
#include "Tools/pvdoc/Export.h"
#include "Tools/pvdoc/Listing.h"
#include "Tools/pvdoc/Pack.h"
#include "Tools/pvdoc/Save.h"
#include "Tools/pvdoc/Templates.h"
#include "Tools/pvdoc/Unzip.h"
#include "Tools/pvdoc/Zip.h"

namespace pvdoc {

/// The exit statuses.
inline constexpr int kDone = 0;
inline constexpr int kFailed = 1;
inline constexpr int kWrongCommandLine = 2;

/// What the program is to do.
enum class Command {
    Pack,
    Save,
    Export,
    Templates,
    Zip,
    Unzip,
    Info,
    Explain,
    Units,
    Languages,
    Clean,
};

/// A command with its options; `file` is what commands look at that have none of their own.
struct Request {
    Command command = Command::Info;
    std::string file;
    PackOptions pack;
    Conversion conversion;  ///< of save and export
    ExportFormat exportFormat = ExportFormat::Rtf;
    TemplatesOptions templates;
    ZipOptions zip;
    UnzipOptions unzip;
    ListingForm form = ListingForm::Table;
    platform::TextUnitKind unitKind = platform::TextUnitKind::Word;
    parlavox::AllowedLanguages allowed;
    CleanForm cleanForm = CleanForm::Text;
};

/// A request or, without one, what to print and the status to end with.
struct CommandLine {
    std::optional<Request> request;
    std::string output;  ///< for the standard output
    std::string error;   ///< for the standard error, a line
    int status = kDone;

    /// Reads the arguments as main gets them.
    [[nodiscard]] static CommandLine read(int argc, const char* const* argv);
};

}  // namespace pvdoc
