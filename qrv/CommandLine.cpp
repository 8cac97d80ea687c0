#include "qrv/CommandLine.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <utility>

#include "core/Version.h"
#include "qrv/HelpTexts.h"
#include "qrv/NearestName.h"
#include "qrv/Problem.h"

namespace quorvel {

namespace {

constexpr const char* scaleHelp =
    "The lowest percentages for the grades A to E,\n"
    "five falling whole numbers below 100; \"default\"\n"
    "stands for 94,86,76,70,60 without rounding";

constexpr std::size_t helpColumn = 26;
constexpr const char* helpCommand = "help";

bool isNamed(const CLI::Option* option) {
    return option->nonpositional();
}

/// The program's commands and options, bound to the request that they fill.
class CommandLine {
  public:
    CommandLine() : program_("Works with grade sheets from the command line.", "qrv") {
        program_.set_version_flag("--version", "qrv " + std::string(programVersion()),
                                  "Print the version");
        program_.set_help_flag("-h,--help", "Print this help");
        program_.allow_extras();
        // A file may have the name of a command.
        program_.require_subcommand(0, 1);
        program_.get_formatter()->column_width(helpColumn);
        program_.get_formatter()->label("SUBCOMMAND", "COMMAND");
        program_.footer(helpText::program);
        // A path may begin with a slash.
        program_.allow_windows_style_options(false);
        addFigures();
        addReport();
        addPage();
        addExport();
        addImport();
        addCheck();
        addCommand(helpCommand, "Print this help, or that of a command")
            .add_option("COMMAND", helpTopic_, "The command to tell of")
            ->option_text(" ");
    }

    std::variant<Request, HelpText> parse(std::vector<std::string> words,
                                          const std::string& scaleInForce);

  private:
    CLI::App& addCommand(const std::string& name, const std::string& description) {
        CLI::App& command = *program_.add_subcommand(name, description);
        command.allow_extras();
        command.group("Commands");
        return command;
    }

    void addSheets(CLI::App& command) {
        command.add_option("SHEET", request_.files, "Grade sheets; - is standard input")
            ->type_name("")
            ->required();
    }

    void addScale(CLI::App& command) {
        command
            .add_option("--settings", request_.settings,
                        "Take grading scale, school and teacher from this\nprogram folder")
            ->option_text("FOLDER");
        command.add_option("--scale", request_.scale, scaleHelp)->option_text("A,B,C,D,E");
        command.add_flag("--round-up", request_.roundUp, "Lower each of them by half a percent");
    }

    void addOutput(CLI::App& command, const std::string& what) {
        command.add_option("-o,--output", request_.output, what)->option_text("FILE");
    }

    void addDamaged(CLI::App& command) {
        command.add_flag("--damaged", request_.damaged,
                         "Show what there is of a damaged sheet; the exit\nstatus stays 1");
    }

    void addText(CLI::App& command, const std::string& name, std::optional<std::string>& target,
                 const std::string& description) {
        command.add_option(name, target, description)->option_text("TEXT");
    }

    void addHeading(CLI::App& command) {
        addText(command, "--school", request_.school, "The name of the school");
        addText(command, "--teacher", request_.teacher, "The name of the teacher");
        addText(command, "--date", request_.date, "Show this in place of today's date");
    }

    void addFormat(CLI::App& command, const std::vector<std::string>& formats) {
        command
            .add_option("--format", request_.format,
                        "The form of the result: " + CLI::detail::join(formats, ", ") + ";\n" +
                            formats.front() + " where it is not given")
            ->option_text("FORM")
            ->check(CLI::IsMember(formats));
    }

    void addFigures();
    void addReport();
    void addPage();
    void addExport();
    void addImport();
    void addCheck();

    std::string helpFor(const std::string& topic) const;
    const CLI::App* chosen() const;
    void requireNothingFurther() const;
    std::vector<std::string> commandNames() const;
    UsageError misfit(const std::string& reason) const;
    UsageError unknownCommand(const std::string& word) const;

    CLI::App program_;
    Request request_;
    std::string fileToImport_;
    std::string helpTopic_;
};

void CommandLine::addFigures() {
    CLI::App& command = addCommand("figures", "Points, percentages, letter grades and ranks");
    addSheets(command);
    addFormat(command, {"tsv", "csv", "json"});
    command.add_flag("--no-class", request_.withoutClass, "Leave out the line of the class");
    addOutput(command, "Write to this file in place of standard output");
    addDamaged(command);
    addScale(command);
    command.footer(helpText::figures);
}

void CommandLine::addReport() {
    CLI::App& command = addCommand("report", "One of the six reports as plain text");
    command.add_option("KIND", request_.reportKind, "The report, from 1 to 6")
        ->option_text(" ")
        ->check(CLI::Range(1, 6))
        ->required();
    addSheets(command);
    command.add_option("--student", request_.student, "The student's number in report 3, from 1")
        ->option_text("N");
    command.add_flag("--alias", request_.useAliases,
                     "Print aliases in place of names in reports 2\nand 5");
    addHeading(command);
    addText(command, "--time", request_.time, "Print this in place of the current time");
    addOutput(command, "Write to this file in place of standard output");
    addDamaged(command);
    addScale(command);
    command.footer(helpText::report);
}

void CommandLine::addPage() {
    CLI::App& command = addCommand("page", "A page for any browser, to look at and to print");
    addSheets(command);
    command
        .add_option("--student", request_.student,
                    "Only this student, by number, and of all others\nthe class average")
        ->option_text("N");
    command.add_flag("--alias", request_.useAliases, "Show aliases; the page then holds no name");
    addHeading(command);
    addOutput(command, "Write to this file in place of standard output");
    addDamaged(command);
    addScale(command);
    command.footer(helpText::page);
}

void CommandLine::addExport() {
    CLI::App& command = addCommand("export", "Sheets as csv for a spreadsheet, or as json");
    addSheets(command);
    addFormat(command, {"csv", "json"});
    command.add_flag("--spreadsheet", request_.forSpreadsheet,
                     "Mark the csv as UTF-8 and lead texts that a\n"
                     "spreadsheet would compute by an apostrophe");
    addOutput(command, "Write to this file, or into this folder");
    addDamaged(command);
    addScale(command);
    command.footer(helpText::exportSheets);
}

void CommandLine::addImport() {
    CLI::App& command = addCommand("import", "A sheet from csv or json");
    command.add_option("FILE", fileToImport_, "The csv or json file; - is standard input")
        ->option_text(" ")
        ->required();
    addOutput(command, "The sheet to write; it is replaced in one step, or\nleft as it was");
    addText(command, "--title", request_.title,
            "The sheet's title in place of that in the file or\nof the sheet that is replaced");
    addScale(command);
    command.footer(helpText::importSheet);
}

void CommandLine::addCheck() {
    CLI::App& command = addCommand("check", "Whether files are whole sheets");
    addSheets(command);
    addOutput(command, "Write to this file in place of standard output");
    addScale(command);
    command.footer(helpText::check);
}

const CLI::App* CommandLine::chosen() const {
    const auto commands = program_.get_subcommands();
    return commands.empty() ? nullptr : commands.front();
}

UsageError CommandLine::misfit(const std::string& reason) const {
    const CLI::App* const command = chosen();
    if (command == nullptr) return UsageError(reason + " (see qrv --help)");
    return UsageError(command->get_name() + ": " + reason + " (see qrv " + command->get_name() +
                      " --help)");
}

std::vector<std::string> CommandLine::commandNames() const {
    std::vector<std::string> names;
    for (const CLI::App* command : program_.get_subcommands({})) {
        names.push_back(command->get_name());
    }
    return names;
}

UsageError CommandLine::unknownCommand(const std::string& word) const {
    return UsageError("there is no command '" + word + "'; the nearest is '" +
                      nearestName(word, commandNames()) + "' (see qrv --help)");
}

/// An option or a command that is not known is named with the one that comes nearest to it.
void CommandLine::requireNothingFurther() const {
    const CLI::App* const command = chosen();
    const CLI::App& asked = command != nullptr ? *command : program_;
    std::vector<std::string> further = asked.remaining();
    std::erase(further, "--");  // it ends the options
    if (further.empty()) return;
    const std::string& word = further.front();
    std::vector<std::string> names;
    if (word.starts_with('-')) {
        for (const CLI::Option* option : asked.get_options(&isNamed)) {
            names.push_back(option->get_name());
        }
        throw misfit("there is no option '" + word + "'; the nearest is '" +
                     nearestName(word, names) + "'");
    }
    if (command != nullptr) throw misfit("there is no use for '" + word + "'");
    throw unknownCommand(word);
}

std::string CommandLine::helpFor(const std::string& topic) const {
    if (topic.empty()) {
        return program_.get_formatter()->make_help(&program_, "qrv", CLI::AppFormatMode::Normal);
    }
    const std::vector<std::string> names = commandNames();
    if (std::ranges::count(names, topic) == 0) throw unknownCommand(topic);
    return program_.get_subcommand(topic)->help("qrv");
}

std::variant<Request, HelpText> CommandLine::parse(std::vector<std::string> words,
                                                   const std::string& scaleInForce) {
    const std::string behindHelp = "Grading scale in force: " + scaleInForce + '\n';
    try {
        std::ranges::reverse(words);  // they are taken from the back
        program_.parse(std::move(words));
    } catch (const CLI::CallForHelp&) {
        if (chosen() == nullptr) requireNothingFurther();
        return HelpText{helpFor(chosen() != nullptr ? chosen()->get_name() : "") + behindHelp};
    } catch (const CLI::CallForVersion& version) {
        return HelpText{std::string(version.what()) + '\n'};
    } catch (const CLI::ParseError& error) {
        requireNothingFurther();
        throw misfit(error.what());
    }
    requireNothingFurther();
    if (chosen() == nullptr) throw misfit("a command is missing");
    request_.command = chosen()->get_name();
    if (!fileToImport_.empty()) request_.files = {fileToImport_};
    if (request_.command == helpCommand) return HelpText{helpFor(helpTopic_) + behindHelp};
    return request_;
}

}  // namespace

std::variant<Request, HelpText> parseCommandLine(const std::vector<std::string>& words,
                                                 const std::string& scaleInForce) {
    return CommandLine().parse(words, scaleInForce);
}

}  // namespace quorvel
