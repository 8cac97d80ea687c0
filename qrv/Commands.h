#pragma once

#include <span>
#include <string>
#include <string_view>

#include "core/CodePage.h"
#include "core/ports/Files.h"
#include "qrv/Arguments.h"

namespace quorvel {

/// What the commands work with. Must outlive them.
struct Environment {
    Files& files;
    const CodePage& codePage;
};

/// What a command leaves: its standard output as UTF-8 and, where that tells of damage, one line
/// for standard error without the program's name.
struct Outcome {
    std::string output;
    std::string problem;
};

/// Each takes its operands (without the command's name) and throws UsageError, InputError or
/// ReportStopped. Nothing is written before everything was read and found
/// good.
Outcome figures(const Arguments& arguments, Environment& environment);
Outcome report(const Arguments& arguments, Environment& environment);
Outcome exportSheet(const Arguments& arguments, Environment& environment);
Outcome importSheet(const Arguments& arguments, Environment& environment);
Outcome check(const Arguments& arguments, Environment& environment);

struct Command {
    std::string_view name;
    std::size_t operandCount;
    /// The options that it takes beside those of every command.
    std::span<const std::string_view> options;
    Outcome (*run)(const Arguments& arguments, Environment& environment);
    std::string_view help;
};

std::span<const Command> commands();

/// What `qrv --help` prints.
std::string_view generalHelp();

}  // namespace quorvel
