#pragma once

#include <string>
#include <vector>

#include "qrv/Commands.h"

namespace quorvel {

enum class ExitCode {
    Done = 0,
    InputFailed = 1,
    WrongUsage = 2,
    ReportStopped = 3,
};

/// Runs the command line behind the program's own name (UTF-8), with its results on standard output
/// and at most one line on standard error.
ExitCode runQrv(const std::vector<std::string>& arguments, Environment& environment);

}  // namespace quorvel
