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

constexpr const char* kRtf = "rtf";
constexpr const char* kTxt = "txt";

void addFiles(CLI::App& command, std::string& source, const char* description, std::string& target,
              const char* targetDescription) {
    command.add_option("IN", source, description)->type_name("")->required();
    command.add_option("OUT", target, targetDescription)->type_name("")->required();
}

void addForce(CLI::App& command, bool& force) {
    command.add_flag("--force", force, "Replace a file that is there already");
}

void addPack(CLI::App& program, Request& request, bool& force) {
    CLI::App& pack = *program.add_subcommand(
        "pack", "Make a document, with its text, from text with marks or any imported file");
    addFiles(pack, request.pack.source, "Text with marks, or any file that is imported",
             request.pack.target, "The document");
    addForce(pack, force);
    pack.add_flag("--stored", request.pack.isStored, "Don't deflate the members");
    pack.add_option("--compatibility-version", request.pack.compatibilityVersion,
                    "The lowest generation of readers that shall open it")
        ->type_name("NUMBER")
        ->capture_default_str();
    pack.footer(std::string(kMarks) + '\n' + kExitStatuses);
}

void addSave(CLI::App& program, Request& request, bool& force) {
    CLI::App& save = *program.add_subcommand(
        "save", "Save a document as its application does: without its text");
    addFiles(save, request.conversion.source, "Any file that is imported",
             request.conversion.target, "The document");
    addForce(save, force);
    save.footer(std::string("A file that holds a text (text.plist) is never replaced, --force or "
                            "not;\npvdoc pack makes documents with their text.\n\n") +
                kExitStatuses);
}

void addExport(CLI::App& program, Request& request, bool& force) {
    CLI::App& exporting =
        *program.add_subcommand("export", "Write the text of a document without its tags");
    addFiles(exporting, request.conversion.source, "Any file that is imported",
             request.conversion.target, "The text");
    exporting
        .add_option_function<std::string>(
            "--as",
            [&](const std::string& format) {
                request.exportFormat = format == kRtf ? ExportFormat::Rtf : ExportFormat::Text;
            },
            "rtf, or txt: plain text in UTF-8")
        ->type_name("FORMAT")
        ->required()
        ->check(CLI::IsMember({kRtf, kTxt}).description(""));
    addForce(exporting, force);
    exporting.footer(kExitStatuses);
}

void addTemplates(CLI::App& program, Request& request) {
    TemplatesOptions& options = request.templates;
    CLI::App& templates = *program.add_subcommand(
        "templates", "List a document's tag templates, or change the list in its place");
    templates.add_option("FILE", options.file, "The document")->type_name("")->required();
    CLI::Option& insert =
        *templates.add_option("--insert", options.inserted, "Insert a template that is text")
             ->type_name("TEXT")
             ->expected(1)
             ->take_all();
    templates.add_option("--at", options.at, "Insert there; without it, at the end")
        ->type_name("N")
        ->needs(&insert);
    CLI::Option& remove =
        *templates.add_option("--remove", options.removed, "Remove templates")->type_name("N");
    CLI::Option& move =
        *templates.add_option("--move", options.moved, "Move a template")->type_name("N");
    CLI::Option& to =
        *templates.add_option("--to", options.to, "Where it goes in the list without it")
             ->type_name("M");
    move.needs(&to)->excludes(&insert)->excludes(&remove);
    to.needs(&move);
    insert.excludes(&remove);
    templates.footer(std::string("Places count from 0. The list is printed as it is then.\n\n") +
                     kExitStatuses);
}

void addZip(CLI::App& program, Request& request, bool& force) {
    CLI::App& zip = *program.add_subcommand("zip", "Make an archive of all that a folder holds");
    zip.add_option("DIR", request.zip.folder, "The folder")->type_name("")->required();
    zip.add_option("OUT", request.zip.target, "The archive")->type_name("")->required();
    zip.add_option("--level", request.zip.level,
                   "0 stores files piece by piece, 1 to 9 deflate them in memory")
        ->type_name("N")
        ->check(CLI::Range(0U, kHighestLevel).description(""))
        ->capture_default_str();
    addForce(zip, force);
    zip.footer(kExitStatuses);
}

void addUnzip(CLI::App& program, Request& request, bool& force) {
    CLI::App& unzip = *program.add_subcommand("unzip", "Write the files of such an archive");
    unzip.add_option("FILE", request.unzip.archive, "The archive")->type_name("")->required();
    unzip.add_option("DIR", request.unzip.folder, "The folder, made when it is not there")
        ->type_name("")
        ->required();
    unzip.add_flag("--force", force, "Put files between those that are there, and replace some");
    unzip.footer(kExitStatuses);
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
        {"pack", Command::Pack},     {"save", Command::Save},
        {"export", Command::Export}, {"templates", Command::Templates},
        {"zip", Command::Zip},       {"unzip", Command::Unzip},
        {"info", Command::Info},     {"explain", Command::Explain},
        {"units", Command::Units},   {"languages", Command::Languages},
        {"clean", Command::Clean},
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
    addSave(program, request, force);
    addExport(program, request, force);
    addTemplates(program, request);
    addZip(program, request, force);
    addUnzip(program, request, force);
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
    const Overwrite overwrite = force ? Overwrite::Yes : Overwrite::No;
    request.pack.overwrite = overwrite;
    request.conversion.overwrite = overwrite;
    request.zip.overwrite = overwrite;
    request.unzip.overwrite = overwrite;
    request.command = chosenCommand(program);
    apply(flags, request);
    CommandLine answer;
    answer.request = std::move(request);
    return answer;
}

}  // namespace pvdoc
