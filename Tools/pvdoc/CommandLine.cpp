#include "Tools/pvdoc/CommandLine.h"

#include <CLI/CLI.hpp>
#include <string_view>
#include <vector>

#include "Sources/Document/PackageFormat.h"

namespace pvdoc {
namespace {

constexpr const char* kExitStatuses =
    "Exit status:\n"
    "  0  done\n"
    "  1  the file could not be read or written; explain: it gives no text\n"
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
    CLI::App program("A workshop for Parlavox documents.", "pvdoc");
    program.set_version_flag("--version", "pvdoc " PV_VERSION);
    program.require_subcommand(1);
    program.footer(kExitStatuses);
    addPack(program, request, force);
    addLook(program, request, "info", "Print a document's members, sizes, header and versions");
    addLook(program, request, "explain", "Print each decision on the way to a file's text");
    try {
        program.parse(argumentsOf(argc, argv));
    } catch (const CLI::ParseError& error) {
        return answerTo(program, error);
    }
    request.pack.overwrite = force ? Overwrite::Yes : Overwrite::No;
    request.command = program.got_subcommand("pack")   ? Command::Pack
                      : program.got_subcommand("info") ? Command::Info
                                                       : Command::Explain;
    CommandLine answer;
    answer.request = std::move(request);
    return answer;
}

}  // namespace pvdoc
