#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <ostream>
#include <span>
#include <string>
#include <vector>

#include "tests/scenario/Driver.h"
#include "tests/scenario/Scenario.h"

namespace quorvel::scenario {

struct Failure {
    int line = 0;
    std::string expected;
    std::string came;
};

/// What became of one scenario. It passed when nothing failed.
struct Verdict {
    std::vector<Failure> failures;
    /// Lines that could not be carried out or seen here.
    int linesLeft = 0;
};

/// Runs a scenario whose fixtures lie in `folder`. A wrong dialog, or a line that cannot be carried
/// out, ends it; after a wrong expectation it goes on, so that all of them are reported.
Verdict runScenario(const Scenario& scenario, Driver& driver, const std::filesystem::path& folder);

/// Makes the driver of one run; a fresh program folder each time. Throws ScenarioError when that is
/// not possible.
using DriverMaker = std::function<std::unique_ptr<Driver>(const Scenario&)>;

/// Runs each file and prints a line for it, with what failed and how; the last line is
/// "N passed, N failed". The result is a program's exit code: 0 when everything passed.
int runFiles(std::span<const std::filesystem::path> files, const DriverMaker& makeDriver,
             std::ostream& report);

}  // namespace quorvel::scenario
