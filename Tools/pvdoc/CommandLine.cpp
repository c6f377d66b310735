#include "Tools/pvdoc/CommandLine.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <iterator>
#include <sstream>
#include <string_view>
#include <utility>
#include <vector>

#include "Sources/Document/PackageFormat.h"

namespace pvdoc {
namespace {

constexpr const char* kExitStatuses =
    "Exit status:\n"
    "  0  done\n"
    "  1  the file could not be read or written, or has no text or no language that can be told\n"
    "  2  the command line is wrong\n";

constexpr const char* kMarks =
    "Marks in the text:\n"
    "  {{font NAME SIZE}} {{color R G B}} {{link ADDRESS}} {{underline}} {{align WHERE}}\n"
    "  {{tag ATTRIBUTE CLASS KEY=VALUE...}}, each ended as in {{/font}}; {{attach FILE}}\n";

void addPack(CLI::App& program, Request& request, bool& force) {
    CLI::App& pack = *program.add_subcommand("pack", "Make a document from a text with marks");
    pack.add_option("IN", request.pack.source, "The text")->type_name("")->required();
    pack.add_option("OUT", request.pack.target, "The document")->type_name("")->required();
    pack.add_flag("--force", force, "Replace a file that is there already");
    pack.add_flag("--stored", request.pack.isStored, "Don't deflate the members");
    pack.add_option("--compatibility-version", request.pack.compatibilityVersion,
                    "The lowest generation of readers that shall open it")
        ->type_name("NUMBER")
        ->capture_default_str();
    pack.footer(kMarks);
}

void addLook(CLI::App& program, Request& request, const char* name, const char* description) {
    CLI::App& look = *program.add_subcommand(name, description);
    look.add_option("FILE", request.file, "What to look at")->type_name("")->required();
    look.footer(kExitStatuses);
}

/// The flags of commands that show a text or its parts.
struct ListingFlags {
    bool isJson = false;
    bool isDiff = false;
    bool words = false;
    bool sentences = false;
    bool paragraphs = false;
    std::string allowed;
};

CLI::App& addListing(CLI::App& program, Request& request, ListingFlags& flags, const char* name,
                     const char* description) {
    CLI::App& listing = *program.add_subcommand(name, description);
    listing.add_option("FILE", request.file, "Any file that is imported; - is the standard input")
        ->type_name("")
        ->required();
    listing.add_flag("--json", flags.isJson, "Print a JSON object a line instead of a table");
    listing.footer("Locations and lengths count UTF-16 units.\n\n" + std::string(kExitStatuses));
    return listing;
}

void addUnits(CLI::App& program, Request& request, ListingFlags& flags) {
    CLI::App& units = addListing(program, request, flags, "units",
                                 "Print the words, sentences or paragraphs of a text");
    CLI::App& kinds = *units.add_option_group("Units");
    kinds.add_flag("--words", flags.words, "Words, without what stands between them");
    kinds.add_flag("--sentences", flags.sentences, "Sentences");
    kinds.add_flag("--paragraphs", flags.paragraphs, "Paragraphs");
    kinds.require_option(1);
}

void addLanguages(CLI::App& program, Request& request, ListingFlags& flags) {
    CLI::App& languages = addListing(program, request, flags, "languages",
                                     "Print which languages a text is written in, and where");
    languages.add_option("--allow", flags.allowed, "Look for these languages alone, such as en,de")
        ->type_name("CODES");
}

void addClean(CLI::App& program, Request& request, ListingFlags& flags) {
    CLI::App& clean = *program.add_subcommand(
        "clean", "Print a text without NULs and without the hyphens of line ends");
    clean.add_option("FILE", request.file, "Any file that is imported; - is the standard input")
        ->type_name("")
        ->required();
    clean.add_flag("--diff", flags.isDiff, "Print what changes instead: place, before -> after");
    clean.footer("Places count UTF-16 units.\n\n" + std::string(kExitStatuses));
}

void apply(const ListingFlags& flags, Request& request) {
    using platform::TextUnitKind;
    request.form = flags.isJson ? ListingForm::JsonLines : ListingForm::Table;
    request.cleanForm = flags.isDiff ? CleanForm::Changes : CleanForm::Text;
    request.unitKind = flags.sentences    ? TextUnitKind::Sentence
                       : flags.paragraphs ? TextUnitKind::Paragraph
                                          : TextUnitKind::Word;
    if (!flags.allowed.empty()) {
        request.allowed.emplace();
        std::istringstream codes(flags.allowed);
        for (std::string code; std::getline(codes, code, ',');) {
            request.allowed->push_back(code);
        }
    }
}

Command chosenCommand(const CLI::App& program) {
    constexpr std::pair<std::string_view, Command> kCommands[] = {
        {"pack", Command::Pack},   {"info", Command::Info},           {"explain", Command::Explain},
        {"units", Command::Units}, {"languages", Command::Languages}, {"clean", Command::Clean},
    };
    const std::string chosen = program.get_subcommands().front()->get_name();
    return std::find_if(std::begin(kCommands), std::end(kCommands),
                        [&](const auto& command) { return command.first == chosen; })
        ->second;
}

/// The arguments, last one first as the library takes them. One in brackets would be taken for a
/// list: as a path it can be written in another way.
std::vector<std::string> argumentsOf(int argc, const char* const* argv) {
    std::vector<std::string> arguments;
    for (int i = argc - 1; i > 0; --i) {
        const std::string_view argument = argv[i];
        arguments.push_back((argument.starts_with('[') ? "./" : "") + std::string(argument));
    }
    return arguments;
}

CommandLine answerTo(const CLI::App& program, const CLI::ParseError& error) {
    CommandLine answer;
    if (error.get_name() == "CallForVersion") {
        answer.output = std::string(error.what()) + '\n';
    } else if (error.get_exit_code() == 0) {
        const auto chosen = program.get_subcommands();
        answer.output = chosen.empty() ? program.help() : chosen.front()->help("pvdoc");
    } else {
        answer.error = std::string("pvdoc: wrong command line: ") + error.what() + '\n';
        answer.status = kWrongCommandLine;
    }
    return answer;
}

}  // namespace

CommandLine CommandLine::read(int argc, const char* const* argv) {
    Request request;
    request.pack.compatibilityVersion = parlavox::kCompatibilityVersion;
    bool force = false;
    ListingFlags flags;
    CLI::App program("A workshop for Parlavox documents.", "pvdoc");
    program.set_version_flag("--version", "pvdoc " PV_VERSION);
    program.require_subcommand(1);
    program.footer(kExitStatuses);
    addPack(program, request, force);
    addLook(program, request, "info", "Print a document's members, sizes, header and versions");
    addLook(program, request, "explain", "Print each decision on the way to a file's text");
    addUnits(program, request, flags);
    addLanguages(program, request, flags);
    addClean(program, request, flags);
    try {
        program.parse(argumentsOf(argc, argv));
    } catch (const CLI::ParseError& error) {
        return answerTo(program, error);
    }
    request.pack.overwrite = force ? Overwrite::Yes : Overwrite::No;
    request.command = chosenCommand(program);
    apply(flags, request);
    CommandLine answer;
    answer.request = std::move(request);
    return answer;
}

}  // namespace pvdoc
