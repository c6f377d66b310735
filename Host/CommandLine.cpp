#include "Host/CommandLine.h"

#include <CLI/CLI.hpp>
#include <cmath>

#include "Host/OutputText.h"
#include "Host/Supervisor.h"
#include "Platform/Foundation/Unicode.h"

namespace host {
namespace {

constexpr const char* kExitStatuses =
    "Exit status:\n"
    "  0  all files were read\n"
    "  1  some file could not be read, or its text not be written\n"
    "  2  the command line is wrong\n"
    "  3  the importer could not be loaded\n";

constexpr double kDefaultSeconds = 60;
constexpr std::size_t kDefaultMebibytes = 4096;  // of memory, and of disk
constexpr double kMostSeconds = 1e6;
constexpr std::size_t kMostMebibytes = std::size_t{1} << 32;

// A file's name in brackets would be taken for a list of names; a mark in front prevents it.
constexpr char kMark = '\x1F';

std::string marked(std::string_view argument) {
    const bool isList = argument.starts_with('[') && argument.ends_with(']');
    return (isList || argument.starts_with(kMark) ? std::string(1, kMark) : std::string())
        .append(argument);
}

std::string withoutMark(std::string argument) {
    return argument.starts_with(kMark) ? argument.substr(1) : std::move(argument);
}

// What the options are read into.
struct Options {
    bool json = false;
    std::string importer;
    std::string type;
    double seconds = kDefaultSeconds;
    std::size_t memory = kDefaultMebibytes;
    std::size_t disk = kDefaultMebibytes;
    std::vector<std::string> files;
};

void addCommonOptions(CLI::App& command, Options& options) {
    command.add_flag("--json", options.json, "Print JSON, an object a line");
    command.add_option("--importer", options.importer, "The importer, instead of this program's")
        ->type_name("BUNDLE");
}

std::string checkedType(const std::string& type) {
    const bool isText = !type.empty() && platform::utf16FromUtf8(type);
    return isText ? std::string() : "must be UTF-8 and not empty";
}

void addTextCommand(CLI::App& program, Options& options) {
    CLI::App& text = *program.add_subcommand("text", "Print the text of files");
    addCommonOptions(text, options);
    text.add_option("--type", options.type, "The type of all files, instead of each one's own")
        ->type_name("UTI")
        ->check(checkedType);
    text.add_option("--timeout", options.seconds, "Time for each file; 0 is no bound")
        ->type_name("SECONDS")
        ->check(CLI::Range(0.0, kMostSeconds).description(""))
        ->capture_default_str();
    text.add_option("--memory", options.memory, "Memory for the importer; 0 is no bound")
        ->type_name("MIB")
        ->check(CLI::Range(std::size_t{0}, kMostMebibytes).description(""))
        ->capture_default_str();
    text.add_option("--disk", options.disk, "Disk for the importer's files; 0 is no bound")
        ->type_name("MIB")
        ->check(CLI::Range(std::size_t{0}, kMostMebibytes).description(""))
        ->capture_default_str();
    text.add_option("FILE", options.files, "What to read: files, or folders that are documents")
        ->type_name("")
        ->required();
    text.footer(kExitStatuses);
}

void describeProgram(CLI::App& program, Options& options) {
    program.name("pvindex");
    program.description("Hands files to a metadata importer and prints the text it finds.");
    program.set_version_flag("--version", "pvindex " PV_VERSION);
    program.require_subcommand(1);
    program.footer(kExitStatuses);
    addTextCommand(program, options);
    CLI::App& types = *program.add_subcommand("types", "Print which types the importer takes");
    addCommonOptions(types, options);
}

Request requestOf(Options& options, Command command) {
    Request request;
    request.command = command;
    request.json = options.json;
    request.job.importer = withoutMark(std::move(options.importer));
    for (std::string& file : options.files) {
        request.job.files.push_back(withoutMark(std::move(file)));
    }
    if (!options.type.empty()) {
        request.job.type = withoutMark(std::move(options.type));
    }
    request.job.form = options.json                   ? OutputForm::Json
                       : request.job.files.size() > 1 ? OutputForm::TextWithHeaders
                                                      : OutputForm::Text;
    // Rounded up: no time at all means no bound.
    request.job.limits.time =
        std::chrono::microseconds(static_cast<std::int64_t>(std::ceil(options.seconds * 1e6)));
    request.job.limits.memory = options.memory;
    request.job.limits.disk = options.disk;
    return request;
}

CommandLine answerTo(const CLI::App& program, const CLI::ParseError& error) {
    CommandLine answer;
    if (error.get_name() == "CallForVersion") {
        answer.output = std::string(error.what()) + '\n';
    } else if (error.get_exit_code() == 0) {
        const auto chosen = program.get_subcommands();
        answer.output = chosen.empty() ? program.help() : chosen.front()->help("pvindex");
    } else {
        answer.error = errorLine("wrong command line", error.what());
        answer.status = kWrongCommandLine;
    }
    return answer;
}

}  // namespace

CommandLine CommandLine::read(int argc, const char* const* argv) {
    Options options;
    CLI::App program;
    describeProgram(program, options);
    try {
        // The library takes the arguments from the end.
        std::vector<std::string> arguments;
        for (int i = argc - 1; i > 0; --i) {
            arguments.push_back(marked(argv[i]));
        }
        program.parse(std::move(arguments));
    } catch (const CLI::ParseError& error) {
        return answerTo(program, error);
    }
    CommandLine answer;
    answer.request =
        requestOf(options, program.got_subcommand("text") ? Command::Text : Command::Types);
    return answer;
}

}  // namespace host
