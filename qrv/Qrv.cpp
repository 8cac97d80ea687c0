#include "qrv/Qrv.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>

#include "qrv/Problem.h"

namespace quorvel {

namespace {

constexpr std::array<std::string_view, 4> commonOptions{"help", "round-up", "scale", "settings"};

/// One line, whatever the texts in it hold.
void complain(std::string problem) {
    std::ranges::replace_if(
        problem, [](char c) { return c == '\n' || c == '\r'; }, ' ');
    std::fprintf(stderr, "qrv: %s\n", problem.c_str());
}

/// A reader that has seen enough is no failure.
ExitCode printOutput(std::string_view output) {
    errno = 0;
    const bool written = std::fwrite(output.data(), 1, output.size(), stdout) == output.size() &&
                         std::fflush(stdout) == 0;
    if (written || errno == EPIPE) return ExitCode::Done;
    complain(std::string("standard output: ") + std::strerror(errno));
    return ExitCode::InputFailed;
}

const Command& commandNamed(std::string_view name) {
    const auto found = std::ranges::find(commands(), name, &Command::name);
    if (found == commands().end()) {
        throw UsageError("there is no command '" + std::string(name) + "'; see qrv --help");
    }
    return *found;
}

UsageError misfit(const Command& command, const std::string& reason) {
    const std::string name(command.name);
    return UsageError(name + reason + "; see qrv " + name + " --help");
}

void requireFitting(const Command& command, const Arguments& arguments) {
    for (const auto& [option, value] : arguments.options) {
        const bool known = std::ranges::count(commonOptions, option) > 0 ||
                           std::ranges::count(command.options, option) > 0;
        if (!known) throw misfit(command, " has no option --" + option);
    }
    if (arguments.operands.size() != command.operandCount) {
        const char* plural = command.operandCount == 1 ? "" : "s";
        throw misfit(command,
                     " wants " + std::to_string(command.operandCount) + " operand" + plural);
    }
}

ExitCode run(Arguments arguments, Environment& environment) {
    if (arguments.operands.empty()) {
        if (arguments.has("help")) return printOutput(generalHelp());
        throw UsageError("a command is missing; see qrv --help");
    }
    const Command& command = commandNamed(arguments.operands.front());
    if (arguments.has("help")) return printOutput(command.help);
    arguments.operands.erase(arguments.operands.begin());
    requireFitting(command, arguments);
    const Outcome outcome = command.run(arguments, environment);
    const ExitCode printed = printOutput(outcome.output);
    if (outcome.problem.empty() || printed != ExitCode::Done) return printed;
    complain(outcome.problem);
    return ExitCode::InputFailed;
}

}  // namespace

ExitCode runQrv(const std::vector<std::string>& arguments, Environment& environment) {
    try {
        return run(parseArguments(arguments), environment);
    } catch (const UsageError& error) {
        complain(error.what());
        return ExitCode::WrongUsage;
    } catch (const ReportStopped& error) {
        complain(error.what());
        return ExitCode::ReportStopped;
    } catch (const std::exception& error) {
        complain(error.what());
        return ExitCode::InputFailed;
    }
}

}  // namespace quorvel
