#pragma once

#include <string>
#include <vector>

#include "qrv/Commands.h"

namespace quorvel {

/// Runs the command line behind the program's own name (UTF-8), with its results on standard output
/// or in a file and what went wrong on standard error.
ExitCode runQrv(const std::vector<std::string>& words, Environment& environment);

}  // namespace quorvel
