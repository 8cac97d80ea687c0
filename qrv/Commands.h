#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "qrv/Environment.h"
#include "qrv/Output.h"
#include "qrv/Request.h"

namespace quorvel {

enum class ExitCode {
    Done = 0,
    InputFailed = 1,
    WrongUsage = 2,
    ReportStopped = 3,
};

/// Each runs one command with its results where the request wants them, tells on standard error of
/// what went wrong with a file and goes on with the next one. The worst that happened. Throws
/// UsageError, OutputError and, where nothing at all can be done, InputError.
ExitCode figures(const Request& request, Environment& environment);
ExitCode report(const Request& request, Environment& environment);
ExitCode page(const Request& request, Environment& environment);
ExitCode exportSheets(const Request& request, Environment& environment);
ExitCode importSheet(const Request& request, Environment& environment);
ExitCode check(const Request& request, Environment& environment);

/// Calls `work` for each sheet of the request; what it throws about a sheet is told on standard
/// error. The worst that happened.
ExitCode forEachSheet(const Request& request,
                      const std::function<ExitCode(const std::string& sheet)>& work);

/// The same for a command whose output has a part of each sheet, with `between` between two of
/// them. Where no sheet has a part there is nothing to write.
ExitCode writeForEachSheet(
    const Request& request, Environment& environment, std::string_view between,
    const std::function<ExitCode(const std::string& sheet, SheetParts& parts)>& work);

}  // namespace quorvel
